#include "stock/results_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/file_faults.h"
#include "core/paths.h"
#include "stock/disk_fault.h"
#include "stock/hash.h"
#include "stock/outcome.h"
#include "stock/refusal.h"
#include "stock/result_files.h"

namespace fs = std::filesystem;

namespace stock {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Reads a line and its line end. False at the end, and for a piece of a line.
bool readWholeLine(std::istream& in, std::string& line) {
  if (!std::getline(in, line) || in.eof() || !line.ends_with('\r')) return false;
  line.pop_back();
  return true;
}

}  // namespace

ResultsFile::ResultsFile(std::string path, bool search) : path_(std::move(path)) {
  load(search);
  std::error_code failed;
  if (size_ == 0) {
    fs::remove(filePath(path_), failed);
  } else {
    fs::resize_file(filePath(path_), size_, failed);
    if (failed) fail();
  }
  openToAppend();
  if (size_ == 0) append(resultsHeading());
}

void ResultsFile::openToAppend() {
  file_.reset(openFile(path_, "ab"));
  if (file_ == nullptr) throw DiskFault{cannotOpenForWriting(path_).message};
  // In one piece: a line is one call of the system.
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

void ResultsFile::fail() const { throw DiskFault{cannotWrite(path_).message}; }

/// Finds the lines that are there, up to the first that is not whole. They are counted first: what
/// grows is for a while there twice.
void ResultsFile::load(bool search) {
  if (search) lines_.reserve(static_cast<std::size_t>(std::max(countRows(path_), 0L)));
  std::ifstream in(filePath(path_), std::ios::binary);
  std::string line;
  if (!readWholeLine(in, line) || line + std::string(kLineEnd) != resultsHeading()) return;
  size_ = line.size() + kLineEnd.size();
  while (readWholeLine(in, line)) {
    const auto cells = cellsOf(line);
    if (!cells) break;
    if (search) lines_.push_back({hashOf((*cells)[kResultId]), size_});
    ++earlierLines_;
    size_ += line.size() + kLineEnd.size();
  }
  lineCount_ = static_cast<std::size_t>(earlierLines_);
  std::ranges::sort(lines_, {}, &Line::key);
}

/// Lines are asked for nearly in the order in which they stand, so that a window of the file serves
/// many of them.
std::string ResultsFile::lineAt(std::uint64_t offset) {
  if (!isInWindow(offset)) moveWindowTo(offset);
  if (isInWindow(offset)) {
    const std::size_t begin = static_cast<std::size_t>(offset - windowBegin_);
    return window_.substr(begin, window_.find(kLineEnd, begin) - begin);
  }
  // One that is longer than the window.
  reader_.clear();
  reader_.seekg(static_cast<std::streamoff>(offset));
  std::string line;
  if (!readWholeLine(reader_, line)) fail();
  return line;
}

bool ResultsFile::isInWindow(std::uint64_t offset) const {
  return offset >= windowBegin_ && offset - windowBegin_ < window_.size() &&
         window_.find(kLineEnd, static_cast<std::size_t>(offset - windowBegin_)) !=
             std::string::npos;
}

void ResultsFile::moveWindowTo(std::uint64_t offset) {
  constexpr std::size_t kSize = std::size_t{1} << 16;  // bytes
  constexpr std::uint64_t kBefore = kSize / 8;         // of them for lines before that one
  if (!reader_.is_open()) reader_.open(filePath(path_), std::ios::binary);
  windowBegin_ = offset - std::min(offset, kBefore);
  window_.resize(kSize);
  reader_.clear();
  reader_.seekg(static_cast<std::streamoff>(windowBegin_));
  reader_.read(window_.data(), static_cast<std::streamsize>(kSize));
  window_.resize(static_cast<std::size_t>(std::max(reader_.gcount(), std::streamsize{0})));
}

std::optional<ResultsFile::Known> ResultsFile::find(std::string_view id, const Counts& counts) {
  const std::uint64_t hash = hashOf(id);
  const auto first = std::ranges::lower_bound(lines_, hash, {}, &Line::id);
  const std::lock_guard lock(mutex_);
  for (auto line = std::ranges::upper_bound(lines_, hash, {}, &Line::id); line != first;) {
    --line;
    auto cells = cellsOf(lineAt(line->offset));
    if (!cells || (*cells)[kResultId] != id) continue;
    // An ID that is there twice tells nothing of the first row that has it.
    const bool thisOne = counts ? counts(*cells) : (*cells)[kResultCode] != kRepeatedId;
    if (thisOne) return Known{*std::move(cells), line->offset};
  }
  return std::nullopt;
}

std::uint64_t ResultsFile::append(std::string_view line) {
  const std::lock_guard lock(mutex_);
  if (file_ == nullptr) fail();
  // cppcheck-suppress danglingTemporaryLifetime ; the stream is the member's
  const bool written = std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size() &&
                       std::fflush(file_.get()) == 0;
  if (!written) {
    // Back to the last whole line.
    file_.reset();
    std::error_code ignored;
    fs::resize_file(filePath(path_), size_, ignored);
    fail();
  }
  const std::uint64_t offset = size_;
  size_ += line.size();
  if (offset > 0) ++lineCount_;  // the heading is none
  return offset;
}

void ResultsFile::arrange(std::span<const std::uint64_t> offsets, const Dropped& dropped) {
  const std::lock_guard lock(mutex_);
  const std::string beside = path_ + std::string(kUnfinished);
  std::error_code failed;
  {
    OpenedFile out(openFile(beside, "wb"));
    if (out == nullptr) throw DiskFault{cannotOpenForWriting(beside).message};
    const auto put = [&](const std::string& text) {
      if (std::fwrite(text.data(), 1, text.size(), out.get()) == text.size()) return;
      fs::remove(filePath(beside), failed);
      fail();
    };
    put(resultsHeading());
    for (const std::uint64_t offset : offsets) put(lineAt(offset).append(kLineEnd));
    if (std::fclose(out.release()) != 0) {
      fs::remove(filePath(beside), failed);
      fail();
    }
  }
  reader_.close();
  file_.reset();
  lines_ = std::vector<Line>();  // of the file as it was; from "{}" it would keep its room
  if (dropped && lineCount_ > offsets.size()) dropped(path_, beside);
  fs::rename(filePath(beside), filePath(path_), failed);
  if (failed) fail();
}

bool ResultsFile::readLines(const std::string& path,
                            const std::function<void(const std::string& line)>& take) {
  std::ifstream in(filePath(path), std::ios::binary);
  std::string line;
  if (!readWholeLine(in, line) || line + std::string(kLineEnd) != resultsHeading()) return false;
  do take(line);
  while (readWholeLine(in, line));
  return true;
}

long ResultsFile::countRows(const std::string& path) {
  long rows = -1;
  readLines(path, [&](const std::string&) { ++rows; });
  return rows;
}

}  // namespace stock
