#include "report/plan_drawing.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "report/plan_cells.h"
#include "report/plan_foot.h"
#include "report/plan_rooms.h"
#include "report/sheet.h"
#include "report/words.h"
#include "typology/tipo.h"

namespace report {

namespace {

// mm on paper.
constexpr double kMargin = 5;
constexpr double kGreatestSide = 170;  // of the block
constexpr double kFirstChain = 8;      // from the outline
constexpr double kNextChain = 6.5;
constexpr double kBayMark = 1.5;
constexpr double kLeadBand = 8;  // for letters that do not fit into their rooms

/// What a page of A4 takes, its margins left free.
struct Paper {
  double width, height;  // mm
};
constexpr Paper kPapers[] = {{190, 277}, {277, 190}};

/// Draws one plan at one scale. The upper left corner of the block is (0, 0) until the end.
class PlanDrawer {
 public:
  PlanDrawer(const PlanSheet& sheet, const Paper& paper, int scale)
      : sheet_(sheet),
        paper_(paper),
        cells_(sheet.plan),
        scale_(scale),
        k_(1000.0 / scale),
        L_(cells_.x(cells_.columns())),
        D_(cells_.y(cells_.rows())),
        rooms_(rooms(sheet.plan)),
        bays_(bays(cells_)) {}

  Drawing draw() {
    addRooms();
    addOpenAir();
    addWalls();
    addBayMarks();
    addWindows();
    const double below = addChains(ChainSide::kBelow);
    const double left = addChains(ChainSide::kLeft);
    addFacadeNames(below, left);
    addNorthArrow();
    finish();
    return std::move(drawing_);
  }

 private:
  Point at(double x, double y) const { return {x * k_, (D_ - y) * k_}; }
  Box paper(const CellBox& box) const {
    return {box.x0 * k_, (D_ - box.y1) * k_, box.x1 * k_, (D_ - box.y0) * k_};
  }

  std::vector<Box> boxesOf(int region) const {
    std::vector<Box> boxes;
    for (const CellBox& box : largestBoxes(cells_, region)) boxes.push_back(paper(box));
    return boxes;
  }

  void addRooms() {
    for (const Room& room : rooms_) {
      if (room.region == kEdgeCourtyard) {
        for (const Outline& courtyard : sheet_.plan.edgeCourtyards) {
          const auto& v = courtyard.vertices;
          addCaption(room, {paper({v[0].x, v[0].y, v[2].x, v[2].y})});
        }
      } else {
        addCaption(room, boxesOf(room.region));
      }
    }
  }

  void addCaption(const Room& room, const std::vector<Box>& boxes) {
    const std::string name = room.letter.empty() ? room.name : room.letter;
    const std::string area = quantity(room.area, 1, "m²");
    std::vector<Caption> choices = {rowsOf({{name, kMedium}, {area, kSmall}}),
                                    rowsOf({{name, kSmall}, {area, kSmall}}),
                                    rowsOf({{name, kMedium}}), rowsOf({{name, kSmall}})};
    for (const double cap : {kMedium, kSmall}) {
      Caption upright = rowsOf({{name, cap}});
      upright.front().turned = true;
      choices.push_back(std::move(upright));
    }
    if (const auto caption = captionInside(boxes, choices)) {
      for (const Label& label : *caption) {
        captions_.push_back(grown(boxOf(label), 1));
        drawing_.labels.push_back(label);
      }
    } else if (!room.letter.empty()) {
      leadOut(room, boxes);
    }
  }

  /// A letter beside the block, at the top or at the right, with a line from its room.
  void leadOut(const Room& room, const std::vector<Box>& boxes) {
    const Box& inside = *std::ranges::max_element(
        boxes, {}, [](const Box& box) { return box.width() * box.height(); });
    const Point from{(inside.x0 + inside.x1) / 2, (inside.y0 + inside.y1) / 2};
    const double right = L_ * k_ + 4;
    for (int step = 0; step < 120; ++step) {
      const double away = step / 2.0;  // mm
      for (const double sign : {-1.0, 1.0}) {
        const Point above{from.x + sign * away, -4};
        const Point beside{right, from.y + sign * away + kSmall / 2};
        const bool wide = L_ > D_;
        for (const bool top : {wide, !wide}) {
          const Label label{
              top ? above : beside, kSmall, top ? Anchor::kMiddle : Anchor::kStart, false, false,
              room.letter};
          const Box box = grown(boxOf(label), 0.8);
          if (std::ranges::any_of(led_, [&](const Box& other) { return touch(other, box); })) {
            continue;
          }
          led_.push_back(box);
          drawing_.labels.push_back(label);
          drawing_.line(Sign::kLeader, from,
                        top ? Point{label.at.x, box.y1} : Point{box.x0, label.at.y - kSmall / 2});
          return;
        }
      }
    }
  }

