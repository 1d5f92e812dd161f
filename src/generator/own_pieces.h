#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "plan/plan.h"
#include "typology/typology_record.h"

class KeywordLines;

/// A piece of a generated building that is none of the template's: lines on end that follow from
/// the typology and its plan alone, and from these members.
struct OwnPiece {
  enum class Kind : std::uint8_t {
    kHeader,
    kFirstShade,  // see CourtyardShades
    kSecondShade,
    kBuildingParameters,
    kPolygon,
    kFloorHeight,
    kFloorSpaceHeight,
    kFloorMultiplier,
    kSpaceHeight,
    kSpaceMultiplier,
    kSpaceAirChanges,
    kSchedule,
    kConstruction,
    kWindow,
    kCommandEnd,
    kTypology
  };
  Kind kind = Kind::kCommandEnd;
  std::size_t outline = 0;                              // of a polygon: index
  std::string TypologyRecord::*construction = nullptr;  // whose name is written
  // Of a window.
  Facade facade = kSouth;
  bool streetSide = false;   // takes the data of the street, not those of the courtyard
  float templateHeight = 0;  // m

  friend bool operator==(const OwnPiece&, const OwnPiece&) = default;
};

/// Storeys that a repeated middle floor stands for: all but two.
inline int repeatedStoreys(const TypologyRecord& typology) { return typology.numeroPlantas - 2; }

/// Writes a piece. `plan`: of the typology; pieces other than polygons and windows need none.
void writePiece(const OwnPiece& piece, const TypologyRecord& typology, const Plan* plan,
                KeywordLines& lines);

/// The lines of a polygon behind its header.
void writePolygon(std::span<const Vertex> vertices, KeywordLines& lines);

/// The bays that a window is one of.
struct WindowBays {
  float surface;  // m2, all of them
  int count;
  float percentage;
};
WindowBays baysOf(const OwnPiece& window, const TypologyRecord& typology, const Plan& plan);
