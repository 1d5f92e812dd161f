#pragma once

#include <array>
#include <string_view>

/// The four façades, the index of every per-façade array: sides of the block's outer rectangle.
enum Facade {
  kSouth = 0,  // the main façade, length L, at y = 0
  kEast = 1,   // the side at x = L
  kNorth = 2,  // the back façade, length L
  kWest = 3    // the side at x = 0
};

template <typename T>
using PerFacade = std::array<T, 4>;

/// For people: where they look before the building is turned.
inline constexpr PerFacade<std::string_view> kFacadeNames = {"sur", "este", "norte", "oeste"};
