#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "core/concat.h"

/// The word that goes with a number: counted things are one, or many, and none are many.
inline std::string_view numbered(std::integral auto count, std::string_view one,
                                 std::string_view many) {
  return count == 1 ? one : many;
}

/// "1 vivienda", "2 viviendas": a number with its word.
inline std::string counted(std::integral auto count, std::string_view one, std::string_view many) {
  return concat(std::to_string(count), " ", numbered(count, one, many));
}
