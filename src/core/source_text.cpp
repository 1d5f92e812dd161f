#include "core/source_text.h"

#include <algorithm>

namespace {

/// `span` in `line`, the line of the text that holds its begin.
Place placeIn(const SourceText& text, Span span, Span line, long number) {
  const std::size_t at = std::min(span.begin, line.end);  // between CR and LF is no place
  const std::size_t end = std::clamp(span.end, at, line.end);
  return {.file = text.name(),
          .line = number,
          .column = static_cast<long>(at - line.begin) + 1,
          .length = end - at,
          .text = std::string(text.bytes().substr(line.begin, line.end - line.begin))};
}

}  // namespace

SourceText::SourceText(std::string name, std::string_view bytes)
    : name_(std::move(name)),
      buffer_(std::make_unique_for_overwrite<char[]>(bytes.size())),
      size_(bytes.copy(buffer_.get(), bytes.size())) {}

Span SourceText::lineAround(std::size_t offset) const {
  const std::string_view text = bytes();
  offset = std::min(offset, text.size());
  const std::size_t before = offset == 0 ? std::string_view::npos : text.rfind('\n', offset - 1);
  const std::size_t begin = before + 1;  // npos + 1 is 0
  std::size_t end = std::min(text.find('\n', offset), text.size());
  if (end < text.size() && end > begin && text[end - 1] == '\r') --end;
  return {begin, end};
}

Place SourceText::placeOf(Span span) const {
  const Span line = lineAround(span.begin);
  const auto before = std::ranges::count(bytes().substr(0, line.begin), '\n');
  return placeIn(*this, span, line, static_cast<long>(before) + 1);
}

Place SourceText::lastLine() const {
  // Behind a final line end there is no line.
  const std::size_t end = size_ > 0 && bytes().back() == '\n' ? size_ - 1 : size_;
  return placeOf(lineAround(end));
}

LineIndex::LineIndex(const SourceText& text) : text_(&text), begins_{0} {
  const std::string_view bytes = text.bytes();
  for (std::size_t at = bytes.find('\n'); at != std::string_view::npos;
       at = bytes.find('\n', at + 1)) {
    begins_.push_back(at + 1);
  }
}

Place LineIndex::placeOf(Span span) const {
  const Span line = text_->lineAround(span.begin);
  const auto behind = std::ranges::upper_bound(begins_, line.begin);
  return placeIn(*text_, span, line, static_cast<long>(behind - begins_.begin()));
}
