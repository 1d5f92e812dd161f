#pragma once

#include <string>
#include <vector>

#include "report/drawing.h"

namespace report {

/// One bar of a chart.
struct Bar {
  std::string label;  // UTF-8
  long count = 0;
  bool apart = false;  // none of the classes: set off from them and left empty
};

/// How many there are of each: bars that lie one below the other, the label on the left, the count
/// behind the end. Narrow enough for a telephone to show it without making its letters smaller.
/// Labels are cut to half of the width.
Drawing barChart(std::string title, std::string description, const std::vector<Bar>& bars);

}  // namespace report
