#include "generator/own_pieces.h"

#include <cassert>

#include "core/concat.h"
#include "core/cp1252.h"
#include "generator/keyword_lines.h"
#include "generator/window_emitter.h"
#include "typology/tipo.h"

namespace {

using Kind = OwnPiece::Kind;

void writeHeader(KeywordLines& lines) {
  const std::string asterisks = "$\t" + std::string(57, '*');
  lines.writeLine(asterisks);
  lines.writeLine("$ Edificio Generado en función de la Tipología a la que pertenezca"_cp1252);
  lines.writeLine(asterisks);
  for (int i = 0; i < 3; ++i) lines.writeLine("");
}

/// The neighbours' walls on the two sides of the courtyards.
void writeShade(Kind kind, const TypologyRecord& typology, KeywordLines& lines) {
  // Kept on purpose: the plan rounds this depth to 32 bits before it goes on. Shades are written
  // before there is a plan, and the last decimal of their place may be another.
  const double depth =
      (static_cast<double>(typology.areaPlanta) + typology.areaPatio) / typology.longitudFachada;
  if (kind == Kind::kFirstShade) {
    lines.writeKeyword("X", typology.longitudFachada, "LONGITUD-FACHADA");
    lines.writeKeyword("Y", static_cast<float>((depth - typology.profundidadPatio) * 0.5), {});
  } else {
    lines.writeKeyword("Y", static_cast<float>((depth + typology.profundidadPatio) * 0.5), {});
  }
  lines.writeKeyword("WIDTH", typology.profundidadPatio, "PROFUNDIDAD-PATIO");
}

void writeBuildingParameters(const TypologyRecord& typology, KeywordLines& lines) {
  lines.writeKeyword("AZIMUTH", typology.orientacion, "ORIENTACION");
  lines.writeKeyword("TIPOLOGIA", tipoRow(typology.tipo).buildingClass);
  lines.writeLine(typology.textoPosicionSolar);
}

void writeSchedule(const TypologyRecord& typology, KeywordLines& lines) {
  const std::string hourly =
      lines.formatFinite("VALUES", 4.0F / typology.airChangesHr, "AIR-CHANGES/HR");
  std::string line = " VALUES = ( ";
  for (int i = 0; i < 8; ++i) line.append(hourly).append(", ");
  lines.writeLine(line.append("1 ) "));
}

void writeWindow(const OwnPiece& piece, const TypologyRecord& typology, const Plan& plan,
                 KeywordLines& lines) {
  lines.writeKeyword("GLASS-TYPE", typology.ventanaVidrio);
  const WindowBays bays = baysOf(piece, typology, plan);
  if (bays.count != 0) {
    const float bayArea = bays.surface / static_cast<float>(bays.count);
    const float templateHeight = piece.tall ? static_cast<float>(kStoreyHeight) : 0;
    const WindowSize size = sizeWindow(bays.percentage, bayArea, templateHeight);
    lines.writeKeyword("X", size.x, bays.keyword);
    lines.writeKeyword("Y", size.y, bays.keyword);
    lines.writeKeyword("WIDTH", size.width, bays.keyword);
    lines.writeKeyword("HEIGHT", size.height, bays.keyword);
    lines.writeLine(typology.textoMarco);
    lines.writeLine(typology.textoSombra);
  }
  lines.writeLine("..");
}

void writePolygon(const Vertices& vertices, KeywordLines& lines) {
  for (std::size_t k = 0; k < vertices.size(); ++k) {
    const std::string key = concat("V", std::to_string(k + 1));
    const std::string x = lines.formatFinite(key, vertices[k].x, {});
    lines.writeLine(key, " = ( ", x, " , ", lines.formatFinite(key, vertices[k].y, {}), " )");
  }
  lines.writeLine("..");
}

}  // namespace

WindowBays baysOf(const OwnPiece& window, const TypologyRecord& typology, const Plan& plan) {
  if (window.streetSide) {
    return {plan.superficieFachada[window.facade], plan.numHuecosFachada[window.facade],
            typology.porcentajeFachada[window.facade], "PORCENTAJE-FACHADA"};
  }
  return {plan.superficiePatio[window.facade], plan.numHuecosPatio[window.facade],
          typology.porcentajePatio[window.facade], "PORCENTAJE-PATIO"};
}

void writePiece(const OwnPiece& piece, const TypologyRecord& typology, const Plan& plan,
                KeywordLines& lines) {
  switch (piece.kind) {
    case Kind::kPolygon:
      return writePolygon(plan.outlines[piece.outline].vertices, lines);
    case Kind::kWindow:
      return writeWindow(piece, typology, plan, lines);
    default:
      return writePiece(piece, typology, lines);
  }
}

void writePiece(const OwnPiece& piece, const TypologyRecord& typology, KeywordLines& lines) {
  switch (piece.kind) {
    case Kind::kHeader:
      return writeHeader(lines);
    case Kind::kFirstShade:
    case Kind::kSecondShade:
      return writeShade(piece.kind, typology, lines);
    case Kind::kBuildingParameters:
      return writeBuildingParameters(typology, lines);
    case Kind::kFloorHeight:
      return lines.writeKeyword("FLOOR-HEIGHT", typology.alturaPlanta, "ALTURA-PLANTA");
    case Kind::kFloorSpaceHeight:
      return lines.writeKeyword("SPACE-HEIGHT", typology.alturaPlanta, "ALTURA-PLANTA");
    case Kind::kFloorMultiplier:
      return lines.writeKeyword("MULTIPLIER", repeatedStoreys(typology));
    case Kind::kSpaceHeight:
      return lines.writeKeyword("HEIGHT", typology.alturaPlanta, "ALTURA-PLANTA");
    case Kind::kSpaceMultiplier:
      return lines.writeKeyword("MULTIPLIER", 1);  // repeated storeys are the FLOOR's business
    case Kind::kSpaceAirChanges:
      return lines.writeKeyword("AIR-CHANGES/HR", typology.airChangesHr, "AIR-CHANGES/HR");
    case Kind::kSchedule:
      return writeSchedule(typology, lines);
    case Kind::kConstruction:
      return lines.writeKeyword("CONSTRUCTION", typology.*piece.construction);
    case Kind::kCommandEnd:
      return lines.writeLine("..");
    case Kind::kTypology:
      return lines.writeLine(typology.textoTipologia());
    case Kind::kPolygon:
    case Kind::kWindow:
      assert(false);  // they follow from the plan, too
  }
}
