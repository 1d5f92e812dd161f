#pragma once

#include <string>
#include <string_view>

#include "core/output_lines.h"

/// Writes the lines that a generation puts together.
class KeywordLines {
 public:
  /// `output` must outlive this object.
  explicit KeywordLines(OutputLines& output) : output_(&output) {}

  /// Writes one line, put together from its parts.
  template <typename... Parts>
  void writeLine(const Parts&... parts) {
    // The output holds as many lines as it holds; what comes after is lost, as ever.
    output_->WriteLine(parts...);
  }
  /// Writes "  KEYWORD = value " for a text, a number ("%d") or a real ("%f").
  void writeKeyword(std::string_view keyword, std::string_view value);
  void writeKeyword(std::string_view keyword, int value);
  void writeKeyword(std::string_view keyword, float value);
  /// `value` as "%f" writes it, for a line about `keyword`. NaN and infinities have no place in the
  /// output; the first one is remembered.
  std::string formatFinite(std::string_view keyword, float value);

  /// The first keyword with a NaN or an infinity, and its value; empty: there was none.
  const std::string& notFiniteKeyword() const { return notFiniteKeyword_; }
  float notFiniteValue() const { return notFiniteValue_; }

 private:
  OutputLines* output_;
  std::string notFiniteKeyword_;
  float notFiniteValue_ = 0;
};
