#include <algorithm>
#include <array>

#include "stock/file_names.h"

namespace stock {

namespace {

constexpr std::array<std::string_view, 4> kDevices = {"aux", "con", "nul", "prn"};
constexpr std::array<std::string_view, 2> kPorts = {"com", "lpt"};  // and a digit

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

/// In every folder, up to Windows 10.
bool isDeviceName(std::string_view name) {
  const std::string stem = asFileName(name.substr(0, name.find('.')));
  if (std::ranges::count(kDevices, stem) > 0) return true;
  return stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9' &&
         std::ranges::count(kPorts, std::string_view(stem).substr(0, 3)) > 0;
}

std::string asFileName(std::string_view name) {
  std::string same(name);
  std::ranges::transform(same, same.begin(), lowered);
  return same;
}

}  // namespace stock
