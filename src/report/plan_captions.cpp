#include "report/plan_captions.h"

#include <algorithm>

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
    } else if (!room.letter.empty()) {
      leadOut(room, boxes);
    }
  }

  /// A letter beside the block, at the top or at the right, with a line from its room.
  void leadOut(const Room& room, const std::vector<Box>& boxes) {
    const Box& inside = *std::ranges::max_element(
        boxes, {}, [](const Box& box) { return box.width() * box.height(); });
    const Point from{(inside.x0 + inside.x1) / 2, (inside.y0 + inside.y1) / 2};
    const double right = frame_.width() + 4;
    for (int step = 0; step < 120; ++step) {
      const double away = step / 2.0;  // mm
      for (const double sign : {-1.0, 1.0}) {
        const Point above{from.x + sign * away, -4};
        const Point beside{right, from.y + sign * away + kSmall / 2};
        const bool wide = frame_.L > frame_.D;
        for (const bool top : {wide, !wide}) {
          const Label label{
              top ? above : beside, kSmall, top ? Anchor::kMiddle : Anchor::kStart, false, false,
              room.letter};
          const Box box = grown(boxOf(label), 0.8);
          if (std::ranges::any_of(captions_.led,
                                  [&](const Box& other) { return touch(other, box); })) {
            continue;
          }
          captions_.led.push_back(box);
          drawing_.labels.push_back(label);
          drawing_.line(Sign::kLeader, from,
                        top ? Point{label.at.x, box.y1} : Point{box.x0, label.at.y - kSmall / 2});
          return;
        }
      }
    }
  }

  Drawing& drawing_;
  const PlanFrame& frame_;
  PlanCaptions captions_;
};

}  // namespace

PlanCaptions addPlanCaptions(Drawing& drawing, const PlanFrame& frame) {
  return CaptionDrawer(drawing, frame).draw();
}

}  // namespace report
