#include "bdl/valores_por_defecto.h"

#include <span>
#include <string_view>
#include <variant>

#include "bdl/leer_bdl.h"
#include "core/global2.h"
#include "core/report_error.h"

namespace {

using V = ValoresPorDefecto;

/// A keyword that holds one number. The pattern is searched exactly as it stands: a bare "GROUND-R"
/// is found inside GROUND-REFLECTANCE if that comes first, and the library is written so that the
/// intended one does.
struct Numero {
  std::string_view clave;
  std::variant<float V::*, int V::*> campo;
};

constexpr Numero kGenerales[] = {
    {"LONGITUD-DE-REFERENCIA", &V::LONGITUD_DE_REFERENCIA},
    {"ROCP", &V::ROCP},
    {"DELTAT", &V::DELTAT},
    {"FURN-CP", &V::FURN_CP},
    {"FURN-FRACTION", &V::FURN_FRACTION},
    {"FURN-WEIGHT", &V::FURN_WEIGHT},
    {"NINT-WF", &V::NINT_WF},
    {"MAX-DEN", &V::MAX_DEN},
    {"MIN-NUM", &V::MIN_NUM},
    {"MAX-NUM", &V::MAX_NUM},
    {"HCINT", &V::HCINT},
    {"HRINT", &V::HRINT},
    {"HPINT", &V::HPINT},
    {"HPOUT", &V::HPOUT},
    {"ALTURA-FORJADO", &V::ALTURA_FORJADO},
    {"DELTAP-ENSAYO-PERMEABILIDAD", &V::DELTAP_ENSAYO_PERMEABILIDAD},
    {"PERMEABILIDAD", &V::PERMEABILIDAD},
    {"VAPOUR-DIFFUSIVITY-FACTOR", &V::VAPOUR_DIFFUSIVITY_FACTOR},
    {"ANCHO-P", &V::ANCHO_P},
    {"ANCHO-V", &V::ANCHO_V},
    {"ALTO-P", &V::ALTO_P},
    {"ALTO-V", &V::ALTO_V},
    {"CD-P", &V::CD_P},
    {"CD-V", &V::CD_V},
    {"H0", &V::H0},
    {"ARF-P", &V::ARF_P},
    {"ARF-V", &V::ARF_V},
    {"LONG-LEAK", &V::LONG_LEAK},
    {"C-LEAK", &V::C_LEAK},
    {"N-LEAK", &V::N_LEAK},
    {"H-LEAK", &V::H_LEAK},
    {"SUP-CR", &V::SUP_CR},
    {"C-CR", &V::C_CR},
    {"N-CR", &V::N_CR},
    {"H-CR", &V::H_CR},
    {"NUM-HORAS", &V::NUM_HORAS},
    {"NUM-PUN-VEN", &V::NUM_PUN_VEN},
    {"NUM-PUN-MUR", &V::NUM_PUN_MUR},
    {"FF-SKY-C", &V::FF_SKY_C},
    {"HCEXT", &V::HCEXT},
    {"DISCR-FI", &V::DISCR_FI},
    {"DISCR-TE", &V::DISCR_TE},
    {"GROUND-REFLECTANCE", &V::GROUND_REFLECTANCE},
    {"FRAME-WIDTH", &V::FRAME_WIDTH},
    {"FRAME-ABS", &V::FRAME_ABS},
    {"FRAME-CONDUCT", &V::FRAME_CONDUCT},
    {"RH-MAX", &V::RH_MAX},
    {"RH-MIN", &V::RH_MIN},
    {"JET-PARTITION", &V::JET_PARTITION},
    {"CROSS-PARTITION", &V::CROSS_PARTITION},
    {"AIR-TEMPERATURE", &V::AIR_TEMPERATURE},
    {"X-PARTITION", &V::X_PARTITION},
    {"Y-PARTITION", &V::Y_PARTITION},
    {"Z-PARTITION", &V::Z_PARTITION},
    {"RV_PARTITION", &V::RV_PARTITION},
    {"ABS-CORTA", &V::ABS_CORTA},
    {"EMISIVIDAD", &V::EMISIVIDAD},
    {"PILARES-POR-ZONA", &V::PILARES_POR_ZONA},
};

constexpr Numero kTerreno[] = {
    {"GROUND-K", &V::GROUND_K},
    {"GROUND-L", &V::GROUND_L},
    {"GROUND-SH", &V::GROUND_SH},
    {"GROUND-RO", &V::GROUND_RO},
    {"GROUND-R", &V::GROUND_R},
    {"GROUND-RV", &V::GROUND_RV},
    {"GROUND-EIT", &V::GROUND_EIT},
    {"GROUND-L2DSTEADY", &V::GROUND_L2DSTEADY},
    {"GROUND-ZGROUND", &V::GROUND_ZGROUND},
    {"GROUND-HEIGHT", &V::GROUND_HEIGHT},
};

constexpr Numero kDiferenciasFinitas[] = {
    {"TINIFINITEDIFFERENCES =", &V::TINIFINITEDIFFERENCES},
    {"TAUMUROANCHO =", &V::TAUMUROANCHO},
    {"NFRMUROS =", &V::NFRMUROS},
    {"EIGENRATIO =", &V::EIGENRATIO},
};

constexpr Numero kParticiones[] = {
    {"ABS_PARTITION = ", &V::ABS_PARTITION}, {"EMI_PARTITION = ", &V::EMI_PARTITION},
    {"CON_PARTITION = ", &V::CON_PARTITION}, {"TH_PARTITION = ", &V::TH_PARTITION},
    {"DEN_PARTITION = ", &V::DEN_PARTITION}, {"SH_PARTITION = ", &V::SH_PARTITION},
    {"RES_PARTITION = ", &V::RES_PARTITION},
};

constexpr Numero kPuentesTermicos[] = {
    {"LINEAR-THERMAL-TRANSMITTANCE = ", &V::LINEAR_THERMAL_TRANSMITTANCE},
    {"MULTIPLICADOR-CONTORNOS = ", &V::MULTIPLICADOR_CONTORNOS},
    {"TOLERANCIA-PTL = ", &V::TOLERANCIA_PTL},
    {"TOL-HOR-FRENTE-FORJADO = ", &V::TOL_HOR_FRENTE_FORJADO},
};

constexpr Numero kPersianas[] = {
    {"SHUTTER-CONDUCTANCE-MULTIPLIER-WINTER", &V::SHUTTER_CONDUCTANCE_MULTIPLIER_WINTER},
    {"SHUTTER-CONDUCTANCE-MULTIPLIER-SUMMER", &V::SHUTTER_CONDUCTANCE_MULTIPLIER_SUMMER},
    {"SHUTTER-TRANSMITTANCE-MULTIPLIER-SUMMER", &V::SHUTTER_TRANSMITTANCE_MULTIPLIER_SUMMER},
};

constexpr std::span<const Numero> kTablas[] = {kGenerales,   kTerreno,         kDiferenciasFinitas,
                                               kParticiones, kPuentesTermicos, kPersianas};

void leerNumeros(LeerBDL& modelo, std::span<const Numero> numeros, V& valores) {
  for (const Numero& numero : numeros) {
    if (const auto* real = std::get_if<float V::*>(&numero.campo)) {
      modelo.leerReal(numero.clave, valores.**real);
    } else {
      modelo.leerEntero(numero.clave, valores.*std::get<int V::*>(numero.campo));
    }
  }
}

}  // namespace

