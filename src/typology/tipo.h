#pragma once

#include <limits>
#include <string_view>

/// All that a typology number (TIPO) means, one row a number. A new number is a row here; a new
/// plan family is besides a function of plan/ and a sample building.

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

/// Which of a template's two courtyard shades, Sombra001 and Sombra002, stand in the building.
/// They are the neighbours' walls on the two sides of courtyards at the sides.
enum class CourtyardShades { kNotLookedFor, kFirst, kSecond, kBoth };

struct TipoRow {
  int tipo;
  PlanFamily family;
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