  void addOpenAir() {
    Shape hatch{Sign::kHatch, {}, false};
    for (int row = 0; row < cells_.rows(); ++row) {
      for (int column = 0; column < cells_.columns(); ++column) {
        if (cells_.isBuilt(cells_.region(column, row))) continue;
        addHatch(hatch.lines,
                 paper({cells_.x(column), cells_.y(row), cells_.x(column + 1), cells_.y(row + 1)}),
                 captions_);
      }
    }
    hasOpenAir_ = !hatch.lines.empty();
    if (hasOpenAir_) drawing_.shapes.push_back(std::move(hatch));
  }

  Sign signOf(const WallPiece& piece) const {
    if (piece.kind == WallKind::kPartition) return Sign::kPartition;
    if (piece.kind == WallKind::kStreet && sheet_.party[static_cast<std::size_t>(piece.side)]) {
      return Sign::kParty;
    }
    return Sign::kFacade;
  }

  void addWalls() {
    const std::vector<WallPiece> pieces = wallPieces(cells_);
    for (const Sign sign : {Sign::kPartition, Sign::kFacade, Sign::kParty}) {
      Shape walls{sign, {}, false};
      for (const WallPiece& piece : pieces) {
        if (signOf(piece) == sign) addJoined(walls, at(piece.x0, piece.y0), at(piece.x1, piece.y1));
      }
      if (sign == Sign::kParty) addNeighbours(walls);
      if (walls.lines.empty()) continue;
      signs_.push_back(sign);
      drawing_.shapes.push_back(std::move(walls));
    }
  }

  /// Lengthens the line that ends where this one begins, or the other way round.
  static void addJoined(Shape& shape, Point a, Point b) {
    const auto same = [](Point p, Point q) {
      return std::abs(p.x - q.x) + std::abs(p.y - q.y) < 1e-6;
    };
    const auto straight = [](Point p, Point q, Point r) {
      return std::abs((q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x)) < 1e-6;
    };
    for (std::vector<Point>& line : shape.lines) {
      if (!straight(line.front(), line.back(), a) || !straight(line.front(), line.back(), b)) {
        continue;
      }
      if (same(line.back(), a)) {
        line.back() = b;
        return;
      }
      if (same(line.front(), b)) {
        line.front() = a;
        return;
      }
    }
    shape.lines.push_back({a, b});
  }

  /// The neighbours' walls that close courtyards at the sides.
  void addNeighbours(Shape& walls) const {
    if (tipoRow(sheet_.data.tipo).family != PlanFamily::kCourtyardsInSides) return;
    const TipoRow& row = tipoRow(sheet_.data.tipo);
    for (const Outline& courtyard : sheet_.plan.edgeCourtyards) {
      const auto& v = courtyard.vertices;
      const bool west = v[0].x <= 0;
      if (west ? !row.secondShade() : !row.firstShade()) continue;
      const double x = west ? v[0].x : v[1].x;
      walls.lines.push_back({at(x, v[0].y), at(x, v[2].y)});
    }
  }

  /// Short ticks outwards at both ends of every bay.
  void addBayMarks() {
    Shape marks{Sign::kBayMark, {}, false};
    for (const Bay& bay : bays_) {
      const double dx = bay.side == kEast ? kBayMark : bay.side == kWest ? -kBayMark : 0;
      const double dy = bay.side == kSouth ? kBayMark : bay.side == kNorth ? -kBayMark : 0;
      for (const Point& p : {at(bay.x0, bay.y0), at(bay.x1, bay.y1)}) {
        marks.lines.push_back({p, {p.x + dx, p.y + dy}});
      }
    }
    drawing_.shapes.push_back(std::move(marks));
  }

