#include "bdl/leer_bdl.h"

#include <algorithm>
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

}  // namespace

LeerBDL::LeerBDL(const std::string& ruta) : ruta_(ruta) { cargar(); }

LeerBDL::LeerBDL(std::string ruta, std::string texto)
    : ruta_(std::move(ruta)), texto_(std::move(texto)) {}

LeerBDL::LeerBDL(LeerBDL& origen, std::string_view tipo, const std::string& nombre)
    : ruta_(origen.ruta_) {
  std::size_t posicion = origen.buscarEtiqueta(nombre, tipo);
  if (posicion == kNoEncontrado) {
    const std::optional<std::string> etiqueta = origen.buscarNombreLargo(tipo, nombre);
    if (!etiqueta) return;
    posicion = origen.buscarEtiqueta(*etiqueta, tipo);
  }
  texto_ = origen.textoDeComando(tipo, posicion);
}

LeerBDL::LeerBDL(const LeerBDL& origen, std::string_view clave, bool& encontrado)
    : ruta_(origen.ruta_) {
  const std::size_t posicion = origen.buscar(clave, 0);
  encontrado = posicion != kNoEncontrado;
  if (!encontrado) return;
  const std::size_t fin = origen.buscarCierre(posicion, clave);
  if (fin - posicion >= kLargoBloque) fallar(clave, "el bloque es demasiado largo");
  texto_ = origen.texto_->substr(posicion, fin - posicion);
}

void LeerBDL::cargar() {
  texto_ = fichero(ruta_, "lectura").normalisedText();
  Global2::reemplazarCaracter(*texto_, '\n', ' ');
  Global2::reemplazarCaracter(*texto_, '\t', ' ');
}

std::size_t LeerBDL::buscar(std::string_view patron, std::size_t desde) const {
  if (!texto_) return kNoEncontrado;
  const std::size_t posicion = std::string_view(*texto_).find(patron, desde);
  return posicion == std::string_view::npos ? kNoEncontrado : posicion;
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
  std::string_view resto = std::string_view(*texto_).substr(posicion);
  return scanInteger(resto, valor) ? Lectura::kLeida : Lectura::kSinNumero;
}

LeerBDL::Lectura LeerBDL::consultarReal(std::string_view clave, float& valor) const {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return Lectura::kAusente;
  std::string_view resto = std::string_view(*texto_).substr(posicion);
  if (!scanReal(resto, valor)) return Lectura::kSinNumero;
  valor = pasarPorConversionRegional(valor);
  return Lectura::kLeida;
}

