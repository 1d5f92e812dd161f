// A whole run over any four texts in memory: template, table, typology and defaults library, in
// this order, with a line "%%" between them. Either the output is complete, or there is one
// message; and a second run with the same template ends as the first.
#include <algorithm>
#include <array>

#include "bdl/valores_por_defecto.h"
#include "core/output_lines.h"
#include "core/platform.h"
#include "core/source_text.h"
#include "fuzz_support.h"
#include "generator/generation_sequence.h"
#include "generator/template.h"
#include "run_checks.h"
#include "typology/typology_record.h"

namespace {

enum { kTemplate, kTable, kTypology, kDefaults, kTexts };

/// A fault names a place in one of the texts.
void checkFault(const Ending& ending, const std::vector<SourceText>& sources) {
  expectOneLine(ending);
  expect(ending.place.has_value(), "a fault without its place");
  const auto source = std::ranges::find(sources, ending.place->file, &SourceText::name);
  expect(source != sources.end(), "a place in no text");
  expectWithin(*ending.place, *source);
}

struct Generation {
  Ending ending;
  std::string output;
};

Generation generateFrom(const Template& plantilla, const SourceText& typologyText) {
  Generation generation;
  generation.ending = endingOf([&] {
    const TypologyRecord typology(SourceText(typologyText.name(), typologyText.bytes()));
    OutputLines lines;
    Bar bar;
    generate(plantilla, typology, lines, bar);
    generation.output = lines.text();
  });
  return generation;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array<const char*, kTexts> kNames = {"casa.bdl", "casa.tbl", "casa.tip",
                                                      "defectos.inp"};
  const std::string_view input = textOf(data, size);
  if (!isText(input)) return 0;
  std::vector<SourceText> sources;
  const std::vector<std::string_view> texts = splitInput(input, kTexts);
  for (std::size_t i = 0; i < texts.size(); ++i) sources.emplace_back(kNames[i], texts[i]);

  std::optional<Template> plantilla;
  const Ending reading = endingOf([&] {
    const ValoresPorDefecto defaults(sources[kDefaults]);
    plantilla.emplace(SourceText(kNames[kTemplate], texts[kTemplate]),
                      SourceText(kNames[kTable], texts[kTable]));
  });
  if (reading.stopped) {
    checkFault(reading, sources);
    return 0;
  }
  const Generation first = generateFrom(*plantilla, sources[kTypology]);
  if (first.ending.stopped) {
    checkFault(first.ending, sources);
  } else {
    checkOutput(first.output, texts[kTypology]);
  }
  const Generation again = generateFrom(*plantilla, sources[kTypology]);
  expect(again.ending.stopped == first.ending.stopped &&
             again.ending.message == first.ending.message && again.output == first.output,
         "another end with the same template");
  return 0;
}
