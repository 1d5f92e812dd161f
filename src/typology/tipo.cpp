#include "typology/tipo.h"

#include <algorithm>
#include <array>

namespace {

using enum PlanFamily;
using enum CourtyardShades;

constexpr TipoRow kBelow = {0, kHouse, kSomeStorey, 2, kNotLookedFor, 2};
constexpr TipoRow kAbove = {kLastTipo + 1, kNone, kMoreThanTwo, 3, kNotLookedFor, 8};

constexpr std::array<TipoRow, kLastTipo> kTipos = {{
    {1, kHouse, kOneStorey, 1, kNotLookedFor, 1},
    {2, kHouse, kTwoStoreys, 2, kNotLookedFor, 2},
    {3, kHouse, kTwoStoreys, 2, kNotLookedFor, 2},
    {4, kHouse, kTwoStoreys, 2, kNotLookedFor, 3},
    {5, kHouse, kTwoStoreys, 2, kNotLookedFor, 3},
    {6, kHouse, kTwoStoreys, 2, kNotLookedFor, 3},
    {7, kHouse, kTwoStoreys, 2, kNotLookedFor, 4},
    {8, kHouse, kTwoStoreys, 2, kNotLookedFor, 4},
    {9, kHouse, kTwoStoreys, 2, kNotLookedFor, 4},
    {10, kRow, kMoreThanTwo, 3, kNotLookedFor, 5},
    {11, kRow, kMoreThanTwo, 3, kNotLookedFor, 5},
    {12, kRow, kMoreThanTwo, 3, kNotLookedFor, 5},
    {13, kCourtyard, kMoreThanTwo, 3, kNotLookedFor, 6},
    {14, kCourtyardsInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {15, kCourtyardsInSides, kMoreThanTwo, 3, kFirst, 6},
    {16, kCourtyard, kMoreThanTwo, 3, kNotLookedFor, 6},
    {17, kCourtyardsInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {18, kCourtyardsInSides, kMoreThanTwo, 3, kSecond, 6},
    {19, kCourtyard, kMoreThanTwo, 3, kNotLookedFor, 6},
    {20, kCourtyardsInFacades, kMoreThanTwo, 3, kNotLookedFor, 6},
    {21, kCourtyardsInSides, kMoreThanTwo, 3, kBoth, 6},
    {22, kXpala, kMoreThanTwo, 3, kNotLookedFor, 7},
    {23, kStairwell, kMoreThanTwo, 3, kNotLookedFor, 8},
}};

// The row of a number stands at its place.
static_assert(std::ranges::is_sorted(kTipos, {}, &TipoRow::tipo));
static_assert(kTipos.front().tipo == 1 && kTipos.back().tipo == kLastTipo);

}  // namespace

const TipoRow& tipoRow(int tipo) {
  if (tipo < 1) return kBelow;
  if (tipo > kLastTipo) return kAbove;
  return kTipos[static_cast<std::size_t>(tipo - 1)];
}
