#include "stock/journal.h"

#include <algorithm>
#include <charconv>
#include <fstream>

#include "core/concat.h"
#include "core/file_faults.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "stock/disk_fault.h"

namespace stock {

namespace {

constexpr std::string_view kBegin = "inicio";
constexpr std::string_view kEnd = "fin";

bool takeNumber(std::string_view& text, long& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end == text.data() + text.size() || *end != ';') return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
  return true;
}

}  // namespace

Journal::Journal(const std::string& path, bool goOn)
    : path_(path), file_(openFile(path, goOn ? "ab" : "wb")) {
  if (file_ == nullptr) throw DiskFault{cannotOpenForWriting(path).message};
  // A piece of a line may be there; and what was finished is not any more.
  put(concat(goOn ? "\r\n" : "", kBegin, "\r\n"));
  if (std::fflush(file_.get()) != 0) throw DiskFault{cannotWrite(path).message};
}

void Journal::put(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), file_.get());
}

void Journal::addRow(std::string_view id, std::string_view state, double seconds) {
  std::string digits = formatReal(static_cast<float>(seconds));
  std::ranges::replace(digits, '.', ',');
  const std::lock_guard lock(mutex_);
  put(concat(id, ";", state, ";", digits, "\r\n"));
}

void Journal::finish(const ShardEnd& end) {
  const std::lock_guard lock(mutex_);
  put(concat(kEnd, ";", std::to_string(end.listRows), ";", std::to_string(end.rows), ";",
             end.inputs, "\r\n"));
  if (std::fflush(file_.get()) != 0 || std::ferror(file_.get()) != 0) {
    throw DiskFault{cannotWrite(path_).message};
  }
}

std::optional<ShardEnd> Journal::endOf(const std::string& path) {
  std::ifstream in(filePath(path), std::ios::binary);
  std::string line, last;
  while (std::getline(in, line)) last = line;
  std::string_view text = last;
  if (!text.ends_with('\r') || !text.starts_with(kEnd) ||
      !text.substr(kEnd.size()).starts_with(';')) {
    return std::nullopt;
  }
  text.remove_prefix(kEnd.size() + 1);
  text.remove_suffix(1);
  ShardEnd end;
  if (!takeNumber(text, end.listRows) || !takeNumber(text, end.rows)) return std::nullopt;
  end.inputs = text;
  return end;
}

}  // namespace stock
