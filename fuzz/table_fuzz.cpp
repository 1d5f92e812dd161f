// Any table file gives surfaces and zones within its limits, or a message.
#include "generator/table_file.h"

#include <algorithm>

#include "core/fichero.h"
#include "fuzz_support.h"
#include "generator/orientation.h"

namespace {

void check(const TableFile& table, const fichero& file) {
  const std::size_t announced = table.surfaces.size() + table.zones.size();
  expect(static_cast<long>(3 + 2 * announced) == file.lineNumber(), "not all announced lines read");
  expect(file.lineNumber() <= file.lineCount(), "the repeated last line was taken");
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
  const std::string path = writeScratch("tabla.tbl", textOf(data, size));
  expectOneLine(endingOf([&] {
    fichero file(path, "lectura");
    check(readTableFile(file), file);
  }));
  return 0;
}
