#include "stock/outputs.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/concat.h"
#include "core/file_faults.h"
#include "core/open_file.h"
#include "core/paths.h"
#include "stock/disk_fault.h"
#include "stock/result_files.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

constexpr long kFolderSize = 1000;  // rows
constexpr std::string_view kExtension = "bdl";

}  // namespace

Outputs::Outputs(std::string folder, const Shard& shard)
    : folder_(std::move(folder)), unfinished_(shard.nameOf(kUnfinished)) {}

std::string Outputs::nameOf(std::string_view id, long number) {
  std::array<char, 32> folder{};
  std::snprintf(folder.data(), folder.size(), "%06ld/", (number - 1) / kFolderSize);
  return concat(folder.data(), id, ".", kExtension);
}

std::string Outputs::typologyOf(std::string_view output) {
  return concat(output.substr(0, output.size() - kExtension.size()), "tip");
}

void Outputs::put(const std::string& name, std::string_view bytes, const char* mode) const {
  const std::string path = folder_ + name;
  const std::string beside = path + unfinished_;
  std::FILE* file = openFile(beside, mode);
  std::error_code failed;
  if (file == nullptr) {
    fs::create_directories(filePath(folderOf(path)), failed);
    file = openFile(beside, mode);
  }
  if (file != nullptr) {
    std::setvbuf(file, nullptr, _IONBF, 0);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    const bool closed = std::fclose(file) == 0;
    if (written && closed) {
      fs::rename(filePath(beside), filePath(path), failed);
      if (!failed) return;
    }
    fs::remove(filePath(beside), failed);
  }
  throw DiskFault{cannotWrite(path).message};
}

bool Outputs::has(const std::string& name) const {
  std::error_code missing;
  const auto size = fs::file_size(filePath(folder_ + name), missing);
  return !missing && size > 0;
}

void Outputs::remove(const std::string& output) const {
  removeFile(output);
  removeTypologyOf(output);
}

void Outputs::removeTypologyOf(const std::string& output) const { removeFile(typologyOf(output)); }

void Outputs::removeFile(const std::string& name) const {
  std::error_code ignored;
  fs::remove(filePath(folder_ + name), ignored);
  fs::remove(filePath(folder_ + name + unfinished_), ignored);
}

}  // namespace stock
