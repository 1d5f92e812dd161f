#include "bdl/leer_bdl.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "core/concat.h"
#include "core/configuracion_regional.h"
#include "core/cp1252.h"
#include "core/fichero.h"
#include "core/global2.h"
#include "core/numbers.h"
#include "core/report_error.h"

namespace {

constexpr std::size_t kNoEncontrado = 0;
constexpr std::string_view kCierre = "..";

// Limits of these texts in bytes, a closing NUL included.
constexpr std::size_t kLargoBloque = 10000;
constexpr std::size_t kLargoDefectos = 1000;
constexpr std::size_t kMaximoBlancos = 100;

// How loosely a label may be written: characters between the name's end and the "=", and from the
// "=" to the type word.
constexpr std::size_t kHolguraIgual = 2;
constexpr std::size_t kHolguraTipo = 3;

constexpr std::string_view kCabeceraDefectos = "SET-DEFAULT FOR ";

/// A search key as people know it: without the blanks and the "=" that narrow its search.
std::string_view palabra(std::string_view clave) {
  clave.remove_prefix(std::min(clave.find_first_not_of(' '), clave.size()));
  return clave.substr(0, clave.find_last_not_of(" =") + 1);  // npos + 1 is 0
}

}  // namespace

/// What the look-ups of all commands of one type share. A file may have thousands of them, and
/// each would otherwise walk the whole text.
struct LeerBDL::Indice {
  std::string tipo;
  std::vector<std::size_t> iguales;  // the "=" with the type word within three characters
  std::unordered_map<std::string, std::size_t> etiquetas;  // quoted name: its first label
  std::size_t defectos = 0;  // where SET-DEFAULT FOR the type begins; 0: there is none
  int comandos = 0;          // as contarComandos counts them

  // The search by long name, as far as it has come.
  int candidatos = 0;                                          // commands seen
  std::size_t cursor = 0;                                      // behind the last of them
  std::unordered_map<std::string, std::size_t> nombresLargos;  // long name: its first label

  // The text of the commands that run to the ".." last met: each of them is an end of it.
  std::shared_ptr<Texto> comun;
  std::size_t inicio = 0;  // where it begins in the whole text, and where that ".." stands
  std::size_t cierre = 0;
};

LeerBDL::LeerBDL(const std::string& ruta) : ruta_(ruta) { cargar(); }

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view tipo, const std::string& nombre)
    : LeerBDL(origen, tipo, Etiqueta{origen.buscarEtiqueta(nombre, tipo)}) {
  if (!texto_) *this = LeerBDL(origen, tipo, Etiqueta{origen.buscarNombreLargo(nombre, tipo)});
}

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view tipo, Etiqueta etiqueta) : ruta_(origen.ruta_) {
  if (etiqueta.posicion == kNoEncontrado) return;
  const std::size_t cierre = origen.buscarCierreDeComando(tipo, etiqueta.posicion);
  Indice& comandos = origen.indice(tipo);
  if (comandos.cierre != cierre) origen.cortarTextoComun(comandos, etiqueta.posicion, cierre);
  texto_ = comandos.comun;
  inicio_ = etiqueta.posicion - comandos.inicio;
}

LeerBDL::LeerBDL(const LeerBDL& origen, std::string_view clave, bool& encontrado)
    : ruta_(origen.ruta_) {
  const std::size_t posicion = origen.buscar(clave, 0);
  encontrado = posicion != kNoEncontrado;
  if (!encontrado) return;
  const std::size_t fin = origen.buscarCierre(posicion, clave);
  if (fin - posicion >= kLargoBloque) fallar(clave, "el bloque es demasiado largo");
  texto_ = std::make_shared<Texto>(std::string(origen.texto().substr(posicion, fin - posicion)));
}

void LeerBDL::cargar() {
  std::string texto = fichero(ruta_, "lectura").normalisedText();
  Global2::reemplazarCaracter(texto, '\n', ' ');
  Global2::reemplazarCaracter(texto, '\t', ' ');
  texto_ = std::make_shared<Texto>(std::move(texto));
}

std::optional<std::string_view> LeerBDL::obtenerTexto() const {
  if (!texto_) return std::nullopt;
  return texto();
}

std::size_t LeerBDL::buscar(std::string_view patron, std::size_t desde) const {
  if (!texto_) return kNoEncontrado;
  const std::size_t posicion = texto_->buscar(patron, inicio_ + desde);
  return posicion == std::string_view::npos ? kNoEncontrado : posicion - inicio_;
}

