#include "typology/tipo.h"

#include <array>

namespace {

using enum PlanFamily;
using enum CourtyardPlace;
using enum CourtyardShades;

constexpr TipoRow kBelow = {0, kHouse, kNoCourtyard, kSomeStorey, 2, kNotLookedFor, 2};
constexpr TipoRow kAbove = {kLastTipo + 1, kNone, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 8};

constexpr auto kTipos = std::to_array<TipoRow>({
    {1, kHouse, kNoCourtyard, kOneStorey, 1, kNotLookedFor, 1},
    {2, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 2},
    {3, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 2},
    {4, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 3},
    {5, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 3},
    {6, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 3},
    {7, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 4},
    {8, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 4},
    {9, kHouse, kNoCourtyard, kTwoStoreys, 2, kNotLookedFor, 4},
    {10, kRow, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 5},
    {11, kRow, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 5},
    {12, kRow, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 5},
    {13, kCourtyard, kInside, kMoreThanTwo, 3, kNotLookedFor, 6},
    {14, kCourtyardsInFacades, kInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {15, kCourtyardsInSides, kInSides, kMoreThanTwo, 3, kFirst, 6},
    {16, kCourtyard, kInside, kMoreThanTwo, 3, kNotLookedFor, 6},
    {17, kCourtyardsInFacades, kInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {18, kCourtyardsInSides, kInSides, kMoreThanTwo, 3, kSecond, 6},
    {19, kCourtyard, kInside, kMoreThanTwo, 3, kNotLookedFor, 6},
    {20, kCourtyardsInFacades, kInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {21, kCourtyardsInSides, kInSides, kMoreThanTwo, 3, kBoth, 6},
    {22, kXpala, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 7},
    {23, kStairwell, kNoCourtyard, kMoreThanTwo, 3, kNotLookedFor, 8},
});

static_assert(kTipos.size() == kLastTipo, "kLastTipo in tipo.h is the number of the last row");
constexpr bool everyRowStandsAtItsNumber() {
  for (std::size_t i = 0; i < kTipos.size(); ++i) {
    if (kTipos[i].tipo != static_cast<int>(i) + 1) return false;
  }
  return true;
}
static_assert(everyRowStandsAtItsNumber(), "the rows are not those of 1, 2, 3 ...");

}  // namespace

const TipoRow& tipoRow(int tipo) {
  if (tipo < 1) return kBelow;
  if (tipo > kLastTipo) return kAbove;
  return kTipos[static_cast<std::size_t>(tipo - 1)];
}
