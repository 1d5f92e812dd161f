// Numbers are read and written exactly as the C library does in the "C" locale, which is the
// process's here.
#include "core/numbers.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "fuzz_support.h"

namespace {

void checkReal(const std::string& text) {
  float expected = 0.5F;
  int length = 0;
  // NOLINTNEXTLINE(cert-err34-c): the measure
  const bool converts = std::sscanf(text.c_str(), "%f%n", &expected, &length) == 1;
  float value = 0.5F;
  std::string_view rest = text;
  expect(scanReal(rest, value) == converts, "a real that converts, or not, wrongly");
  if (!converts) {
    expect(rest == text && value == 0.5F, "no real, yet something changed");
    return;
  }
  expect(text.size() - rest.size() == static_cast<std::size_t>(length), "a real of other length");
  if (std::isnan(expected)) {
    expect(std::isnan(value) && std::signbit(value) == std::signbit(expected), "no NaN");
  } else {
    const auto bits = [](float real) { return std::bit_cast<std::uint32_t>(real); };
    expect(bits(value) == bits(expected), "a real of other value");
  }
}

void checkInteger(const std::string& text) {
  int expected = -77;
  int length = 0;
  // NOLINTNEXTLINE(cert-err34-c): the measure
  const bool converts = std::sscanf(text.c_str(), "%d%n", &expected, &length) == 1;
  int value = -77;
  std::string_view rest = text;
  expect(scanInteger(rest, value) == converts, "an integer that converts, or not, wrongly");
  expect(value == expected, "an integer of other value");
  if (!converts) length = 0;
  expect(text.size() - rest.size() == static_cast<std::size_t>(length), "another length");
}

void checkWriting(std::string_view bytes) {
  float value = 0;
  std::memcpy(&value, bytes.data(), std::min(sizeof value, bytes.size()));
  char expected[400];
  std::snprintf(expected, sizeof expected, "%f", static_cast<double>(value));
  expect(formatReal(value) == expected, "a real written otherwise");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  const std::string text(bytes.substr(0, bytes.find('\0')));
  checkReal(text);
  checkInteger(text);
  checkWriting(bytes);
  return 0;
}
