#pragma once

#include <optional>
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
  /// Writes "  KEYWORD = value " for a text, a number ("%d") or a real ("%f"). `origin`: the
  /// keyword of VIVIENDA that the real comes from, to blame where it is not finite; empty where it
  /// comes from several.
  void writeKeyword(std::string_view keyword, std::string_view value);
  void writeKeyword(std::string_view keyword, int value);
  void writeKeyword(std::string_view keyword, float value, std::string_view origin);
  void writeKeyword(std::string_view keyword, float value) = delete;  // would be cut to a number
  /// `value` as "%f" writes it, for a line about `keyword`. NaN and infinities have no place in the
  /// output; the first one is remembered.
  std::string formatFinite(std::string_view keyword, float value, std::string_view origin);

  /// The first real that is a NaN or an infinity.
  struct NotFinite {
    std::string keyword;
    float value = 0;
    std::string origin;
  };
  const std::optional<NotFinite>& notFinite() const { return notFinite_; }

 private:
  OutputLines* output_;
  std::optional<NotFinite> notFinite_;
};
