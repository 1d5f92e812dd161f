#include "check/codes.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/cp1252.h"

namespace {

using enum Code;
using enum Severity;

constexpr CodeRow kCodes[] = {
    {kFaltaFichero, kError, "falta-fichero", "Falta un fichero de entrada"},
    {kRutaLarga, kError, "ruta-larga", "Una ruta es demasiado larga"},
    {kNoSeLee, kError, "no-se-lee", "No se ha podido leer un fichero"},
    {kCaracterNulo, kError, "caracter-nulo", "El fichero no es de texto"},
    {kFaltaVivienda, kError, "falta-vivienda", "Falta el comando VIVIENDA"},
    {kFaltaDato, kError, "falta-dato", "Falta un dato obligatorio"},
    {kPlantas, kError, "plantas", "El número de plantas no es el de la tipología"},
    {kNoPositivo, kError, "no-positivo", "Una longitud debe ser mayor que 0"},
    {kTipoDesconocido, kError, "tipo-desconocido", "No existe ese número de tipología"},
    {kMedidaDePlanta, kError, "medida-de-planta",
     "Una medida de la planta está fuera de sus límites"},
    {kSinCierre, kError, "sin-cierre", "Falta el cierre de un comando"},
    {kDemasiadoLargo, kError, "demasiado-largo", "Un texto pasa del largo admitido"},
    {kValorRoto, kError, "valor-roto", "Un valor no se puede leer"},
    {kListaRota, kError, "lista-rota", "Una lista no se puede leer"},
    {kNombreSinComillas, kError, "nombre-sin-comillas",
     "Falta el nombre entre comillas de un comando"},
    {kComandoNoExtraido, kError, "comando-no-extraido", "Un comando no se encuentra por su nombre"},
    {kTabla, kError, "tabla", "La tabla está mal formada"},
    {kLineaLarga, kError, "linea-larga", "Una línea de la plantilla es demasiado larga"},
    {kFaltaComando, kError, "falta-comando", "Falta un comando en la plantilla"},
    {kVentanaEnCubierta, kError, "ventana-en-cubierta",
     "Una ventana está en una cubierta o un suelo"},
    {kVentanaSinHuecos, kError, "ventana-sin-huecos", "Una ventana está en una fachada sin paños"},
    {kNoFinito, kError, "no-finito", "Un número de la salida no es finito"},
    {kOtroError, kError, "otro-error", "Otro error"},

    {kComaDecimal, kWarning, "coma-decimal", "Un número está escrito con coma decimal"},
    {kUnidadEnNumero, kWarning, "unidad-en-numero", "Hay letras detrás de un número"},
    {kNumeroEntreComillas, kWarning, "numero-entre-comillas", "Un número está entre comillas"},
    {kNumeroNoFinito, kWarning, "numero-no-finito", "Un número es infinito o no es un número"},
    {kSinNumero, kWarning, "sin-numero", "Donde debe haber un número hay otra cosa"},
    {kEnteroCortado, kWarning, "entero-cortado", "Un número entero tiene decimales"},
    {kEnteroDesbordado, kWarning, "entero-desbordado", "Un número entero no cabe"},
    {kSeparadorDeLista, kWarning, "separador-de-lista", "Una lista no está separada por comas"},
    {kListaCorta, kWarning, "lista-corta", "Una lista tiene menos de cuatro valores"},
    {kListaSinCerrar, kWarning, "lista-sin-cerrar", "Una lista no se cierra"},
    {kListaSinParentesis, kWarning, "lista-sin-parentesis", "Una lista no está entre paréntesis"},
    {kPorcentajeNegativo, kWarning, "porcentaje-negativo", "Un porcentaje es negativo"},
    {kPorcentajeMayor100, kWarning, "porcentaje-mayor-100", "Un porcentaje es mayor que 100"},
    {kPorcentajeFraccion, kWarning, "porcentaje-fraccion", "Un porcentaje parece una fracción"},

    {kDatoEnComentario, kWarning, "dato-en-comentario", "Un dato se lee de un comentario"},
    {kDatoDentroDeOtro, kWarning, "dato-dentro-de-otro", "Un dato se lee dentro de otra palabra"},
    {kDatoRepetido, kWarning, "dato-repetido", "Un dato está escrito dos veces"},
    {kFaltaIgual, kWarning, "falta-igual", "Falta el = de un dato"},
    {kFaltaBlanco, kWarning, "falta-blanco", "Falta un blanco al lado de un dato"},
    {kValorVacio, kWarning, "valor-vacio", "Un dato no tiene valor"},
    {kCierreFueraDeSitio, kWarning, "cierre-fuera-de-sitio",
     "Un comando no se cierra donde parece"},
    {kPalabraDesconocida, kWarning, "palabra-desconocida", "Una palabra que nadie lee"},
    {kMinusculas, kWarning, "minusculas", "Un dato está escrito en minúsculas"},
    {kAcentoEnPalabra, kWarning, "acento-en-palabra", "Un dato está escrito con acento"},
    {kValorPorDefecto, kNote, "valor-por-defecto", "Se usará un valor por defecto"},

    {kNombreNoDefinido, kWarning, "nombre-no-definido", "Un nombre que no está definido"},
    {kNombreDeOtraCosa, kWarning, "nombre-de-otra-cosa", "Un nombre que es de otra cosa"},
    {kComillasTipograficas, kWarning, "comillas-tipograficas",
     "Unas comillas no son las del teclado"},
    {kComillasSinCerrar, kWarning, "comillas-sin-cerrar", "Faltan las comillas de cierre"},
    {kNombreVacio, kWarning, "nombre-vacio", "Un nombre vacío"},
    {kNombreCortado, kWarning, "nombre-cortado", "Un nombre no se lee entero"},
    {kMarcoDeLaPlantilla, kWarning, "marco-de-la-plantilla",
     "Un marco que solo está en la plantilla"},

    {kUtf8, kWarning, "codificacion-utf8", "Un fichero está en UTF-8"},
    {kMarcaDeOrden, kWarning, "marca-de-orden",
     "Un fichero empieza por una marca de orden de bytes"},
    {kCaracterDeControl, kWarning, "caracter-de-control", "Hay un carácter de control"},
    {kFinesDeLinea, kNote, "fines-de-linea", "Los fines de línea están mezclados"},

    {kPoligonosDeMas, kWarning, "poligonos-de-mas",
     "La plantilla no tiene los contornos de la tipología"},
    {kPlantasDeLaPlantilla, kWarning, "plantas-de-la-plantilla",
     "La plantilla no tiene las plantas de la tipología"},
    {kSuperficieSinComando, kWarning, "superficie-sin-comando",
     "Una superficie de la tabla no está en la plantilla"},
    {kComandoSinSuperficie, kWarning, "comando-sin-superficie",
     "Una superficie de la plantilla no está en la tabla"},
    {kSuperficieConAcentos, kWarning, "superficie-con-acentos",
     "Tabla y plantilla están en codificaciones distintas"},
    {kLineasSobrantes, kWarning, "lineas-sobrantes",
     "La tabla tiene más líneas de las que anuncia"},
    {kFachadaSinVentanas, kWarning, "fachada-sin-ventanas",
     "Una fachada con acristalamiento no tiene ventanas"},
    {kSombraDePatio, kWarning, "sombra-de-patio",
     "Una sombra de patio no tiene el nombre esperado"},

    {kMedidaSinUso, kNote, "medida-sin-uso", "Una medida que esta tipología no usa"},
    {kSinEfecto, kWarning, "sin-efecto", "Un dato que no tiene efecto"},
    {kTipoComoCasa, kWarning, "tipo-como-casa", "Un número de tipología que se trata como casa"},

    {kRutasIguales, kWarning, "rutas-iguales", "Dos rutas son la misma"},
    {kMarcaAnterior, kWarning, "marca-anterior", "Ya hay una marca de fin"},
    {kFaltaCarpeta, kWarning, "falta-carpeta", "Una carpeta no existe"},

    {kHuecosDistintos, kNote, "huecos-distintos", "Los huecos no serán los pedidos"},
    {kVentanaLimitada, kNote, "ventana-limitada", "Una ventana está limitada por su paño"},
    {kVentanaSobreElTecho, kNote, "ventana-sobre-el-techo", "Una ventana pasa del techo"},
    {kVentanaMasAlta, kNote, "ventana-mas-alta", "Una ventana es más alta que su planta"},
    {kAzimutSinReducir, kNote, "azimut-sin-reducir", "Un azimut no está entre -360 y 360 grados"},
    {kPocoHabitual, kNote, "poco-habitual", "Un valor es poco habitual"},
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
    {" de la línea de órdenes es demasiado largo"_cp1252, kRutaLarga},
    {"La línea de órdenes tiene más de "_cp1252, kRutaLarga},
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
    {" no es válida"_cp1252, kMedidaDePlanta},
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
