#include <algorithm>
#include <array>

#include "app/console/works/informe.h"
#include "app/console/works/plano.h"
#include "app/console/works/work.h"

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

constexpr std::array kPlanoOptions = {&kPlanta, &kSalida, &kHelpOption};
constexpr std::array kInformeOptions = {&kFormato, &kSalida, &kHelpOption};

constexpr Work kWorks[] = {
    {"plano", "dibuja la planta de un edificio (SVG)", "TIPOLOGIA.tip",
     "Dibuja la planta de la tipología: viviendas, escalera, patios, paños, cotas, superficies y\n"
     "norte. El SVG va en milímetros y, impreso al 100 %, está a escala.",
     kPlanoOptions, 1, 1, plano},
    {"informe", "informe de un edificio: imágenes, huecos y medidas (HTML, JSON)",
     "PLANTILLA.bdl TIPOLOGIA.tip",
     "Genera el edificio sin escribirlo y cuenta qué es: imágenes, huecos pedidos y obtenidos,\n"
     "medidas, datos con su origen y qué se ha reescrito. Si el edificio no se genera, el informe\n"
     "muestra lo que se ha podido leer y el error, y el código de salida es 3.",
     kInformeOptions, 2, 2, informe},
};

static_assert(std::ranges::none_of(kWorks, [](const Work& work) { return work.brief.empty(); }));

}  // namespace

std::span<const Work> works() { return kWorks; }

const Work* findWork(std::string_view argument) {
  const auto found = std::ranges::find(kWorks, argument, &Work::name);
  return found == std::end(kWorks) ? nullptr : found;
}
