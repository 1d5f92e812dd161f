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

constexpr std::string_view kOfTemplate = "nombre de la plantilla";
constexpr std::string_view kShare = "de 0 a 100; con 0 no hay ventanas";

// The names of constructions are searched for with a blank on either side: CUBIERTAS, say, would
// be met inside a longer word.
constexpr ViviendaKeyword kKeywords[] = {
    {"TIPO", "TIPO", &R::tipo, kRequired, "qué edificio es"},
    {"NUMERO-PLANTAS", "NUMERO-PLANTAS", &R::numeroPlantas, kRequired, "plantas del edificio", "",
     "", badStoreys},
    {"ALTURA-PLANTA", "ALTURA-PLANTA", &R::alturaPlanta, kOptional,
     "altura de planta, de suelo a suelo", "mayor que 0", "m", badHeight},
    {"AREA-PLANTA", "AREA-PLANTA", &R::areaPlanta, kRequired,
     "superficie de una planta, con la escalera y sin los patios", "", "m2"},
    {"AREA-PATIO", "AREA-PATIO", &R::areaPatio, kOptional, "superficie de los patios, sumados", "",
     "m2"},
    {"AREA-ESCALERA", "AREA-ESCALERA", &R::areaEscalera, kOptional,
     "superficie de la escalera en una planta", "", "m2"},
    {"LONGITUD-FACHADA", "LONGITUD-FACHADA", &R::longitudFachada, kRequired,
     "longitud de la fachada principal", "", "m", badFacade},
    {"PROFUNDIDAD-PATIO", "PROFUNDIDAD-PATIO", &R::profundidadPatio, kOptional,
     "lado de cada patio en el sentido del fondo del edificio", "", "m"},
    {"PROFUNDIDAD-ESCALERA", "PROFUNDIDAD-ESCALERA", &R::profundidadEscalera, kOptional,
     "lado de la escalera en el sentido del fondo del edificio", "", "m"},
    {"CUBIERTA", "CUBIERTA", IgnoredText{&R::cubierta}, kOptional,
     "sin efecto, todos los edificios tienen cubierta plana"},
    {"ATICO", "ATICO", IgnoredText{&R::atico}, kOptional,
     "sin efecto, ningún edificio tiene ático"},
    {"SOTANO", "SOTANO", IgnoredText{&R::sotano}, kOptional,
     "sin efecto, ningún edificio tiene sótano"},
    {"PORCENTAJE-FACHADA", "PORCENTAJE-FACHADA", &R::porcentajeFachada, kRequired,
     "huecos de las fachadas sur, este, norte y oeste", kShare, "%"},
    {"PORCENTAJE-PATIO", "PORCENTAJE-PATIO", &R::porcentajePatio, kOptional,
     "huecos de las paredes de patio que miran al sur, este, norte y oeste", kShare, "%"},
    {"ORIENTACION", "ORIENTACION", &R::orientacion, kOptional,
     "giro del edificio en sentido horario",
     "con 0 la fachada principal mira al sur; con 90, al oeste", "°"},
    {"MUROS-FACHADA", " MUROS-FACHADA ", &R::murosFachada, kRequired,
     "construcción de los muros de fachada", kOfTemplate},
    {"PARTICION-INTERIOR-VERTICAL", " PARTICION-INTERIOR-VERTICAL ", &R::particionInteriorVertical,
     kRequired, "construcción de las particiones verticales", kOfTemplate},
    {"MEDIANERA", " MEDIANERA ", &R::medianera, kRequired, "construcción de las medianeras",
     kOfTemplate},
    {"SUELOS", " SUELOS ", &R::suelos, kRequired, "construcción del suelo sobre el terreno",
     kOfTemplate},
    {"PARTICION-INTERIOR-HORIZONTAL", " PARTICION-INTERIOR-HORIZONTAL ",
     &R::particionInteriorHorizontal, kRequired, "construcción de los forjados entre plantas",
     kOfTemplate},
    {"CUBIERTAS", " CUBIERTAS ", &R::cubiertas, kRequired, "construcción de la cubierta",
     kOfTemplate},
    {"VENTANA-VIDRIO", "VENTANA-VIDRIO", &R::ventanaVidrio, kRequired,
     "vidrio de todas las ventanas", kOfTemplate},
    {"VENTANA-MARCO", "VENTANA-MARCO", &R::ventanaMarco, kOptional, "marco de todas las ventanas",
     "nombre de un marco de este fichero"},
    {"VENTANA-SOMBRA", "VENTANA-SOMBRA", &R::ventanaSombra, kOptional,
     "sombra de todas las ventanas", "nombre de una sombra de este fichero"},
    {"AIR-CHANGES/HR", "AIR-CHANGES/HR", &R::airChangesHr, kOptional,
     "ventilación, renovaciones del aire", "lo habitual, de 0.3 a 1.5", "ren/h"},
};

}  // namespace

std::span<const ViviendaKeyword> viviendaKeywords() { return kKeywords; }

const ViviendaKeyword* findViviendaKeyword(std::string_view name) {
  const auto* row = std::ranges::find(kKeywords, name, &ViviendaKeyword::name);
  return row == std::end(kKeywords) ? nullptr : row;
}