ValoresPorDefecto::ValoresPorDefecto(const SourceText& fuente) {
  LeerBDL modelo(fuente);
  leerGenerales(modelo);
  leerNumeros(modelo, kTerreno, *this);
  leerNumeros(modelo, kDiferenciasFinitas, *this);
  leerParticiones(modelo);
  leerPuentesTermicos(modelo);
  leerNoHabitables(modelo);
  leerPersianas(modelo);
}

std::vector<std::string_view> ValoresPorDefecto::clavesDeNumeros() {
  std::vector<std::string_view> claves;
  for (const std::span<const Numero> tabla : kTablas) {
    for (const Numero& numero : tabla) claves.push_back(numero.clave);
  }
  return claves;
}

void ValoresPorDefecto::leerGenerales(LeerBDL& modelo) {
  leerNumeros(modelo, kGenerales, *this);
  if (modelo.leerReal("HREXT", HREXT) == 0) hrextDado = 'S';
  modelo.leerCadena("SPACER-TYPE", SPACER_TYPE, LeerBDL::kSinLimite);
}

void ValoresPorDefecto::leerParticiones(LeerBDL& modelo) {
  std::string particiones;
  modelo.leerCadena("INTERNAL-PARTITIONS = ", particiones, kLargoTexto);
  particionesSobrescritas = particiones == "DEFAULT-OVERWRITTEN";
  particionesAnadidas = particiones == "DEFAULT-ADDED";
  particionesPropias = !particionesSobrescritas && !particionesAnadidas;

  ABS_PARTITION = ABS_CORTA;
  EMI_PARTITION = EMISIVIDAD;
  leerNumeros(modelo, kParticiones, *this);
  modelo.leerCadena("TYPE_PARTITION = ", TYPE_PARTITION, kLargoTexto);
  if (TYPE_PARTITION == "U-VALUE") modelo.leerReal("U_PARTITION = ", U_PARTITION);
}

void ValoresPorDefecto::leerPuentesTermicos(LeerBDL& modelo) {
  const int numero = modelo.contarComandos("THERMAL-BRIDGE");
  leerNumeros(modelo, kPuentesTermicos, *this);
  std::string opciones;
  modelo.leerCadena("SEVERAL-OPTIONS = ", opciones, kLargoTexto);
  variasOpciones = opciones == "YES";

  modelo.rebobinar();
  for (int i = 0; i < numero; ++i) {
    const std::string nombre = modelo.siguienteComando("THERMAL-BRIDGE", kLargoTexto);
    LeerBDL comando(modelo, "THERMAL-BRIDGE", nombre);
    PuenteTermico& puente = puentes.emplace_back();
    puente.nombre = nombre;
    comando.leerReal("TTL =", puente.TTL);
    comando.leerReal("ANGLE-MIN =", puente.ANGLE_MIN);
    comando.leerReal("ANGLE-MAX =", puente.ANGLE_MAX);
    comando.leerCadena("TYPE =", puente.TYPE, kLargoTexto);
    comando.leerCadena("PARTITION =", puente.PARTITION, kLargoTexto);
  }
}

void ValoresPorDefecto::leerNoHabitables(LeerBDL& modelo) {
  numNoHabitables =
      modelo.leerListaCadenas("NO-HABITABLES", NO_HABITABLES, maxNoHabitables, largoNoHabitable);
  // Never fails: a list that is there has one value at least, an absent one leaves -1.
  ReportError(ErrorLog, numNoHabitables != 0,
              "Error en el fichero defectos.inp: Error leyendo NO-HABITABLES");
  for (const std::string& nombre : NO_HABITABLES) Global2::traza(nombre);
}

void ValoresPorDefecto::leerPersianas(LeerBDL& modelo) {
  if (modelo.leerCadena("AUTOMATIC-SHUTTER", AUTOMATIC_SHUTTER, LeerBDL::kSinLimite) == 0) {
    leerNumeros(modelo, kPersianas, *this);
  }
}
