#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "core/report_error.h"
#include "core/source_text.h"

// The template's makers write more than a building is made of. State that nothing reads: of a
// surface columns 2, 4 and 5 and the pair, of a zone its number, of the file the zones' mean and
// how many have no flag. A surface's area and value, and the zones, are for the sums of a Template,
// which nothing reads either.

/// One surface of the template. The name is the whole line of the file, double quotes and blanks
/// included, a view into it; it is trimmed when template lines are compared with it.
struct Surface {
  std::string_view name;
  float area = 0;  // column 1, m2
  float column2 = 0;
  float value = 0;  // column 3, per m2
  float column4 = 0;
  float column5 = 0;
  float azimuth = 0;  // column 6, degrees
  float tilt = 0;     // column 7, degrees
  int kind = 0;       // below 1 a wall, roof, floor or partition; 1 and above a window
  std::array<int, 2> pair{};
};

struct Zone {
  std::string_view name;
  int number = 0;
  int flag = 0;    // not 0: the zone counts
  float area = 0;  // m2
  float value = 0;
};

/// The contents of a table file (*.tbl): the template's surfaces and zones, in file order. Names
/// live as long as the text that they were read from.
struct TableFile {
  std::vector<Surface> surfaces;
  std::vector<Zone> zones;
  float zoneAreaSum = 0;  // m2, of the zones whose flag is set
  float zoneMean = 0;     // area-weighted mean of their values; 0 when they have no area
  int zonesWithoutFlag = 0;
};

/// Two lines of free text and the counts.
inline constexpr int kTableHeaderLines = 3;

/// Bytes of a surface's or zone's name, its closing NUL included.
inline constexpr std::size_t kTableNameCapacity = 200;

/// Reads a table file: two lines of free text, the two counts, then a name line and a data line a
/// surface and a zone. Errors end the run with the line's number: counts that are missing or
/// negative, fewer lines than they announce, an overlong name, a surface without its seven reals
/// and its kind. The pair and a zone's numbers may be missing and are then 0.
TableFile readTableFile(const SourceText& text, const FaultSink& faults = endRunWith);
