#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "report/svg_writer.h"

namespace report {

/// Puts a page together. Markup comes from literals alone; what is known only when it runs goes in
/// as text, through the one escape.
class HtmlWriter {
 public:
  template <std::size_t N>
  HtmlWriter& raw(const char (&markup)[N]) {
    page_.append(markup, N - 1);
    return *this;
  }
  HtmlWriter& text(std::string_view words) {
    page_ += escaped(words);
    return *this;
  }
  /// The drawing, in its own words.
  HtmlWriter& drawing(const Drawing& drawing, std::string_view id) {
    page_ += svg(drawing, SvgPlace::kInPage, id);
    return *this;
  }
  HtmlWriter& style(const std::string& css) {
    page_ += css;
    return *this;
  }
  std::string take() { return std::move(page_); }

 private:
  std::string page_;
};

/// A page from its first byte to its heading, in a <header> that is still open. `kind` stands
/// before `title` where a browser names the page; `moreStyle` follows the style sheet.
void beginPage(HtmlWriter& html, std::string_view kind, std::string_view title,
               const std::string& moreStyle = {});
/// From the end of <main> on: who made the page, and a sentence.
void endPage(HtmlWriter& html, std::string_view program, std::string_view sentence);

/// A number with its name, inside a <dl class="cifras">.
void addFigure(HtmlWriter& html, std::string_view name, std::string_view value);

/// A table whose rows are texts. The first column heads its rows; columns from `firstNumber` on
/// are set to the right.
class HtmlTable {
 public:
  HtmlTable(std::string caption, std::vector<std::string> heads, std::size_t firstNumber)
      : caption_(std::move(caption)), heads_(std::move(heads)), firstNumber_(firstNumber) {}

  void row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  /// Closes the table: a sum.
  void total(std::vector<std::string> cells) { total_ = std::move(cells); }
  bool empty() const { return rows_.empty(); }
  void write(HtmlWriter& html) const;

 private:
  void writeRow(HtmlWriter& html, const std::vector<std::string>& cells) const;

  std::string caption_;
  std::vector<std::string> heads_;
  std::size_t firstNumber_;
  std::vector<std::vector<std::string>> rows_;
  std::vector<std::string> total_;
};

/// The style sheet of a report.
std::string pageStyle();

}  // namespace report
