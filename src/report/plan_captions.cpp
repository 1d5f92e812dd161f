#include "report/plan_captions.h"

#include <algorithm>
#include <cmath>

#include "report/words.h"

namespace report {

namespace {

class CaptionDrawer {
 public:
  CaptionDrawer(Drawing& drawing, const PlanFrame& frame) : drawing_(drawing), frame_(frame) {}

  PlanCaptions draw() {
    for (const Room& room : frame_.rooms) {
      if (room.region == kEdgeCourtyard) {
        for (const Outline& courtyard : frame_.sheet.plan.edgeCourtyards) {
          const auto& v = courtyard.vertices;
          addCaption(room, {frame_.onPaper({v[0].x, v[0].y, v[2].x, v[2].y})});
        }
      } else {
        addCaption(room, boxesOf(room.region));
      }
    }
    // Once all names inside are there: lines go round them.
    for (const Outside& each : outside_) leadOut(each);
    return std::move(captions_);
  }

 private:
  std::vector<Box> boxesOf(int region) const {
    std::vector<Box> boxes;
    for (const CellBox& box : largestBoxes(frame_.cells, region)) {
      boxes.push_back(frame_.onPaper(box));
    }
    return boxes;
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
        captions_.inside.push_back(grown(boxOf(label), 1));
        drawing_.labels.push_back(label);
      }
    } else {
      const bool isHouse = frame_.rooms.size() == 1;  // the title says what it is
      if (!isHouse) {
        outside_.push_back({name, *std::ranges::max_element(boxes, {}, [](const Box& box) {
                              return box.width() * box.height();
                            })});
      }
    }
  }

  /// A room whose name does not fit into it.
  struct Outside {
    std::string name;
    Box inside;  // mm
  };

  /// The name beside the block, at the top or at the right, with a line from its room that neither
  /// crosses another name nor runs along a wall.
  void leadOut(const Outside& room) {
    const Box& inside = room.inside;
    for (const bool strict : {true, false}) {
      for (int step = 0; step < 120; ++step) {
        for (const double share : {0.5, 0.25, 0.75}) {
          const Point from{inside.x0 + share * inside.width(), inside.y0 + share * inside.height()};
          for (const double away : {-step / 2.0, step / 2.0}) {  // mm
            const bool wide = frame_.L > frame_.D;
            for (const bool top : {wide, !wide}) {
              if (tryLead(room.name, from, away, top, strict)) return;
            }
          }
        }
      }
    }
  }

  bool tryLead(const std::string& name, Point from, double away, bool top, bool strict) {
    const Point at =
        top ? Point{from.x + away, -4} : Point{frame_.width() + 4, from.y + away + kSmall / 2};
    const Label label{at, kSmall, top ? Anchor::kMiddle : Anchor::kStart, false, false, name};
    const Box box = grown(boxOf(label), 0.8);
    const Point to = top ? Point{at.x, box.y1} : Point{box.x0, at.y - kSmall / 2};
    const auto touches = [&](const Box& other) { return touch(other, box); };
    if (std::ranges::any_of(captions_.led, touches)) return false;
    if (strict && !isFree(from, to)) return false;
    captions_.led.push_back(box);
    drawing_.labels.push_back(label);
    drawing_.line(Sign::kLeader, from, to);
    return true;
  }

  /// Whether a line crosses no name, and stays off the walls that it runs along.
  bool isFree(Point from, Point to) const {
    constexpr int kSteps = 200;
    for (int i = 0; i <= kSteps; ++i) {
      const double share = static_cast<double>(i) / kSteps;
      const Point p{from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
      const Box dot{p.x - 0.01, p.y - 0.01, p.x + 0.01, p.y + 0.01};
      if (std::ranges::any_of(captions_.inside, [&](const Box& b) { return touch(b, dot); })) {
        return false;
      }
    }
    constexpr double kOff = 0.8;  // mm
    const PlanCells& cells = frame_.cells;
    if (std::abs(to.x - from.x) < 1e-6) {
      for (int i = 0; i <= cells.columns(); ++i) {
        if (std::abs(frame_.at(cells.x(i), 0).x - from.x) < kOff) return false;
      }
    }
    if (std::abs(to.y - from.y) < 1e-6) {
      for (int i = 0; i <= cells.rows(); ++i) {
        if (std::abs(frame_.at(0, cells.y(i)).y - from.y) < kOff) return false;
      }
    }
    return true;
  }

  std::vector<Outside> outside_;
  Drawing& drawing_;
  const PlanFrame& frame_;
  PlanCaptions captions_;
};

}  // namespace

PlanCaptions addPlanCaptions(Drawing& drawing, const PlanFrame& frame) {
  return CaptionDrawer(drawing, frame).draw();
}

}  // namespace report
