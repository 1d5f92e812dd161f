#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/cp1252.h"
#include "support/new_files.h"

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() : path_(newFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::write(std::string_view name, std::string_view bytes) const {
  std::string file = *this / name;
  writeFile(file, bytes);
  return file;
}

std::string TemporaryFolder::read(std::string_view name) const { return readFile(*this / name); }

bool TemporaryFolder::has(std::string_view name) const { return fs::exists(*this / name); }

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> found;
  for (const auto& entry : fs::directory_iterator(path_)) {
    found.push_back(entry.path().filename().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

namespace {

std::string readIn(std::ios::openmode mode, const std::string& path) {
  std::ifstream file(path, mode);
  EXPECT_TRUE(file.good()) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

// Not binary: where lines of an output end in CR LF, that is a line end.
std::string readFile(const std::string& path) { return readIn(std::ios::in, path); }

std::string readBytes(const std::string& path) { return readIn(std::ios::binary, path); }

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  ASSERT_TRUE(file.good()) << "cannot write " << path;
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

std::string toCp1252(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) {
    std::size_t length = 1;
    int found = -1;
    for (int byte = 0; byte < 256 && found < 0; ++byte) {
      const std::string character = cp1252::toUtf8(std::string(1, static_cast<char>(byte)));
      if (!utf8.starts_with(character)) continue;
      found = byte;
      length = character.size();
    }
    EXPECT_GE(found, 0) << "not in Windows-1252: " << utf8;
    bytes += static_cast<char>(found);
    utf8.remove_prefix(length);
  }
  return bytes;
}
