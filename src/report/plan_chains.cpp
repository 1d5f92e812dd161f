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

}  // namespace

double addPlanChains(Drawing& drawing, const PlanFrame& frame, ChainSide side) {
  const bool below = side == ChainSide::kBelow;
  const double size = below ? frame.L : frame.D;
  std::vector<double> ofBays = {0, size}, ofParts = {0, size};
  for (const Bay& bay : frame.bays) {
    if (bay.side != (below ? kSouth : kWest)) continue;
    ofBays.push_back(below ? bay.x0 : bay.y0);
    ofBays.push_back(below ? bay.x1 : bay.y1);
  }
  for (const Outline& outline : frame.sheet.plan.outlines) {
    if (outline.role != Role::kStair && outline.role != Role::kCourtyard) continue;
    for (const Vertex& v : outline.vertices) {
      const bool corner = below ? std::abs(v.x - size / 2) > 1e-3 : std::abs(v.y - size / 2) > 1e-3;
      if (corner) ofParts.push_back(below ? v.x : v.y);
    }
  }
  const Chain total = chainOf(frame, {0, size}, side);
  const Chain parts = chainOf(frame, ofParts, side);
  const Chain each = chainOf(frame, ofBays, side);
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
