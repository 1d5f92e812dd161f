#pragma once

#include <cstdio>
#include <deque>
#include <string>
#include <string_view>

#include "core/line_reader.h"

/// The lines of an output, collected until somebody wants them. Most are copied from one input,
/// whose bytes stay where they are: that input must outlive this object.
class OutputLines {
 public:
  /// Lines that it holds; those beyond are lost without a message.
  static constexpr int kCapacity = 100000;

  /// Appends one line, put together from its parts; its line end is added. False when the capacity
  /// is used up.
  template <typename... Parts>
  bool WriteLine(const Parts&... parts) {
    if (!takesOneMore()) return false;
    (own_.append(std::string_view(parts)), ...);
    own_ += '\n';
    runEnd_ = nullptr;
    return true;
  }
  /// A place between the output's own lines.
  struct Mark {
    std::size_t bytes = 0;
    int lines = 0;
  };
  /// The one behind the last line.
  Mark mark() const { return {own_.size(), count_}; }
  /// What was written from one mark to another; nothing was copied in between.
  std::string_view written(const Mark& from, const Mark& to) const {
    return std::string_view(own_).substr(from.bytes, to.bytes - from.bytes);
  }
  /// Appends what was written from one mark to another once more; nothing was copied in between.
  /// False, and nothing is appended, where not all of it fits.
  bool WriteAgain(const Mark& from, const Mark& to);
  /// The same as `WriteLine` for the line that `source` last handed out.
  bool CopyLine(const LineReader& source);
  /// The same for `count` lines of the input, each with its line feed.
  bool CopyLines(std::string_view lines, long count);
  /// As at first, but for the room that the lines have had.
  void clear();
  /// Makes room for so many bytes of lines that are not copied; a hint that saves time.
  void expectBytes(std::size_t bytes) { own_.reserve(bytes); }

  /// Where a piece of the output comes from.
  enum class Origin { kOwn, kCopied, kOwnEnd };  // at the very end are own lines, or none
  /// Gives `sink` the bytes of all lines, in order, as long as it returns true; each time whole
  /// lines of one origin. True when it took them all.
  template <typename Sink>
  bool handOver(const Sink& sink) const;

  int count() const { return count_; }
  /// All lines, each with its line feed.
  std::string text() const;
  /// The same into a text that may have the room from before.
  void copyTo(std::string& text) const;
  /// Writes them all; false when `file` does not take them.
  bool writeTo(std::FILE* file) const;

 private:
  /// A part of the output: bytes of `own_`, and behind them a run of lines of the input.
  struct Part {
    std::size_t ownEnd;  // in own_
    const char* copied;
    const char* copiedEnd;
  };

  bool takesOneMore();
  void appendCopied(const char* begin, const char* end);

  int count_ = 0;
  std::string own_;               // the output's own lines, each with its line feed
  std::deque<Part> parts_;        // all lines, but for those at the end of own_
  const char* runEnd_ = nullptr;  // end of the run that a copied line may go on; null: of none
};

template <typename Sink>
bool OutputLines::handOver(const Sink& sink) const {
  const std::string_view own = own_;
  std::size_t at = 0;
  for (const Part& part : parts_) {
    if (!sink(own.substr(at, part.ownEnd - at), Origin::kOwn)) return false;
    if (!sink(std::string_view(part.copied, part.copiedEnd), Origin::kCopied)) return false;
    at = part.ownEnd;
  }
  return sink(own.substr(at), Origin::kOwnEnd);
}
