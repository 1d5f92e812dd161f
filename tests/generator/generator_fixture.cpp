#include "generator/generator_fixture.h"

#include <gtest/gtest.h>

#include "core/concat.h"
#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "support/temporary_folder.h"

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

GeneratorRun::GeneratorRun(const std::vector<std::string>& templateLines, std::string_view table,
                           std::string_view typology)
    : template_(SourceText("casa.bdl", joined(templateLines)), SourceText("casa.tbl", table)),
      typology_(SourceText("casa.tip", typology)),
      context_(template_, typology_, output_) {}

void GeneratorRun::generate(TProgressBar& bar) { ::generate(template_, typology_, output_, bar); }

std::vector<std::string> GeneratorRun::finish() const { return linesOf(output_.text()); }

std::vector<std::string> GeneratorRun::finishWithoutTypology() const {
  const std::string text = output_.text();
  const std::string end = concat(typology_.textoTipologia(), "\n");
  EXPECT_TRUE(text.ends_with(end)) << "the typology text does not come last";
  return linesOf(std::string_view(text).substr(0, text.size() - std::min(end.size(), text.size())));
}

std::string placeOfFault(const std::function<void()>& body) {
  const std::optional<Fault> fault = faultOf(body);
  if (!fault) return "(no fault)";
  if (!fault->place) return "(no place)";
  const Place& place = *fault->place;
  const std::size_t from = static_cast<std::size_t>(place.column) - 1;
  EXPECT_LE(from + place.length, place.text.size()) << "a span beyond its line";
  return concat(place.file, ":", std::to_string(place.line), ":", std::to_string(place.column),
                " [", std::string_view(place.text).substr(from, place.length), "]");
}
