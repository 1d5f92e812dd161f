#include "report/plan_drawing.h"

#include <algorithm>
#include <span>
#include <tuple>

#include "report/plan_captions.h"
#include "report/plan_chains.h"
#include "report/plan_foot.h"
#include "report/plan_frame.h"
#include "report/plan_walls.h"
#include "report/sheet.h"
#include "report/words.h"

namespace report {

namespace {

// mm on paper.
constexpr double kMargin = 5;
constexpr double kGreatestSide = 170;  // of the block
constexpr double kLeadBand = 8;        // for names that do not fit into their rooms

/// What a page takes, its margins left free.
struct Paper {
  double width, height;  // mm
};
constexpr Paper kA4Papers[] = {{190, 277}, {277, 190}};
constexpr Paper kReportPapers[] = {{kReportWidth - 2 * kMargin, 218}};

/// Draws one plan at one scale.
class PlanDrawer {
 public:
  PlanDrawer(const PlanSheet& sheet, const Paper& paper, int scale)
      : frame_(sheet, scale), paper_(paper) {}

  Drawing draw() {
    const PlanCaptions captions = addPlanCaptions(drawing_, frame_);
    hasLed_ = !captions.led.empty();
    hasOpenAir_ = addOpenAir(drawing_, frame_, captions.inside);
    signs_ = addPlanWalls(drawing_, frame_);
    addBayMarks(drawing_, frame_);
    addPlanWindows(drawing_, frame_);
    const double below = addPlanChains(drawing_, frame_, ChainSide::kBelow);
    const double left = addPlanChains(drawing_, frame_, ChainSide::kLeft);
    addFacadeNames(below, left);
    addNorthArrow();
    finish();
    return std::move(drawing_);
  }

 private:
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
    const double width = frame_.width(), height = frame_.height();
    const double band = hasLed_ ? kLeadBand : 4;
    for (const Facade side : {kWest, kEast, kNorth, kSouth}) {
      const bool party = frame_.sheet.party[static_cast<std::size_t>(side)];
      const double azimuth = realAzimuth(side, frame_.sheet.giro);
      const std::string name = std::string(party ? "Medianera" : facadeTitle(side)) + " «" +
                               std::string(kFacadeNames[side]) + "»";
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
    const Box block{0, 0, frame_.width(), frame_.height()};
    const auto isTaken = [&] {
      const Box box{centre.x - half, centre.y - half, centre.x + half, centre.y + half};
      return touch(box, block) || std::ranges::any_of(drawing_.labels, [&](const Label& label) {
               return touch(box, boxOf(label));
             });
    };
    while (isTaken()) centre.y -= 1;
    addNorth(drawing_, centre, frame_.sheet.giro);
    content_.y0 = std::min(content_.y0, centre.y - half);
  }

  /// Areas, legend and title block below, then the sheet round all of it.
  void finish() {
    const double top = content_.y1 + 9;
    const PlanFoot foot{frame_.sheet, frame_.rooms, signs_, hasOpenAir_, frame_.scale};
    const double low = addPlanFoot(drawing_, foot, left_, right_, top);
    drawing_.shift(kMargin - left_, kMargin - content_.y0);
    drawing_.width = right_ - left_ + 2 * kMargin;
    drawing_.height = low - content_.y0 + 2 * kMargin;
    drawing_.title = frame_.sheet.content + ", tipología " +
                     std::to_string(frame_.sheet.data.tipo) + ", " +
                     familyTitle(frame_.sheet.data.tipo);
    drawing_.description = "Plano a escala 1:" + std::to_string(frame_.scale) +
                           " de un bloque de " + quantity(frame_.L, 2, "m") + " por " +
                           quantity(frame_.D, 2, "m") + ". La fachada principal mira al " +
                           std::string(directionName(realAzimuth(kSouth, frame_.sheet.giro))) + ".";
  }

  PlanFrame frame_;
  Paper paper_;
  Drawing drawing_;
  std::vector<Sign> signs_;  // of walls in use
  bool hasOpenAir_ = false;
  bool hasLed_ = false;  // names beside the block
  Box content_;          // block, dimensions and names
  double left_ = 0, right_ = 0;
};

}  // namespace

Drawing planDrawing(const PlanSheet& sheet, PlanPaper use) {
  const auto& corners = sheet.plan.outlines.front().vertices;
  const double side = std::max(corners[2].x, corners[2].y);
  const std::span<const Paper> papers =
      use == PlanPaper::kReport ? std::span<const Paper>(kReportPapers) : kA4Papers;
  const std::span<const int> scales =
      use == PlanPaper::kReport ? std::span<const int>(kReportScales) : kScales;
  Drawing drawing;
  for (const int scale : scales) {
    if (side * 1000 / scale > kGreatestSide) continue;
    for (const Paper& paper : papers) {
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
