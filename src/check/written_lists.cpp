#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "check/written_vivienda.h"
#include "core/concat.h"
#include "core/cp1252.h"

// A list of four percentages of VIVIENDA.

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::size_t kFacades = 4;
constexpr std::string_view kFour = "cuatro valores entre 0 y 100, separados por comas";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool beginsNumber(char c) { return isDigit(c) || c == '+' || c == '-' || c == '.'; }

constexpr std::string_view kBlanks = " \t\r\n";

Span trimmed(std::string_view bytes, Span span) {
  while (span.end > span.begin && kBlanks.find(bytes[span.end - 1]) != kNone) --span.end;
  while (span.end > span.begin && kBlanks.find(bytes[span.begin]) != kNone) ++span.begin;
  return span;
}

class ListInBoth {
 public:
  ListInBoth(WrittenVivienda& vivienda, const KeywordInBoth& keyword)
      : run_(vivienda.run),
        findings_(vivienda.findings),
        keyword_(keyword),
        written_(*keyword.written),
        name_(keyword.row->name) {}

  void compare() {
    used_ = takenBy(run_, *keyword_.row, *keyword_.hit);
    if (written_.kind != WrittenKeyword::Value::kList) return withoutParentheses();
    if (!written_.closed) return unclosed();
    // The run looks for a ")" further on where it stands right behind the "(".
    const Span items = {written_.value.begin + 1, written_.value.end - 1};
    const std::string_view text = findings_.at(items);
    compareRest();
    splitAt(items, text);
    if (isSplitOtherwise()) return otherSeparator(text);
    if (hasDecimalCommas(text)) return decimalCommas(text);
    if (items_.size() > kFacades) return;  // the run ends and says why
    if (items_.size() < kFacades) tooShort();
    // Of an empty list that is all there is to say.
    if (items_.size() == 1 && text.find_first_not_of(kBlanks) == kNone) return;
    for (const Span item : items_) compareItem(item);
  }

 private:
  void add(Code code, Span span, std::string message, std::string suggestion) {
    findings_.add(code, span, std::move(message),
                  {.found = {},
                   .used = used_,
                   .allowed = std::string(kFour),
                   .suggestion = std::move(suggestion)});
  }
  /// "; se leerá ( 12, 0, 0, 0 )"
  std::string reading() const {
    return used_.empty() ? std::string("la ejecución se detendrá"_cp1252)
                         : concat("se leerá "_cp1252, used_);
  }

  void compareRest() {
    const std::string_view rest = findings_.at(written_.rest);
    if (rest.find_first_not_of(".,;:") == kNone) return;
    findings_.add(Code::kUnidadEnNumero, written_.rest,
                  concat("Detrás de la lista de "_cp1252, name_, " sobra texto, que no se lee"),
                  {.found = {},
                   .used = used_,
                   .allowed = std::string(kFour),
                   .suggestion = std::string(findings_.at(written_.value))});
  }

  void withoutParentheses() {
    Span span = written_.value;
    if (written_.rest.end > span.end) span.end = written_.rest.end;
    std::string values(findings_.at(span));
    add(Code::kListaSinParentesis, span,
        concat("La lista de ", name_, " no está entre paréntesis: "_cp1252, reading()),
        concat("( ", values, " )"));
  }

  void unclosed() {
    add(Code::kListaSinCerrar, written_.value,
        concat("La lista de ", name_, " no se cierra con un paréntesis: "_cp1252, reading()),
        concat(findings_.at(written_.value), " )"));
  }

  void splitAt(Span items, std::string_view text) {
    std::size_t begin = 0;
    for (std::size_t comma = text.find(','); begin <= text.size(); comma = text.find(',', begin)) {
      const std::size_t end = std::min(comma, text.size());
      items_.push_back({items.begin + begin, items.begin + end});
      begin = end + 1;
    }
  }

  /// A ";" or a blank between numbers.
  bool isSplitOtherwise() const {
    return std::ranges::any_of(items_, [&](Span item) {
      const std::string_view text = findings_.at(trimmed(findings_.text().bytes(), item));
      if (text.find(';') != kNone) return true;
      const std::size_t blank = text.find_first_of(" \t\r\n");
      const std::size_t next = text.find_first_not_of(" \t\r\n", std::min(blank, text.size()));
      return next != kNone && beginsNumber(text.front()) && beginsNumber(text[next]);
    });
  }

  void otherSeparator(std::string_view text) {
    const bool semicolons = text.find(';') != kNone;
    std::string list;
    std::size_t count = 0;
    const std::string_view separators = semicolons ? ";" : " \t\r\n";
    for (std::size_t at = 0; at < text.size() && count <= kFacades;) {
      const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
      const std::string number = meantNumber(text.substr(at, end - at));
      if (!number.empty()) list += concat(count++ == 0 ? "( " : ", ", number);
      at = end + 1;
    }
    add(Code::kSeparadorDeLista, written_.value,
        concat("Los valores de ", name_, " no están separados por comas: "_cp1252, reading()),
        count == kFacades ? list + " )" : std::string());
  }

