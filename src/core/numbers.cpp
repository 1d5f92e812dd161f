#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char toLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool continuesNumber(char c) {
  return isDigit(c) || c == '.' || toLower(c) == 'e' || toLower(c) == 'x';
}
bool isHexDigit(char c) { return isDigit(c) || (toLower(c) >= 'a' && toLower(c) <= 'f'); }

std::string_view skipSpace(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  return text;
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
  /// Digits before the point, or minus the zeros behind it: 0.001 has -2.
  std::int64_t magnitude = 0;
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
  // An exponent of 32 bits and the digits of any text in memory: their sum needs more than 32.
  std::int64_t exponent = 0;
  if (mark != std::string_view::npos) {
    std::string_view text = digits.substr(mark + 1);
    std::int32_t value = 0;
    const bool negative = text.starts_with('-');
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) return !negative;
    if (read.ec == std::errc()) exponent = value;
  }
  return exponent + token.magnitude * (hex ? 4 : 1) > 0;
}

/// An unsigned number at the start of a text, and how many characters it takes; 0: there is none.
struct Scanned {
  float number = 0;
  std::size_t length = 0;
};

/// Decimals of a few digits, such as "18.00", nearly all there are: the digits and the power of ten
/// are whole numbers that a 32-bit real holds exactly, so one division rounds once, as it should.
/// Any other number is left to `scanOtherReal`.
Scanned scanShortDecimal(std::string_view text) {
  constexpr std::size_t kLongest = 9;  // characters, the point included: 32 bits hold their digits
  constexpr std::uint32_t kLargestExact = 1 << 24;
  static constexpr float kPowersOfTen[] = {1, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F, 1e8F};
  const char* at = text.data();
  const char* const end = at + std::min(text.size(), kLongest);
  std::uint32_t digits = 0;
  const auto takeDigits = [&] {
    const char* const from = at;
    for (; at != end && isDigit(*at); ++at) {
      digits = 10 * digits + static_cast<std::uint32_t>(*at - '0');
    }
    return at - from;
  };
  std::ptrdiff_t count = takeDigits();
  std::ptrdiff_t decimals = 0;
  if (at != end && *at == '.') {
    ++at;
    count += decimals = takeDigits();
  }
  const auto length = static_cast<std::size_t>(at - text.data());
  const bool goesOn = length < text.size() && continuesNumber(*at);
  if (count == 0 || digits > kLargestExact || goesOn) return {};
  return {static_cast<float>(digits) / kPowersOfTen[decimals], length};
}

Scanned scanOtherReal(std::string_view text) {
  using Limits = std::numeric_limits<float>;
  if (startsWithWord(text, "nan")) return {Limits::quiet_NaN(), 3};
  if (startsWithWord(text, "infinity")) return {Limits::infinity(), 8};
  if (startsWithWord(text, "infi")) return {};  // behind "inf" an "i" must go on to "infinity"
  if (startsWithWord(text, "inf")) return {Limits::infinity(), 3};

  const RealToken token = takeNumber(text);
  const bool hex = token.prefix > 0;
  if (token.length == token.prefix) return {};
  const std::string_view digits = text.substr(token.prefix, token.length - token.prefix);
  float number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                    hex ? std::chars_format::hex : std::chars_format::general);
  if (read.ec == std::errc::result_out_of_range) {
    number = isTooLarge(digits, token, hex) ? Limits::infinity() : 0.0F;
  } else if (read.ec != std::errc()) {
    if (!hex) return {};  // a lone "."
    number = 0;           // "0x." is the number 0 in front of an "x."
  }
  return {number, token.length};
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

  Scanned scanned = scanShortDecimal(rest);
  if (scanned.length == 0) scanned = scanOtherReal(rest);
  if (scanned.length == 0) return false;
  value = negative ? -scanned.number : scanned.number;
  text = rest.substr(scanned.length);
  return true;
}

std::string formatReal(float value) {
  char buffer[64];
  char* const end = buffer + sizeof buffer;
  // A 32-bit real times a million has at most 24 + 20 bits: a double holds it exactly, and the one
  // rounding, to whole millionths, is that of "%f", ties to even.
  const double millionths = std::abs(static_cast<double>(value) * 1e6);
  if (!(millionths < 1e15)) {
    return {buffer, std::to_chars(buffer, end, double{value}, std::chars_format::fixed, 6).ptr};
  }
  const long long rounded = std::llrint(millionths);
  char* start = end;
  const auto put = [&start](std::uint32_t digit) { *--start = static_cast<char>('0' + digit); };
  auto decimals = static_cast<std::uint32_t>(rounded % 1'000'000);
  for (int written = 0; written < 6; ++written, decimals /= 10) put(decimals % 10);
  *--start = '.';
  auto whole = static_cast<std::uint32_t>(rounded / 1'000'000);  // below 1e9
  do put(whole % 10);
  while ((whole /= 10) > 0);
  if (std::signbit(value)) *--start = '-';
  return {start, end};
}
