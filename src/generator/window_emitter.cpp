#include "generator/window_emitter.h"

#include <algorithm>

#include "core/concat.h"
#include "core/cp1252.h"
#include "generator/generator_context.h"
#include "generator/orientation.h"
#include "plan/plan.h"
#include "typology/tipo.h"

namespace {

constexpr auto kBayHeight = static_cast<float>(kStoreyHeight);  // m

/// Drops the command whose header is in the current line, its ".." included.
void dropWindow(GeneratorContext& context) { context.skipUntilKey(EmitterNames::kEnd); }

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

bool WindowEmitter::writeAgain(const OwnPiece& piece) {
  const auto same = std::ranges::find(written_, piece, &Written::piece);
  return same != written_.end() && context_.writeAgain(same->from, same->to);
}

void WindowEmitter::emit(int orientationClass, int surfaceIndex, bool courtyard) {
  if (orientationClass < 0) {
    context_.report(
        std::string(
            "La versión actual del ZELTA no contempla ventanas en cubiertas o suelos"_cp1252),
        context_.currentLineNumber());
    dropWindow(context_);
    return;
  }
  const TypologyRecord& typology = context_.typology();
  const Facade facade = facadeIndex(orientationClass);
  const float glazing =
      courtyard ? typology.porcentajePatio[facade] : typology.porcentajeFachada[facade];
  if (!(glazing > 0)) {
    dropWindow(context_);
    return;
  }

  const long headerNumber = context_.currentLineNumber();
  context_.writeCurrentLine();
  const bool tall = context_.dropKeysUntil(kWindowEnd, EmitterNames::kWindow) >= kBayHeight;
  // From a storey on all are the same to sizeWindow, and below it too.
  // Kept on purpose: a street window as tall as the storey takes the courtyard's data.
  const bool streetSide = !courtyard && !tall;
  const OwnPiece piece{
      .kind = OwnPiece::Kind::kWindow, .facade = facade, .streetSide = streetSide, .tall = tall};
  context_.begin(piece);
  if (writeAgain(piece)) return;

  const OutputLines::Mark begin = context_.mark();
  writePiece(piece, typology, plan_, context_.lines());
  if (baysOf(piece, typology, plan_).count == 0) {
    const std::string_view name =
        context_.plantilla().table().surfaces[static_cast<std::size_t>(surfaceIndex)].name;
    context_.reportAtLine(
        headerNumber,
        concat("la ventana ", trimBlanks(name), " está en la fachada "_cp1252, kFacadeNames[facade],
               streetSide ? "" : " del patio", ", que no tiene huecos en esta tipología"_cp1252));
    return;
  }
  written_.push_back({piece, begin, context_.mark()});
}
