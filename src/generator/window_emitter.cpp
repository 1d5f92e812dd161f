#include "generator/window_emitter.h"

#include <iterator>

#include "core/concat.h"
#include "core/cp1252.h"
#include "generator/generator_context.h"
#include "generator/orientation.h"
#include "plan/plan.h"

namespace {

constexpr float kBayHeight = 3.0F;     // m, one storey
constexpr float kWindowHeight = 1.2F;  // m, of a window that the template does not make taller

/// The keywords of a window that the generated one does without or gets anew.
constexpr std::string_view kWindowKeywords[] = {"GLASS-TYPE",
                                                "INF-COEF",
                                                "SETBACK",
                                                "OVERHANG-A",
                                                "OVERHANG-B",
                                                "OVERHANG-W",
                                                "OVERHANG-D",
                                                "OVERHANG-ANGLE",
                                                "LEFT-FIN-A",
                                                "LEFT-FIN-B",
                                                "LEFT-FIN-H",
                                                "LEFT-FIN-D",
                                                "RIGHT-FIN-A",
                                                "RIGHT-FIN-B",
                                                "RIGHT-FIN-H",
                                                "RIGHT-FIN-D",
                                                "FRAME-WIDTH",
                                                "FRAME-CONDUCT",
                                                "FRAME-ABS",
                                                "POSITION-LAMAS",
                                                "LAMAS-WIDTH",
                                                "LAMAS-DISTANCE",
                                                "LAMAS-ANGLE",
                                                "LAMAS-TRANSMISIVITY",
                                                "LAMAS-REFLECTIVITY",
                                                "COEFF",
                                                "..",
                                                "WIDTH",
                                                "HEIGHT",
                                                "X",
                                                "Y"};
constexpr int kEnd = 26;
static_assert(kWindowKeywords[kEnd] == "..");

/// Drops the command whose header is in the current line, its ".." included.
void dropWindow(GeneratorContext& context) {
  static const NameList names({".."});
  context.skipUntilKey(names);
}

/// Reads the command to its end and returns the height that the template gives the window; 0 when
/// it gives none. What is not a window keyword is copied.
float copyForeignLines(GeneratorContext& context) {
  static const NameList names({std::begin(kWindowKeywords), std::end(kWindowKeywords)});
  float templateHeight = 0;
  context.dropKeysUntil(kEnd, names, [&](const LineMatch& line) {
    if (line.height > 0) templateHeight = line.height;
  });
  return templateHeight;
}

/// The bays that a window is one of.
struct Bays {
  float surface;  // m2, all of them
  int count;
  float percentage;
};

std::string_view facadeName(Facade facade) {
  constexpr std::string_view kNames[] = {"sur", "este", "norte", "oeste"};
  return kNames[facade];
}

}  // namespace

WindowSize sizeWindow(float percentage, float bayArea, float templateHeight) {
  const float area = percentage * bayArea * 0.01F;
  const float bayWidth = bayArea / kBayHeight;
  WindowSize size;
  size.height = templateHeight < kBayHeight ? kWindowHeight : templateHeight;
  size.width = area / size.height;
  if (size.height > kBayHeight) {
    size.height = kBayHeight;
    size.width = area / size.height;
  }
  if (size.width > bayWidth) {
    size.width = bayWidth;
    size.height = area / size.width;
  }
  if (size.height > kBayHeight) size.height = kBayHeight;
  size.x = (bayWidth - size.width) * 0.5F;
  if (size.x < 0) size.x = 0;
  size.y = (kBayHeight - size.height) * 0.5F;
  if (size.y < 0) size.y = 0;
  return size;
}

void emitWindow(GeneratorContext& context, const Plan& plan, int orientationClass, int surfaceIndex,
                bool courtyard) {
  if (orientationClass < 0) {
    context.report(
        std::string(
            "La versión actual del ZELTA no contempla ventanas en cubiertas o suelos"_cp1252),
        context.currentSpan());
    dropWindow(context);
    return;
  }
  const TypologyRecord& typology = context.typology();
  const Facade facade = facadeIndex(orientationClass);
  const float glazing =
      courtyard ? typology.porcentajePatio[facade] : typology.porcentajeFachada[facade];
  if (!(glazing > 0)) {
    dropWindow(context);
    return;
  }

  const long headerNumber = context.currentLineNumber();
  const Span header = context.currentSpan();
  context.writeCurrentLine();
  const float templateHeight = copyForeignLines(context);
  context.writeKeyword("GLASS-TYPE", typology.ventanaVidrio);

  // Kept on purpose: a street window as tall as the storey takes the courtyard's data.
  const bool streetSide = !courtyard && templateHeight < kBayHeight;
  const Bays bays = streetSide ? Bays{plan.superficieFachada[facade], plan.numHuecosFachada[facade],
                                      typology.porcentajeFachada[facade]}
                               : Bays{plan.superficiePatio[facade], plan.numHuecosPatio[facade],
                                      typology.porcentajePatio[facade]};
  if (bays.count == 0) {
    const std::string_view name =
        context.plantilla().table().surfaces[static_cast<std::size_t>(surfaceIndex)].name;
    context.reportAtLine(
        headerNumber, header,
        concat("la ventana ", trimBlanks(name), " está en la fachada "_cp1252, facadeName(facade),
               streetSide ? "" : " del patio", ", que no tiene huecos en esta tipología"_cp1252));
    context.writeLine("..");
    return;
  }
  const float bayArea = bays.surface / static_cast<float>(bays.count);
  const WindowSize size = sizeWindow(bays.percentage, bayArea, templateHeight);
  context.writeKeyword("X", size.x);
  context.writeKeyword("Y", size.y);
  context.writeKeyword("WIDTH", size.width);
  context.writeKeyword("HEIGHT", size.height);
  context.writeLine(typology.textoMarco);
  context.writeLine(typology.textoSombra);
  context.writeLine("..");
}
