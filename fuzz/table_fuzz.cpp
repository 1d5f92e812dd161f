// Any table file gives surfaces and zones within its limits, or a message.
#include "generator/table_file.h"

#include <algorithm>

#include "core/line_reader.h"
#include "core/numbers.h"
#include "core/source_text.h"
#include "fuzz_support.h"
#include "generator/orientation.h"

namespace {

/// The number of surfaces and zones that the third line announces.
long announcedBy(std::string_view text) {
  LineReader reader(text);
  std::string_view line;
  for (int i = 0; i < 3; ++i) reader.ReadLine(line);
  int surfaces = 0;
  int zones = 0;
  scanInteger(line, surfaces);
  scanInteger(line, zones);
  return static_cast<long>(surfaces) + zones;
}

void check(const TableFile& table, std::string_view text) {
  const auto found = static_cast<long>(table.surfaces.size() + table.zones.size());
  expect(found == announcedBy(text), "not all that was announced");
  expect(3 + 2 * found <= LineReader(text).lineCount(), "the repeated last line was taken");
  for (const Surface& surface : table.surfaces) {
    expect(surface.name.size() < kTableNameCapacity, "an overlong name");
    const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
    expect(orientation >= kFacesDown && orientation <= 7, "an orientation without a name");
    expect(facadeIndex(orientation) >= kSouth && facadeIndex(orientation) <= kWest, "no façade");
  }
  const auto flagless = std::ranges::count(table.zones, 0, &Zone::flag);
  expect(table.zonesWithoutFlag == flagless, "zones counted wrongly");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  if (!isText(bytes)) return 0;
  const SourceText source("tabla.tbl", bytes);
  const Ending ending = endingOf([&] { check(readTableFile(source), bytes); });
  expectOneLine(ending);
  expect(ending.place.has_value() == ending.stopped, "a fault without its place");
  if (ending.place) {
    expect(ending.place->line > 0, "a fault without its line");
    expectWithin(*ending.place, source);
  }
  return 0;
}
