#include "generator/generator_context.h"

#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/numbers.h"
#include "core/report_error.h"

namespace {

/// The keywords of VIVIENDA that the output's reals come from. Those of plan and shades are finite
/// once the plan has passed its checks.
constexpr struct {
  std::string_view written;
  std::string_view origin;
} kOrigins[] = {
    {"AZIMUTH", "ORIENTACION"},
    {"FLOOR-HEIGHT", "ALTURA-PLANTA"},
    {"SPACE-HEIGHT", "ALTURA-PLANTA"},
    {"HEIGHT", "ALTURA-PLANTA"},  // a space's; a window is no taller than a storey
    {"AIR-CHANGES/HR", "AIR-CHANGES/HR"},
    {"VALUES", "AIR-CHANGES/HR"},
    // A street window exists by its own percentage, but a tall one takes the courtyard's.
    {"X", "PORCENTAJE-PATIO"},
    {"WIDTH", "PORCENTAJE-PATIO"},
};

/// Where the number stands that the value of `written` comes from.
Place placeOfOrigin(const TypologyRecord& typology, std::string_view written) {
  for (const auto& row : kOrigins) {
    if (row.written == written) return typology.placeOf(row.origin);
  }
  return typology.placeOf({});
}

}  // namespace

GeneratorContext::GeneratorContext(const Template& plantilla, const TypologyRecord& typology,
                                   OutputLines& output, FaultSink faults)
    : template_(plantilla),
      typology_(typology),
      output_(output),
      faults_(std::move(faults)),
      walk_(plantilla),
      lines_(output) {
  // Few templates have more computed than copied.
  output_.expectBytes(plantilla.building().bytes().size());
}

GeneratorContext::GeneratorContext(const Template& plantilla, const TypologyRecord& typology,
                                   OutputLines& output, std::vector<BegunPiece>* pieces)
    : GeneratorContext(plantilla, typology, output) {
  pieces_ = pieces;
}

void GeneratorContext::writeCurrentLine() { walk_.copyLine(output_); }

void GeneratorContext::requireFiniteOutput() const {
  const std::string& keyword = lines_.notFiniteKeyword();
  if (keyword.empty()) return;
  const std::string what =
      concat("el valor de ", keyword, " en la salida no es un número finito: "_cp1252,
             formatReal(lines_.notFiniteValue()));
  faults_({errorInFile(typology_.fuente().name(), 0, what), placeOfOrigin(typology_, keyword)});
}

void GeneratorContext::report(std::string message, long number) const {
  faults_({std::move(message), template_.building().placeOf(template_.spanOfLine(number))});
}

void GeneratorContext::reportAtLine(long number, std::string_view what) const {
  report(errorInFile(template_.building().name(), number, what), number);
}

/// What reading a line comes to: `read`, whether there was one.
bool GeneratorContext::take(bool read, Passed passed) {
  if (passed == Passed::kCopied) walk_.copyPassed(output_);
  if (read && walk_.isTooLong()) {
    reportAtLine(currentLineNumber(), "la línea es demasiado larga"_cp1252);
  }
  return read;
}

/// Copies template lines, schedules rewritten, until `stops` says that it is the line.
template <typename Read, typename Stops>
bool GeneratorContext::copyUntil(const Read& read, const Stops& stops) {
  const bool rewritesSchedules = typology_.airChangesHr > 0;
  while (read()) {
    if (stops()) return true;
    if (rewritesSchedules && walk_.isSchedule()) {
      write({.kind = OwnPiece::Kind::kSchedule});
    } else {
      writeCurrentLine();
    }
  }
  return false;
}

template <typename Stops>
bool GeneratorContext::copyUntil(const Stops& stops) {
  return copyUntil([&] { return readTemplateLine(Passed::kCopied); }, stops);
}

bool GeneratorContext::findNextKey(EmitterNames names, LineMatch& match) {
  return copyUntil([&] { return walk_.find(names, match); });
}

bool GeneratorContext::findNextCommand(LineMatch& match) {
  return copyUntil([&] { return readCommandLine(); }, [&] { return walk_.findCommand(match); });
}

float GeneratorContext::dropKeysUntil(int end, EmitterNames names) {
  float height = 0;
  LineMatch match;
  while (copyUntil([&] { return walk_.find(names, match); }) && match.index != end) {
    if (match.height > 0) height = match.height;
  }
  return height;
}

void GeneratorContext::dropVerticesUntilEnd(int n) {
  LineMatch end;
  const auto isVertex = [&] { return walk_.vertex() > 0 && walk_.vertex() <= n; };
  while (copyUntil([&] { return isVertex() || walk_.find(EmitterNames::kEnd, end); }) &&
         isVertex()) {
  }
}

void GeneratorContext::copyUntilCommand(std::string_view type) {
  while (readTemplateLine(Passed::kCopied)) {
    if (walk_.isOf(type)) return;
    writeCurrentLine();
  }
  // The end for a check too: what comes later could not be found either.
  endRunWith({concat("Error al generar el edificio. No se ha encontrado la clave: ", type),
              template_.building().lastLine()});
}

void GeneratorContext::skipUntilKey(EmitterNames names) {
  LineMatch match;
  while (readTemplateLine(Passed::kDropped)) {
    if (walk_.find(names, match) || walk_.isRule()) return;
  }
}

void GeneratorContext::copyRest() {
  while (readTemplateLine(Passed::kCopied)) writeCurrentLine();
}
