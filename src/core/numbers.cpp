#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char toLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool isHexDigit(char c) { return isDigit(c) || (toLower(c) >= 'a' && toLower(c) <= 'f'); }

std::string_view skipSpace(std::string_view text) {
  const auto* start = std::find_if_not(text.begin(), text.end(), isSpace);
  return text.substr(static_cast<std::size_t>(start - text.begin()));
}

bool startsWithWord(std::string_view text, std::string_view lowerCaseWord) {
  return text.size() >= lowerCaseWord.size() &&
         std::equal(lowerCaseWord.begin(), lowerCaseWord.end(), text.begin(),
                    [](char a, char b) { return a == toLower(b); });
}

/// What "%f" takes of a text that begins with an unsigned number.
struct RealToken {
  std::size_t length = 0;  // characters taken
  std::size_t prefix = 0;  // of these, "0x" in front of the digits
  long magnitude = 0;      // digits before the point, or minus the zeros behind it: 0.001 has -2
};

/// Takes the characters as the C library does: once an "e" (or "p") has been taken, a sign right
/// behind it is taken too, digits or not, so that "1e+" leaves nothing behind.
RealToken takeNumber(std::string_view text) {
  RealToken token;
  const bool hex = text.size() >= 2 && text[0] == '0' && toLower(text[1]) == 'x';
  const char exponentMark = hex ? 'p' : 'e';
  std::size_t at = token.prefix = hex ? 2 : 0;
  bool anyDigit = false;
  bool point = false;
  bool exponent = false;
  bool nonZero = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (isDigit(c) || (hex && !exponent && isHexDigit(c))) {
      anyDigit = true;
      if (exponent) continue;
      nonZero = nonZero || c != '0';
      if (!point && nonZero) ++token.magnitude;
      if (point && !nonZero) --token.magnitude;
    } else if (exponent && toLower(text[at - 1]) == exponentMark && (c == '+' || c == '-')) {
      continue;
    } else if (anyDigit && !exponent && toLower(c) == exponentMark) {
      exponent = true;
    } else if (!point && !exponent && c == '.') {
      point = true;
    } else {
      break;
    }
  }
  token.length = at;
  return token;
}

/// Whether a number that no 32-bit real holds is too large (else it is too small).
bool isTooLarge(std::string_view digits, const RealToken& token, bool hex) {
  const std::size_t mark = digits.find_first_of(hex ? "pP" : "eE");
  long exponent = 0;
  if (mark != std::string_view::npos) {
    std::string_view text = digits.substr(mark + 1);
    int value = 0;
    const bool negative = text.starts_with('-');
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) return !negative;
    if (read.ec == std::errc()) exponent = value;
  }
  return exponent + token.magnitude * (hex ? 4 : 1) > 0;
}

/// Plain decimal reals, nearly all there are: what the library's own reading takes of them is what
/// "%f" takes, unless an exponent or a hexadecimal mark follows. Moves `text` behind the number.
bool scanPlainReal(std::string_view& text, float& number) {
  if (text.empty() || !(isDigit(text.front()) || text.front() == '.')) return false;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc()) return false;
  if (read.ptr != end && (toLower(*read.ptr) == 'e' || toLower(*read.ptr) == 'x')) return false;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return true;
}

}  // namespace

bool scanInteger(std::string_view& text, int& value) {
  std::string_view rest = skipSpace(text);
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);
  if (rest.empty() || !isDigit(rest.front())) return false;
  std::int64_t number = 0;
  constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
  constexpr auto kMin = std::numeric_limits<std::int64_t>::min();
  bool beyond = false;
  for (; !rest.empty() && isDigit(rest.front()); rest.remove_prefix(1)) {
    const int digit = rest.front() - '0';
    if (beyond) continue;
    if (negative) {
      beyond = number < (kMin + digit) / 10;
      number = beyond ? kMin : number * 10 - digit;
    } else {
      beyond = number > (kMax - digit) / 10;
      number = beyond ? kMax : number * 10 + digit;
    }
  }
  value = static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(number)));
  text = rest;
  return true;
}

bool scanReal(std::string_view& text, float& value) {
  std::string_view rest = skipSpace(text);
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);

  float number = 0;
  if (scanPlainReal(rest, number)) {
    // Done.
  } else if (startsWithWord(rest, "nan")) {
    number = std::numeric_limits<float>::quiet_NaN();
    rest.remove_prefix(3);
  } else if (startsWithWord(rest, "inf")) {
    // Behind "inf" an "i" must go on to "infinity".
    const bool whole = startsWithWord(rest, "infinity");
    if (!whole && startsWithWord(rest, "infi")) return false;
    number = std::numeric_limits<float>::infinity();
    rest.remove_prefix(whole ? 8 : 3);
  } else {
    const RealToken token = takeNumber(rest);
    const bool hex = token.prefix > 0;
    if (token.length == token.prefix) return false;
    const std::string_view digits = rest.substr(token.prefix, token.length - token.prefix);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                      hex ? std::chars_format::hex : std::chars_format::general);
    if (read.ec == std::errc::result_out_of_range) {
      number = isTooLarge(digits, token, hex) ? std::numeric_limits<float>::infinity() : 0.0F;
    } else if (read.ec != std::errc()) {
      if (!hex) return false;  // a lone "."
      number = 0;              // "0x." is the number 0 in front of an "x."
    }
    rest.remove_prefix(token.length);
  }
  value = negative ? -number : number;
  text = rest;
  return true;
}

void appendReal(std::string& out, double value) {
  char buffer[328];  // the largest double has 309 digits before the point
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6).ptr;
  out.append(buffer, end);
}

std::string formatReal(double value) {
  std::string text;
  appendReal(text, value);
  return text;
}
