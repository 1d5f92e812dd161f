#include "check/written_findings.h"

#include <algorithm>
#include <utility>

WrittenFindings::WrittenFindings(const SourceText& text) : text_(&text), lines_{0} {
  const std::string_view bytes = text.bytes();
  for (std::size_t at = bytes.find('\n'); at != std::string_view::npos;
       at = bytes.find('\n', at + 1)) {
    lines_.push_back(at + 1);
  }
}

void WrittenFindings::add(Code code, Span span, std::string message, WrittenDetails details) {
  if (++counts_[code] > kMostOfACode || wanted_ == Wanted::kCodes) return;
  if (details.found.empty()) details.found = at(span);
  findings_.emplace_back(
      span.begin,
      Finding{code, std::move(message), placeOf(span), std::move(details.found),
              std::move(details.used), std::move(details.allowed), std::move(details.suggestion)});
}

Place WrittenFindings::placeOf(Span span) const {
  const std::string_view bytes = text_->bytes();
  const std::size_t at = std::min(span.begin, bytes.size());
  const auto next = std::ranges::upper_bound(lines_, at);
  const std::size_t begin = *std::prev(next);
  std::size_t end = next == lines_.end() ? bytes.size() : *next - 1;
  if (next != lines_.end() && end > begin && bytes[end - 1] == '\r') --end;
  const std::size_t spanEnd = std::clamp(span.end, at, std::max(at, end));
  return {.file = text_->name(),
          .line = static_cast<long>(next - lines_.begin()),
          .column = static_cast<long>(at - begin) + 1,
          .length = spanEnd - at,
          .text = std::string(bytes.substr(begin, end - begin))};
}

Findings WrittenFindings::take() {
  std::ranges::stable_sort(findings_, {}, [](const auto& finding) { return finding.first; });
  Findings result;
  result.reserve(findings_.size());
  for (auto& finding : findings_) result.push_back(std::move(finding.second));
  findings_.clear();
  counts_.clear();
  return result;
}

std::set<Code> WrittenFindings::takeCodes() {
  std::set<Code> codes;
  for (const auto& [code, count] : counts_) codes.insert(codes.end(), code);
  findings_.clear();
  counts_.clear();
  return codes;
}
