#include "core/whole_file.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/file_faults.h"
#include "core/open_file.h"
#include "core/paths.h"
#include "core/report_error.h"

namespace {

namespace fs = std::filesystem;

/// Where the result really goes: behind links, so that a link stays one, also to what is not there
/// yet.
fs::path targetOf(const std::string& name) {
  constexpr int kMostLinks = 40;  // as a system follows; more go round in circles
  std::error_code error;
  fs::path path = filePath(name);
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
    const fs::path target = fs::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / target;  // just the target where that is absolute
  }
  return path;
}

/// Creates a file beside `target` that was not there, and gives its path.
OpenedFile createBeside(const fs::path& target, fs::path& created) {
  for (int attempt = 0; attempt < 1000; ++attempt) {
    created = target;
    created += ".parcial" + (attempt == 0 ? std::string() : std::to_string(attempt));
    OpenedFile stream(createNewFile(nameOf(created)));
    std::error_code error;
    if (stream || !fs::exists(created, error)) return stream;
  }
  return nullptr;
}

bool writeAll(OpenedFile& stream, std::string_view bytes) {
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
  const bool flushed = std::fflush(stream.get()) == 0;
  return std::fclose(stream.release()) == 0 && written && flushed;
}

void requireOpen(const OpenedFile& stream, const std::string& name) {
  if (!stream) ReportFailure(ErrorLog, cannotOpenForWriting(name));
}

[[noreturn]] void failToWrite(const std::string& name) {
  ReportFailure(ErrorLog, cannotWrite(name));
}

}  // namespace

void writeWholeFile(const std::string& path, std::string_view bytes) {
  std::error_code error;
  const fs::path target = targetOf(path);
  if (fs::exists(target, error) && !fs::is_regular_file(target, error)) {
    OpenedFile stream(openFile(path, "wb"));
    requireOpen(stream, path);
    if (!writeAll(stream, bytes)) failToWrite(path);
    return;
  }
  fs::path partial;
  OpenedFile stream = createBeside(target, partial);
  requireOpen(stream, path);
  bool whole = writeAll(stream, bytes);
  if (whole) {
    fs::rename(partial, target, error);
    whole = !error;
  }
  if (whole) return;
  fs::remove(partial, error);
  failToWrite(path);
}
