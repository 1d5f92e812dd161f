#pragma once

#include <concepts>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "core/source_text.h"

/// What a finding says besides its message; see Finding.
struct WrittenDetails {
  std::string found, used, allowed, suggestion;
};

/// All that it says.
struct WrittenWords {
  std::string message;
  WrittenDetails details;
};

/// Collects the findings of one text. Of a code at most kMostOfACode are kept, the first ones that
/// were added: a file of another kind would otherwise fill pages with one and the same.
class WrittenFindings {
 public:
  static constexpr std::size_t kMostOfACode = 100;

  /// `text` must outlive this object.
  explicit WrittenFindings(const SourceText& text) : lines_(text) {}

  const SourceText& text() const { return lines_.text(); }
  std::string_view at(Span span) const {
    return text().bytes().substr(span.begin, span.end - span.begin);
  }

  /// `found` is the text of the span where the details give none.
  void add(Code code, Span span, std::string message, WrittenDetails details = {});
  /// `words`: makes them, if they are wanted.
  void add(Code code, Span span, const std::invocable auto& words) {
    if (wanted_ == Wanted::kCodes) return add(code, span, std::string());
    WrittenWords made = words();
    add(code, span, std::move(made.message), std::move(made.details));
  }

  /// Whether further ones of the code are dropped, so that nobody need look for them.
  bool hasAllOf(Code code) const {
    const auto count = counts_.find(code);
    return count != counts_.end() && count->second >= kMostOfACode;
  }

  /// In the order of their places; those of one place as they were added. Empties this.
  Findings take();

  /// Of those that are added from now on.
  void want(Wanted wanted) { wanted_ = wanted; }
  /// The codes of all that was added. Empties this.
  std::set<Code> takeCodes();

 private:
  Wanted wanted_ = Wanted::kFindings;
  LineIndex lines_;
  std::map<Code, std::size_t> counts_;
  std::vector<std::pair<std::size_t, Finding>> findings_;  // with the offset of the span
};
