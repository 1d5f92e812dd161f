#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A drawing is data before it is text: shapes and labels at fixed places, each with the sign that
/// it stands for. Whoever writes it (svg_writer.h) measures nothing, and tests ask these lists.
///
/// Millimetres on paper, x to the right, y down, from the sheet's upper left corner.
namespace report {

struct Point {
  double x = 0;
  double y = 0;
};

/// Corners of an upright rectangle: the upper left and the lower right one.
struct Box {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  double width() const { return x1 - x0; }
  double height() const { return y1 - y0; }
};

/// Whether two boxes share more than an edge.
bool touch(const Box& a, const Box& b);
/// The same with `air` left free round `a`.
Box grown(const Box& a, double air);

/// What a shape means. Its looks are a row of the style sheet.
enum class Sign {
  kHatch,      // open air: courtyards, the corners between wings
  kPartition,  // between dwellings, to the stair
  kFacade,     // to the street or a courtyard
  kParty,      // wall that a neighbour shares, or the neighbour's own
  kGap,        // of a wall, for a window
  kWindow,
  kBayMark,
  kDimension,
  kTick,  // end of a dimension
  kLeader,
  kNorth,
  kScaleFull,
  kScaleEmpty,
  kRule,  // of the title block and tables
  // Elevations and axonometric views.
  kGround,
  kWall,  // area with its outline
  kOutline,
  kStoreyLine,
  kGlass,
  kRoof,
  kLitWall,
  kShadedWall,
  kPane,  // a window seen at an angle
  kLast   // how many there are
};

/// Lines or areas of one sign, written in one piece.
struct Shape {
  Sign sign = Sign::kOutline;
  std::vector<std::vector<Point>> lines;
  bool closed = false;
};

enum class Anchor { kStart, kMiddle, kEnd };

/// A line of text. It stands on its baseline at `at`.
struct Label {
  Point at;
  double capHeight = 2.5;  // mm, of capitals
  Anchor anchor = Anchor::kStart;
  bool turned = false;  // read from the right: a quarter turn to the left
  bool strong = false;
  std::string text;  // UTF-8
};

/// What the label covers, its descenders included. Widths are those of a wide sans-serif, so that
/// any usual family stays inside.
Box boxOf(const Label& label);
double textWidth(std::string_view utf8, double capHeight);
/// `text` cut to `width`, with an ellipsis where something is lost.
std::string cutToWidth(std::string_view text, double capHeight, double width);
/// `text` in lines of at most `width`, broken at blanks; a longer word behind one of its signs, or
/// anywhere. Of more than `most` lines the last one ends in an ellipsis.
std::vector<std::string> wrapped(std::string_view text, double capHeight, double width,
                                 std::size_t most = 100);

// Heights of letters, mm.
inline constexpr double kSmall = 2.5;   // dimensions, areas, notes; nothing is smaller
inline constexpr double kMedium = 3.5;  // rooms, façades
inline constexpr double kLarge = 5.0;   // titles

struct Drawing {
  double width = 0;  // mm
  double height = 0;
  std::string title;          // for those who hear it, UTF-8
  std::string description;    // the same
  std::vector<Shape> shapes;  // later ones lie on top
  std::vector<Label> labels;  // on top of all shapes

  void line(Sign sign, Point a, Point b) { shapes.push_back({sign, {{a, b}}, false}); }
  void area(Sign sign, std::vector<Point> corners) {
    shapes.push_back({sign, {std::move(corners)}, true});
  }
  /// Moves all of it.
  void shift(double dx, double dy);
};

}  // namespace report
