#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "plan/plan.h"

/// The inputs of the target `plan`. One holds the typology number, a byte whose bits say how each
/// number is written (0: eighths, which meet the checks' limits; 1: any 32-bit real; the seventh:
/// another typology number of four bytes follows), and the six numbers, four bytes each. What is
/// missing is 0.
class PlanInput {
 public:
  PlanInput(const std::uint8_t* data, std::size_t size) : at_(data), left_(size) {}

  template <typename T>
  T take() {
    T value{};
    const std::size_t count = std::min(sizeof value, left_);
    if (count > 0) std::memcpy(&value, at_, count);
    at_ += count;
    left_ -= count;
    return value;
  }

  PlanData takePlan() {
    PlanData plan;
    // NOLINTNEXTLINE(bugprone-signed-char-misuse,cert-str34-c): a small number, no letter
    plan.tipo = take<std::int8_t>();
    const auto any = take<std::uint8_t>();
    if ((any & 64U) != 0) plan.tipo = take<std::int32_t>();
    float* const numbers[] = {&plan.areaPlanta,       &plan.areaPatio,
                              &plan.areaEscalera,     &plan.longitudFachada,
                              &plan.profundidadPatio, &plan.profundidadEscalera};
    for (unsigned i = 0; i < std::size(numbers); ++i) {
      *numbers[i] = takeNumber(((any >> i) & 1U) != 0);
    }
    return plan;
  }

 private:
  float takeNumber(bool any) {
    if (any) return take<float>();
    return static_cast<float>(take<std::int32_t>() % 40000) / 8;
  }

  const std::uint8_t* at_;
  std::size_t left_;
};
