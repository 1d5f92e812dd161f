#include "generator/generation_sequence.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "core/platform.h"
#include "core/run_ended.h"
#include "generator/construction_emitter.h"
#include "generator/generator_context.h"
#include "generator/orientation.h"
#include "generator/typology_geometry.h"
#include "generator/window_emitter.h"
#include "typology/tipo.h"

namespace {

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

/// The neighbours' walls on the two sides of the courtyards. A header that is not wanted is dropped
/// while the lines that follow it are copied, and both are looked for in any case.
void writeCourtyardShades(GeneratorContext& context) {
  const TipoRow& row = tipoRow(context.typology().tipo);
  if (row.shades == CourtyardShades::kNotLookedFor) return;

  context.copyUntilCommand(kShadeType);
  if (contains(context.currentLine(), kFirstShadeName) && row.firstShade()) {
    context.writeCurrentLine();
    context.write({.kind = OwnPiece::Kind::kFirstShade});
  }
  context.copyUntilCommand(kShadeType);
  if (contains(context.currentLine(), kSecondShadeName) && row.secondShade()) {
    context.writeCurrentLine();
    context.write({.kind = OwnPiece::Kind::kSecondShade});
  }
}

void writeBuildingParameters(GeneratorContext& context) {
  context.copyUntilCommand(kParametersType);
  context.writeCurrentLine();
  context.write({.kind = OwnPiece::Kind::kBuildingParameters});
}

void rewriteSurface(GeneratorContext& context, WindowEmitter& windows, int index) {
  if (!context.isSurfaceCommand()) {
    context.writeCurrentLine();
    return;
  }
  const Surface& surface = context.plantilla().table().surfaces[static_cast<std::size_t>(index)];
  const int orientation = classifyOrientation(surface.azimuth, surface.tilt);
  if (surface.kind < 1) {
    emitConstruction(context, orientation, surface.name, surface.kind);
  } else {
    windows.emit(orientation, index, looksIntoCourtyard(surface.name));
  }
}

/// Copies the template to its end with its floors, spaces and listed surfaces rewritten.
void rewriteCommands(GeneratorContext& context, const Plan& plan, TProgressBar& progressBar) {
  const Template& plantilla = context.plantilla();
  const int step = std::max(150 / (plantilla.spaceEntry() + 1), 1);
  WindowEmitter windows(context, plan);
  LineMatch match;
  while (context.findNextCommand(match)) {
    if (match.index == plantilla.floorEntry()) {
      context.rewriteFloor();
    } else if (match.index == plantilla.spaceEntry()) {
      context.rewriteSpace();
    } else {
      rewriteSurface(context, windows, match.index);
    }
    progressBar.SetPosition(progressBar.GetPosition() + step);
    Application->ProcessMessages();
  }
}

void generateWith(GeneratorContext& context, TProgressBar& progressBar) {
  context.write({.kind = OwnPiece::Kind::kHeader});
  writeCourtyardShades(context);
  const Plan plan = geometriaTipologia(context);
  writeBuildingParameters(context);
  rewriteCommands(context, plan, progressBar);
  context.copyRest();
  context.write({.kind = OwnPiece::Kind::kTypology});
  context.requireFiniteOutput();
}

/// A bar that nobody sees.
class NoProgressBar : public TProgressBar {
 public:
  int GetPosition() const override { return 0; }
  void SetPosition(int /*position*/) override {}
};

}  // namespace

void generate(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
              TProgressBar& progressBar) {
  GeneratorContext context(plantilla, typology, output);
  generateWith(context, progressBar);
}

void generate(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
              std::vector<BegunPiece>* pieces) {
  GeneratorContext context(plantilla, typology, output, pieces);
  NoProgressBar noBar;
  generateWith(context, noBar);
}

std::vector<Fault> faultsOfGenerating(const Template& plantilla, const TypologyRecord& typology) {
  std::vector<Fault> faults;
  OutputLines output;
  GeneratorContext context(plantilla, typology, output,
                           [&](const Fault& fault) { faults.push_back(fault); });
  NoProgressBar noBar;
  // What does not go to the sink ends the generation at once.
  const std::optional<Fault> last = faultOf([&] { generateWith(context, noBar); });
  if (last) faults.push_back(*last);
  return faults;
}