/// Position behind the "=" of `clave`; 0 when absent.
std::size_t LeerBDL::buscarValor(std::string_view clave) const {
  const std::size_t posicion = buscar(clave, 0);
  if (posicion == kNoEncontrado) return kNoEncontrado;
  const std::size_t igual = buscar("=", posicion + 1);
  return igual == kNoEncontrado ? kNoEncontrado : igual + 1;
}

int LeerBDL::leerEntero(std::string_view clave, int& valor) const {
  return consultarEntero(clave, valor) == Lectura::kAusente ? -1 : 0;
}

int LeerBDL::leerReal(std::string_view clave, float& valor) const {
  return consultarReal(clave, valor) == Lectura::kAusente ? -1 : 0;
}

LeerBDL::Lectura LeerBDL::consultarEntero(std::string_view clave, int& valor) const {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return Lectura::kAusente;
  std::string_view resto = texto().substr(posicion);
  return scanInteger(resto, valor) ? Lectura::kLeida : Lectura::kSinNumero;
}

LeerBDL::Lectura LeerBDL::consultarReal(std::string_view clave, float& valor) const {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return Lectura::kAusente;
  std::string_view resto = texto().substr(posicion);
  if (!scanReal(resto, valor)) return Lectura::kSinNumero;
  valor = pasarPorConversionRegional(valor);
  return Lectura::kLeida;
}

int LeerBDL::leerCadena(std::string_view clave, std::string& valor, std::size_t capacidad) const {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return -1;
  std::string_view resto = texto().substr(posicion);
  const std::size_t blancos = std::min(resto.find_first_not_of(' '), resto.size());
  if (blancos >= kMaximoBlancos) fallar(clave, "hay demasiados blancos delante del valor");
  resto.remove_prefix(blancos);
  if (resto.empty()) fallar(clave, "falta el valor");

  std::size_t largo = std::min(resto.find(' '), resto.size());
  if (resto.front() == '"') {
    const std::size_t cierre = resto.find('"', 1);
    if (cierre == std::string_view::npos) fallar(clave, "faltan las comillas de cierre del valor");
    largo = cierre + 1;
  }
  if (largo >= capacidad) fallar(clave, "el valor es demasiado largo");
  valor = resto.substr(0, largo);
  return 0;
}

int LeerBDL::leerListaReales(std::string_view clave, std::span<float> valores) const {
  if (buscarValor(clave) == kNoEncontrado) return -1;
  const std::size_t abre = buscar("(", buscar(clave, 0) + 1);
  if (abre == kNoEncontrado) fallar(clave, "falta la lista de valores entre paréntesis"_cp1252);
  // A ")" right behind the "(" is not seen: the search begins one character later. With no ")" at
  // all no comma counts, and the list has one value.
  const std::size_t cierra = std::max(buscar(")", abre + 2), abre + 1);

  const std::string_view lista = texto().substr(abre + 1, cierra - abre - 1);
  const std::size_t numero = static_cast<std::size_t>(std::ranges::count(lista, ',')) + 1;
  if (numero > valores.size()) fallarPorLargo(clave, valores.size());
  std::size_t inicio = abre + 1;
  for (std::size_t i = 0; i < numero; ++i) {
    std::string_view resto = texto().substr(inicio);
    scanReal(resto, valores[i]);
    inicio = buscar(",", inicio) + 1;
  }
  return static_cast<int>(numero);
}

int LeerBDL::leerListaCadenas(std::string_view clave, std::vector<std::string>& valores,
                              std::size_t maximo, std::size_t capacidad) const {
  if (buscarValor(clave) == kNoEncontrado) return -1;
  const std::size_t abre = buscar("(", buscar(clave, 0) + 1);
  if (abre == kNoEncontrado) fallar(clave, "falta la lista de valores entre paréntesis"_cp1252);

  valores.clear();
  std::size_t desde = abre;
  while (true) {
    const std::size_t comillas = buscar("\"", desde + 1);
    const std::size_t cierre = comillas == kNoEncontrado ? 0 : buscar("\"", comillas + 1);
    if (cierre == kNoEncontrado) fallar(clave, "faltan comillas en la lista de valores");
    const std::size_t largo = cierre - comillas + 1;
    if (largo >= capacidad) fallar(clave, "un valor de la lista es demasiado largo");
    if (valores.size() == maximo) fallarPorLargo(clave, maximo);
    valores.emplace_back(texto().substr(comillas, largo));
    // Two blanks before the ")" and the reading runs on into the following quotes; no ")" at all
    // ends it.
    const std::size_t parentesis = buscar(")", cierre + 1);
    if (parentesis == kNoEncontrado || parentesis - cierre < 3) break;
    desde = cierre;
  }
  return static_cast<int>(valores.size());
}

