#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>

#include "support/new_files.h"

std::string newFolder() {
  std::string path = (std::filesystem::temp_directory_path() / "tip2bdl-test-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return path;
}

bool makePipe(const std::string& path) { return mkfifo(path.c_str(), 0600) == 0; }
