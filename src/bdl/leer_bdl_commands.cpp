#include <algorithm>
#include <unordered_map>
#include <utility>

#include "bdl/command_labels.h"
#include "bdl/leer_bdl.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/report_error.h"

// The commands of a text: counted, enumerated, found by label or by long name, cut out.

namespace {

constexpr std::size_t kNoEncontrado = 0;
constexpr std::string_view kCierre = "..";
constexpr std::string_view kFaltaCierre = "falta el cierre \"..\"";
constexpr std::string_view kCabeceraDefectos = "SET-DEFAULT FOR ";

// Limits of these texts in bytes, a closing NUL included.
constexpr std::size_t kLargoBloque = 10000;
constexpr std::size_t kLargoDefectos = 1000;

}  // namespace

/// What the look-ups of all commands of one type share. A file may have thousands of them, and
/// each would otherwise walk the whole text.
struct LeerBDL::Comandos {
  Comandos(LeerBDL& modelo, std::string_view tipoPedido)
      : tipo(tipoPedido),
        etiquetas(modelo.texto(), tipoPedido),
        defectos(modelo.buscar(concat(kCabeceraDefectos, tipoPedido), 0)),
        numero(modelo.contarComandos(tipoPedido)) {}

  /// The search by long name, as far as it has come.
  struct NombresLargos {
    int vistos = 0;                                             // commands
    std::size_t cursor = 0;                                     // behind the last of them
    std::unordered_map<std::string, std::size_t> etiquetaDe{};  // of a long name, the first
  };

  std::string tipo;
  CommandLabels etiquetas;
  std::size_t defectos;  // where SET-DEFAULT FOR the type begins; 0: there is none
  int numero;            // as contarComandos counts them
  NombresLargos nombresLargos;
  Corte corte;                                          // the last one,
  std::size_t cierre = 0;                               // and where its ".." stands in the model
  std::unordered_map<std::size_t, Corte> cortesLargos;  // all that are, by their ".."
};

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view tipo, const std::string& nombre)
    : LeerBDL(origen, tipo, origen.etiquetaDe(nombre, tipo)) {}

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view tipo, Etiqueta etiqueta)
    : fuente_(origen.fuente_) {
  if (etiqueta.posicion == kNoEncontrado) return;
  const std::size_t cierre = origen.buscarCierreDeComando(tipo, etiqueta.posicion);
  Comandos& comandos = origen.comandosDe(tipo);
  const Corte& corte = origen.corteDe(comandos, etiqueta.posicion, cierre);
  texto_ = corte.texto;
  inicio_ = etiqueta.posicion - corte.inicio;
  procedencia_.inicio = origen.enFichero(corte.inicio);
  if (comandos.defectos == kNoEncontrado) return;
  procedencia_.corte = cierre - corte.inicio;
  procedencia_.defectos = origen.enFichero(comandos.defectos);
}

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view clave, bool& encontrado)
    : fuente_(origen.fuente_) {
  const std::size_t posicion = origen.buscar(clave, 0);
  encontrado = posicion != kNoEncontrado;
  if (!encontrado) return;
  const std::size_t fin = origen.buscarCierre(posicion, clave);
  if (fin - posicion >= kLargoBloque) {
    origen.fallar(clave, posicion, "el bloque es demasiado largo");
  }
  texto_ =
      std::make_shared<SearchedText>(std::string(origen.texto().substr(posicion, fin - posicion)));
  procedencia_.inicio = origen.enFichero(posicion);
}

/// Position of the type word of the next command of `tipo` at or after `desde`; 0 when there is
/// none. The character between the name's closing quote and the "=" is not examined.
std::size_t LeerBDL::buscarComando(std::string_view tipo, std::size_t desde) {
  constexpr std::size_t kDelante = 4;  // `" = `, the characters before the type word
  for (std::size_t p = buscar(tipo, std::max(desde, kDelante)); p != kNoEncontrado;
       p = buscar(tipo, p + 1)) {
    const std::string_view delante = texto().substr(p - kDelante, kDelante);
    if (delante.front() == '"' && delante.ends_with("= ")) return p;
  }
  return kNoEncontrado;
}

int LeerBDL::contarComandos(std::string_view tipo) {
  int numero = 0;
  for (std::size_t p = buscarComando(tipo, 0); p != kNoEncontrado; p = buscarComando(tipo, p + 1)) {
    ++numero;
  }
  return numero;
}

std::string LeerBDL::siguienteComando(std::string_view tipo, std::size_t capacidad) {
  const std::size_t palabra = buscarComando(tipo, cursor_);
  if (palabra == kNoEncontrado)
    fallar(tipo, texto().size(), "no hay más comandos de este tipo"_cp1252);
  cursor_ = palabra + 1;
  const std::size_t cierre = texto().rfind('"', palabra - 1);
  const std::size_t apertura = cierre == 0 ? std::string::npos : texto().rfind('"', cierre - 1);
  if (apertura == std::string::npos)
    fallar(tipo, palabra, "falta el nombre entre comillas de un comando");
  std::string nombre(texto().substr(apertura + 1, cierre - apertura - 1));
  Global2::entrecomillar(nombre);
  if (nombre.size() >= capacidad)
    fallar(tipo, apertura, "el nombre de un comando es demasiado largo");
  return nombre;
}

LeerBDL::Comandos& LeerBDL::comandosDe(std::string_view tipo) {
  if (!comandos_ || comandos_->tipo != tipo) comandos_ = std::make_shared<Comandos>(*this, tipo);
  return *comandos_;
}

