#include "report/bar_chart.h"

#include <algorithm>

#include "report/words.h"

namespace report {

namespace {

constexpr double kWidth = 96;  // mm
constexpr double kPitch = 5.6;
constexpr double kThickness = 3.6;
constexpr double kGap = 2;         // between a bar and its words
constexpr double kApart = 2.4;     // above a bar that is none of the classes
constexpr double kMargin = 1;      // above and below
constexpr double kLeastBar = 0.4;  // of a count that is not 0

}  // namespace

Drawing barChart(std::string title, std::string description, const std::vector<Bar>& bars) {
  Drawing drawing;
  drawing.width = kWidth;
  drawing.title = std::move(title);
  drawing.description = std::move(description);
  double left = 0, right = 0;
  long most = 1;
  for (const Bar& bar : bars) {
    left = std::max(left, textWidth(bar.label, kSmall));
    right = std::max(right, textWidth(number(static_cast<double>(bar.count), 0), kSmall));
    most = std::max(most, bar.count);
  }
  left = std::min(left, kWidth / 2) + kGap;
  const double room = kWidth - left - kGap - right;
  double y = kMargin;
  for (const Bar& bar : bars) {
    if (bar.apart) y += kApart;
    const double middle = y + kPitch / 2;
    const double baseline = middle + kSmall / 2;
    const double share = static_cast<double>(bar.count) / static_cast<double>(most);
    const double length = bar.count > 0 ? std::max(kLeastBar, room * share) : 0;
    if (length > 0) {
      const double top = middle - kThickness / 2, bottom = middle + kThickness / 2;
      drawing.area(bar.apart ? Sign::kScaleEmpty : Sign::kGlass,
                   {{left, top}, {left + length, top}, {left + length, bottom}, {left, bottom}});
    }
    drawing.labels.push_back({.at = {left - kGap, baseline},
                              .capHeight = kSmall,
                              .anchor = Anchor::kEnd,
                              .text = cutToWidth(bar.label, kSmall, left - kGap)});
    drawing.labels.push_back({.at = {left + length + kGap, baseline},
                              .capHeight = kSmall,
                              .text = number(static_cast<double>(bar.count), 0)});
    y += kPitch;
  }
  drawing.height = y + kMargin;
  drawing.line(Sign::kRule, {left, 0}, {left, drawing.height});
  return drawing;
}

}  // namespace report
