#include "check/codes.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/cp1252.h"

namespace {

using enum Code;
using enum Severity;

constexpr CodeRow kCodes[] = {
    {kFaltaFichero, "falta-fichero", kError, "Falta un fichero de entrada"},
    {kRutaLarga, "ruta-larga", kError, "Una ruta es demasiado larga"},
    {kNoSeLee, "no-se-lee", kError, "No se ha podido leer un fichero"},
    {kCaracterNulo, "caracter-nulo", kError, "El fichero no es de texto"},
    {kFaltaVivienda, "falta-vivienda", kError, "Falta el comando VIVIENDA"},
    {kFaltaDato, "falta-dato", kError, "Falta un dato obligatorio"},
    {kPlantas, "plantas", kError, "El número de plantas no es el de la tipología"},
    {kNoPositivo, "no-positivo", kError, "Una longitud debe ser mayor que 0"},
    {kTipoDesconocido, "tipo-desconocido", kError, "No existe ese número de tipología"},
    {kMedidaDePlanta, "medida-de-planta", kError,
     "Una medida de la planta está fuera de sus límites"},
    {kSinCierre, "sin-cierre", kError, "Falta el cierre de un comando"},
    {kDemasiadoLargo, "demasiado-largo", kError, "Un texto pasa del largo admitido"},
    {kValorRoto, "valor-roto", kError, "Un valor no se puede leer"},
    {kListaRota, "lista-rota", kError, "Una lista no se puede leer"},
    {kNombreSinComillas, "nombre-sin-comillas", kError,
     "Falta el nombre entre comillas de un comando"},
    {kComandoNoExtraido, "comando-no-extraido", kError, "Un comando no se encuentra por su nombre"},
    {kTabla, "tabla", kError, "La tabla está mal formada"},
    {kLineaLarga, "linea-larga", kError, "Una línea de la plantilla es demasiado larga"},
    {kFaltaComando, "falta-comando", kError, "Falta un comando en la plantilla"},
    {kVentanaEnCubierta, "ventana-en-cubierta", kError,
     "Una ventana está en una cubierta o un suelo"},
    {kVentanaSinHuecos, "ventana-sin-huecos", kError, "Una ventana está en una fachada sin paños"},
    {kNoFinito, "no-finito", kError, "Un número de la salida no es finito"},
    {kOtroError, "otro-error", kError, "Otro error"},

    {kComaDecimal, "coma-decimal", kWarning, "Un número está escrito con coma decimal"},
    {kUnidadEnNumero, "unidad-en-numero", kWarning, "Hay letras detrás de un número"},
    {kNumeroEntreComillas, "numero-entre-comillas", kWarning, "Un número está entre comillas"},
    {kNumeroNoFinito, "numero-no-finito", kWarning, "Un número es infinito o no es un número"},
    {kSinNumero, "sin-numero", kWarning, "Donde debe haber un número hay otra cosa"},
    {kEnteroCortado, "entero-cortado", kWarning, "Un número entero tiene decimales"},
    {kEnteroDesbordado, "entero-desbordado", kWarning, "Un número entero no cabe"},
    {kSeparadorDeLista, "separador-de-lista", kWarning, "Una lista no está separada por comas"},
    {kListaCorta, "lista-corta", kWarning, "Una lista tiene menos de cuatro valores"},
    {kListaSinCerrar, "lista-sin-cerrar", kWarning, "Una lista no se cierra"},
    {kListaSinParentesis, "lista-sin-parentesis", kWarning, "Una lista no está entre paréntesis"},
    {kPorcentajeNegativo, "porcentaje-negativo", kWarning, "Un porcentaje es negativo"},
    {kPorcentajeMayor100, "porcentaje-mayor-100", kWarning, "Un porcentaje es mayor que 100"},
    {kPorcentajeFraccion, "porcentaje-fraccion", kWarning, "Un porcentaje parece una fracción"},

    {kDatoEnComentario, "dato-en-comentario", kWarning, "Un dato se lee de un comentario"},
    {kDatoDentroDeOtro, "dato-dentro-de-otro", kWarning, "Un dato se lee dentro de otra palabra"},
    {kDatoRepetido, "dato-repetido", kWarning, "Un dato está escrito dos veces"},
    {kFaltaIgual, "falta-igual", kWarning, "Falta el = de un dato"},
    {kFaltaBlanco, "falta-blanco", kWarning, "Falta un blanco al lado de un dato"},
    {kValorVacio, "valor-vacio", kWarning, "Un dato no tiene valor"},
    {kCierreFueraDeSitio, "cierre-fuera-de-sitio", kWarning,
     "Un comando no se cierra donde parece"},
    {kPalabraDesconocida, "palabra-desconocida", kWarning, "Una palabra que nadie lee"},
    {kMinusculas, "minusculas", kWarning, "Un dato está escrito en minúsculas"},
    {kAcentoEnPalabra, "acento-en-palabra", kWarning, "Un dato está escrito con acento"},
    {kValorPorDefecto, "valor-por-defecto", kNote, "Se usará un valor por defecto"},

    {kNombreNoDefinido, "nombre-no-definido", kWarning, "Un nombre que no está definido"},
    {kNombreDeOtraCosa, "nombre-de-otra-cosa", kWarning, "Un nombre que es de otra cosa"},
    {kComillasTipograficas, "comillas-tipograficas", kWarning,
     "Unas comillas no son las del teclado"},
    {kComillasSinCerrar, "comillas-sin-cerrar", kWarning, "Faltan las comillas de cierre"},
    {kNombreVacio, "nombre-vacio", kWarning, "Un nombre vacío"},
    {kNombreCortado, "nombre-cortado", kWarning, "Un nombre no se lee entero"},
    {kMarcoDeLaPlantilla, "marco-de-la-plantilla", kWarning,
     "Un marco que solo está en la plantilla"},

    {kUtf8, "codificacion-utf8", kWarning, "Un fichero está en UTF-8"},
    {kMarcaDeOrden, "marca-de-orden", kWarning,
     "Un fichero empieza por una marca de orden de bytes"},
    {kCaracterDeControl, "caracter-de-control", kWarning, "Hay un carácter de control"},
    {kFinesDeLinea, "fines-de-linea", kNote, "Los fines de línea están mezclados"},

    {kPoligonosDeMas, "poligonos-de-mas", kWarning,
     "La plantilla no tiene los contornos de la tipología"},
    {kPlantasDeLaPlantilla, "plantas-de-la-plantilla", kWarning,
     "La plantilla no tiene las plantas de la tipología"},
    {kSuperficieSinComando, "superficie-sin-comando", kWarning,
     "Una superficie de la tabla no está en la plantilla"},
    {kComandoSinSuperficie, "comando-sin-superficie", kWarning,
     "Una superficie de la plantilla no está en la tabla"},
    {kSuperficieConAcentos, "superficie-con-acentos", kWarning,
     "Tabla y plantilla están en codificaciones distintas"},
    {kFachadaSinVentanas, "fachada-sin-ventanas", kWarning,
     "Una fachada con acristalamiento no tiene ventanas"},
    {kSombraDePatio, "sombra-de-patio", kWarning,
     "Una sombra de patio no tiene el nombre esperado"},

    {kMedidaSinUso, "medida-sin-uso", kNote, "Una medida que esta tipología no usa"},
    {kSinEfecto, "sin-efecto", kWarning, "Un dato que no tiene efecto"},
    {kTipoComoCasa, "tipo-como-casa", kWarning, "Un número de tipología que se trata como casa"},

    {kRutasIguales, "rutas-iguales", kWarning, "Dos rutas son la misma"},
    {kMarcaAnterior, "marca-anterior", kWarning, "Ya hay una marca de fin"},
    {kFaltaCarpeta, "falta-carpeta", kWarning, "Una carpeta no existe"},

    {kHuecosDistintos, "huecos-distintos", kNote, "Los huecos no serán los pedidos"},
    {kVentanaLimitada, "ventana-limitada", kNote, "Una ventana está limitada por su paño"},
    {kVentanaSobreElTecho, "ventana-sobre-el-techo", kNote, "Una ventana pasa del techo"},
    {kVentanaMasAlta, "ventana-mas-alta", kNote, "Una ventana es más alta que su planta"},
    {kAzimutSinReducir, "azimut-sin-reducir", kNote, "Un azimut no está entre -360 y 360 grados"},
    {kPocoHabitual, "poco-habitual", kNote, "Un valor es poco habitual"},
};

constexpr bool everyRowStandsAtItsCode() {
  for (std::size_t i = 0; i < std::size(kCodes); ++i) {
    if (kCodes[i].code != static_cast<Code>(i)) return false;
  }
  return true;
}
static_assert(everyRowStandsAtItsCode());

/// A run's message by a piece of its words.
struct RunMessage {
  std::string_view words;
  Code code;
};

// The first that occurs in the message counts.
constexpr RunMessage kRunMessages[] = {
    {"No existe el fichero de ", kFaltaFichero},
    {"La ruta es demasiado larga", kRutaLarga},
    {"Error al abrir fichero de lectura: ", kNoSeLee},
    {"Error al leer fichero: ", kNoSeLee},
    {"contiene un carácter nulo"_cp1252, kCaracterNulo},
    {"debe existir un COMMAND VIVIENDA", kFaltaVivienda},
    {"debe existir un KEYWORD ", kFaltaDato},
    {"el NUMERO-PLANTAS debe ser ", kPlantas},
    {"la ALTURA-PLANTA debe ser mayor que 0", kNoPositivo},
    {"falta el cierre \"..\"", kSinCierre},
    {"el bloque es demasiado largo", kDemasiadoLargo},
    {"la línea es demasiado larga"_cp1252, kLineaLarga},
    {"el nombre es demasiado largo", kTabla},
    {"el nombre de un comando es demasiado largo", kDemasiadoLargo},
    {"un valor de la lista es demasiado largo", kDemasiadoLargo},
    {"el valor es demasiado largo", kDemasiadoLargo},
    {"falta el valor", kValorRoto},
    {"hay demasiados blancos delante del valor", kValorRoto},
    {"faltan las comillas de cierre del valor", kValorRoto},
    {"falta la lista de valores entre paréntesis"_cp1252, kListaRota},
    {"la lista debe tener como máximo "_cp1252, kListaRota},
    {"faltan comillas en la lista de valores", kListaRota},
    {"falta el nombre entre comillas de un comando", kNombreSinComillas},
    {"No se encuentra: ", kComandoNoExtraido},
    {"debe contener el número de superficies"_cp1252, kTabla},
    {"menos líneas de las anunciadas"_cp1252, kTabla},
    {"los datos de una superficie deben ser"_cp1252, kTabla},
    {"No se ha encontrado la clave: ", kFaltaComando},
    {"no contempla ventanas en cubiertas o suelos", kVentanaEnCubierta},
    {"que no tiene huecos en esta tipología"_cp1252, kVentanaSinHuecos},
    {"en la salida no es un número finito"_cp1252, kNoFinito},
    {" no válida"_cp1252, kMedidaDePlanta},
    {" debe ser >", kMedidaDePlanta},
    {" debe ser menor que la ", kMedidaDePlanta},
    {"la longitud de la fachada debe ser mayor", kMedidaDePlanta},
    {"Datos geométricos incoherentes"_cp1252, kMedidaDePlanta},
};

}  // namespace

std::span<const CodeRow> allCodes() { return kCodes; }

const CodeRow& rowOf(Code code) { return kCodes[static_cast<std::size_t>(code)]; }

Code codeOfRunMessage(std::string_view message) {
  // What is left of the message about an unknown number.
  if (message == ": " || message == " " || message.empty()) return kTipoDesconocido;
  for (const RunMessage& row : kRunMessages) {
    if (message.find(row.words) != std::string_view::npos) return row.code;
  }
  return kOtroError;
}
