#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

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
  bool streetSide = false;  // takes the data of the street, not those of the courtyard
  bool tall = false;        // as its storey: the template's window is, or taller

  friend bool operator==(const OwnPiece&, const OwnPiece&) = default;
};

/// Storeys that a repeated middle floor stands for: all but two. 0 or less where none are repeated,
/// of any number that a check may go on with, however far below 0.
inline int repeatedStoreys(const TypologyRecord& typology) {
  return std::max(typology.numeroPlantas, 0) - 2;
}

/// Writes a piece that follows from the typology alone: any but a polygon or window.
void writePiece(const OwnPiece& piece, const TypologyRecord& typology, KeywordLines& lines);

/// Writes any piece. `plan`: of the typology.
void writePiece(const OwnPiece& piece, const TypologyRecord& typology, const Plan& plan,
                KeywordLines& lines);

/// The bays that a window is one of.
struct WindowBays {
  float surface;  // m2, all of them
  int count;
  float percentage;
  std::string_view keyword;  // whose value the percentage is
};
WindowBays baysOf(const OwnPiece& window, const TypologyRecord& typology, const Plan& plan);
