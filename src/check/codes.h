#pragma once

#include <span>
#include <string_view>

/// What a check can find, one row each. The words are stable: people filter by them, and every one
/// has a paragraph in docs/comprobar.md.

enum class Severity {
  kError,    // the run ends here
  kWarning,  // aviso: the run does something other than what is written
  kNote      // nota: worth knowing
};

enum class Code {
  // Errors of a run.
  kFaltaFichero,
  kRutaLarga,
  kNoSeLee,
  kCaracterNulo,
  kFaltaVivienda,
  kFaltaDato,
  kPlantas,
  kNoPositivo,
  kTipoDesconocido,
  kMedidaDePlanta,
  kSinCierre,
  kDemasiadoLargo,
  kValorRoto,
  kListaRota,
  kNombreSinComillas,
  kComandoNoExtraido,
  kTabla,
  kLineaLarga,
  kFaltaComando,
  kVentanaEnCubierta,
  kVentanaSinHuecos,
  kNoFinito,
  kOtroError,
  // Numbers and lists as they are written.
  kComaDecimal,
  kUnidadEnNumero,
  kNumeroEntreComillas,
  kNumeroNoFinito,
  kSinNumero,
  kEnteroCortado,
  kEnteroDesbordado,
  kSeparadorDeLista,
  kListaCorta,
  kListaSinCerrar,
  kListaSinParentesis,
  kPorcentajeNegativo,
  kPorcentajeMayor100,
  kPorcentajeFraccion,
  // Where a keyword is met.
  kDatoEnComentario,
  kDatoDentroDeOtro,
  kDatoRepetido,
  kFaltaIgual,
  kFaltaBlanco,
  kValorVacio,
  kCierreFueraDeSitio,
  kPalabraDesconocida,
  kMinusculas,
  kAcentoEnPalabra,
  kValorPorDefecto,
  // Names.
  kNombreNoDefinido,
  kNombreDeOtraCosa,
  kComillasTipograficas,
  kComillasSinCerrar,
  kNombreVacio,
  kNombreCortado,
  kMarcoDeLaPlantilla,
  // The bytes of a file.
  kUtf8,
  kMarcaDeOrden,
  kCaracterDeControl,
  kFinesDeLinea,
  // Typology and template together.
  kPoligonosDeMas,
  kPlantasDeLaPlantilla,
  kSuperficieSinComando,
  kComandoSinSuperficie,
  kSuperficieConAcentos,
  kLineasSobrantes,
  kFachadaSinVentanas,
  kSombraDePatio,
  // What is given and not built.
  kMedidaSinUso,
  kSinEfecto,
  kTipoComoCasa,
  // The paths of a run.
  kRutasIguales,
  kMarcaAnterior,
  kFaltaCarpeta,
  // What will come out.
  kHuecosDistintos,
  kVentanaLimitada,
  kVentanaSobreElTecho,
  kVentanaMasAlta,
  kAzimutSinReducir,
  kPocoHabitual,
};

struct CodeRow {
  Code code;
  Severity severity;
  std::string_view word;
  std::string_view title;  // UTF-8: what it is about, for the tools' lists of rules
};

std::span<const CodeRow> allCodes();
const CodeRow& rowOf(Code code);

/// The code of a message that a run ends with.
Code codeOfRunMessage(std::string_view message);
