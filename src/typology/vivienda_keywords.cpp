#include "typology/vivienda_keywords.h"

#include <algorithm>

#include "typology/tipo.h"

namespace {

using R = TypologyRecord;

std::string_view badStoreys(const R& r) {
  for (const StoreyRule& rule : {kSomeStorey, tipoRow(r.tipo).storeys}) {
    if (r.numeroPlantas < rule.least || r.numeroPlantas > rule.most) return rule.message;
  }
  return {};
}

constexpr std::string_view kHeightNotPositive =
    "En el COMMAND VIVIENDA del fichero *.tip la ALTURA-PLANTA debe ser mayor que 0";

std::string_view badHeight(const R& r) { return r.alturaPlanta > 0 ? "" : kHeightNotPositive; }
// A façade without length has always been reported with the storey height's message.
std::string_view badFacade(const R& r) { return r.longitudFachada > 0 ? "" : kHeightNotPositive; }

constexpr bool kRequired = true;
constexpr bool kOptional = false;

// The names of constructions are searched for with a blank on either side: CUBIERTAS, say, would
// be met inside a longer word.
constexpr ViviendaKeyword kKeywords[] = {
    {"TIPO", "TIPO", &R::tipo, kRequired},
    {"NUMERO-PLANTAS", "NUMERO-PLANTAS", &R::numeroPlantas, kRequired, "", badStoreys},
    {"ALTURA-PLANTA", "ALTURA-PLANTA", &R::alturaPlanta, kOptional, "m", badHeight},
    {"AREA-PLANTA", "AREA-PLANTA", &R::areaPlanta, kRequired, "m2"},
    {"AREA-PATIO", "AREA-PATIO", &R::areaPatio, kOptional, "m2"},
    {"AREA-ESCALERA", "AREA-ESCALERA", &R::areaEscalera, kOptional, "m2"},
    {"LONGITUD-FACHADA", "LONGITUD-FACHADA", &R::longitudFachada, kRequired, "m", badFacade},
    {"PROFUNDIDAD-PATIO", "PROFUNDIDAD-PATIO", &R::profundidadPatio, kOptional, "m"},
    {"PROFUNDIDAD-ESCALERA", "PROFUNDIDAD-ESCALERA", &R::profundidadEscalera, kOptional, "m"},
    {"CUBIERTA", "CUBIERTA", IgnoredText{}, kOptional},
    {"ATICO", "ATICO", IgnoredText{}, kOptional},
    {"SOTANO", "SOTANO", IgnoredText{}, kOptional},
    {"PORCENTAJE-FACHADA", "PORCENTAJE-FACHADA", &R::porcentajeFachada, kRequired, "%"},
    {"PORCENTAJE-PATIO", "PORCENTAJE-PATIO", &R::porcentajePatio, kOptional, "%"},
    {"ORIENTACION", "ORIENTACION", &R::orientacion, kOptional, "°"},
    {"MUROS-FACHADA", " MUROS-FACHADA ", &R::murosFachada, kRequired},
    {"PARTICION-INTERIOR-VERTICAL", " PARTICION-INTERIOR-VERTICAL ", &R::particionInteriorVertical,
     kRequired},
    {"MEDIANERA", " MEDIANERA ", &R::medianera, kRequired},
    {"SUELOS", " SUELOS ", &R::suelos, kRequired},
    {"PARTICION-INTERIOR-HORIZONTAL", " PARTICION-INTERIOR-HORIZONTAL ",
     &R::particionInteriorHorizontal, kRequired},
    {"CUBIERTAS", " CUBIERTAS ", &R::cubiertas, kRequired},
    {"VENTANA-VIDRIO", "VENTANA-VIDRIO", &R::ventanaVidrio, kRequired},
    {"VENTANA-MARCO", "VENTANA-MARCO", &R::ventanaMarco, kOptional},
    {"VENTANA-SOMBRA", "VENTANA-SOMBRA", &R::ventanaSombra, kOptional},
    {"AIR-CHANGES/HR", "AIR-CHANGES/HR", &R::airChangesHr, kOptional, "1/h"},
};

}  // namespace

std::span<const ViviendaKeyword> viviendaKeywords() { return kKeywords; }

const ViviendaKeyword* findViviendaKeyword(std::string_view name) {
  const auto* row = std::ranges::find(kKeywords, name, &ViviendaKeyword::name);
  return row == std::end(kKeywords) ? nullptr : row;
}
