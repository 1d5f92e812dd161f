#pragma once

#include <limits>
#include <string_view>

/// All that a typology number (TIPO) means, one row a number. What else a new number or a new plan
/// family needs: CONTRIBUTING.md.

/// The families of plans, named by what the block's plan is cut into.
enum class PlanFamily {
  kHouse,                // one dwelling, a rectangle
  kRow,                  // four dwellings side by side, a stair-well at the end
  kCourtyard,            // four quarters round a courtyard
  kStairwell,            // four quarters round a stair-well
  kCourtyardsInFacades,  // stair-well in the middle, courtyards in the street façades
  kCourtyardsInSides,    // stair-well in the middle, courtyards in the side walls
  kXpala,                // stair core with four wings
  kNone                  // no such plan: the run ends
};

/// Where a block's courtyards are: one in its middle, or two that are notches in its edge.
enum class CourtyardPlace { kNoCourtyard, kInside, kInFacades, kInSides };

/// The storeys (NUMERO-PLANTAS) that a building of the number may have.
struct StoreyRule {
  int least;
  int most;
  std::string_view message;  // of a run with any other number of them
};

inline constexpr int kAnyNumber = std::numeric_limits<int>::max();
inline constexpr StoreyRule kSomeStorey = {
    1, kAnyNumber,
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser mayor que 0"};
inline constexpr StoreyRule kOneStorey = {
    1, 1, "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser 1"};
inline constexpr StoreyRule kTwoStoreys = {
    2, 2, "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser 2"};
inline constexpr StoreyRule kMoreThanTwo = {
    3, kAnyNumber,
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser mayor que 2"};

/// The words that a template's two courtyard shades are known by, anywhere in their headers. They
/// are the neighbours' walls on the two sides of courtyards at the sides.
inline constexpr std::string_view kFirstShadeName = "Sombra001";
inline constexpr std::string_view kSecondShadeName = "Sombra002";

/// Which of the two stand in the building.
enum class CourtyardShades { kNotLookedFor, kFirst, kSecond, kBoth };

/// That of every plan, m, whatever a typology says of its building's storeys.
inline constexpr double kStoreyHeight = 3.0;

struct TipoRow {
  int tipo;
  PlanFamily family;
  CourtyardPlace courtyards;
  StoreyRule storeys;
  int planStoreys;  // for which the plan counts bays and walls, whatever NUMERO-PLANTAS says
  CourtyardShades shades;
  int buildingClass;  // as the rating programs know it (TIPOLOGIA)

  constexpr bool firstShade() const {
    return shades == CourtyardShades::kFirst || shades == CourtyardShades::kBoth;
  }
  constexpr bool secondShade() const {
    return shades == CourtyardShades::kSecond || shades == CourtyardShades::kBoth;
  }
};

/// The row of any number. Those below 1 share one (a house of two storeys in its plan, of any
/// number of storeys in its building), those above the last number another, which has no plan.
const TipoRow& tipoRow(int tipo);

/// The numbers that have a row of their own: 1 to kLastTipo.
inline constexpr int kLastTipo = 23;
constexpr bool isTipo(int tipo) { return tipo >= 1 && tipo <= kLastTipo; }
