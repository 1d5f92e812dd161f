#pragma once

#include <array>
#include <string>
#include <vector>

#include "report/generated_building.h"
#include "typology/facade.h"

/// The figures of a report: sums over what the run wrote. Of the model, without thickness of walls.
namespace report {

/// Why a façade did not get the openings that were asked for; in the order in which they are said.
enum class GlazingReason {
  kStoreyHeight,  // other than the 3 m of the sizing
  kCappedAtBay,   // more than the bay was asked for
  kStoreyHigh,    // the template's window is as high as a storey
  kRemoved,       // 0 % asked
  kBaysWithout,   // the template has no window there
  kOtherWalls     // the template's walls are not those of the typology
};
std::string_view reasonText(GlazingReason reason);

/// One side, to the street or to the courtyard.
struct FacadeMeasure {
  Facade side = kSouth;
  bool courtyard = false;
  double azimuth = 0;   // where it really looks, degrees
  double wall = 0;      // m2, gross
  double openings = 0;  // m2
  Count windows = 0;    // with their multipliers
  double asked = 0;     // %
  double obtained = 0;  // %
  std::vector<GlazingReason> reasons;
  double net() const { return wall - openings; }
};

/// What looks in one of the eight directions, m2, gross.
struct DirectionMeasure {
  double azimuth = 0;  // degrees
  double facade = 0, courtyard = 0, party = 0;
  double openings = 0;
  double open() const { return facade + courtyard; }
};

/// What a dwelling or the stair of one storey has, m2.
struct SpaceMeasure {
  std::string name;  // "Vivienda A", "Escalera"
  double area = 0;
  double volume = 0;  // m3
  double facade = 0, courtyard = 0, party = 0;
  double partition = 0;  // to other spaces, whichever of the two writes it
  double openings = 0;
};

struct Measures {
  Count storeys = 0;
  Count dwellings = 0;
  double storeyHeight = 0;  // m
  double footprint = 0;     // m2, floor area of one storey
  double floorArea = 0;     // m2, all storeys
  double countedArea = 0;   // m2, of the spaces that the table flags
  double volume = 0;        // m3
  double facade = 0, courtyard = 0, party = 0, roof = 0, ground = 0;  // m2, gross
  double partition = 0, inner = 0, slabs = 0;                         // m2
  double openings = 0;                                                // m2
  double exchanging = 0;       // m2: façades, courtyards, roof and floor, openings included
  double compactness = 0;      // m3/m2
  double openingsByFloor = 0;  // %
  std::vector<FacadeMeasure> facades;  // street first, then courtyard; those with a wall
  /// From N clockwise. No two sides look in the same direction.
  std::array<DirectionMeasure, 8> byDirection{};
  std::vector<SpaceMeasure> spaces;  // see measureSpaces
  Count headsAboveCeiling = 0;       // windows, with their multipliers
  Count tallerThanStorey = 0;
};

/// What a typology asks for.
struct Asked {
  PerFacade<float> street{};     // %
  PerFacade<float> courtyard{};  // %
  double giro = 0;               // degrees
};

/// All but the spaces, which a list of dwellings has no use for.
Measures measure(const GeneratedBuilding& building, const Plan& plan, const Asked& asked);

/// The dwellings and the stair of the lowest storey.
std::vector<SpaceMeasure> measureSpaces(const GeneratedBuilding& building, const Plan& plan);

/// The index of a direction from N clockwise: N, NE, E, SE, S, SO, O, NO.
std::size_t directionIndex(double azimuth);
inline constexpr std::array<std::string_view, 8> kDirections = {"N", "NE", "E", "SE",
                                                                "S", "SO", "O", "NO"};

}  // namespace report
