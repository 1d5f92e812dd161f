#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <variant>

#include "check/written_vivienda.h"
#include "core/concat.h"
#include "core/cp1252.h"

// A number of VIVIENDA: what the run takes of it, and what a person reads there.

namespace {

using Value = WrittenKeyword::Value;

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isPunctuation(std::string_view text) {
  return text.find_first_not_of(".,;:") == std::string_view::npos;
}

class NumberInBoth {
 public:
  NumberInBoth(WrittenVivienda& vivienda, const KeywordInBoth& keyword)
      : vivienda_(vivienda),
        row_(*keyword.row),
        written_(*keyword.written),
        name_(keyword.row->name),
        begin_(*keyword.written->equals + 1),
        word_(vivienda.findings.at(written_.value)),
        rest_(vivienda.findings.at(written_.rest)) {
    integer_ = std::holds_alternative<int TypologyRecord::*>(row_.field);
  }

  void compare() {
    if (written_.kind == Value::kText || written_.kind == Value::kTypographic) return quoted();
    std::size_t taken = 0;
    if (integer_) {
      const auto number = vivienda_.run.integerAt(begin_);
      if (!number) return noNumber();
      used_ = std::to_string(number->value);
      taken = number->span.end;
      if (overflows(number->span, number->value)) return;
    } else {
      const auto number = vivienda_.run.realAt(begin_);
      if (!number) return noNumber();
      used_ = plainNumber(number->value);
      taken = number->span.end;
      if (!std::isfinite(number->value)) return notFinite();
    }
    if (endsInExponent(taken)) return unit({});
    const std::string_view behind = taken < written_.value.end
                                        ? word_.substr(taken - written_.value.begin)
                                        : std::string_view();
    compareRest(behind);
  }

 private:
  void add(Code code, Span span, std::string message, WrittenDetails details) {
    vivienda_.findings.add(code, span, std::move(message), std::move(details));
  }
  Span whole() const {
    return {written_.value.begin, rest_.empty() ? written_.value.end : written_.rest.end};
  }

  void quoted() {
    const IfAbsent absent = ifAbsent(row_);
    add(Code::kNumeroEntreComillas, written_.value,
        concat("El valor de ", name_, " está entre comillas y no se lee: "_cp1252, absent.words),
        {.found = {},
         .used = absent.used,
         .allowed = std::string("un número sin comillas"_cp1252),
         .suggestion = meantNumber(word_)});
  }

  void noNumber() {
    const IfAbsent absent = ifAbsent(row_);
    if (hardBlank() < written_.value.begin) {
      return add(Code::kSinNumero, {hardBlank(), written_.value.end},
                 concat("Delante del valor de ", name_,
                        " hay un blanco duro y el valor no se lee: ", absent.words),
                 {.found = {},
                  .used = absent.used,
                  .allowed = allowedNumber(),
                  .suggestion = std::string(word_)});
    }
    const std::string_view unsignedWord = word_.substr(word_.find_first_not_of("+-") == 1 ? 1 : 0);
    const bool comma = goesOnWithComma(unsignedWord);
    add(comma ? Code::kComaDecimal : Code::kSinNumero, written_.value,
        concat("El valor de ", name_, comma ? " empieza por una coma" : " no es un número"_cp1252,
               " y no cuenta: ", absent.words),
        {.found = {},
         .used = absent.used,
         .allowed = allowedNumber(),
         .suggestion = comma ? meantNumber(word_) : std::string()});
  }

  /// It looks like a blank, and the run does not pass over it.
  std::size_t hardBlank() const {
    const std::string_view before = vivienda_.findings.at({begin_, written_.value.begin});
    return begin_ + std::min(before.find('\xA0'), before.size());
  }

  void notFinite() {
    add(Code::kNumeroNoFinito, written_.value,
        concat("El valor de ", name_, " no es un número finito"_cp1252),
        {.found = {}, .used = used_, .allowed = allowedNumber(), .suggestion = {}});
  }

