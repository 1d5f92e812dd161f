// Any plan numbers give a message or a plan that can be drawn.
#include <algorithm>
#include <cmath>
#include <vector>

#include "fuzz_support.h"
#include "generator/window_emitter.h"
#include "plan_input.h"
#include "typology/tipo.h"

namespace {

/// Vertices of each outline, in writing order.
std::vector<std::size_t> outlineSizes(PlanFamily family) {
  switch (family) {
    case PlanFamily::kHouse:
      return {4};
    case PlanFamily::kRow:
      return {4, 4, 4, 4, 4, 4};
    case PlanFamily::kCourtyard:
    case PlanFamily::kStairwell:
    case PlanFamily::kCourtyardsInFacades:
    case PlanFamily::kCourtyardsInSides:
    case PlanFamily::kXpala:
      return {4, 10, 10, 10, 10, 8};
    case PlanFamily::kNone:
      break;
  }
  return {};
}

void checkPlan(const Plan& plan, const PlanData& data) {
  const PlanFamily family = tipoRow(data.tipo).family;
  expect(family != PlanFamily::kNone, "a plan of an unknown typology");
  std::vector<std::size_t> sizes;
  for (const Outline& outline : plan.outlines) sizes.push_back(outline.vertices.size());
  expect(sizes == outlineSizes(family), "outlines of another shape");

  const Vertices& block = plan.outlines.front().vertices;
  const float length = std::ranges::max_element(block, {}, &Vertex::x)->x;
  const float depth = std::ranges::max_element(block, {}, &Vertex::y)->y;
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
  PlanInput bytes(data, size);
  const PlanData plan = bytes.takePlan();
  const PlanResult result = planTipologia(plan);
  if (const auto* drawn = std::get_if<Plan>(&result)) {
    checkPlan(*drawn, plan);
  } else {
    // The text for a number that is far too high is empty.
    expect(!std::get<PlanFailure>(result).first().message.empty() || plan.tipo > kLastTipo + 2,
           "no message");
  }
  const auto percentage = bytes.take<float>();
  const auto area = bytes.take<float>();
  sizeWindow(percentage, area, bytes.take<float>());  // any reals at all
  return 0;
}
