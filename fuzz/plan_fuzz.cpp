// Any plan numbers give a message or a plan that can be drawn. An input: the typology number, a
// byte whose bits say how each number is written (0: eighths, which meet the checks' limits; 1: any
// 32-bit real; the seventh: another typology number
// of four bytes follows), and the six numbers, four bytes each.
#include "plan/plan.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "fuzz_support.h"
#include "generator/window_emitter.h"
#include "typology/tipo.h"

namespace {

class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : at_(data), left_(size) {}
  template <typename T>
  T take() {
    T value{};
    const std::size_t count = std::min(sizeof value, left_);
    if (count > 0) std::memcpy(&value, at_, count);
    at_ += count;
    left_ -= count;
    return value;
  }

 private:
  const std::uint8_t* at_;
  std::size_t left_;
};

float takeNumber(Bytes& bytes, bool any) {
  if (any) return bytes.take<float>();
  return static_cast<float>(bytes.take<std::int32_t>() % 40000) / 8;
}

/// Vertices of each outline, in writing order.
std::vector<std::size_t> outlineSizes(PlanFamily family) {
  if (family == PlanFamily::kHouse) return {4};
  if (family == PlanFamily::kRow) return {4, 4, 4, 4, 4, 4};
  return {4, 10, 10, 10, 10, 8};
}

void checkPlan(const Plan& plan, const PlanData& data) {
  const PlanFamily family = tipoRow(data.tipo).family;
  expect(family != PlanFamily::kNone, "a plan of an unknown typology");
  std::vector<std::size_t> sizes;
  for (const Outline& outline : plan.outlines) sizes.push_back(outline.vertices.size());
  expect(sizes == outlineSizes(family), "outlines of another shape");

  const Vertices& block = plan.outlines.front().vertices;
  const float length = block[2].x;
  const float depth = block[2].y;
  expect(length == data.longitudFachada && depth > 0, "a block of another size");
  for (const Outline& outline : plan.outlines) {
    for (const Vertex& v : outline.vertices) {
      // The checks bound every number from both sides, so that none overflows.
      expect(std::isfinite(v.x) && std::isfinite(v.y), "a vertex that is not finite");
      const float slack = 1e-4F * (length + depth);
      expect(v.x >= -slack && v.x <= length + slack, "a vertex beside the block");
      expect(v.y >= -slack && v.y <= depth + slack, "a vertex before or behind the block");
    }
  }
  for (std::size_t facade = 0; facade < 4; ++facade) {
    expect(plan.numHuecosFachada[facade] > 0, "a façade without bays");
    expect(plan.numHuecosPatio[facade] >= 0, "fewer bays than none");
    for (const float area : {plan.superficieFachada[facade], plan.superficiePatio[facade]}) {
      expect(std::isfinite(area) && area >= 0, "an area that is none");
    }
    const float bay =
        plan.superficieFachada[facade] / static_cast<float>(plan.numHuecosFachada[facade]);
    const WindowSize window = sizeWindow(20, bay, 0);
    expect(window.x >= 0 && window.y >= 0 && window.width >= 0 && window.height >= 0,
           "a window outside its bay");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes bytes(data, size);
  PlanData plan;
  // NOLINTNEXTLINE(bugprone-signed-char-misuse,cert-str34-c): a small number, no letter
  plan.tipo = bytes.take<std::int8_t>();
  const auto any = bytes.take<std::uint8_t>();
  if ((any & 64U) != 0) plan.tipo = bytes.take<std::int32_t>();
  float* const numbers[] = {&plan.areaPlanta,       &plan.areaPatio,
                            &plan.areaEscalera,     &plan.longitudFachada,
                            &plan.profundidadPatio, &plan.profundidadEscalera};
  for (unsigned i = 0; i < std::size(numbers); ++i) {
    *numbers[i] = takeNumber(bytes, ((any >> i) & 1U) != 0);
  }
  const PlanResult result = planTipologia(plan);
  if (const auto* drawn = std::get_if<Plan>(&result)) {
    checkPlan(*drawn, plan);
  } else {
    // From 26 on the text for an unknown typology is empty.
    expect(!std::get<PlanFailure>(result).first().message.empty() || plan.tipo >= 26, "no message");
  }
  const auto percentage = bytes.take<float>();
  const auto area = bytes.take<float>();
  sizeWindow(percentage, area, bytes.take<float>());  // any reals at all
  return 0;
}
