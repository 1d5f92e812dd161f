#include "report/plan_rooms.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace report {

namespace {

constexpr double kAir = 1.5;  // mm between a caption and its walls

Box boxOf(const Caption& caption) {
  Box box = report::boxOf(caption.front());
  for (const Label& label : caption) {
    const Box each = report::boxOf(label);
    box = {std::min(box.x0, each.x0), std::min(box.y0, each.y0), std::max(box.x1, each.x1),
           std::max(box.y1, each.y1)};
  }
  return box;
}

void setMeasures(Room& room, const Vertices& outline) {
  const auto [left, right] = std::ranges::minmax(outline, {}, &Vertex::x);
  const auto [low, high] = std::ranges::minmax(outline, {}, &Vertex::y);
  const double width = static_cast<double>(right.x) - left.x;
  const double depth = static_cast<double>(high.y) - low.y;
  if (std::abs(width * depth - room.area) > 1e-3 * room.area) return;
  room.width = width;
  room.depth = depth;
}

/// Whether all cells of the rectangle are of the region.
bool isWhole(const PlanCells& cells, int region, int c0, int r0, int c1, int r1) {
  for (int row = r0; row < r1; ++row) {
    for (int column = c0; column < c1; ++column) {
      if (cells.region(column, row) != region) return false;
    }
  }
  return true;
}

}  // namespace

std::vector<Room> rooms(const Plan& plan) {
  std::vector<Room> found;
  const auto dwellings = std::ranges::count(plan.outlines, Role::kDwelling, &Outline::role);
  char letter = 'A';
  for (std::size_t i = 0; i < plan.outlines.size(); ++i) {
    const auto& [role, vertices] = plan.outlines[i];
    if (role == Role::kBlock) continue;
    Room room;
    room.region = static_cast<int>(i);
    room.area = areaOf(vertices);
    setMeasures(room, vertices);
    if (role == Role::kDwelling) {
      room.name = "Vivienda";
      if (dwellings > 1) {
        room.letter = letter++;
        room.name += " " + room.letter;
      }
    } else {
      room.name = role == Role::kStair ? "Escalera" : "Patio";
    }
    found.push_back(std::move(room));
  }
  if (!plan.edgeCourtyards.empty()) {
    Room room;
    room.region = kEdgeCourtyard;
    room.name = "Patio";
    room.count = static_cast<int>(plan.edgeCourtyards.size());
    room.area = areaOf(plan.edgeCourtyards.front().vertices);
    setMeasures(room, plan.edgeCourtyards.front().vertices);
    found.push_back(std::move(room));
  }
  return found;
}

std::vector<CellBox> largestBoxes(const PlanCells& cells, int region) {
  std::vector<CellBox> found;
  for (int r0 = 0; r0 < cells.rows(); ++r0) {
    for (int c0 = 0; c0 < cells.columns(); ++c0) {
      if (cells.region(c0, r0) != region) continue;
      for (int r1 = r0 + 1; r1 <= cells.rows() && cells.region(c0, r1 - 1) == region; ++r1) {
        int c1 = c0 + 1;
        while (c1 < cells.columns() && isWhole(cells, region, c1, r0, c1 + 1, r1)) ++c1;
        const bool grows = isWhole(cells, region, c0, r1, c1, r1 + 1) ||
                           isWhole(cells, region, c0 - 1, r0, c0, r1) ||
                           isWhole(cells, region, c0, r0 - 1, c1, r0);
        if (!grows) found.push_back({cells.x(c0), cells.y(r0), cells.x(c1), cells.y(r1)});
      }
    }
  }
  return found;
}

Caption rowsOf(const std::vector<std::pair<std::string, double>>& rows) {
  double height = 0;
  for (const auto& [text, cap] : rows) height += cap * 1.7;
  Caption caption;
  double y = -height / 2;
  for (const auto& [text, cap] : rows) {
    caption.push_back({{0, y + cap * 1.2}, cap, Anchor::kMiddle, false, false, text});
    y += cap * 1.7;
  }
  return caption;
}

std::optional<Caption> captionInside(const std::vector<Box>& boxes,
                                     const std::vector<Caption>& choices) {
  for (const Caption& choice : choices) {
    const Box size = boxOf(choice);
    const Box* best = nullptr;
    double most = 0;
    for (const Box& box : boxes) {
      const double across = box.width() - size.width() - 2 * kAir;
      const double down = box.height() - size.height() - 2 * kAir;
      const double room = std::min(across, down);
      if (room >= 0 && (best == nullptr || room > most)) {
        best = &box;
        most = room;
      }
    }
    if (best == nullptr) continue;
    Caption placed = choice;
    const double dx = (best->x0 + best->x1) / 2 - (size.x0 + size.x1) / 2;
    const double dy = (best->y0 + best->y1) / 2 - (size.y0 + size.y1) / 2;
    for (Label& label : placed) label.at = {label.at.x + dx, label.at.y + dy};
    return placed;
  }
  return std::nullopt;
}

void addHatch(std::vector<std::vector<Point>>& lines, const Box& box,
              const std::vector<Box>& holes) {
  const double step = 2.4 * std::numbers::sqrt2;  // 2,4 mm from line to line
  // Lines x + y = c, rising to the right.
  double next = std::ceil((box.x0 + box.y0) / step) * step;
  while (next < box.x1 + box.y1) {
    const double c = next;
    next += step;
    double from = std::max(box.x0, c - box.y1);
    const double to = std::min(box.x1, c - box.y0);
    if (to - from < 1e-6) continue;
    std::vector<std::pair<double, double>> gaps;
    for (const Box& hole : holes) {
      const double a = std::max(hole.x0, c - hole.y1);
      const double b = std::min(hole.x1, c - hole.y0);
      if (b > a) gaps.emplace_back(a, b);
    }
    std::ranges::sort(gaps);
    const auto add = [&](double a, double b) {
      if (b - a > 0.05) lines.push_back({{a, c - a}, {b, c - b}});
    };
    for (const auto& [a, b] : gaps) {
      add(from, std::min(a, to));
      from = std::max(from, b);
    }
    add(from, to);
  }
}

}  // namespace report
