#pragma once

#include <string>
#include <vector>

#include "report/drawing.h"

/// What drawings to scale share: dimensions, the north arrow, the scale bar, the title block.
/// `perMetre`: mm on paper a metre of building.
namespace report {

/// The scales in use, 1 to so much.
inline constexpr int kScales[] = {50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000};

/// Those of a page of a report, which stands upright: with the other ones of the usual scale rule.
inline constexpr int kReportScales[] = {50,  100,  200,  250,  300,   400,
                                        500, 1000, 2000, 5000, 10000, 20000};

/// What a page of a printed report takes across: drawings in it are at most so wide, so that they
/// are printed true to scale. The page's margins are in the style sheet of the report.
inline constexpr double kReportWidth = 192;  // mm

/// Where a chain of dimensions stands: below the drawing, or on its left.
enum class ChainSide { kBelow, kLeft };

/// A chain of dimensions over `breaks`, places along it in mm with their values in metres, rising.
struct Chain {
  std::vector<double> places;  // mm on paper: x for one below, y for one on the left
  std::vector<double> metres;
};

/// Whether every measure of the chain has room on its line. The last one may stand beside it.
bool fits(const Chain& chain);
/// Draws it at `line`, the y or x of its line; extension lines start at `outline`. The printed
/// measures add up to the printed total: they are differences of rounded places.
void addChain(Drawing& drawing, ChainSide side, const Chain& chain, double line, double outline);
/// The same for equal parts too narrow for a text each: "6 × 2,10".
void addEqualParts(Drawing& drawing, ChainSide side, const Chain& chain, double line,
                   double outline);

/// An arrow to geographic north in the middle of a square of kNorthSquare. The building is turned
/// clockwise by `giro`, so north turns to the left on the paper.
inline constexpr double kNorthSquare = 25;  // mm
void addNorth(Drawing& drawing, Point centre, double giro);

/// A graphic scale of four parts, its left end at `at`. Its width, with the unit, is at most 55 mm.
void addScaleBar(Drawing& drawing, Point at, double perMetre);

/// Lines of text from `at` down, one below the other; the y behind the last.
double addLines(Drawing& drawing, Point at, double capHeight,
                const std::vector<std::string>& lines);

/// Box round all shapes and labels.
Box boundsOf(const Drawing& drawing);

}  // namespace report