  /// Two parallels in a white gap of the wall.
  void addWindows() {
    if (sheet_.windows.empty()) return;
    Shape gaps{Sign::kGap, {}, false};
    Shape panes{Sign::kWindow, {}, false};
    for (const PlanWindow& window : sheet_.windows) {
      const Point a = at(window.x0, window.y0);
      const Point b = at(window.x1, window.y1);
      const bool along = window.side == kSouth || window.side == kNorth;
      gaps.lines.push_back({a, b});
      for (const double d : {-0.35, 0.35}) {
        panes.lines.push_back(along ? std::vector<Point>{{a.x, a.y + d}, {b.x, b.y + d}}
                                    : std::vector<Point>{{a.x + d, a.y}, {b.x + d, b.y}});
      }
    }
    drawing_.shapes.push_back(std::move(gaps));
    drawing_.shapes.push_back(std::move(panes));
  }

  Chain chainOf(std::vector<double> metres, ChainSide side) const {
    std::ranges::sort(metres);
    Chain chain;
    for (const double each : metres) {
      if (!chain.metres.empty() && each - chain.metres.back() < 2e-3) continue;
      chain.metres.push_back(each);
      chain.places.push_back(side == ChainSide::kBelow ? each * k_ : (D_ - each) * k_);
    }
    return chain;
  }

  static bool isEqual(const Chain& chain) {
    const auto parts = static_cast<double>(chain.metres.size() - 1);
    const double part = (chain.metres.back() - chain.metres.front()) / parts;
    for (std::size_t i = 0; i + 1 < chain.metres.size(); ++i) {
      if (std::abs(chain.metres[i + 1] - chain.metres[i] - part) > 1e-3) return false;
    }
    return true;
  }

  /// Bays, parts, total, from inside outwards; a chain that says nothing new is left out. Returns
  /// how far the last one is from the outline.
  double addChains(ChainSide side) {
    const bool below = side == ChainSide::kBelow;
    const double size = below ? L_ : D_;
    std::vector<double> ofBays = {0, size}, ofParts = {0, size};
    for (const Bay& bay : bays_) {
      if (bay.side != (below ? kSouth : kWest)) continue;
      ofBays.push_back(below ? bay.x0 : bay.y0);
      ofBays.push_back(below ? bay.x1 : bay.y1);
    }
    for (const Outline& outline : sheet_.plan.outlines) {
      if (outline.role != Role::kStair && outline.role != Role::kCourtyard) continue;
      for (const Vertex& v : outline.vertices) {
        const bool corner =
            below ? std::abs(v.x - size / 2) > 1e-3 : std::abs(v.y - size / 2) > 1e-3;
        if (corner) ofParts.push_back(below ? v.x : v.y);
      }
    }
    const Chain total = chainOf({0, size}, side);
    const Chain parts = chainOf(ofParts, side);
    const Chain each = chainOf(ofBays, side);
    double away = kFirstChain;
    const auto line = [&] { return below ? D_ * k_ + away : -away; };
    double from = below ? D_ * k_ : 0;  // where extension lines begin: at the chain before
    const bool equal = isEqual(each);
    if (each.metres.size() > 2 && each.metres != parts.metres && (fits(each) || equal)) {
      fits(each) ? addChain(drawing_, side, each, line(), from)
                 : addEqualParts(drawing_, side, each, line(), from);
      from = line();
      away += kNextChain;
    }
    if (parts.metres.size() > 2 && fits(parts)) {
      addChain(drawing_, side, parts, line(), from);
      from = line();
      away += kNextChain;
    }
    addChain(drawing_, side, total, line(), from);
    return away;
  }

  /// Moves the labels from `first` on by steps until they touch no earlier one.
  void pushFree(std::size_t first, double dx, double dy) {
    const auto touching = [&] {
      for (std::size_t i = first; i < drawing_.labels.size(); ++i) {
        const Box box = grown(boxOf(drawing_.labels[i]), 1.5);
        for (std::size_t k = 0; k < first; ++k) {
          if (touch(box, boxOf(drawing_.labels[k]))) return true;
        }
      }
      return false;
    };
    while (touching()) {
      for (std::size_t i = first; i < drawing_.labels.size(); ++i) {
        Point& p = drawing_.labels[i].at;
        p = {p.x + dx, p.y + dy};
      }
    }
  }

