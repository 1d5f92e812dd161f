#include "generator/generation_sequence.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "core/cp1252.h"
#include "core/platform.h"
#include "generator/construction_emitter.h"
#include "generator/generator_context.h"
#include "generator/orientation.h"
#include "generator/typology_geometry.h"
#include "generator/window_emitter.h"
#include "typology/tipo.h"

namespace {

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

void sumSurfaces(GeneratorContext& context) {
  const TableFile& table = context.table();
  context.meanSurfaceValue = 0;
  context.wallAreaByOrientation.fill(0);
  context.windowAreaByOrientation.fill(0);
  context.kind2Area = 0;
  context.kindMinus2Area = 0;
  for (const Surface& surface : table.surfaces) {
    context.meanSurfaceValue += surface.value * surface.area;
    if (surface.kind == 2) {
      context.kind2Area += surface.area;
      continue;
    }
    if (surface.kind == -2) {
      context.kindMinus2Area += surface.area;
      continue;
    }
    const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
    if (orientation < 0) continue;
    const auto sector = static_cast<std::size_t>(orientation);
    if (surface.kind == 1) context.windowAreaByOrientation[sector] += surface.area;
    if (surface.kind == 0) context.wallAreaByOrientation[sector] += surface.area;
  }
  context.meanSurfaceValue =
      table.zoneAreaSum != 0 ? context.meanSurfaceValue / table.zoneAreaSum : 0;
}

void writeHeader(GeneratorContext& context) {
  const std::string asterisks = "$\t" + std::string(57, '*');
  context.writeLine(asterisks);
  context.writeLine("$ Edificio Generado en función de la Tipología a la que pertenezca"_cp1252);
  context.writeLine(asterisks);
  for (int i = 0; i < 3; ++i) context.writeLine("");
}

/// The neighbours' walls on the two sides of the courtyards. A header that is not wanted is dropped
/// while the lines that follow it are copied, and both are looked for in any case.
void writeCourtyardShades(GeneratorContext& context) {
  const TypologyRecord& typology = context.typology();
  const TipoRow& row = tipoRow(typology.tipo);
  if (row.shades == CourtyardShades::kNotLookedFor) return;

  const double depth =
      (static_cast<double>(typology.areaPlanta) + typology.areaPatio) / typology.longitudFachada;
  context.copyUntilCommand("BUILDING-SHADE");
  if (contains(context.currentLine(), "Sombra001") && row.firstShade()) {
    context.writeCurrentLine();
    context.writeKeyword("X", typology.longitudFachada);
    context.writeKeyword("Y", static_cast<float>((depth - typology.profundidadPatio) * 0.5));
    context.writeKeyword("WIDTH", typology.profundidadPatio);
  }
  context.copyUntilCommand("BUILDING-SHADE");
  if (contains(context.currentLine(), "Sombra002") && row.secondShade()) {
    context.writeCurrentLine();
    context.writeKeyword("Y", static_cast<float>((depth + typology.profundidadPatio) * 0.5));
    context.writeKeyword("WIDTH", typology.profundidadPatio);
  }
}

void writeBuildingParameters(GeneratorContext& context) {
  context.copyUntilCommand("BUILD-PARAMETERS");
  context.writeCurrentLine();
  context.writeKeyword("AZIMUTH", context.typology().orientacion);
  context.writeKeyword("TIPOLOGIA", tipoRow(context.typology().tipo).buildingClass);
  context.writeLine(context.typology().textoPosicionSolar);
}

/// Whether a line that names a surface is the header of a command that is rewritten.
bool isSurfaceCommand(std::string_view line) {
  constexpr std::string_view kTypes[] = {
      "EXTERIOR-WALL", "ROOF", "TROMBE-WALL", "INTERIOR-WALL", "UNDERGROUND-WALL", "WINDOW"};
  return std::ranges::any_of(kTypes, [&](std::string_view type) { return contains(line, type); });
}

void rewriteSurface(GeneratorContext& context, int index) {
  if (!isSurfaceCommand(context.currentLine())) {
    context.writeCurrentLine();
    return;
  }
  const Surface& surface = context.table().surfaces[static_cast<std::size_t>(index)];
  const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
  if (surface.kind < 1) {
    emitConstruction(context, orientation, surface.name, surface.kind);
  } else {
    emitWindow(context, orientation, index, contains(surface.name, "Med"));
  }
}

/// Copies the template to its end with its floors, spaces and listed surfaces rewritten.
void rewriteCommands(GeneratorContext& context, TProgressBar& progressBar) {
  const std::vector<Surface>& surfaces = context.table().surfaces;
  const int spaceEntry = static_cast<int>(surfaces.size());
  const int floorEntry = spaceEntry + 1;
  std::vector<std::string_view> entries;
  entries.reserve(surfaces.size() + 2);
  for (const Surface& surface : surfaces) entries.push_back(surface.name);
  entries.push_back(" SPACE ");
  entries.push_back(" FLOOR ");
  const NameList names(std::move(entries));

  const int step = std::max(150 / (spaceEntry + 1), 1);
  LineMatch match;
  while (context.findNextKey(names, match)) {
    if (match.index == floorEntry) {
      context.rewriteFloor();
    } else if (match.index == spaceEntry) {
      context.rewriteSpace();
    } else {
      rewriteSurface(context, match.index);
    }
    progressBar.SetPosition(progressBar.GetPosition() + step);
    Application->ProcessMessages();
  }
}

}  // namespace

void prepare(GeneratorContext& context, const std::string& tipPath) {
  context.setTypology(std::make_unique<TypologyRecord>(tipPath));
  sumSurfaces(context);
}

void generate(GeneratorContext& context, TProgressBar& progressBar) {
  writeHeader(context);
  writeCourtyardShades(context);
  geometriaTipologia(context);
  writeBuildingParameters(context);
  rewriteCommands(context, progressBar);
  context.copyRest();
  context.writeLine(context.typology().textoTipologia);
  context.requireFiniteOutput();
}
