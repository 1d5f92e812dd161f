#include "bdl/leer_bdl.h"

#include <algorithm>
#include <utility>

#include "bdl/normalised_text.h"
#include "core/concat.h"
#include "core/configuracion_regional.h"
#include "core/cp1252.h"
#include "core/global2.h"
#include "core/numbers.h"
#include "core/report_error.h"

namespace {

constexpr std::size_t kNoEncontrado = 0;
constexpr std::size_t kMaximoBlancos = 100;  // in front of a text value

/// A search key as people know it: without the blanks and the "=" that narrow its search.
std::string_view palabra(std::string_view clave) {
  clave.remove_prefix(std::min(clave.find_first_not_of(' '), clave.size()));
  return clave.substr(0, clave.find_last_not_of(" =") + 1);  // npos + 1 is 0
}

/// Bytes of the value at the start of `resto`: a quoted text, a list, or a word.
std::size_t largoDeValor(std::string_view resto) {
  std::size_t fin = std::string_view::npos;
  if (resto.starts_with('"')) fin = resto.find('"', 1);
  if (resto.starts_with('(')) fin = resto.find(')');
  if (fin != std::string_view::npos) return fin + 1;
  return std::min(resto.find(' '), resto.size());
}

constexpr std::string_view kBlancos = " \r";

/// Whether `texto` begins with a word that stands in front of an "=", or with a comment: neither is
/// the value that a keyword of an earlier line lacks.
bool esOtroDato(std::string_view texto) {
  if (texto.starts_with('$')) return true;
  const std::size_t largo = largoDeValor(texto);
  const bool palabra = !texto.starts_with('"') && !texto.starts_with('(');
  if (palabra && texto.substr(0, largo).find('=') != std::string_view::npos) return true;
  const std::size_t detras = texto.find_first_not_of(kBlancos, largo);
  return detras != std::string_view::npos && texto[detras] == '=';
}

}  // namespace

LeerBDL::LeerBDL(const SourceText& fuente) : fuente_(&fuente) {
  std::string texto = normalised(fuente.bytes());
  Global2::reemplazarCaracter(texto, '\n', ' ');
  Global2::reemplazarCaracter(texto, '\t', ' ');
  texto_ = std::make_shared<SearchedText>(std::move(texto));
}

std::optional<std::string_view> LeerBDL::obtenerTexto() const {
  if (!texto_) return std::nullopt;
  return texto();
}

std::size_t LeerBDL::buscar(std::string_view patron, std::size_t desde) {
  if (!texto_) return kNoEncontrado;
  const std::size_t posicion = texto_->find(patron, inicio_ + desde);
  return posicion == std::string_view::npos ? kNoEncontrado : posicion - inicio_;
}

/// Position behind the "=" of `clave`; 0 when absent.
std::size_t LeerBDL::buscarValor(std::string_view clave) {
  const std::size_t posicion = buscar(clave, 0);
  if (posicion == kNoEncontrado) return kNoEncontrado;
  const std::size_t igual = buscar("=", posicion + 1);
  return igual == kNoEncontrado ? kNoEncontrado : igual + 1;
}

/// The offset in the file's normalised text.
std::size_t LeerBDL::enFichero(std::size_t posicion) const {
  const std::size_t enTexto = inicio_ + posicion;
  if (enTexto < procedencia_.corte) return procedencia_.inicio + enTexto;
  return procedencia_.defectos + (enTexto - procedencia_.corte);
}

/// The span in the file of `largo` bytes of this text, as far as they stand there in one piece.
Span LeerBDL::tramo(std::size_t posicion, std::size_t largo) const {
  const std::size_t enTexto = inicio_ + posicion;
  if (enTexto < procedencia_.corte) largo = std::min(largo, procedencia_.corte - enTexto);
  const auto enBytes = [&](std::size_t p) {
    return offsetBeforeNormalising(fuente_->bytes(), enFichero(p));
  };
  const std::size_t inicio = enBytes(posicion);
  return {inicio, largo == 0 ? inicio : enBytes(posicion + largo - 1) + 1};
}

std::optional<Span> LeerBDL::lugarDe(std::string_view patron) {
  const std::size_t posicion = buscar(patron, 0);
  if (posicion == kNoEncontrado) return std::nullopt;
  return tramo(posicion, patron.size());
}

/// Whether a line of the file ends between two positions.
bool LeerBDL::acabaLinea(std::size_t desde, std::size_t hasta) const {
  const std::size_t inicio = tramo(desde, 0).begin;
  const std::size_t fin = tramo(hasta, 0).begin;
  return fin < inicio ||  // the defaults of a command may stand before it
         fuente_->bytes().substr(inicio, fin - inicio).find('\n') != std::string_view::npos;
}

/// Position of what `lugarDeValor` shows; 0 when the keyword is absent. A getter reads on in the
/// next lines; a person who has forgotten a value looks for the place where it should stand.
std::size_t LeerBDL::inicioDeValor(std::string_view clave) {
  const std::size_t detras = buscarValor(clave);
  if (detras == kNoEncontrado) return kNoEncontrado;
  const std::size_t igual = detras - 1;
  const std::size_t blancos = clave.find_first_not_of(' ');
  const std::size_t inicio = buscar(clave, 0) + (blancos == std::string_view::npos ? 0 : blancos);
  const std::string_view delante = texto().substr(inicio, igual - inicio);
  const std::size_t finPalabra = std::min(delante.find_first_of(kBlancos), delante.size());
  const bool ajeno = delante.find_first_not_of(kBlancos, finPalabra) != std::string_view::npos;
  if (ajeno && acabaLinea(inicio, igual)) return inicio;

  const std::size_t valor = texto().find_first_not_of(kBlancos, detras);
  if (valor == std::string_view::npos) return igual;
  return esOtroDato(texto().substr(valor)) && acabaLinea(igual, valor) ? igual : valor;
}

