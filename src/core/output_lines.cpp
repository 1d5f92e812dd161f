#include "core/output_lines.h"

#include <array>

bool OutputLines::takesOneMore() {
  if (count_ >= kCapacity) return false;
  ++count_;
  return true;
}

bool OutputLines::CopyLine(const LineReader& source) {
  if (!source.endsInLineFeed()) return WriteLine(source.line());
  if (!takesOneMore()) return false;
  const char* const line = source.line().data();
  if (line != runEnd_) parts_.push_back({own_.size(), line, line});
  parts_.back().copiedEnd = runEnd_ = line + source.line().size() + 1;
  return true;
}

/// Gives `sink` the bytes of all lines, in order, as long as it takes them.
template <typename Sink>
bool OutputLines::handOver(const Sink& sink) const {
  const std::string_view own = own_;
  std::size_t at = 0;
  for (const Part& part : parts_) {
    if (!sink(own.substr(at, part.ownEnd - at)) || !sink({part.copied, part.copiedEnd})) {
      return false;
    }
    at = part.ownEnd;
  }
  return sink(own.substr(at));
}

std::string OutputLines::text() const {
  std::size_t size = own_.size();
  for (const Part& part : parts_) size += static_cast<std::size_t>(part.copiedEnd - part.copied);
  std::string text;
  text.reserve(size);
  handOver([&](std::string_view bytes) {
    text += bytes;
    return true;
  });
  return text;
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
  const auto write = [&](std::string_view bytes) {
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
