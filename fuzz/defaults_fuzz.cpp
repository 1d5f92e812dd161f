// Any defaults library gives its fields, or a message.
#include "bdl/valores_por_defecto.h"
#include "core/source_text.h"
#include "fuzz_support.h"

namespace {

void check(const ValoresPorDefecto& values) {
  expect(values.numNoHabitables != 0, "an empty list was taken");
  const auto names = static_cast<int>(values.NO_HABITABLES.size());
  expect(values.numNoHabitables == (names == 0 ? -1 : names), "names counted wrongly");
  expect(names <= static_cast<int>(ValoresPorDefecto::maxNoHabitables), "too many names");
  for (const std::string& name : values.NO_HABITABLES) {
    expect(name.size() < ValoresPorDefecto::largoNoHabitable, "an overlong name");
  }
  for (const auto& bridge : values.puentes) {
    expect(bridge.nombre.size() >= 2 && bridge.nombre.size() < ValoresPorDefecto::kLargoTexto,
           "a thermal bridge without a proper name");
    expect(bridge.TYPE.size() < ValoresPorDefecto::kLargoTexto, "an overlong type");
    expect(bridge.PARTITION.size() < ValoresPorDefecto::kLargoTexto, "an overlong partition");
  }
  expect(
      values.particionesSobrescritas + values.particionesAnadidas + values.particionesPropias == 1,
      "not exactly one kind of partitions");
  expect(values.hrextDado == 'S' || values.hrextDado == 'N', "HREXT neither given nor not");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  if (!isText(bytes)) return 0;
  const SourceText source("defectos.inp", bytes);
  const Ending ending = endingOf([&] { check(ValoresPorDefecto(source)); });
  expectOneLine(ending);
  expect(ending.place.has_value() == ending.stopped, "a fault without its place");
  if (ending.place) expectWithin(*ending.place, source);
  return 0;
}