/// Position of the type word of the next command of `tipo` at or after `desde`; 0 when there is
/// none. The character between the name's closing quote and the "=" is not examined.
std::size_t LeerBDL::buscarComando(std::string_view tipo, std::size_t desde) const {
  constexpr std::size_t kDelante = 4;  // `" = `, the characters before the type word
  for (std::size_t p = buscar(tipo, std::max(desde, kDelante)); p != kNoEncontrado;
       p = buscar(tipo, p + 1)) {
    const std::string_view delante = texto().substr(p - kDelante, kDelante);
    if (delante.front() == '"' && delante.ends_with("= ")) return p;
  }
  return kNoEncontrado;
}

int LeerBDL::contarComandos(std::string_view tipo) const {
  int numero = 0;
  for (std::size_t p = buscarComando(tipo, 0); p != kNoEncontrado; p = buscarComando(tipo, p + 1)) {
    ++numero;
  }
  return numero;
}

std::string LeerBDL::siguienteComando(std::string_view tipo, std::size_t capacidad) {
  const std::size_t palabra = buscarComando(tipo, cursor_);
  if (palabra == kNoEncontrado) fallar(tipo, "no hay más comandos de este tipo"_cp1252);
  cursor_ = palabra + 1;
  const std::size_t cierre = texto().rfind('"', palabra - 1);
  const std::size_t apertura = cierre == 0 ? std::string::npos : texto().rfind('"', cierre - 1);
  if (apertura == std::string::npos) fallar(tipo, "falta el nombre entre comillas de un comando");
  std::string nombre(texto().substr(apertura + 1, cierre - apertura - 1));
  Global2::entrecomillar(nombre);
  if (nombre.size() >= capacidad) fallar(tipo, "el nombre de un comando es demasiado largo");
  return nombre;
}

LeerBDL::Indice& LeerBDL::indice(std::string_view tipo) {
  if (indice_ && indice_->tipo == tipo) return *indice_;
  indice_ = std::make_shared<Indice>();
  indice_->tipo = tipo;
  indice_->defectos = buscar(concat(kCabeceraDefectos, tipo), 0);
  indice_->comandos = contarComandos(tipo);
  if (!texto_) return *indice_;

  const std::string_view texto = this->texto();
  for (std::size_t igual = texto.find('='); igual != std::string_view::npos;
       igual = texto.find('=', igual + 1)) {
    const std::string_view detras = texto.substr(igual, kHolguraTipo + tipo.size());
    if (detras.find(tipo) == std::string_view::npos) continue;
    indice_->iguales.push_back(igual);
    // From the farthest place to the nearest: a name's first label is the one that counts.
    for (std::size_t hueco = kHolguraIgual + 1; hueco-- > 0;) {
      const std::size_t cierre = igual - hueco - 1;
      if (igual < hueco + 2 || texto[cierre] != '"') continue;
      const std::size_t apertura = texto.rfind('"', cierre - 1);
      if (apertura == std::string_view::npos) continue;
      const std::string_view nombre = texto.substr(apertura, cierre + 1 - apertura);
      if (texto.substr(apertura, igual - apertura).find('=') != std::string_view::npos) continue;
      indice_->etiquetas.try_emplace(std::string(nombre), apertura);
    }
  }
  return *indice_;
}

/// Position of the label `nombre` of a command of `tipo`: the "=" follows within three characters
/// of the label's end, and the type word within three of the "=". 0 when there is none, or when the
/// name has a "=" of its own.
std::size_t LeerBDL::buscarEtiqueta(const std::string& nombre, std::string_view tipo) {
  // What stands at the very start of the text is not found.
  if (!texto_ || texto().starts_with(nombre)) return kNoEncontrado;
  const Indice& comandos = indice(tipo);
  if (nombre.find('"', 1) == nombre.size() - 1 && nombre.front() == '"') {
    const auto etiqueta = comandos.etiquetas.find(nombre);
    return etiqueta == comandos.etiquetas.end() ? kNoEncontrado : etiqueta->second;
  }
  for (const std::size_t igual : comandos.iguales) {
    for (std::size_t hueco = kHolguraIgual + 1; hueco-- > 0;) {
      if (igual <= hueco + nombre.size()) continue;
      const std::size_t p = igual - hueco - nombre.size();
      const std::string_view etiqueta = texto().substr(p, igual - p);
      if (etiqueta.starts_with(nombre) && etiqueta.find('=') == std::string_view::npos) return p;
    }
  }
  return kNoEncontrado;
}