  /// Between two digits, where the others have a blank behind them, or where there are twice as
  /// many as there should be. Nobody who writes decimal points means it so.
  bool hasDecimalCommas(std::string_view text) {
    std::size_t loose = 0;
    for (std::size_t at = text.find(','); at != kNone; at = text.find(',', at + 1)) {
      const bool tight =
          at > 0 && at + 1 < text.size() && isDigit(text[at - 1]) && isDigit(text[at + 1]);
      const bool blank = at + 1 < text.size() && kBlanks.find(text[at + 1]) != kNone;
      tight_ += tight ? 1 : 0;
      loose += blank ? 1 : 0;
    }
    if (tight_ == 0 || text.find('.') != kNone) return false;
    return loose > 0 || items_.size() == 2 * kFacades;
  }

  void decimalCommas(std::string_view text) {
    const bool pairs = tight_ == items_.size() - 1;
    std::string list(text);
    std::size_t number = 0;
    std::size_t first = kNone;
    for (std::size_t at = 1; at + 1 < list.size(); ++at) {
      if (list[at] != ',') continue;
      const bool tight = isDigit(text[at - 1]) && isDigit(text[at + 1]);
      if (!tight || (pairs && number++ % 2 == 1)) continue;
      if (first == kNone) first = at;
      list[at] = '.';
    }
    if (pairs) {
      for (std::size_t at = list.find(','); at != kNone; at = list.find(',', at + 1)) {
        list.insert(at + 1, " ");
      }
    }
    const Span span = {keyword_.written->value.begin + 1 + numberBegin(text, first),
                       keyword_.written->value.begin + 1 + numberEnd(text, first)};
    add(Code::kComaDecimal, span,
        concat("La lista de ", name_, " lleva comas decimales: "_cp1252, reading()),
        concat("(", list, ")"));
  }
  static std::size_t numberBegin(std::string_view text, std::size_t comma) {
    while (comma > 0 && isDigit(text[comma - 1])) --comma;
    return comma;
  }
  static std::size_t numberEnd(std::string_view text, std::size_t comma) {
    do ++comma;
    while (comma < text.size() && isDigit(text[comma]));
    return comma;
  }

  void tooShort() {
    add(Code::kListaCorta, written_.value,
        concat("La lista de ", name_, " tiene menos de cuatro valores: ", reading()), {});
  }

  void compareItem(Span span) {
    const Span item = trimmed(findings_.text().bytes(), span);
    const std::string_view text = findings_.at(item);
    const auto number = text.empty() ? std::nullopt : run_.realAt(item.begin);
    if (!number) return notANumber(item);
    const float value = number->value;
    const auto addItem = [&](Code code, const std::string& words, std::string suggestion) {
      findings_.add(code, item, concat("Un valor de ", name_, words),
                    {.found = {},
                     .used = plainNumber(value),
                     .allowed = "0 a 100",
                     .suggestion = std::move(suggestion)});
    };
    if (!std::isfinite(value)) {
      return addItem(Code::kNumeroNoFinito, std::string(" no es un número finito"_cp1252), {});
    }
    const std::string taken(findings_.at(number->span));
    if (number->span.end < item.end) {
      addItem(Code::kUnidadEnNumero,
              concat(" lleva texto detrás: se leerá "_cp1252, numberInProse(value)), taken);
    }
    const std::optional<Code> code = codeOfPercentage(value);
    if (code == Code::kPorcentajeNegativo) addItem(*code, " es negativo", "0");
    if (code == Code::kPorcentajeMayor100) addItem(*code, " es mayor que 100", "100");
    if (code == Code::kPorcentajeFraccion) {
      addItem(*code, concat(" parece una fracción: se leerá "_cp1252, numberInProse(value), " %"),
              plainNumber(std::round(value * 10000) / 100));
    }
  }

  void notANumber(Span item) {
    if (item.begin == item.end) item = written_.value;
    findings_.add(Code::kSinNumero, item,
                  concat("Un valor de ", name_, " no es un número: se usará 0"_cp1252),
                  {.found = {}, .used = "0", .allowed = "0 a 100", .suggestion = {}});
  }

  const RunReading& run_;
  WrittenFindings& findings_;
  const KeywordInBoth& keyword_;
  const WrittenKeyword& written_;
  std::string_view name_;
  std::string used_;
  std::vector<Span> items_;
  std::size_t tight_ = 0;  // commas between two digits
};

}  // namespace

void compareList(WrittenVivienda& vivienda, const KeywordInBoth& keyword) {
  ListInBoth(vivienda, keyword).compare();
}