  void addFacadeNames(double below, double left) {
    constexpr double kRow1 = kMedium, kBetween = 2.2, kRow2 = kSmall;
    constexpr double kBoth = kRow1 + kBetween + kRow2;
    const double width = L_ * k_, height = D_ * k_;
    const double band = led_.empty() ? 4 : kLeadBand;
    for (const Facade side : {kWest, kEast, kNorth, kSouth}) {
      const bool party = sheet_.party[static_cast<std::size_t>(side)];
      const double azimuth = realAzimuth(side, sheet_.giro);
      const std::string name = std::string(party ? "Medianera" : facadeTitle(side)) + " «" +
                               std::string(sideName(side)) + "»";
      const std::string looks =
          "mira al " + std::string(directionName(azimuth)) + ", " + degrees(azimuth);
      const bool turned = side == kWest || side == kEast;
      // The top of the first row, from where both are set.
      const double edge = side == kWest    ? -(left + 5.5) - kBoth
                          : side == kEast  ? width + band
                          : side == kNorth ? -band - kBoth
                                           : height + below + 4;
      const std::size_t first = drawing_.labels.size();
      for (const auto& [text, cap, down] :
           {std::tuple{name, kRow1, kRow1}, std::tuple{looks, kRow2, kBoth}}) {
        const Point p = turned ? Point{edge + down, height / 2} : Point{width / 2, edge + down};
        drawing_.labels.push_back({p, cap, Anchor::kMiddle, turned, false, text});
      }
      pushFree(first, turned ? (side == kWest ? -1 : 1) : 0,
               turned ? 0 : (side == kNorth ? -1 : 1));
    }
  }

  /// In the upper right corner, beside the drawing where there is room, else above it.
  void addNorthArrow() {
    content_ = boundsOf(drawing_);
    const double middle = (content_.x0 + content_.x1) / 2;
    right_ = std::max(middle + paper_.width / 2, content_.x1);
    left_ = std::min(middle - paper_.width / 2, content_.x0);
    const double half = kNorthSquare / 2;
    Point centre{right_ - half, content_.y0 + half};
    const Box block{0, 0, L_ * k_, D_ * k_};
    const auto isTaken = [&] {
      const Box box{centre.x - half, centre.y - half, centre.x + half, centre.y + half};
      return touch(box, block) || std::ranges::any_of(drawing_.labels, [&](const Label& label) {
               return touch(box, boxOf(label));
             });
    };
    while (isTaken()) centre.y -= 1;
    addNorth(drawing_, centre, sheet_.giro);
    content_.y0 = std::min(content_.y0, centre.y - half);
  }

  /// Areas, legend and title block below, then the sheet round all of it.
  void finish() {
    const double top = content_.y1 + 9;
    const PlanFoot foot{sheet_, rooms_, signs_, hasOpenAir_, scale_};
    const double low = addPlanFoot(drawing_, foot, left_, right_, top);
    drawing_.shift(kMargin - left_, kMargin - content_.y0);
    drawing_.width = right_ - left_ + 2 * kMargin;
    drawing_.height = low - content_.y0 + 2 * kMargin;
    drawing_.title = sheet_.content + ", tipología " + std::to_string(sheet_.data.tipo) + ", " +
                     std::string(familyTitle(sheet_.data.tipo));
    drawing_.description = "Plano a escala 1:" + std::to_string(scale_) + " de un bloque de " +
                           quantity(L_, 2, "m") + " por " + quantity(D_, 2, "m") +
                           ". La fachada principal mira al " +
                           std::string(directionName(realAzimuth(kSouth, sheet_.giro))) + ".";
  }

  const PlanSheet& sheet_;
  Paper paper_;
  PlanCells cells_;
  int scale_;
  double k_;  // mm a metre
  double L_, D_;
  std::vector<Room> rooms_;
  std::vector<Bay> bays_;
  Drawing drawing_;
  std::vector<Box> captions_;  // kept free of hatching
  std::vector<Box> led_;       // letters outside
  std::vector<Sign> signs_;    // of walls in use
  bool hasOpenAir_ = false;
  Box content_;  // block, dimensions and names
  double left_ = 0, right_ = 0;
};

}  // namespace

Drawing planDrawing(const PlanSheet& sheet) {
  const auto& corners = sheet.plan.outlines.front().vertices;
  const double side = std::max(corners[2].x, corners[2].y);
  Drawing drawing;
  for (const int scale : kScales) {
    if (side * 1000 / scale > kGreatestSide) continue;
    for (const Paper& paper : kPapers) {
      drawing = PlanDrawer(sheet, paper, scale).draw();
      if (drawing.width <= paper.width + 2 * kMargin + 0.01 &&
          drawing.height <= paper.height + 2 * kMargin) {
        return drawing;
      }
    }
  }
  return drawing;
}

}  // namespace report
