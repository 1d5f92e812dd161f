#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "core/configuracion_regional.h"

inline std::uint32_t bits(float value) { return std::bit_cast<std::uint32_t>(value); }

/// Returns how many of many reals of all sizes lose a bit on their way through the regional text.
inline int realsThatChange() {
  std::mt19937 random(20240607);
  int changed = 0;
  for (int round = 0; round < 200000; ++round) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isnan(value)) continue;
    if (bits(pasarPorConversionRegional(value)) != bits(value)) ++changed;
  }
  return changed;
}
