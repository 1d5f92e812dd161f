#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A folder of its own for one test, removed with everything in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Path of the file `name` in the folder.
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  const std::string& path() const { return path_; }

  /// Writes `bytes` into the file `name` and returns its path.
  std::string write(std::string_view name, std::string_view bytes) const;
  std::string read(std::string_view name) const;
  bool has(std::string_view name) const;
  /// Names of all files and folders in it, sorted.
  std::vector<std::string> names() const;

 private:
  std::string path_;
};

/// The bytes of a file, in the system's text mode; the test fails where it cannot be read.
std::string readFile(const std::string& path);
/// The same in no mode: as they are.
std::string readBytes(const std::string& path);
void writeFile(const std::string& path, std::string_view bytes);

/// The lines of a text; a final line end adds none.
std::vector<std::string> linesOf(std::string_view text);

/// A UTF-8 text (a test's source) in Windows-1252, the encoding of the system's files.
std::string toCp1252(std::string_view utf8);
