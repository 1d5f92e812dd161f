#include "typology/typology_record.h"

#include <string_view>

#include "bdl/leer_bdl.h"
#include "core/concat.h"
#include "core/fichero.h"
#include "core/report_error.h"
#include "typology/tipo.h"

namespace {

using R = TypologyRecord;

void require(bool ok, std::string_view message) { ReportError(ErrorLog, ok, message); }

void requireKeyword(bool present, std::string_view keyword) {
  if (present) return;
  ReportFailure(
      ErrorLog,
      concat("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD ", keyword));
}

/// A number of the typology file that does not convert counts as absent.
void leerEnteroObligatorio(const LeerBDL& vivienda, std::string_view clave, int& valor) {
  requireKeyword(vivienda.consultarEntero(clave, valor) == LeerBDL::Lectura::kLeida, clave);
}

void leerRealObligatorio(const LeerBDL& vivienda, std::string_view clave, float& valor) {
  requireKeyword(vivienda.consultarReal(clave, valor) == LeerBDL::Lectura::kLeida, clave);
}

/// A name that the generated building needs.
struct NombreObligatorio {
  std::string_view patron;  // as searched: with blanks, or CUBIERTAS would be met inside a word
  std::string_view clave;   // as the message names it
  std::string R::*campo;
};

constexpr NombreObligatorio kNombres[] = {
    {" MUROS-FACHADA ", "MUROS-FACHADA", &R::murosFachada},
    {" PARTICION-INTERIOR-VERTICAL ", "PARTICION-INTERIOR-VERTICAL", &R::particionInteriorVertical},
    {" MEDIANERA ", "MEDIANERA", &R::medianera},
    {" SUELOS ", "SUELOS", &R::suelos},
    {" PARTICION-INTERIOR-HORIZONTAL ", "PARTICION-INTERIOR-HORIZONTAL",
     &R::particionInteriorHorizontal},
    {" CUBIERTAS ", "CUBIERTAS", &R::cubiertas},
    {"VENTANA-VIDRIO", "VENTANA-VIDRIO", &R::ventanaVidrio},
};

void checkPlantas(int tipo, int plantas) {
  for (const StoreyRule& rule : {kSomeStorey, tipoRow(tipo).storeys}) {
    require(plantas >= rule.least && plantas <= rule.most, rule.message);
  }
}

/// In reading order, which decides the message that a file with several faults shows.
void leerVivienda(const LeerBDL& vivienda, R& r) {
  leerEnteroObligatorio(vivienda, "TIPO", r.tipo);
  leerEnteroObligatorio(vivienda, "NUMERO-PLANTAS", r.numeroPlantas);
  checkPlantas(r.tipo, r.numeroPlantas);

  constexpr std::string_view kAltura =
      "En el COMMAND VIVIENDA del fichero *.tip la ALTURA-PLANTA debe ser mayor que 0";
  vivienda.leerReal("ALTURA-PLANTA", r.alturaPlanta);
  require(r.alturaPlanta > 0, kAltura);
  leerRealObligatorio(vivienda, "AREA-PLANTA", r.areaPlanta);
  vivienda.leerReal("AREA-PATIO", r.areaPatio);
  vivienda.leerReal("AREA-ESCALERA", r.areaEscalera);
  leerRealObligatorio(vivienda, "LONGITUD-FACHADA", r.longitudFachada);
  // A façade without length has always been reported with the storey height's message.
  require(r.longitudFachada > 0, kAltura);
  vivienda.leerReal("PROFUNDIDAD-PATIO", r.profundidadPatio);
  vivienda.leerReal("PROFUNDIDAD-ESCALERA", r.profundidadEscalera);

  // Read, so that a malformed value is met, and then replaced.
  std::string leido;
  vivienda.leerCadena("CUBIERTA", leido);
  vivienda.leerCadena("ATICO", leido);
  vivienda.leerCadena("SOTANO", leido);

  requireKeyword(vivienda.leerListaReales("PORCENTAJE-FACHADA", r.porcentajeFachada) != -1,
                 "PORCENTAJE-FACHADA");
  vivienda.leerListaReales("PORCENTAJE-PATIO", r.porcentajePatio);
  vivienda.leerReal("ORIENTACION", r.orientacion);
  for (const NombreObligatorio& nombre : kNombres) {
    requireKeyword(vivienda.leerCadena(nombre.patron, r.*nombre.campo) != -1, nombre.clave);
  }
  vivienda.leerCadena("VENTANA-MARCO", r.ventanaMarco);
  vivienda.leerCadena("VENTANA-SOMBRA", r.ventanaSombra);
  vivienda.leerReal("AIR-CHANGES/HR", r.airChangesHr);
}

/// The text of the command of `tipo` called `nombre`; empty without a name or without a command.
std::string textoDeComando(LeerBDL& modelo, std::string_view tipo, const std::string& nombre) {
  if (nombre.empty()) return {};
  return std::string(LeerBDL(modelo, tipo, nombre).obtenerTexto().value_or(""));
}

}  // namespace

TypologyRecord::TypologyRecord(const std::string& rutaTip) : ruta(rutaTip) {
  LeerBDL modelo(ruta);
  modelo.rebobinar();

  bool encontrado = false;
  const LeerBDL vivienda(modelo, "VIVIENDA", encontrado);
  require(encontrado, "En el fichero *.tip debe existir un COMMAND VIVIENDA");
  leerVivienda(vivienda, *this);

  textoTipologia = fichero(ruta, "lectura").bytes();
  textoMarco = textoDeComando(modelo, "NAME-FRAME", ventanaMarco);
  textoSombra = textoDeComando(modelo, "VENTANA-SOMBRA", ventanaSombra);
  const LeerBDL posicionSolar(modelo, "SOLAR-POSITION", encontrado);
  if (encontrado) textoPosicionSolar = *posicionSolar.obtenerTexto();
}