  bool overflows(Span span, int value) {
    const std::string digits(vivienda_.findings.at(span));
    if (std::strtod(digits.c_str(), nullptr) == static_cast<double>(value)) return false;
    add(Code::kEnteroDesbordado, span,
        concat("El valor de ", name_, " es demasiado grande: se leerá "_cp1252, used_),
        {.found = {}, .used = used_, .allowed = "-2147483648 a 2147483647", .suggestion = {}});
    return true;
  }

  /// "2.8e", "2.8e+": the run passes over an exponent without digits as if it were not there.
  bool endsInExponent(std::size_t taken) const {
    const std::string_view number = vivienda_.findings.at({written_.value.begin, taken});
    const std::size_t last = number.find_last_not_of("+-");
    return !integer_ && last != std::string_view::npos && last > 0 &&
           (number[last] == 'e' || number[last] == 'E') &&
           number.find_first_of("xX") == std::string_view::npos;
  }

  /// `behind`: what of the word was not taken.
  void compareRest(std::string_view behind) {
    if (integer_ && cutsDecimals(behind)) {
      return add(Code::kEnteroCortado, written_.value,
                 concat(name_, " es un número entero: se leerá "_cp1252, used_),
                 {.found = {}, .used = used_, .allowed = allowedNumber(), .suggestion = used_});
    }
    if (goesOnWithComma(behind)) return comma(written_.value);
    // "12." and "12.0" of a whole number say the same, and so does a final comma.
    const bool said = isPunctuation(behind) || (integer_ && isZeroFraction(behind));
    if (said && rest_.empty()) return;
    if (said && goesOnWithComma(rest_)) return comma(whole());
    unit(behind.empty() ? groupedDigits() : std::string());
  }

  bool cutsDecimals(std::string_view behind) const {
    if (behind.size() < 2) return false;
    const char mark = behind.front();
    if (mark == 'e' || mark == 'E') return isDigit(behind[1]);
    if (mark != '.' && mark != ',') return false;
    const std::size_t digit = behind.find_first_not_of('0', 1);
    return digit != std::string_view::npos && isDigit(behind[digit]);
  }
  bool isZeroFraction(std::string_view behind) const {
    return behind.starts_with('.') && behind.find_first_not_of('0', 1) == std::string_view::npos;
  }

  void comma(Span span) {
    std::string compact(vivienda_.findings.at(span));
    std::erase(compact, ' ');
    add(Code::kComaDecimal, span,
        concat("El valor de ", name_, " lleva coma decimal: se leerá "_cp1252, prose()),
        {.found = {},
         .used = used_,
         .allowed = allowedNumber(),
         .suggestion = meantNumber(compact)});
  }

  void unit(const std::string& grouped) {
    add(Code::kUnidadEnNumero, whole(),
        concat("Detrás del valor de "_cp1252, name_, " sobra texto: se leerá "_cp1252, prose()),
        {.found = {},
         .used = used_,
         .allowed = allowedNumber(),
         .suggestion = grouped.empty() ? used_ : grouped});
  }

  /// "1 200" without its gap.
  std::string groupedDigits() const {
    constexpr auto kDigits = "0123456789";
    const bool grouped = rest_.size() == 3 && rest_.find_first_not_of(kDigits) == std::string::npos;
    return grouped ? concat(word_, rest_) : std::string();
  }

  std::string allowedNumber() const {
    return std::string(integer_ ? "un número entero"_cp1252 : "un número con punto decimal"_cp1252);
  }
  std::string prose() const {
    std::string text = used_;
    for (char& c : text) c = c == '.' ? ',' : c;
    return withUnit(text, row_);
  }

  WrittenVivienda& vivienda_;
  const ViviendaKeyword& row_;
  const WrittenKeyword& written_;
  std::string_view name_;
  std::size_t begin_;  // where the run begins to read
  std::string_view word_, rest_;
  bool integer_ = false;
  std::string used_;
};

}  // namespace

void compareNumber(WrittenVivienda& vivienda, const KeywordInBoth& keyword) {
  NumberInBoth(vivienda, keyword).compare();
}
