#include "generator/generator_fixture.h"

#include "generator/generation_sequence.h"
#include "support/minimal_building.h"

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

std::string tableOf(const std::vector<std::string>& namesAndData) {
  std::string text = "Tabla\nde superficies\n" + std::to_string(namesAndData.size() / 2) + " 0";
  for (const std::string& line : namesAndData) text += "\n" + line;
  return text;
}

GeneratorRun::GeneratorRun(const std::vector<std::string>& templateLines, std::string_view table) {
  context_.emplace(folder_.write(kTemplateName, joined(templateLines)),
                   folder_.write("casa.tbl", table), folder_ / "salida.bdl");
  prepare(*context_, folder_.write(kTypologyName, MinimalBuilding::kTypology));
}

std::vector<std::string> GeneratorRun::finish() {
  context_.reset();
  return linesOf(folder_.read("salida.bdl"));
}
