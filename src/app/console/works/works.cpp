#include <algorithm>
#include <array>
#include <limits>

#include "app/console/works/comprobar.h"
#include "app/console/works/informe.h"
#include "app/console/works/lote.h"
#include "app/console/works/nueva.h"
#include "app/console/works/plano.h"
#include "app/console/works/work.h"
#include "typology/tipo.h"

constexpr Option kSalida{.name = "--salida",
                         .value = "FICHERO",
                         .brief = "escribe el resultado en FICHERO",
                         .detail = "Sin esta opción, sale por la salida estándar.",
                         .complete = Complete::kFile};
constexpr Option kHelpOption{.name = "--help", .value = "", .brief = "muestra esta ayuda"};

namespace {

constexpr std::array<std::string_view, 1> kPlantas = {"tipo"};
constexpr Option kPlanta{.name = "--planta",
                         .value = "tipo",
                         .brief = "qué planta se dibuja",
                         .detail = "Todas las plantas del modelo son iguales: tipo, la única.",
                         .choices = kPlantas,
                         .complete = Complete::kWord};

constexpr std::array<std::string_view, 2> kFormatos = {"html", "json"};
constexpr Option kFormato{.name = "--formato",
                          .value = "html|json",
                          .brief = "forma del informe",
                          .detail = "Sin esta opción, html: una página sin nada de fuera.",
                          .choices = kFormatos,
                          .complete = Complete::kWord};

constexpr std::array<std::string_view, 4> kFormatosDeFaltas = {"texto", "gcc", "json", "sarif"};
constexpr Option kFormatoDeFaltas{.name = "--formato",
                                  .value = "texto|gcc|json|sarif",
                                  .brief = "forma de las faltas",
                                  .detail = "Sin esta opción, texto en un terminal y gcc si no.",
                                  .choices = kFormatosDeFaltas,
                                  .complete = Complete::kWord};
constexpr Option kEstricto{
    .name = "--estricto", .value = "", .brief = "acaba con el código 1 si hay avisos"};
constexpr Option kSalidaPrevista{.name = "--salida-prevista",
                                 .value = "FICHERO",
                                 .brief = "comprueba también la ruta de la salida",
                                 .complete = Complete::kFile};
constexpr Option kMarca{.name = "--marca",
                        .value = "FICHERO",
                        .brief = "comprueba también la ruta de la marca de fin",
                        .complete = Complete::kFile};

constexpr Option kSalidaLote = {.name = "--salida",
                                .value = "CARPETA",
                                .brief = "escribe los edificios y los resultados en CARPETA",
                                .complete = Complete::kFolder};
constexpr Option kPlantillaDeLote = {.name = "--plantilla",
                                     .value = "PLANTILLA.bdl",
                                     .brief = "plantilla de las filas que no nombran una",
                                     .complete = Complete::kFile};
constexpr Option kTrabajos = {
    .name = "--trabajos", .value = "N", .brief = "trabajos a la vez; si falta, uno por núcleo"};
constexpr Option kFragmento = {
    .name = "--fragmento", .value = "K/N", .brief = "solo las filas K, K+N, K+2N, ..."};
constexpr Option kReanudar = {.name = "--reanudar",
                              .value = "",
                              .brief = "sigue donde quedó: solo lo que falta o ha cambiado"};
constexpr Option kReintentar = {.name = "--reintentar",
                                .value = "",
                                .brief = "como --reanudar, y repite las viviendas rechazadas"};
constexpr Option kMaxErrores = {.name = "--max-errores",
                                .value = "N",
                                .brief = "termina tras N viviendas rechazadas o fallidas"};
constexpr Option kGuardarTip = {.name = "--guardar-tip",
                                .value = "",
                                .brief = "guarda la tipología que se escribe de cada fila"};
constexpr Option kResumen = {
    .name = "--informe",
    .value = "",
    .brief = "escribe también resumen.html, con percentiles e histogramas"};
constexpr Option kUnir = {
    .name = "--unir", .value = "", .brief = "une los resultados de todas las partes"};
constexpr Option kEsquema = {
    .name = "--esquema", .value = "", .brief = "muestra las columnas de una lista"};
constexpr Option kQuiet = {.name = "--quiet", .value = "", .brief = "no muestra el avance"};
constexpr std::array kLoteOptions = {
    &kSalidaLote, &kPlantillaDeLote, &kTrabajos,   &kFragmento, &kReanudar,
    &kReintentar, &kMaxErrores,      &kGuardarTip, &kResumen,   &kUnir,
    &kEsquema,    &kQuiet,           &kHelpOption};

constexpr std::size_t kAnyNumberOfFiles = std::numeric_limits<std::size_t>::max();
constexpr std::array kComprobarOptions = {&kFormatoDeFaltas, &kEstricto, &kSalidaPrevista,
                                          &kMarca,           &kSalida,   &kHelpOption};
constexpr std::array kNuevaOptions = {&kSalida, &kHelpOption};
constexpr std::array kPlanoOptions = {&kPlanta, &kSalida, &kHelpOption};
constexpr std::array kInformeOptions = {&kFormato, &kSalida, &kHelpOption};

static_assert(kLastTipo == 23, "the texts below name the last number");
constexpr Work kWorks[] = {
    {"nueva", "escribe una tipología para empezar, con todos sus datos explicados",
     "13 --salida casa.tip", "TIPO",
     "Escribe un fichero *.tip de la tipología TIPO, de 1 a 23: todos los datos, cada uno con qué\n"
     "es, su unidad, sus valores y qué pasa si falta, y las medidas de un edificio corriente, que\n"
     "se genera tal cual. Los nombres son los de las plantillas de muestra; cámbielos por los de\n"
     "la suya. El fichero está en Windows-1252; en un terminal se ve con los acentos de este.\n"
     "Uno que ya existe no se sobrescribe.\n"
     "\n"
     "Código de salida: 0 si se ha escrito, 2 si la línea de órdenes es incorrecta o el fichero "
     "ya\n"
     "existe, 3 si no se ha podido escribir.",
     kNuevaOptions, 1, 1, nueva, "número"},
    {"comprobar", "busca todas las faltas de una tipología y su plantilla", "casa.bdl casa.tip",
     "[PLANTILLA.bdl] TIPOLOGIA.tip [TIPOLOGIA.tip ...]",
     "Dice todos los errores a la vez, cada uno con su lugar, y avisa de lo que se va a leer de\n"
     "otro modo que como está escrito. No escribe ningún edificio. Con una plantilla se "
     "comprueban\n"
     "también su tabla y su librería; sin ella, solo las tipologías. Las cuatro rutas de una\n"
     "ejecución pueden darse juntas: \"#casa.bdl,casa.tip,salida.bdl,fin.txt\".\n"
     "\n"
     "Código de salida: 0 sin errores, 1 con avisos y --estricto, 3 con errores, 2 si la línea de\n"
     "órdenes es incorrecta.",
     kComprobarOptions, 1, kAnyNumberOfFiles, comprobar},
    {"plano", "dibuja la planta de un edificio (SVG)", "casa.tip --salida plano.svg",
     "TIPOLOGIA.tip",
     "Dibuja la planta de la tipología: viviendas, escalera, patios, paños, cotas, superficies y\n"
     "norte. El SVG va en milímetros y, impreso al 100 %, está a escala.\n"
     "\n"
     "Código de salida: 0 si se ha dibujado, 3 con un error de la tipología o al escribir, 2 si "
     "la\n"
     "línea de órdenes es incorrecta.",
     kPlanoOptions, 1, 1, plano},
    {"informe", "informe de un edificio: imágenes, huecos y medidas (HTML, JSON)",
     "casa.bdl casa.tip --salida informe.html", "PLANTILLA.bdl TIPOLOGIA.tip",
     "Genera el edificio sin escribirlo y cuenta qué es: imágenes, huecos pedidos y obtenidos,\n"
     "medidas, datos con su origen y qué se ha reescrito. Si el edificio no se genera, el informe\n"
     "muestra lo que se ha podido leer y el error.\n"
     "\n"
     "Código de salida: 0 si el edificio se genera, 3 si no o si no se ha podido escribir, 2 si "
     "la\n"
     "línea de órdenes es incorrecta.",
     kInformeOptions, 2, 2, informe},
    {"lote", "genera todas las viviendas de una lista, con todos los núcleos",
     "parque.csv --salida resultados", "LISTA.csv --salida CARPETA",
     "Cada fila de la lista es una vivienda: su ID, su PLANTILLA y su TIPOLOGIA (rutas desde la\n"
     "lista), o los datos de VIVIENDA en columnas. Los edificios quedan en carpetas de 1000, y\n"
     "CARPETA/resultados.csv dice qué ha sido de cada fila, con sus medidas. Una vivienda\n"
     "rechazada no detiene a las demás.\n"
     "\n"
     "Código de salida: 0 todas correctas, 1 alguna rechazada o fallida, 2 si la línea de órdenes\n"
     "es incorrecta, 3 si no se ha podido trabajar en la lista, 130 tras Ctrl-C, 143 tras la "
     "señal\n"
     "de terminar.",
     kLoteOptions, 0, 1, lote},
};

static_assert(std::ranges::none_of(kWorks, [](const Work& work) { return work.brief.empty(); }));

}  // namespace

std::span<const Work> works() { return kWorks; }

const Work* findWork(std::string_view argument) {
  const auto found = std::ranges::find(kWorks, argument, &Work::name);
  return found == std::end(kWorks) ? nullptr : found;
}
