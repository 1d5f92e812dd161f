#include "check/written_findings.h"

#include <algorithm>
#include <utility>

void WrittenFindings::add(Code code, Span span, std::string message, WrittenDetails details) {
  if (++counts_[code] > kMostOfACode || wanted_ == Wanted::kCodes) return;
  if (details.found.empty()) details.found = at(span);
  findings_.emplace_back(
      span.begin,
      Finding{code, std::move(message), lines_.placeOf(span), std::move(details.found),
              std::move(details.used), std::move(details.allowed), std::move(details.suggestion)});
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
