#include "report/measures.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "report/plan_cells.h"
#include "report/plan_rooms.h"
#include "report/words.h"
#include "typology/tipo.h"

namespace report {

namespace {

constexpr double kNearly = 1e-3;  // m, m2

bool isOuterWall(SurfaceKind kind) {
  return kind == SurfaceKind::kFacade || kind == SurfaceKind::kCourtyard;
}

/// What the figures before do not explain: the walls are not those that the windows were sized for.
bool isOtherwise(const FacadeMeasure& facade, double storeyHeight) {
  const auto has = [&](GlazingReason reason) {
    return std::ranges::count(facade.reasons, reason) > 0;
  };
  if (facade.windows == 0 || !(storeyHeight > 0)) return false;
  if (has(GlazingReason::kStoreyHigh) || has(GlazingReason::kBaysWithout)) return false;
  const double expected = std::min(facade.asked, 100.0) * kStoreyHeight / storeyHeight;
  return std::abs(expected - facade.obtained) > 0.02 * expected + 0.05;
}

constexpr auto kKinds = static_cast<std::size_t>(SurfaceKind::kOther) + 1;

/// What stands on one side of a building, of facade or of courtyard.
struct Side {
  double wall = 0;      // m2
  double openings = 0;  // m2
  Count windows = 0;
  bool storeyHigh = false;
};

/// The sums of all surfaces and windows, each with its multiplier.
struct Sums {
  explicit Sums(const GeneratedBuilding& building) {
    for (const WrittenSurface& surface : building.surfaces) {
      const double area = surface.area * static_cast<double>(surface.multiplier);
      byKind[static_cast<std::size_t>(surface.kind)] += area;
      if (isOuterWall(surface.kind)) sideOf(surface).wall += area;
    }
    for (const WrittenWindow& window : building.windows) {
      const WrittenSurface& wall = building.surfaces[static_cast<std::size_t>(window.wall)];
      if (!isOuterWall(wall.kind)) continue;
      Side& side = sideOf(wall);
      side.openings += window.area() * static_cast<double>(window.multiplier);
      side.windows += window.multiplier;
      side.storeyHigh |= window.storeyHigh && !window.takesCourtyard;
    }
  }

  double of(SurfaceKind kind) const { return byKind[static_cast<std::size_t>(kind)]; }

  std::array<double, kKinds> byKind{};  // m2
  PerFacade<Side> street;
  PerFacade<Side> courtyard;

