#include "generator/table_file.h"

#include <string_view>

#include "core/cp1252.h"
#include "core/line_reader.h"
#include "core/numbers.h"
#include "core/report_error.h"
#include "core/source_text.h"

namespace {

/// The lines of a table, and the one way in which they are wrong.
class TableLines {
 public:
  TableLines(const SourceText& text, const FaultSink& faults)
      : text_(text), faults_(faults), reader_(text.bytes()) {}

  long count() const { return reader_.lineCount(); }
  std::string_view next() {
    std::string_view line;
    reader_.ReadLine(line);
    return line;
  }
  /// Unless `ok`, reports what is wrong with the line last handed out.
  bool require(bool ok, std::string_view what) const {
    if (!ok) report(reader_.lineNumber(), text_.placeOf(reader_.span()), what);
    return ok;
  }
  /// The same for a file that does not have as many lines.
  bool requireLines(long long announced) const {
    const bool ok = announced <= count();
    constexpr auto kWhat = "el fichero tiene menos líneas de las anunciadas"_cp1252;
    if (!ok) report(count(), text_.lastLine(), kWhat);
    return ok;
  }

 private:
  void report(long line, const Place& place, std::string_view what) const {
    faults_({errorInFile(text_.name(), line, what), place});
  }

  const SourceText& text_;
  const FaultSink& faults_;
  LineReader reader_;
};

std::string_view readName(TableLines& lines) {
  const std::string_view line = lines.next();
  lines.require(line.size() < kTableNameCapacity, "el nombre es demasiado largo");
  return line;
}

Surface readSurface(TableLines& lines) {
  Surface surface;
  surface.name = readName(lines);
  std::string_view line = lines.next();
  const bool complete = scanReal(line, surface.area) && scanReal(line, surface.column2) &&
                        scanReal(line, surface.value) && scanReal(line, surface.column4) &&
                        scanReal(line, surface.column5) && scanReal(line, surface.azimuth) &&
                        scanReal(line, surface.tilt) && scanInteger(line, surface.kind);
  lines.require(complete,
                "los datos de una superficie deben ser siete números reales y su clase"_cp1252);
  if (scanInteger(line, surface.pair[0])) scanInteger(line, surface.pair[1]);
  return surface;
}

Zone readZone(TableLines& lines) {
  Zone zone;
  zone.name = readName(lines);
  std::string_view line = lines.next();
  if (scanInteger(line, zone.number) && scanInteger(line, zone.flag) && scanReal(line, zone.area)) {
    scanReal(line, zone.value);
  }
  return zone;
}

}  // namespace

TableFile readTableFile(const SourceText& text, const FaultSink& faults) {
  TableLines lines(text, faults);
  if (!lines.requireLines(kTableHeaderLines)) return {};
  std::string_view line;
  for (int i = 0; i < kTableHeaderLines; ++i) line = lines.next();
  int surfaceCount = -1;
  int zoneCount = -1;
  const bool counted = scanInteger(line, surfaceCount) && scanInteger(line, zoneCount);
  if (!lines.require(counted && surfaceCount >= 0 && zoneCount >= 0,
                     "debe contener el número de superficies y el de zonas"_cp1252) ||
      !lines.requireLines(kTableHeaderLines + 2LL * surfaceCount + 2LL * zoneCount)) {
    return {};
  }

  TableFile table;
  table.surfaces.reserve(static_cast<std::size_t>(surfaceCount));
  for (int i = 0; i < surfaceCount; ++i) table.surfaces.push_back(readSurface(lines));
  table.zones.reserve(static_cast<std::size_t>(zoneCount));
  for (int i = 0; i < zoneCount; ++i) {
    const Zone& zone = table.zones.emplace_back(readZone(lines));
    if (zone.flag != 0) {
      table.zoneMean += zone.value * zone.area;
      table.zoneAreaSum += zone.area;
    } else {
      ++table.zonesWithoutFlag;
    }
  }
  table.zoneMean = table.zoneAreaSum != 0 ? table.zoneMean / table.zoneAreaSum : 0;
  return table;
}