/// Position of the label of the first command of `tipo` whose LONG-NAME, or else NAME, is `nombre`;
/// 0 when there is none. Leaves the cursor at the start of the text, as it always has.
std::size_t LeerBDL::buscarNombreLargo(const std::string& nombre, std::string_view tipo) {
  Indice& comandos = indice(tipo);
  situarCursor(comandos.cursor);
  auto hallado = comandos.nombresLargos.find(nombre);
  while (hallado == comandos.nombresLargos.end() && comandos.candidatos < comandos.comandos) {
    verCandidato(comandos);
    hallado = comandos.nombresLargos.find(nombre);
  }
  rebobinar();
  return hallado == comandos.nombresLargos.end() ? kNoEncontrado : hallado->second;
}

/// Enters the next command's long name. Candidates are looked up by label alone, so the search
/// ends; one that its own label does not find (at the very start of the text, or with "=" in it)
/// ends the run.
void LeerBDL::verCandidato(Indice& comandos) {
  const std::string candidato = siguienteComando(comandos.tipo);
  const std::size_t etiqueta = buscarEtiqueta(candidato, comandos.tipo);
  if (etiqueta == kNoEncontrado) ReportFailure(ErrorLog, "No se encuentra: " + candidato);
  const LeerBDL comando(*this, comandos.tipo, Etiqueta{etiqueta});
  std::string valor;
  // "NAME " with its blank, or it would be found inside LONG-NAME.
  if (comando.leerCadena("LONG-NAME", valor) == 0 || comando.leerCadena("NAME ", valor) == 0) {
    comandos.nombresLargos.try_emplace(valor, etiqueta);
  }
  ++comandos.candidatos;
  comandos.cursor = cursor_;
}

/// Cuts out what all commands that run to the ".." at `cierre` are ends of, `etiqueta` being the
/// label of one of them: the text behind the ".." before, and behind it the type's defaults block,
/// if there is one.
void LeerBDL::cortarTextoComun(Indice& comandos, std::size_t etiqueta, std::size_t cierre) const {
  const std::size_t anterior = texto().rfind(kCierre, etiqueta);
  const std::size_t inicio = anterior == std::string_view::npos ? 0 : anterior;
  std::string comun(texto().substr(inicio, cierre - inicio));
  if (const std::size_t defectos = comandos.defectos; defectos != kNoEncontrado) {
    const std::string cabecera = concat(kCabeceraDefectos, comandos.tipo);
    const std::size_t finDefectos = buscarCierre(defectos, cabecera);
    if (finDefectos - defectos >= kLargoDefectos) fallar(cabecera, "el bloque es demasiado largo");
    comun.append(texto(), defectos, finDefectos - defectos);
  }
  comandos.comun = std::make_shared<Texto>(std::move(comun));
  comandos.inicio = inicio;
  comandos.cierre = cierre;
}

/// Position of the ".." of the command whose label stands at `etiqueta`; the error without one
/// shows how the command begins.
std::size_t LeerBDL::buscarCierreDeComando(std::string_view tipo, std::size_t etiqueta) const {
  const std::size_t fin = buscar(kCierre, etiqueta + 1);
  if (fin != kNoEncontrado) return fin;
  const std::size_t finTipo = buscar(tipo, etiqueta) + tipo.size();
  return buscarCierre(etiqueta + 1, texto().substr(etiqueta, finTipo - etiqueta));
}

std::size_t LeerBDL::buscarCierre(std::size_t posicion, std::string_view que) const {
  const std::size_t fin = buscar(kCierre, posicion);
  if (fin == kNoEncontrado) fallar(que, "falta el cierre \"..\"");
  return fin;
}

void LeerBDL::fallarPorLargo(std::string_view clave, std::size_t maximo) const {
  fallar(clave,
         concat("la lista debe tener como máximo "_cp1252, std::to_string(maximo), " valores"));
}

void LeerBDL::fallar(std::string_view que, std::string_view problema) const {
  ReportFailure(ErrorLog, errorInFile(ruta_, 0, concat(palabra(que), ": ", problema)));
}
