#include "app/console/option.h"

#include <algorithm>

#include "core/concat.h"

std::string asWritten(const Option& option) {
  return option.value.empty() ? std::string(option.name) : concat(option.name, " ", option.value);
}

std::string linesOf(std::span<const Option* const> options) {
  std::size_t width = 0;
  for (const Option* option : options) width = std::max(width, asWritten(*option).size());
  std::string lines;
  for (const Option* option : options) {
    std::string left = asWritten(*option);
    left.resize(width, ' ');
    lines += "  " + left + "  " + std::string(option->brief) + "\n";
    if (!option->detail.empty()) {
      lines += std::string(width + 4, ' ') + std::string(option->detail) + "\n";
    }
  }
  return lines;
}
