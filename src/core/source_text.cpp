#include "core/source_text.h"

#include <algorithm>

long LineBegins::numberOf(std::size_t begin, std::string_view text) const {
  const Offsets* offsets = made_.load();
  if (offsets == nullptr) {
    auto made = std::make_unique<Offsets>(1, 0);
    for (std::size_t at = text.find('\n'); at != std::string_view::npos;
         at = text.find('\n', at + 1)) {
      made->push_back(at + 1);
    }
    if (made_.compare_exchange_strong(offsets, made.get())) offsets = made.release();
  }
  return static_cast<long>(std::ranges::upper_bound(*offsets, begin) - offsets->begin());
}

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
  const std::string_view text = bytes();
  const Span line = lineAround(span.begin);
  const std::size_t at = std::min(span.begin, line.end);  // between CR and LF is no place
  const std::size_t end = std::clamp(span.end, at, line.end);
  return {.file = name_,
          .line = lines_.numberOf(line.begin, text),
          .column = static_cast<long>(at - line.begin) + 1,
          .length = end - at,
          .text = std::string(text.substr(line.begin, line.end - line.begin))};
}

Place SourceText::lastLine() const {
  // Behind a final line end there is no line.
  const std::size_t end = size_ > 0 && bytes().back() == '\n' ? size_ - 1 : size_;
  return placeOf(lineAround(end));
}
