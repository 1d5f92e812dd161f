// The main of a target in a build without libFuzzer: runs it over the files of the given folders.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "fuzz_support.h"

namespace fs = std::filesystem;

int main(int argc, char* argv[]) {
  std::vector<fs::path> files;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : fs::recursive_directory_iterator(argv[i])) {
      if (entry.is_regular_file()) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) {
    // Named beforehand: the last name is the one that a crash belongs to.
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);
    const std::string bytes = readFile(file.string());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  std::printf("%zu inputs\n", files.size());
  return files.empty() ? 1 : 0;  // a test without inputs shows nothing
}
