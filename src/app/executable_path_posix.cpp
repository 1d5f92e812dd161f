#include <filesystem>
#include <system_error>

#include "app/executable_path.h"

std::string executablePath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}
