#include "core/output_lines.h"

#include <algorithm>
#include <array>

namespace {

std::string_view firstLines(std::string_view text, long count) {
  std::size_t end = 0;
  for (; count > 0; --count) end = text.find('\n', end) + 1;
  return text.substr(0, end);
}

}  // namespace

bool OutputLines::takesOneMore() {
  if (count_ >= kCapacity) return false;
  ++count_;
  return true;
}

inline void OutputLines::appendCopied(const char* begin, const char* end) {
  if (begin != runEnd_) parts_.push_back({own_.size(), begin, begin});
  parts_.back().copiedEnd = runEnd_ = end;
}

bool OutputLines::WriteAgain(const Mark& from, const Mark& to) {
  const int count = to.lines - from.lines;
  if (count > kCapacity - count_) return false;
  count_ += count;
  own_.append(own_, from.bytes, to.bytes - from.bytes);
  runEnd_ = nullptr;
  return true;
}

bool OutputLines::CopyLine(const LineReader& source) {
  if (!source.endsInLineFeed()) return WriteLine(source.line());
  if (!takesOneMore()) return false;
  const char* const line = source.line().data();
  appendCopied(line, line + source.line().size() + 1);
  return true;
}

bool OutputLines::CopyLines(std::string_view lines, long count) {
  const long taken = std::min<long>(count, kCapacity - count_);
  if (taken < count) lines = firstLines(lines, taken);
  if (taken == 0) return count == 0;
  count_ += static_cast<int>(taken);
  appendCopied(lines.data(), lines.data() + lines.size());
  return taken == count;
}

void OutputLines::clear() {
  count_ = 0;
  own_.clear();
  parts_.clear();
  runEnd_ = nullptr;
}

std::string OutputLines::text() const {
  std::string text;
  copyTo(text);
  return text;
}

void OutputLines::copyTo(std::string& text) const {
  std::size_t size = own_.size();
  for (const Part& part : parts_) size += static_cast<std::size_t>(part.copiedEnd - part.copied);
  text.resize(size);  // what was there is written over
  char* end = text.data();
  handOver([&](std::string_view bytes, Origin) {
    end += bytes.copy(end, bytes.size());
    return true;
  });
}

bool OutputLines::writeTo(std::FILE* file) const {
  // In large blocks, gathered without another copy of the whole.
  std::array<char, 1 << 16> block;
  std::size_t filled = 0;
  const auto flush = [&] {
    const bool written = std::fwrite(block.data(), 1, filled, file) == filled;
    filled = 0;
    return written;
  };
  const auto write = [&](std::string_view bytes, Origin) {
    while (!bytes.empty()) {
      const std::size_t taken = bytes.copy(block.data() + filled, block.size() - filled);
      bytes.remove_prefix(taken);
      filled += taken;
      if (filled == block.size() && !flush()) return false;
    }
    return true;
  };
  return handOver(write) && flush();
}
