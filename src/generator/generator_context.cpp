#include "generator/generator_context.h"

#include <cmath>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/report_error.h"

namespace {

/// A whole-building ventilation of 4 air changes an hour. Only this very text is recognised; the
/// same values with other blanks between them are somebody's own schedule.
bool isAirChangeSchedule(std::string_view line) {
  return line.find("VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )") != std::string_view::npos;
}

std::string baseNameOf(const std::string& path) {
  const std::string name = path.substr(folderOf(path).size());
  return name.substr(0, name.rfind('.'));
}

}  // namespace

GeneratorContext::GeneratorContext(const std::string& templatePath, const std::string& tablePath,
                                   const std::string& outputPath)
    : template_(templatePath, "lectura"),
      tableFile_(tablePath, "lectura"),
      output_(outputPath, "escritura"),
      table_(readTableFile(tableFile_)),
      templateBaseName_(baseNameOf(templatePath)) {
  output_.expectBytes(template_.bytes().size());  // few templates have more computed than copied
}

// The output holds as many lines as it holds; what comes after is lost, as ever.
void GeneratorContext::writeLine(std::string_view text) { output_.WriteLine(text); }
void GeneratorContext::writeCurrentLine() { output_.CopyLine(template_); }

void GeneratorContext::writeKeyword(std::string_view keyword, std::string_view value) {
  output_.WriteLine("  ", keyword, " = ", value, " ");
}

void GeneratorContext::writeKeyword(std::string_view keyword, int value) {
  writeKeyword(keyword, std::to_string(value));
}

void GeneratorContext::writeKeyword(std::string_view keyword, float value) {
  writeKeyword(keyword, formatFinite(keyword, value));
}

std::string GeneratorContext::formatFinite(std::string_view keyword, float value) {
  if (!std::isfinite(value) && notFiniteKeyword_.empty()) {
    notFiniteKeyword_ = keyword;
    notFiniteValue_ = value;
  }
  return formatReal(value);
}

void GeneratorContext::requireFiniteOutput() const {
  if (notFiniteKeyword_.empty()) return;
  ReportFailure(ErrorLog, errorInFile(typology().ruta, 0,
                                      concat("el valor de ", notFiniteKeyword_,
                                             " en la salida no es un número finito: "_cp1252,
                                             formatReal(notFiniteValue_))));
}

void GeneratorContext::failAtLine(long number, std::string_view what) const {
  ReportFailure(ErrorLog, errorInFile(template_.name(), number, what));
}

bool GeneratorContext::readTemplateLine() {
  if (!template_.ReadLine(currentLine_)) return false;
  if (currentLine_.size() > kLongestLine) {
    failAtLine(currentLineNumber(), "la línea es demasiado larga"_cp1252);
  }
  return true;
}

bool GeneratorContext::findNextKey(const NameList& names, LineMatch& match) {
  const bool rewritesSchedules = typology().airChangesHr > 0;
  while (readTemplateLine()) {
    if (findKey(currentLine_, names, match)) return true;
    if (rewritesSchedules && isAirChangeSchedule(currentLine_)) {
      writeSchedule();
    } else {
      writeCurrentLine();
    }
  }
  return false;
}

void GeneratorContext::writeSchedule() {
  const std::string hourly = formatFinite("VALUES", 4.0F / typology().airChangesHr);
  std::string line = " VALUES = ( ";
  for (int i = 0; i < 8; ++i) line.append(hourly).append(", ");
  writeLine(line.append("1 ) "));
}

void GeneratorContext::copyUntilCommand(std::string_view type) {
  while (readTemplateLine()) {
    if (splitAssignment(currentLine_).value == type) return;
    writeCurrentLine();
  }
  ReportFailure(ErrorLog,
                concat("Error al generar el edificio. No se ha encontrado la clave: ", type));
}

void GeneratorContext::skipUntilKey(const NameList& names) {
  LineMatch match;
  while (readTemplateLine()) {
    if (findKey(currentLine_, names, match)) return;
    if (currentLine_.find("----------") != std::string_view::npos) return;
  }
}

void GeneratorContext::copyRest() {
  while (readTemplateLine()) writeCurrentLine();
}
