#pragma once

#include <string>
#include <string_view>

/// One text of several, for messages: concat(name, ": área no válida"_cp1252).
template <typename... Parts>
std::string concat(const Parts&... parts) {
  std::string text;
  (text.append(std::string_view(parts)), ...);
  return text;
}
