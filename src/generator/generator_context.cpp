#include "generator/generator_context.h"

#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/numbers.h"
#include "core/report_error.h"

GeneratorContext::GeneratorContext(const Template& plantilla, const TypologyRecord& typology,
                                   OutputLines& output, FaultSink faults)
    : template_(plantilla),
      typology_(typology),
      output_(output),
      faults_(std::move(faults)),
      places_(plantilla.building()),
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
  if (!lines_.notFinite()) return;
  const auto& [keyword, value, origin] = *lines_.notFinite();
  const std::string what = concat(
      "el valor de ", keyword, " en la salida no es un número finito: "_cp1252, formatReal(value));
  faults_({errorInFile(typology_.fuente().name(), 0, what), typology_.placeOf(origin)});
}

void GeneratorContext::report(std::string message, long number) {
  faults_({std::move(message), places_.placeOf(number)});
}

void GeneratorContext::reportAtLine(long number, std::string_view what) {
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
  while (copyUntil([&] { return walk_.find(names, match); })) {
    if (match.index == end) break;
    if (match.height > 0) height = match.height;
  }
  return height;
}

void GeneratorContext::dropVerticesUntilEnd(int n) {
  LineMatch end;
  const auto isVertex = [&] { return walk_.vertex() > 0 && walk_.vertex() <= n; };
  while (copyUntil([&] { return isVertex() || walk_.find(EmitterNames::kEnd, end); })) {
    if (!isVertex()) return;
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
