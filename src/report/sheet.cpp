#include "report/sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "report/words.h"

namespace report {

namespace {

constexpr double kTick = 1.0;  // mm, half an end mark along each axis

double rounded(double metres) { return std::round(metres * 100) / 100; }

Point onChain(ChainSide side, double place, double line) {
  return side == ChainSide::kBelow ? Point{place, line} : Point{line, place};
}

constexpr double kAboveLine = 1;  // mm, from a measure down to its line

void addMeasure(Drawing& drawing, ChainSide side, double from, double to, double line,
                const std::string& text, double above = kAboveLine) {
  const double width = textWidth(text, kSmall);
  const bool below = side == ChainSide::kBelow;
  Label label{
      onChain(side, (from + to) / 2, line - above), kSmall, Anchor::kMiddle, !below, false, text};
  if (std::abs(to - from) < width + 1) {  // beside its line: at the right, or above
    label.anchor = Anchor::kStart;
    label.at = below ? Point{std::max(from, to) + 1.5, line - 1}
                     : Point{line - 1, std::min(from, to) - 1.5};
  }
  drawing.labels.push_back(label);
}

enum class Extensions { kAll, kEnds };

void addLineWithTicks(Drawing& drawing, ChainSide side, const Chain& chain, double line,
                      double outline, Extensions extensions) {
  const double away = line > outline ? 1 : -1;
  Shape thin{Sign::kDimension, {}, false};
  Shape ticks{Sign::kTick, {}, false};
  thin.lines.push_back(
      {onChain(side, chain.places.front(), line), onChain(side, chain.places.back(), line)});
  for (const double place : chain.places) {
    if (extensions == Extensions::kAll || place == chain.places.front() ||
        place == chain.places.back()) {
      thin.lines.push_back(
          {onChain(side, place, outline + 2 * away), onChain(side, place, line + 1.5 * away)});
    }
    const Point p = onChain(side, place, line);
    ticks.lines.push_back({{p.x - kTick, p.y + kTick}, {p.x + kTick, p.y - kTick}});
  }
  drawing.shapes.push_back(std::move(thin));
  drawing.shapes.push_back(std::move(ticks));
}

std::string measureText(const Chain& chain, std::size_t part) {
  return number(std::abs(rounded(chain.metres[part + 1]) - rounded(chain.metres[part])), 2);
}

}  // namespace

bool fits(const Chain& chain) {
  for (std::size_t i = 0; i + 2 < chain.places.size(); ++i) {
    const double room = std::abs(chain.places[i + 1] - chain.places[i]);
    if (textWidth(measureText(chain, i), kSmall) + 1.5 > room) return false;
  }
  return true;
}

void addChain(Drawing& drawing, ChainSide side, const Chain& chain, double line, double outline) {
  addLineWithTicks(drawing, side, chain, line, outline, Extensions::kAll);
  for (std::size_t i = 0; i + 1 < chain.places.size(); ++i) {
    addMeasure(drawing, side, chain.places[i], chain.places[i + 1], line, measureText(chain, i));
  }
}

void addEqualParts(Drawing& drawing, ChainSide side, const Chain& chain, double line,
                   double outline) {
  // The text stands over the parts: their extension lines would cross it, their ticks touch it.
  addLineWithTicks(drawing, side, chain, line, outline, Extensions::kEnds);
  const auto parts = chain.places.size() - 1;
  const double part =
      std::abs(chain.metres.back() - chain.metres.front()) / static_cast<double>(parts);
  addMeasure(drawing, side, chain.places.front(), chain.places.back(), line,
             std::to_string(parts) + " × " + number(part, 2), kAboveLine + 1);
}

void addNorth(Drawing& drawing, Point centre, double giro) {
  const double turn = giro * std::numbers::pi / 180;
  // Along the arrow, and across it to the right.
  const auto at = [&](double along, double across) {
    return Point{centre.x - along * std::sin(turn) + across * std::cos(turn),
                 centre.y - along * std::cos(turn) - across * std::sin(turn)};
  };
  drawing.shapes.push_back(
      {Sign::kNorth, {{at(-6.5, 0), at(6.5, 0)}, {at(3, -1.4), at(6.5, 0), at(3, 1.4)}}, false});
  const Point head = at(9.4, 0);
  drawing.labels.push_back(
      {{head.x, head.y + kMedium / 2}, kMedium, Anchor::kMiddle, false, false, "N"});
}

void addScaleBar(Drawing& drawing, Point at, double perMetre) {
  constexpr std::array<double, 3> kSteps = {1, 2, 5};
  constexpr int kParts = 4;
  constexpr double kLeastPart = 6.6;  // mm
  double step = 0;
  double power = 0.01;
  while (step * perMetre < kLeastPart) {
    for (const double each : kSteps) {
      step = each * power;
      if (step * perMetre >= kLeastPart) break;
    }
    power *= 10;
  }
  const double part = step * perMetre;
  for (int i = 0; i < kParts; ++i) {
    const double x = at.x + i * part;
    drawing.area(i % 2 == 0 ? Sign::kScaleFull : Sign::kScaleEmpty,
                 {{x, at.y}, {x + part, at.y}, {x + part, at.y + 1.6}, {x, at.y + 1.6}});
  }
  double end = 0;
  for (int i = 0; i <= kParts; i += 2) {
    drawing.labels.push_back({{at.x + i * part, at.y - 1.2},
                              kSmall,
                              i == 0 ? Anchor::kStart : Anchor::kMiddle,
                              false,
                              false,
                              shortNumber(i * step, 2)});
    end = boxOf(drawing.labels.back()).x1;
  }
  drawing.labels.push_back({{end + 1, at.y - 1.2}, kSmall, Anchor::kStart, false, false, "m"});
}

double addLines(Drawing& drawing, Point at, double capHeight,
                const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    at.y += capHeight;
    drawing.labels.push_back({at, capHeight, Anchor::kStart, false, false, line});
    at.y += capHeight * 0.7;
  }
  return at.y;
}

Box boundsOf(const Drawing& drawing) {
  Box box{1e9, 1e9, -1e9, -1e9};
  const auto take = [&box](const Box& each) {
    box = {std::min(box.x0, each.x0), std::min(box.y0, each.y0), std::max(box.x1, each.x1),
           std::max(box.y1, each.y1)};
  };
  for (const Shape& shape : drawing.shapes) {
    for (const std::vector<Point>& points : shape.lines) {
      for (const Point& p : points) take({p.x, p.y, p.x, p.y});
    }
  }
  for (const Label& label : drawing.labels) take(boxOf(label));
  return box;
}

}  // namespace report