LeerBDL::Etiqueta LeerBDL::etiquetaDe(const std::string& nombre, std::string_view tipo) {
  const std::size_t propia = buscarEtiqueta(nombre, tipo);
  return {propia != kNoEncontrado ? propia : buscarNombreLargo(nombre, tipo)};
}

/// Position of the label `nombre` of a command of `tipo`; 0 when there is none.
std::size_t LeerBDL::buscarEtiqueta(const std::string& nombre, std::string_view tipo) {
  // What stands at the very start of the text is not found.
  if (!texto_ || texto().starts_with(nombre)) return kNoEncontrado;
  const std::size_t etiqueta = comandosDe(tipo).etiquetas.find(nombre);
  return etiqueta == std::string::npos ? kNoEncontrado : etiqueta;
}

/// Position of the label of the first command of `tipo` whose LONG-NAME, or else NAME, is `nombre`;
/// 0 when there is none. Leaves the cursor at the start of the text, as it always has.
std::size_t LeerBDL::buscarNombreLargo(const std::string& nombre, std::string_view tipo) {
  if (!texto_) return kNoEncontrado;
  Comandos& comandos = comandosDe(tipo);
  const Comandos::NombresLargos& largos = comandos.nombresLargos;
  situarCursor(largos.cursor);
  auto hallado = largos.etiquetaDe.find(nombre);
  while (hallado == largos.etiquetaDe.end() && largos.vistos < comandos.numero) {
    verCandidato(comandos);
    hallado = largos.etiquetaDe.find(nombre);
  }
  rebobinar();
  return hallado == largos.etiquetaDe.end() ? kNoEncontrado : hallado->second;
}

/// Enters the next command's long name. Candidates are looked up by label alone, so the search
/// ends; one that its own label does not find (at the very start of the text, or with "=" in it)
/// ends the run.
void LeerBDL::verCandidato(Comandos& comandos) {
  const std::string candidato = siguienteComando(comandos.tipo);
  const std::size_t etiqueta = buscarEtiqueta(candidato, comandos.tipo);
  if (etiqueta == kNoEncontrado) {
    ReportFailure(ErrorLog, {"No se encuentra: " + candidato,
                             fuente_->placeOf(tramo(cursor_ - 1, comandos.tipo.size()))});
  }
  LeerBDL comando(*this, comandos.tipo, Etiqueta{etiqueta});
  std::string valor;
  // "NAME " with its blank, or it would be found inside LONG-NAME.
  if (comando.leerCadena("LONG-NAME", valor) == 0 || comando.leerCadena("NAME ", valor) == 0) {
    comandos.nombresLargos.etiquetaDe.try_emplace(valor, etiqueta);
  }
  ++comandos.nombresLargos.vistos;
  comandos.nombresLargos.cursor = cursor_;
}

/// The text that ends at the ".." at `cierre` and holds the command whose label stands at
/// `etiqueta`. Names may lead to and fro between two "..", so that more than the last one is kept;
/// a short one is soon cut out again, and costs more memory than it has bytes.
const LeerBDL::Corte& LeerBDL::corteDe(Comandos& comandos, std::size_t etiqueta,
                                       std::size_t cierre) {
  constexpr std::size_t kLargo = 4096;  // bytes
  if (comandos.cierre == cierre) return comandos.corte;
  const auto largo = comandos.cortesLargos.find(cierre);
  comandos.corte =
      largo != comandos.cortesLargos.end() ? largo->second : cortar(comandos, etiqueta, cierre);
  comandos.cierre = cierre;
  if (cierre - comandos.corte.inicio > kLargo) {
    comandos.cortesLargos.try_emplace(cierre, comandos.corte);
  }
  return comandos.corte;
}

/// Cuts it out: from the ".." before on, and behind it the type's defaults block, if there is one.
LeerBDL::Corte LeerBDL::cortar(const Comandos& comandos, std::size_t etiqueta, std::size_t cierre) {
  const std::size_t anterior = texto().rfind(kCierre, etiqueta);
  const std::size_t inicio = anterior == std::string_view::npos ? 0 : anterior;
  std::string corte(texto().substr(inicio, cierre - inicio));
  if (const std::size_t defectos = comandos.defectos; defectos != kNoEncontrado) {
    const std::string cabecera = concat(kCabeceraDefectos, comandos.tipo);
    const std::size_t finDefectos = buscarCierre(defectos, cabecera);
    if (finDefectos - defectos >= kLargoDefectos) {
      fallar(cabecera, defectos, "el bloque es demasiado largo");
    }
    corte.append(texto(), defectos, finDefectos - defectos);
  }
  return {std::make_shared<SearchedText>(std::move(corte)), inicio};
}

/// Position of the ".." of the command whose label stands at `etiqueta`; the error without one
/// shows how the command begins.
std::size_t LeerBDL::buscarCierreDeComando(std::string_view tipo, std::size_t etiqueta) {
  const std::size_t fin = buscar(kCierre, etiqueta + 1);
  if (fin != kNoEncontrado) return fin;
  const std::size_t finTipo = buscar(tipo, etiqueta) + tipo.size();
  fallar(texto().substr(etiqueta, finTipo - etiqueta), etiqueta, kFaltaCierre);
}

std::size_t LeerBDL::buscarCierre(std::size_t posicion, std::string_view que) {
  const std::size_t fin = buscar(kCierre, posicion);
  if (fin == kNoEncontrado) fallar(que, posicion, kFaltaCierre);
  return fin;
}
