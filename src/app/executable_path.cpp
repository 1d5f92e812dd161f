#include "app/executable_path.h"

#include <filesystem>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

std::string executablePath() {
#ifdef _WIN32
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return path;
#else
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
#endif
}
