#include "stock/list_numbers.h"

#include <algorithm>

namespace stock {

namespace {

constexpr std::size_t kLongestInteger = 9;  // digits; more may not fit
constexpr std::size_t kLongestNumber = 40;

std::size_t digits(std::string_view text) {
  const auto* const end =
      std::ranges::find_if_not(text, [](char c) { return c >= '0' && c <= '9'; });
  return static_cast<std::size_t>(end - text.begin());
}

std::string_view withoutSign(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return text;
}

ListNumber refused(std::string fault) { return {{}, std::move(fault), false}; }

}  // namespace

ListNumber readListNumber(std::string_view text, bool commaSeparates) {
  const bool comma = text.find(',') != std::string_view::npos;
  const bool point = text.find('.') != std::string_view::npos;
  if (comma && point) return refused("mezcla punto y coma; escriba un solo separador decimal");
  if (comma && commaSeparates) {
    return refused("tiene una coma, que en esta lista separa las columnas; escriba un punto");
  }
  const std::string_view number = withoutSign(text);
  const std::size_t whole = digits(number);
  std::string_view rest = number.substr(whole);
  std::size_t decimals = 0;
  if (rest.starts_with(',') || rest.starts_with('.')) {
    decimals = digits(rest.substr(1));
    if (decimals == 0) return refused("no es un número");
    rest.remove_prefix(1 + decimals);
  }
  if (rest.starts_with('e') || rest.starts_with('E')) {
    const std::string_view exponent = withoutSign(rest.substr(1));
    if (digits(exponent) != exponent.size() || exponent.empty()) return refused("no es un número");
    rest = {};
  }
  if (whole == 0 || !rest.empty()) return refused("no es un número");
  if (text.size() > kLongestNumber) return refused("es demasiado largo");
  ListNumber read;
  read.text = text;
  std::ranges::replace(read.text, ',', '.');
  read.noted = point && decimals == 3;
  return read;
}

ListNumber readListInteger(std::string_view text, bool commaSeparates) {
  // "5,0": a spreadsheet may give all numbers of a table decimals.
  const std::size_t mark = text.find_first_of(",.");
  if (mark != std::string_view::npos) {
    ListNumber real = readListNumber(text, commaSeparates);
    if (!real.fault.empty()) return real;
    const bool zeros = text.find_first_not_of('0', mark + 1) == std::string_view::npos;
    if (zeros && !real.noted) text = text.substr(0, mark);
  }
  const std::string_view number = withoutSign(text);
  if (number.empty() || digits(number) != number.size()) return refused("no es un número entero");
  if (number.size() > kLongestInteger) return refused("es demasiado grande");
  return {std::string(text), {}, false};
}

}  // namespace stock