int LeerBDL::leerCadena(std::string_view clave, std::string& valor, std::size_t capacidad) const {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return -1;
  std::string_view resto = std::string_view(*texto_).substr(posicion);
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

  const std::string_view texto = *texto_;
  const std::string_view lista = texto.substr(abre + 1, cierra - abre - 1);
  const std::size_t numero = static_cast<std::size_t>(std::ranges::count(lista, ',')) + 1;
  if (numero > valores.size()) fallarPorLargo(clave, valores.size());
  std::size_t inicio = abre + 1;
  for (std::size_t i = 0; i < numero; ++i) {
    std::string_view resto = texto.substr(inicio);
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
    valores.push_back(texto_->substr(comillas, largo));
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
    const std::string& texto = *texto_;
    if (texto[p - 1] == ' ' && texto[p - 2] == '=' && texto[p - 4] == '"') return p;
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
  const std::size_t cierre = texto_->rfind('"', palabra - 1);
  const std::size_t apertura = cierre == 0 ? std::string::npos : texto_->rfind('"', cierre - 1);
  if (apertura == std::string::npos) fallar(tipo, "falta el nombre entre comillas de un comando");
  std::string nombre = texto_->substr(apertura + 1, cierre - apertura - 1);
  Global2::entrecomillar(nombre);
  if (nombre.size() >= capacidad) fallar(tipo, "el nombre de un comando es demasiado largo");
  return nombre;
}

const LeerBDL::Indice& LeerBDL::indice(std::string_view tipo) {
  if (indice_ && indice_->tipo == tipo) return *indice_;
  indice_ = {std::string(tipo), {}, {}, buscar(concat(kCabeceraDefectos, tipo), 0)};
  if (!texto_) return *indice_;

  const std::string_view texto = *texto_;
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
  if (!texto_ || texto_->starts_with(nombre)) return kNoEncontrado;
  const Indice& comandos = indice(tipo);
  if (nombre.find('"', 1) == nombre.size() - 1 && nombre.front() == '"') {
    const auto etiqueta = comandos.etiquetas.find(nombre);
    return etiqueta == comandos.etiquetas.end() ? kNoEncontrado : etiqueta->second;
  }
  const std::string_view texto = *texto_;
  for (const std::size_t igual : comandos.iguales) {
    for (std::size_t hueco = kHolguraIgual + 1; hueco-- > 0;) {
      if (igual <= hueco + nombre.size()) continue;
      const std::size_t p = igual - hueco - nombre.size();
      const std::string_view etiqueta = texto.substr(p, igual - p);
      if (etiqueta.starts_with(nombre) && etiqueta.find('=') == std::string_view::npos) return p;
    }
  }
  return kNoEncontrado;
}

/// Label of the first command of `tipo` whose LONG-NAME, or else NAME, is `nombre`. Candidates are
/// looked up by label alone, so the search ends; one that its own label does not find (at the very
/// start of the text, or with "=" in it) ends the run.
std::optional<std::string> LeerBDL::buscarNombreLargo(std::string_view tipo,
                                                      const std::string& nombre) {
  const int numero = contarComandos(tipo);
  rebobinar();
  std::optional<std::string> encontrado;
  // Labels from here to there have the value that the last one had: their commands run to the same
  // "..", and no NAME stands between (a label begins with a quote, so none begins inside a
  // LONG-NAME). Without this, many commands without a ".." of their own would each be read to the
  // far end.
  std::size_t igualesDesde = 1;
  std::size_t igualesHasta = 0;
  for (int i = 0; i < numero && !encontrado; ++i) {
    const std::string candidato = siguienteComando(tipo);
    const std::size_t posicion = buscarEtiqueta(candidato, tipo);
    if (posicion == kNoEncontrado) ReportFailure(ErrorLog, "No se encuentra: " + candidato);
    if (posicion >= igualesDesde && posicion <= igualesHasta) continue;
    const LeerBDL comando(ruta_, textoDeComando(tipo, posicion));
    const std::size_t fin = buscarCierreDeComando(tipo, posicion);
    const std::size_t primerNombre = comando.buscar("NAME", 0);
    igualesDesde = posicion;
    igualesHasta =
        primerNombre == kNoEncontrado ? fin - 1 : std::min(posicion + primerNombre, fin - 1);
    std::string valor;
    // "NAME " with its blank, or it would be found inside LONG-NAME.
    const bool leido =
        comando.leerCadena("LONG-NAME", valor) == 0 || comando.leerCadena("NAME ", valor) == 0;
    if (leido && valor == nombre) encontrado = candidato;
  }
  situarCursor(0);
  return encontrado;
}

/// Text of the command of `tipo` whose label stands at `posicion`, without its "..", and behind it
/// the type's defaults block, if there is one.
std::string LeerBDL::textoDeComando(std::string_view tipo, std::size_t posicion) {
  const std::size_t fin = buscarCierreDeComando(tipo, posicion);
  std::string texto = texto_->substr(posicion, fin - posicion);
  if (const std::size_t defectos = indice(tipo).defectos; defectos != kNoEncontrado) {
    const std::string cabecera = concat(kCabeceraDefectos, tipo);
    const std::size_t finDefectos = buscarCierre(defectos, cabecera);
    if (finDefectos - defectos >= kLargoDefectos) fallar(cabecera, "el bloque es demasiado largo");
    texto.append(*texto_, defectos, finDefectos - defectos);
  }
  return texto;
}

/// Position of the ".." of the command whose label stands at `posicion`; the error without one
/// shows how the command begins.
std::size_t LeerBDL::buscarCierreDeComando(std::string_view tipo, std::size_t posicion) const {
  const std::size_t fin = buscar(kCierre, posicion + 1);
  if (fin != kNoEncontrado) return fin;
  const std::size_t finTipo = buscar(tipo, posicion) + tipo.size();
  return buscarCierre(posicion + 1, texto_->substr(posicion, finTipo - posicion));
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
  ReportFailure(ErrorLog, errorInFile(ruta_, 0, concat(que, ": ", problema)));
}
