#include "generator/table_file.h"

#include <string_view>

#include "core/cp1252.h"
#include "core/fichero.h"
#include "core/numbers.h"
#include "core/report_error.h"

namespace {

void require(const fichero& file, bool ok, std::string_view what) {
  if (!ok) ReportFailure(ErrorLog, errorInFile(file.name(), file.lineNumber(), what));
}

std::string_view readName(fichero& file) {
  std::string_view line;
  file.ReadLine(line);
  require(file, line.size() < kTableNameCapacity, "el nombre es demasiado largo");
  return line;
}

Surface readSurface(fichero& file) {
  Surface surface;
  surface.name = readName(file);
  std::string_view line;
  file.ReadLine(line);
  const bool complete = scanReal(line, surface.area) && scanReal(line, surface.column2) &&
                        scanReal(line, surface.value) && scanReal(line, surface.column4) &&
                        scanReal(line, surface.column5) && scanReal(line, surface.azimuth) &&
                        scanReal(line, surface.tilt) && scanInteger(line, surface.kind);
  require(file, complete,
          "los datos de una superficie deben ser siete números reales y su clase"_cp1252);
  if (scanInteger(line, surface.pair[0])) scanInteger(line, surface.pair[1]);
  return surface;
}

Zone readZone(fichero& file) {
  Zone zone;
  zone.name = readName(file);
  std::string_view line;
  file.ReadLine(line);
  if (scanInteger(line, zone.number) && scanInteger(line, zone.flag) && scanReal(line, zone.area)) {
    scanReal(line, zone.value);
  }
  return zone;
}

}  // namespace

TableFile readTableFile(fichero& file) {
  constexpr long kHeaderLines = 3;
  const long lines = file.lineCount();
  const auto requireLines = [&](long long announced) {
    if (announced <= lines) return;
    ReportFailure(ErrorLog, errorInFile(file.name(), lines,
                                        "el fichero tiene menos líneas de las anunciadas"_cp1252));
  };

  std::string_view line;
  requireLines(kHeaderLines);
  for (long i = 0; i < kHeaderLines; ++i) file.ReadLine(line);
  int surfaceCount = -1;
  int zoneCount = -1;
  require(file,
          scanInteger(line, surfaceCount) && scanInteger(line, zoneCount) && surfaceCount >= 0 &&
              zoneCount >= 0,
          "debe contener el número de superficies y el de zonas"_cp1252);
  requireLines(kHeaderLines + 2LL * surfaceCount + 2LL * zoneCount);

  TableFile table;
  table.surfaces.reserve(static_cast<std::size_t>(surfaceCount));
  for (int i = 0; i < surfaceCount; ++i) table.surfaces.push_back(readSurface(file));
  table.zones.reserve(static_cast<std::size_t>(zoneCount));
  for (int i = 0; i < zoneCount; ++i) {
    const Zone& zone = table.zones.emplace_back(readZone(file));
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
