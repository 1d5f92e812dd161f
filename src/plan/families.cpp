#include "plan/families.h"

#include <array>

namespace {

// Ordinary depths of a block.
constexpr OrdinaryLengths kTwoRowsOfRooms = {8, 14};
constexpr OrdinaryLengths kWithHole = {14, 28};  // with a courtyard or stair in the middle

// The ordinary ones have four dwellings of about 100 m2 a storey, or are a house of two storeys of
// 72 m2. The courtyards are wide enough for four storeys.
constexpr auto kFamilies = std::to_array<FamilyRow>({
    {PlanFamily::kHouse,
     "casa",
     1,
     planHouse,
     false,
     {.areaPlanta = 72, .longitudFachada = 8},
     std::nullopt},
    {PlanFamily::kRow,
     "bloque de cuatro en hilera con escalera en el extremo",
     4,
     planRow,
     true,
     {.areaPlanta = 363, .areaEscalera = 33, .longitudFachada = 33},
     kTwoRowsOfRooms},
    {PlanFamily::kCourtyard,
     "bloque con patio central",
     4,
     planCourtyard,
     true,
     {.areaPlanta = 454, .areaPatio = 30, .longitudFachada = 22, .profundidadPatio = 5},
     kWithHole},
    {PlanFamily::kStairwell,
     "bloque con escalera central",
     4,
     planStairwell,
     false,
     {.areaPlanta = 400, .areaEscalera = 20, .longitudFachada = 20, .profundidadEscalera = 4},
     kWithHole},
    {PlanFamily::kCourtyardsInFacades,
     "bloque con escalera central y patios abiertos a fachada",
     4,
     planCourtyardsInFacades,
     true,
     {.areaPlanta = 488,
      .areaPatio = 40,
      .areaEscalera = 25,
      .longitudFachada = 24,
      .profundidadPatio = 4,
      .profundidadEscalera = 5},
     kWithHole},
    {PlanFamily::kCourtyardsInSides,
     "bloque con escalera central y patios laterales",
     4,
     planCourtyardsInSides,
     true,
     {.areaPlanta = 480,
      .areaPatio = 40,
      .areaEscalera = 20,
      .longitudFachada = 26,
      .profundidadPatio = 5,
      .profundidadEscalera = 4},
     kWithHole},
    {PlanFamily::kXpala,
     "bloque de cuatro alas en torno a la escalera",
     4,
     planXpala,
     false,
     {.areaPlanta = 343, .areaEscalera = 23, .longitudFachada = 26, .profundidadEscalera = 4.6F},
     std::nullopt},
    {PlanFamily::kNone, "", 0, nullptr, false, {}, std::nullopt},
});

constexpr std::size_t indexOf(PlanFamily family) { return static_cast<std::size_t>(family); }

static_assert(kFamilies.size() == indexOf(PlanFamily::kNone) + 1,
              "a value of PlanFamily has no row here");
constexpr bool everyRowStandsAtItsFamily() {
  for (std::size_t i = 0; i < kFamilies.size(); ++i) {
    if (indexOf(kFamilies[i].family) != i) return false;
  }
  return true;
}
static_assert(everyRowStandsAtItsFamily(), "the rows are not in the order of PlanFamily");

}  // namespace

std::span<const FamilyRow> families() { return kFamilies; }

const FamilyRow& familyRow(PlanFamily family) { return kFamilies[indexOf(family)]; }
