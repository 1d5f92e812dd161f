#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <unordered_set>

#include "check/checked_template.h"
#include "core/concat.h"
#include "core/counted.h"
#include "core/cp1252.h"
#include "core/line_reader.h"
#include "generator/name_list.h"
#include "generator/orientation.h"

namespace {

/// The types of commands that a table lists.
constexpr std::string_view kSurfaceTypes[] = {"EXTERIOR-WALL", "ROOF",   "TROMBE-WALL",
                                              "INTERIOR-WALL", "WINDOW", "UNDERGROUND-WALL"};

/// Where the name of a surface stands in the table; the next line holds its data.
Span nameSpan(const SourceText& table, const Surface& surface) {
  const std::string_view name = trimBlanks(surface.name);
  const auto begin = static_cast<std::size_t>(name.data() - table.bytes().data());
  return {begin, begin + name.size()};
}

Place dataPlace(const LineIndex& lines, const Surface& surface) {
  const SourceText& table = lines.text();
  const Span name = table.lineAround(nameSpan(table, surface).begin);
  const std::size_t next = table.bytes().find('\n', name.end);
  return lines.placeOf(table.lineAround(next + 1));
}

/// A name whatever the encoding in which its accents are written.
std::string asPeopleSee(std::string_view name) { return cp1252::toUtf8(name); }

Finding missingCommand(const LineIndex& table, const Surface& surface, bool otherEncoding) {
  const std::string name(trimBlanks(surface.name));
  Finding finding{.code = otherEncoding ? Code::kSuperficieConAcentos : Code::kSuperficieSinComando,
                  .message = {},
                  .place = table.placeOf(nameSpan(table.text(), surface)),
                  .found = name};
  if (otherEncoding) {
    finding.message = concat("La superficie ", name,
                             " está en la plantilla con los acentos en otra codificación, y la "
                             "ejecución no la reconoce"_cp1252);
    finding.used = "ningún comando: el de la plantilla se copia sin cambios"_cp1252;
    finding.suggestion = "guarde tabla y plantilla en Windows-1252";
  } else {
    finding.message = concat("La superficie ", name, " no está en la plantilla"_cp1252);
    finding.used = "ningún comando"_cp1252;
    finding.suggestion = "escriba el nombre del comando como está en la plantilla"_cp1252;
  }
  return finding;
}

/// Surfaces of the table that the template does not have, and the other way round.
void compareNames(const Template& plantilla, const TemplateCommands& commands, Findings& findings) {
  std::unordered_set<std::string_view> lineTexts;  // what a surface's name can match
  LineReader lines(plantilla.building().bytes());
  for (std::string_view line; lines.ReadLine(line);) {
    const Assignment assignment = splitAssignment(line);
    lineTexts.insert(assignment.key);
    lineTexts.insert(assignment.value);
  }
  std::unordered_set<std::string> seen;
  for (const TemplateCommands::Command& command : commands.all()) {
    seen.insert(asPeopleSee(command.name));
  }
  const LineIndex table(plantilla.tableText());
  std::unordered_set<std::string_view> listed;
  for (const Surface& surface : plantilla.table().surfaces) {
    const std::string_view name = trimBlanks(surface.name);
    listed.insert(name);
    if (lineTexts.contains(name)) continue;
    findings.push_back(missingCommand(table, surface, seen.contains(asPeopleSee(name))));
  }
  const LineIndex building(plantilla.building());
  std::unordered_set<std::string> listedAsSeen;
  for (const std::string_view name : listed) listedAsSeen.insert(asPeopleSee(name));
  for (const TemplateCommands::Command& command : commands.all()) {
    if (std::ranges::find(kSurfaceTypes, command.type) == std::end(kSurfaceTypes)) continue;
    // In another encoding it has been told already.
    if (listed.contains(command.name) || listedAsSeen.contains(asPeopleSee(command.name))) continue;
    findings.push_back(
        {.code = Code::kComandoSinSuperficie,
         .message = concat("El comando ", command.name, " no está en la tabla"_cp1252),
         .place = building.placeOf(command.header),
         .found = std::string(command.name),
         .used = "el comando de la plantilla, sin cambios",
         .suggestion = std::string("añada la superficie a la tabla"_cp1252)});
  }
}

/// What a table holds behind the surfaces and zones that it announces.
void noteLinesBehind(const Template& plantilla, Findings& findings) {
  const SourceText& table = plantilla.tableText();
  const std::size_t surfaces = plantilla.table().surfaces.size();
  const std::size_t zones = plantilla.table().zones.size();
  const auto announced = static_cast<long>(kTableHeaderLines + 2 * (surfaces + zones));
  LineReader lines(table.bytes());
  const long real = lines.lineCount();  // the reader repeats the last one
  for (std::string_view line; lines.lineNumber() < real && lines.ReadLine(line);) {
    if (lines.lineNumber() <= announced || trimBlanks(line).empty()) continue;
    findings.push_back(
        {.code = Code::kLineasSobrantes,
         .message =
             concat("La tabla anuncia ", counted(surfaces, "superficie", "superficies"), " y ",
                    counted(zones, "zona", "zonas"), ": lo que sigue desde aquí no se lee"_cp1252),
         .place = table.placeOf(lines.span()),
         .used = concat("las ", std::to_string(announced), " primeras líneas"_cp1252),
         .suggestion = std::string("corrija los números de la línea 3"_cp1252)});
    return;
  }
}

/// The same direction as a file should have it.
std::string reduced(float azimuth) {
  if (!std::isfinite(azimuth)) return {};
  const double turn = std::fmod(static_cast<double>(azimuth), 360.0);
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.3f", turn < 0 ? turn + 360 : turn);
  return buffer;
}

void noteAzimuths(const Template& plantilla, Findings& findings) {
  const LineIndex table(plantilla.tableText());
  for (const Surface& surface : plantilla.table().surfaces) {
    if (surface.azimuth >= -360 && surface.azimuth <= 360) continue;
    findings.push_back(
        {.code = Code::kAzimutSinReducir,
         .message = concat("El azimut de ", trimBlanks(surface.name),
                           " no está entre -360 y 360 "_cp1252, "grados, y no se reduce"),
         .place = dataPlace(table, surface),
         .found = std::to_string(surface.azimuth),
         .used = std::string(kOrientationNames[static_cast<std::size_t>(
             std::max(classifyOrientation(surface.azimuth, 90), 0))]),
         .allowed = "de -360 a 360",
         .suggestion = reduced(surface.azimuth)});
  }
}

}  // namespace

Findings templateFindings(const CheckedTemplate& checked) {
  Findings findings;
  compareNames(checked.plantilla(), checked.commands(), findings);
  noteLinesBehind(checked.plantilla(), findings);
  noteAzimuths(checked.plantilla(), findings);
  return findings;
}