std::optional<Span> LeerBDL::lugarDeValor(std::string_view clave) {
  const std::size_t posicion = inicioDeValor(clave);
  if (posicion == kNoEncontrado) return std::nullopt;
  return tramo(posicion, largoDeValor(texto().substr(posicion)));
}

int LeerBDL::leerEntero(std::string_view clave, int& valor) {
  return consultarEntero(clave, valor) == Lectura::kAusente ? -1 : 0;
}

int LeerBDL::leerReal(std::string_view clave, float& valor) {
  return consultarReal(clave, valor) == Lectura::kAusente ? -1 : 0;
}

LeerBDL::Lectura LeerBDL::consultarEntero(std::string_view clave, int& valor) {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return Lectura::kAusente;
  std::string_view resto = texto().substr(posicion);
  return scanInteger(resto, valor) ? Lectura::kLeida : Lectura::kSinNumero;
}

LeerBDL::Lectura LeerBDL::consultarReal(std::string_view clave, float& valor) {
  const std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return Lectura::kAusente;
  const std::optional<float> leido = texto_->real(inicio_ + posicion);
  if (!leido) return Lectura::kSinNumero;
  valor = pasarPorConversionRegional(*leido);
  return Lectura::kLeida;
}

int LeerBDL::leerCadena(std::string_view clave, std::string& valor, std::size_t capacidad) {
  std::size_t posicion = buscarValor(clave);
  if (posicion == kNoEncontrado) return -1;
  std::string_view resto = texto().substr(posicion);
  const std::size_t blancos = std::min(resto.find_first_not_of(' '), resto.size());
  if (blancos >= kMaximoBlancos) {
    fallar(clave, posicion, "hay demasiados blancos delante del valor");
  }
  posicion += blancos;
  resto.remove_prefix(blancos);
  if (resto.empty()) fallar(clave, inicioDeValor(clave), "falta el valor");

  std::size_t largo = std::min(resto.find(' '), resto.size());
  if (resto.front() == '"') {
    const std::size_t cierre = resto.find('"', 1);
    if (cierre == std::string_view::npos) {
      fallar(clave, posicion, "faltan las comillas de cierre del valor");
    }
    largo = cierre + 1;
  }
  if (largo >= capacidad) fallar(clave, posicion, "el valor es demasiado largo");
  valor = resto.substr(0, largo);
  return 0;
}

/// Position of the "(" of `clave`; 0 when the keyword is absent.
std::size_t LeerBDL::buscarLista(std::string_view clave) {
  if (buscarValor(clave) == kNoEncontrado) return kNoEncontrado;
  const std::size_t abre = buscar("(", buscar(clave, 0) + 1);
  if (abre == kNoEncontrado) {
    fallar(clave, inicioDeValor(clave), "falta la lista de valores entre paréntesis"_cp1252);
  }
  return abre;
}

int LeerBDL::leerListaReales(std::string_view clave, std::span<float> valores) {
  const std::size_t abre = buscarLista(clave);
  if (abre == kNoEncontrado) return -1;
  // A ")" right behind the "(" is not seen: the search begins one character later. With no ")" at
  // all no comma counts, and the list has one value.
  const std::size_t cierra = std::max(buscar(")", abre + 2), abre + 1);

  const std::string_view lista = texto().substr(abre + 1, cierra - abre - 1);
  const std::size_t numero = static_cast<std::size_t>(std::ranges::count(lista, ',')) + 1;
  if (numero > valores.size()) fallarPorLargo(clave, abre, valores.size());
  std::size_t inicio = abre + 1;
  for (std::size_t i = 0; i < numero; ++i) {
    std::string_view resto = texto().substr(inicio);
    scanReal(resto, valores[i]);
    inicio = buscar(",", inicio) + 1;
  }
  return static_cast<int>(numero);
}

int LeerBDL::leerListaCadenas(std::string_view clave, std::vector<std::string>& valores,
                              std::size_t maximo, std::size_t capacidad) {
  const std::size_t abre = buscarLista(clave);
  if (abre == kNoEncontrado) return -1;

  valores.clear();
  std::size_t desde = abre;
  while (true) {
    const std::size_t comillas = buscar("\"", desde + 1);
    const std::size_t cierre = comillas == kNoEncontrado ? 0 : buscar("\"", comillas + 1);
    if (cierre == kNoEncontrado) fallar(clave, abre, "faltan comillas en la lista de valores");
    const std::size_t largo = cierre - comillas + 1;
    if (largo >= capacidad) fallar(clave, comillas, "un valor de la lista es demasiado largo");
    if (valores.size() == maximo) fallarPorLargo(clave, comillas, maximo);
    valores.emplace_back(texto().substr(comillas, largo));
    // Two blanks before the ")" and the reading runs on into the following quotes; no ")" at all
    // ends it.
    const std::size_t parentesis = buscar(")", cierre + 1);
    if (parentesis == kNoEncontrado || parentesis - cierre < 3) break;
    desde = cierre;
  }
  return static_cast<int>(valores.size());
}

void LeerBDL::fallarPorLargo(std::string_view clave, std::size_t posicion,
                             std::size_t maximo) const {
  fallar(clave, posicion,
         concat("la lista debe tener como máximo "_cp1252, std::to_string(maximo), " valores"));
}

void LeerBDL::fallar(std::string_view que, std::size_t posicion, std::string_view problema) const {
  const std::size_t largo = largoDeValor(texto().substr(std::min(posicion, texto().size())));
  ReportFailure(ErrorLog, {errorInFile(fuente_->name(), 0, concat(palabra(que), ": ", problema)),
                           fuente_->placeOf(tramo(posicion, largo))});
}
