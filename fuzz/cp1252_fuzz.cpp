// Any bytes give valid UTF-8; what is valid already stays as it is.
#include "core/cp1252.h"

#include "fuzz_support.h"

namespace {

/// Decodes with the arithmetic of the format alone: a number is valid when its shortest form is
/// the one that stands there, and it is no surrogate and no more than U+10FFFF.
bool isValidUtf8(std::string_view text) {
  constexpr char32_t kFirstOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80               ? 1
                               : (lead & 0xE0U) == 0xC0U ? 2
                               : (lead & 0xF0U) == 0xE0U ? 3
                               : (lead & 0xF8U) == 0xF0U ? 4
                                                         : 0;
    if (length == 0 || i + length > text.size()) return false;
    char32_t number = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
      const auto byte = static_cast<unsigned char>(text[i + k]);
      if ((byte & 0xC0U) != 0x80U) return false;
      number = (number << 6U) | (byte & 0x3FU);
    }
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    if (number < kFirstOfLength[length] || surrogate || number > 0x10FFFF) return false;
    i += length;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  const std::string decoded = cp1252::toUtf8(bytes);
  expect(isValidUtf8(decoded), "not valid UTF-8");
  expect(cp1252::toUtf8(decoded) == decoded, "valid UTF-8 was changed");
  if (isValidUtf8(bytes)) expect(decoded == bytes, "valid UTF-8 was changed");
  return 0;
}
