#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// Text in memory and in files is Windows-1252: one byte a character. The sources are UTF-8, so a
/// fixed text with accents is written readably and converted while compiling:
///     ReportError(ErrorLog, ok, "Área de planta no válida"_cp1252);

namespace cp1252 {

/// The code points of the bytes 0x80 to 0x9F; the other bytes are their own code point. The five
/// bytes without a character keep their number, as Windows itself does.
inline constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// A string literal as a template argument: UTF-8, with its NUL.
template <std::size_t N>
struct Utf8Literal {
  char chars[N];
  consteval Utf8Literal(const char (&text)[N]) {  // NOLINT: implicit, so that literals convert
    for (std::size_t i = 0; i < N; ++i) chars[i] = text[i];
  }
};

/// The same text in Windows-1252; never longer than its UTF-8.
template <std::size_t N>
struct Literal {
  std::array<char, N> chars{};
  std::size_t size = 0;
};

consteval char byteFor(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
    return static_cast<char>(codePoint);
  }
  for (std::size_t i = 0; i < kHighControls.size(); ++i) {
    if (kHighControls[i] == codePoint) return static_cast<char>(0x80 + i);
  }
  throw "this character does not exist in Windows-1252";
}

template <std::size_t N>
consteval Literal<N> convert(const Utf8Literal<N>& text) {
  Literal<N> result;
  for (std::size_t i = 0; i + 1 < N;) {
    const auto lead = static_cast<unsigned char>(text.chars[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
    char32_t codePoint = length == 1 ? lead : length == 2 ? lead & 0x1FU : lead & 0x0FU;
    for (std::size_t k = 1; k < length; ++k) {
      codePoint = (codePoint << 6) | (static_cast<unsigned char>(text.chars[i + k]) & 0x3FU);
    }
    result.chars[result.size++] = byteFor(codePoint);
    i += length;
  }
  return result;
}

template <Utf8Literal text>
inline constexpr auto kConverted = convert(text);

/// Decodes a text for people: a sequence of bytes that is valid UTF-8 is taken as such (a file
/// name on Linux), every other byte as Windows-1252. The result is always valid UTF-8.
std::string toUtf8(std::string_view text);

/// Whether a text has the same bytes in UTF-8 and in Windows-1252.
inline bool isAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char c : text) all |= static_cast<unsigned char>(c);
  return all < 0x80;
}

}  // namespace cp1252

template <cp1252::Utf8Literal text>
constexpr std::string_view operator""_cp1252() {
  return {cp1252::kConverted<text>.chars.data(), cp1252::kConverted<text>.size};
}
