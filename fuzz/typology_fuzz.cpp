// Any typology file gives a record that keeps its promises, or a message.
#include "fuzz_support.h"
#include "typology/tipo.h"
#include "typology/typology_record.h"
#include "typology/vivienda_keywords.h"

namespace {

void check(const TypologyRecord& record, std::string_view bytes) {
  expect(record.textoTipologia() == bytes, "the typology text is not the file");
  expect(record.alturaPlanta > 0 && record.longitudFachada > 0, "a length that was not checked");
  expect(record.numeroPlantas > 0, "no storey");
  const StoreyRule& storeys = tipoRow(record.tipo).storeys;
  expect(record.numeroPlantas >= storeys.least && record.numeroPlantas <= storeys.most,
         "storeys that the number does not have");
  expect(record.cubierta == "PLANA" && record.atico == "NO" && record.sotano == "NO",
         "a roof, an attic or a basement of its own");
  for (const std::string* name :
       {&record.murosFachada, &record.particionInteriorVertical, &record.medianera, &record.suelos,
        &record.particionInteriorHorizontal, &record.cubiertas, &record.ventanaVidrio}) {
    expect(!name->empty() && name->size() < 250, "a name that is missing or too long");
  }
  // One keyword an input: each look-up reads the text anew.
  const auto keywords = viviendaKeywords();
  const Place place = record.placeOf(keywords[bytes.size() % keywords.size()].name);
  expect(place.line > 0, "a keyword without a place");
  expectWithin(place, record.fuente());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  if (!isText(bytes)) return 0;
  const SourceText source("tipologia.tip", bytes);
  const Ending ending =
      endingOf([&] { check(TypologyRecord(SourceText(source.name(), bytes)), bytes); });
  expectOneLine(ending);
  expect(ending.place.has_value() == ending.stopped, "a fault without its place");
  if (ending.place) expectWithin(*ending.place, source);
  return 0;
}