 private:
  Side& sideOf(const WrittenSurface& wall) {
    return (wall.kind == SurfaceKind::kCourtyard ? courtyard : street)[wall.side];
  }
};

FacadeMeasure facadeOf(const GeneratedBuilding& building, const Side& sums, const Asked& asked,
                       Facade side, bool courtyard, int bayCount) {
  FacadeMeasure facade;
  facade.side = side;
  facade.courtyard = courtyard;
  facade.azimuth = realAzimuth(side, asked.giro);
  facade.asked = (courtyard ? asked.courtyard : asked.street)[side];
  facade.wall = sums.wall;
  facade.openings = sums.openings;
  facade.windows = sums.windows;
  if (facade.wall > 0) facade.obtained = 100 * facade.openings / facade.wall;

  const auto because = [&](bool holds, GlazingReason reason) {
    if (holds) facade.reasons.push_back(reason);
  };
  const bool any = facade.windows > 0;
  because(any && std::abs(building.storeyHeight() - kStoreyHeight) > 1e-4,
          GlazingReason::kStoreyHeight);
  because(any && facade.asked > 100, GlazingReason::kCappedAtBay);
  because(any && sums.storeyHigh, GlazingReason::kStoreyHigh);
  const auto& lost = courtyard ? building.lostCourtyard : building.lostStreet;
  because(!(facade.asked > 0) && lost[side] > 0, GlazingReason::kRemoved);
  because(facade.asked > 0 && facade.windows < bayCount * building.storeys(),
          GlazingReason::kBaysWithout);
  because(isOtherwise(facade, building.storeyHeight()), GlazingReason::kOtherWalls);
  return facade;
}

}  // namespace

std::string_view reasonText(GlazingReason reason) {
  switch (reason) {
    case GlazingReason::kStoreyHeight:
      return "altura de planta distinta de 3,00 m";
    case GlazingReason::kCappedAtBay:
      return "ventana limitada al paño";
    case GlazingReason::kStoreyHigh:
      return "ventana de altura de planta en la plantilla";
    case GlazingReason::kRemoved:
      return "eliminada (0 %)";
    case GlazingReason::kBaysWithout:
      return "paños sin ventana en la plantilla";
    case GlazingReason::kOtherWalls:
      return "los muros de la plantilla no son los de la tipología";
  }
  return "";
}

std::size_t directionIndex(double azimuth) {
  const auto found = std::ranges::find(kDirections, directionSymbol(azimuth));
  return static_cast<std::size_t>(found - kDirections.begin());
}

Measures measure(const GeneratedBuilding& building, const Plan& plan, const Asked& asked) {
  Measures m;
  m.storeys = building.storeys();
  m.storeyHeight = building.storeyHeight();
  const auto dwellings = std::ranges::count(plan.outlines, Role::kDwelling, &Outline::role);
  // A house is one dwelling, of all its storeys.
  m.dwellings = dwellings == 1 ? 1 : static_cast<Count>(dwellings) * m.storeys;
  for (const WrittenSpace& space : building.spaces) {
    if (space.floor == 0) m.footprint += space.area;
    m.floorArea += space.area * static_cast<double>(space.multiplier);
    if (space.counted) m.countedArea += space.area * static_cast<double>(space.multiplier);
    m.volume += space.area * space.height * static_cast<double>(space.multiplier);
  }

  PerFacade<int> streetBays{}, courtyardBays{};
  for (const Bay& bay : building.bays) ++(bay.courtyard ? courtyardBays : streetBays)[bay.side];
  const Sums sums(building);
  for (const bool courtyard : {false, true}) {
    for (const Facade side : kSides) {
      const FacadeMeasure facade =
          facadeOf(building, (courtyard ? sums.courtyard : sums.street)[side], asked, side,
                   courtyard, (courtyard ? courtyardBays : streetBays)[side]);
      if (facade.wall < kNearly) continue;
      m.openings += facade.openings;
      DirectionMeasure& direction = m.byDirection[directionIndex(facade.azimuth)];
      direction.azimuth = facade.azimuth;
      direction.openings += facade.openings;
      (courtyard ? direction.courtyard : direction.facade) += facade.wall;
      m.facades.push_back(facade);
    }
  }
  for (const WrittenSurface& surface : building.surfaces) {
    if (surface.kind != SurfaceKind::kParty) continue;
    const double azimuth = realAzimuth(surface.side, asked.giro);
    DirectionMeasure& direction = m.byDirection[directionIndex(azimuth)];
    direction.azimuth = azimuth;
    direction.party += surface.area * static_cast<double>(surface.multiplier);
  }
  m.facade = sums.of(SurfaceKind::kFacade);
  m.courtyard = sums.of(SurfaceKind::kCourtyard);
  m.party = sums.of(SurfaceKind::kParty);
  m.roof = sums.of(SurfaceKind::kRoof);
  m.ground = sums.of(SurfaceKind::kGround);
  m.partition = sums.of(SurfaceKind::kPartition);
  m.inner = sums.of(SurfaceKind::kInner);
  m.slabs = sums.of(SurfaceKind::kSlab);
  m.exchanging = m.facade + m.courtyard + m.roof + m.ground;
  if (m.exchanging > 0) m.compactness = m.volume / m.exchanging;
  if (m.floorArea > 0) m.openingsByFloor = 100 * m.openings / m.floorArea;

  for (const WrittenWindow& window : building.windows) {
    const WrittenSurface& wall = building.surfaces[static_cast<std::size_t>(window.wall)];
    if (!isOuterWall(wall.kind)) continue;
    if (window.y + window.height > m.storeyHeight + kNearly) {
      m.headsAboveCeiling += window.multiplier;
    }
    if (window.height > m.storeyHeight + kNearly) m.tallerThanStorey += window.multiplier;
  }
  return m;
}

std::vector<SpaceMeasure> measureSpaces(const GeneratedBuilding& building, const Plan& plan) {
  std::vector<SpaceMeasure> measures;
  std::vector<Room> names = rooms(plan);
  for (std::size_t i = 0; i < building.spaces.size(); ++i) {
    const WrittenSpace& space = building.spaces[i];
    if (space.floor != 0) continue;
    SpaceMeasure measure;
    const auto room = std::ranges::find(names, space.outline, &Room::region);
    measure.name = room == names.end() ? space.name : room->name;
    measure.area = space.area;
    measure.volume = space.area * space.height;
    for (std::size_t k = 0; k < building.surfaces.size(); ++k) {
      const WrittenSurface& surface = building.surfaces[k];
      if (surface.kind == SurfaceKind::kPartition && surface.nextTo == space.name) {
        measure.partition += surface.area;
      }
      if (surface.space != static_cast<int>(i)) continue;
      if (surface.kind == SurfaceKind::kFacade) measure.facade += surface.area;
      if (surface.kind == SurfaceKind::kCourtyard) measure.courtyard += surface.area;
      if (surface.kind == SurfaceKind::kParty) measure.party += surface.area;
      if (surface.kind == SurfaceKind::kPartition) measure.partition += surface.area;
      for (const WrittenWindow& window : building.windows) {
        if (window.wall == static_cast<int>(k)) measure.openings += window.area();
      }
    }
    measures.push_back(std::move(measure));
  }
  return measures;
}

}  // namespace report
