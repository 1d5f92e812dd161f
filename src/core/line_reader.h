#pragma once

#include <cstddef>
#include <string_view>

#include "core/source_text.h"

/// Hands out the lines of one text, in order, once. Many readers may share a text.
///
/// A text that ends in a line end hands out its last line twice, and an empty one an empty line:
/// the templates and tables of the chain have always been read so, and generated files show it.
class LineReader {
 public:
  /// Longest piece that one read takes, line end included; a longer line comes in several pieces.
  static constexpr std::size_t kLongestRead = 19999;

  /// `text` must outlive the reader.
  explicit LineReader(std::string_view text) : text_(text), last_(text.substr(0, 0)) {}

  /// Puts the next line, without its LF or CR LF, into `dest`: a view into the text. False, with
  /// `dest` as it was, when no line is left.
  bool ReadLine(std::string_view& dest);

  /// The line last handed out.
  std::string_view line() const { return last_; }
  /// Its number, from 1; a repeated last line has a number of its own.
  long lineNumber() const { return handedOut_; }
  /// Where it stands in the text.
  Span span() const {
    const auto begin = static_cast<std::size_t>(last_.data() - text_.data());
    return {begin, begin + last_.size()};
  }
  /// Whether the text goes on behind it with a line feed, so that line and line end can be taken
  /// from the text in one go. Not behind a CR LF, nor where a line was cut or the text ends.
  bool endsInLineFeed() const { return endsInLineFeed_; }

  /// Lines that the text really has, the repeat not counted.
  long lineCount() const;

 private:
  bool metTheEnd() const;

  std::string_view text_;
  std::size_t position_ = 0;  // where the next line begins
  std::string_view last_;
  bool endsInLineFeed_ = false;
  bool repeatsLast_ = true;  // the last line has not yet gone out once more
  long handedOut_ = 0;
};
