#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "support/new_files.h"

std::string newFolder() {
  static int count = 0;
  std::string path = std::filesystem::temp_directory_path().string() + "tip2bdl-test-" +
                     std::to_string(GetCurrentProcessId()) + "-" +
                     std::to_string(GetTickCount64()) + "-" + std::to_string(++count);
  std::replace(path.begin(), path.end(), '\\', '/');  // as the tests put paths together
  if (!std::filesystem::create_directory(path)) throw std::runtime_error("no temporary folder");
  return path;
}

bool makePipe(const std::string&) { return false; }
