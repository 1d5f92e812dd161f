#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/fault.h"

/// A piece of a text, by offsets in its bytes; `end` is the first one behind it.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The bytes of an input and the name under which messages speak of it. Readers take one of these,
/// so that a test gives them a literal; opening a path is `fichero`'s. Never changes, and what
/// views its bytes may live as long as it does, moved or not.
class SourceText {
 public:
  /// Copies `bytes`.
  SourceText(std::string name, std::string_view bytes);
  /// Takes over a buffer of which the first `size` bytes are the text.
  SourceText(std::string name, std::unique_ptr<char[]> buffer, std::size_t size)
      : name_(std::move(name)), buffer_(std::move(buffer)), size_(size) {}

  SourceText(SourceText&& other) noexcept
      : name_(std::move(other.name_)),
        buffer_(std::move(other.buffer_)),
        size_(std::exchange(other.size_, 0)) {}
  SourceText& operator=(SourceText&& other) noexcept {
    name_ = std::move(other.name_);
    buffer_ = std::move(other.buffer_);
    size_ = std::exchange(other.size_, 0);
    return *this;
  }

  const std::string& name() const { return name_; }
  std::string_view bytes() const { return {buffer_.get(), size_}; }

  /// Where `span` stands. One that reaches over several lines is cut at the end of its first; the
  /// text's end is a place too. A line ends at a line feed, or at the two of CR LF; a lone CR is a
  /// character like any other. (A LineReader counts the pieces of a line of 20000 bytes and the
  /// repeat of the last one as lines of their own, and so do messages with a line number.)
  /// Counts the lines before it each time: who asks for many places has a LineIndex.
  Place placeOf(Span span) const;
  /// The line that holds the offset, its line end left out.
  Span lineAround(std::size_t offset) const;
  /// The text's last line.
  Place lastLine() const;

 private:
  std::string name_;
  std::unique_ptr<char[]> buffer_;
  std::size_t size_;
};

/// The lines of a text, counted once for all the places that are asked of it. The text outlives it.
class LineIndex {
 public:
  explicit LineIndex(const SourceText& text);

  const SourceText& text() const { return *text_; }
  /// As SourceText::placeOf.
  Place placeOf(Span span) const;

 private:
  const SourceText* text_;
  std::vector<std::size_t> begins_;
};
