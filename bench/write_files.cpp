// The floor of a list of dwellings: its outputs written again, the same bytes into the same
// folders, by two threads that do nothing else.
//   write_files FOLDER COPY      FOLDER: of a finished list
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <chrono>
#include <cstdio>

namespace fs = std::filesystem;

int main(int argc, char* argv[]) {
  if (argc != 3) return 2;
  const fs::path copy = argv[2];
  std::vector<std::pair<std::string, std::string>> files;
  for (const auto& entry : fs::recursive_directory_iterator(argv[1])) {
    if (entry.path().extension() != ".bdl") continue;
    const fs::path target = copy / entry.path().lexically_relative(argv[1]);
    fs::create_directories(target.parent_path());
    std::ifstream in(entry.path(), std::ios::binary);
    files.emplace_back(target.string(), std::string(std::istreambuf_iterator<char>(in), {}));
  }
  const auto start = std::chrono::steady_clock::now();
  const auto write = [&files](std::size_t first) {
    for (std::size_t i = first; i < files.size(); i += 2) {
      std::FILE* file = std::fopen(files[i].first.c_str(), "w");
      if (file == nullptr) continue;
      std::setvbuf(file, nullptr, _IONBF, 0);
      std::fwrite(files[i].second.data(), 1, files[i].second.size(), file);
      std::fclose(file);
    }
  };
  {
    const std::jthread other(write, std::size_t{1});
    write(0);
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  std::printf("%.6f\n", taken.count());
  return 0;
}
