#include "report/plan_chains.h"

#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double kFirstChain = 8;  // mm, from the outline
constexpr double kNextChain = 6.5;

Chain chainOf(const PlanFrame& frame, std::vector<double> metres, ChainSide side) {
  std::ranges::sort(metres);
  Chain chain;
  for (const double each : metres) {
    if (!chain.metres.empty() && each - chain.metres.back() < 2e-3) continue;
    chain.metres.push_back(each);
    chain.places.push_back(side == ChainSide::kBelow ? each * frame.k : (frame.D - each) * frame.k);
  }
  return chain;
}

bool isEqual(const Chain& chain) {
  const auto parts = static_cast<double>(chain.metres.size() - 1);
  const double part = (chain.metres.back() - chain.metres.front()) / parts;
  for (std::size_t i = 0; i + 1 < chain.metres.size(); ++i) {
    if (std::abs(chain.metres[i + 1] - chain.metres[i] - part) > 1e-3) return false;
  }
  return true;
}

struct Stretch {
  double from, to;  // m, rising
  double depth;     // behind the side's edge
};

/// The bays that one sees who looks at a side from outside: what stands in front hides what lies
/// behind, so that a chain never mixes a façade with the courtyard behind it.
std::vector<Stretch> seenBays(const PlanFrame& frame, ChainSide side, bool withCourtyards) {
  const bool below = side == ChainSide::kBelow;
  std::vector<Stretch> all;
  for (const Bay& bay : frame.bays) {
    if (bay.side != (below ? kSouth : kWest) || (bay.courtyard && !withCourtyards)) continue;
    const auto [from, to] = below ? std::minmax(bay.x0, bay.x1) : std::minmax(bay.y0, bay.y1);
    all.push_back({from, to, below ? bay.y0 : bay.x0});
  }
  std::vector<Stretch> seen;
  for (const Stretch& span : all) {
    const bool hidden = std::ranges::any_of(all, [&](const Stretch& other) {
      return other.depth < span.depth - 1e-3 && other.from < span.to - 1e-3 &&
             span.from < other.to - 1e-3;
    });
    if (!hidden) seen.push_back(span);
  }
  return seen;
}

Chain bayChain(const PlanFrame& frame, ChainSide side, bool withCourtyards) {
  std::vector<double> ends = {0, side == ChainSide::kBelow ? frame.L : frame.D};
  for (const Stretch& span : seenBays(frame, side, withCourtyards)) {
    ends.push_back(span.from);
    ends.push_back(span.to);
  }
  return chainOf(frame, std::move(ends), side);
}

}  // namespace

double addPlanChains(Drawing& drawing, const PlanFrame& frame, ChainSide side) {
  const bool below = side == ChainSide::kBelow;
  const double size = below ? frame.L : frame.D;
  std::vector<double> ofParts = {0, size};
  for (const Outline& outline : frame.sheet.plan.outlines) {
    if (outline.role != Role::kStair && outline.role != Role::kCourtyard) continue;
    for (const Vertex& v : outline.vertices) {
      const bool corner = below ? std::abs(v.x - size / 2) > 1e-3 : std::abs(v.y - size / 2) > 1e-3;
      if (corner) ofParts.push_back(below ? v.x : v.y);
    }
  }
  const Chain total = chainOf(frame, {0, size}, side);
  const Chain parts = chainOf(frame, ofParts, side);
  Chain each = bayChain(frame, side, true);
  // A courtyard's two bays may be too narrow where the courtyard is not.
  if (!fits(each) && !isEqual(each)) each = bayChain(frame, side, false);
  double away = kFirstChain;
  const auto line = [&] { return below ? frame.height() + away : -away; };
  double from = below ? frame.height() : 0;  // where extension lines begin: at the chain before
  const bool equal = isEqual(each);
  if (each.metres.size() > 2 && each.metres != parts.metres && (fits(each) || equal)) {
    fits(each) ? addChain(drawing, side, each, line(), from)
               : addEqualParts(drawing, side, each, line(), from);
    from = line();
    away += kNextChain;
  }
  if (parts.metres.size() > 2 && fits(parts)) {
    addChain(drawing, side, parts, line(), from);
    from = line();
    away += kNextChain;
  }
  addChain(drawing, side, total, line(), from);
  return away;
}

}  // namespace report
