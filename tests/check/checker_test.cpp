#include "check/checker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "core/cp1252.h"
#include "run_and_check.h"

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Sample {
  std::string folder;
  std::string typology;
};

std::vector<Sample> allSamples() {
  std::vector<Sample> samples;
  for (const auto& folder : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    if (!fs::exists(folder.path() / "defectos.inp")) continue;
    for (const auto& file : fs::directory_iterator(folder)) {
      if (file.path().extension() != ".tip") continue;
      samples.push_back({folder.path().filename().string(), file.path().stem().string()});
    }
  }
  std::ranges::sort(samples, {}, [](const Sample& s) { return s.folder + "/" + s.typology; });
  return samples;
}

/// How many random inputs a test tries; more of them in a longer search.
int rounds(int usual) {
  const char* more = std::getenv("TIP2BDL_CHECKS");
  return more == nullptr ? usual : std::max(1, static_cast<int>(usual * std::atof(more) / 100));
}

/// Spoils texts at random: bytes, words, numbers and whole lines.
class Spoiler {
 public:
  explicit Spoiler(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) {
    return limit == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

  /// The typology twice as often as the others together.
  void spoil(Inputs& inputs) {
    const std::array<std::string*, 6> texts = {&inputs.typology, &inputs.typology, &inputs.typology,
                                               &inputs.typology, &inputs.building, &inputs.table};
    for (std::size_t n = 1 + below(3); n > 0; --n) {
      spoil(below(40) == 0 ? inputs.defaults : *texts[below(texts.size())]);
    }
  }

 private:
  void spoil(std::string& text) {
    static constexpr std::array<std::string_view, 34> kPieces = {"..",
                                                                 "=",
                                                                 "\"",
                                                                 "(",
                                                                 ")",
                                                                 ",",
                                                                 ";",
                                                                 "$",
                                                                 "\n",
                                                                 "\r\n",
                                                                 "\t",
                                                                 " ",
                                                                 "nan",
                                                                 "inf",
                                                                 "1e39",
                                                                 "-1",
                                                                 "0",
                                                                 "24",
                                                                 "25",
                                                                 "26",
                                                                 "999999999",
                                                                 "99999999999999",
                                                                 "2,5",
                                                                 "3 m",
                                                                 "TIPO",
                                                                 "ALTURA",
                                                                 "Med",
                                                                 "WINDOW",
                                                                 "POLYGON",
                                                                 "BUILD-PARAMETERS",
                                                                 "\xEF\xBB\xBF",
                                                                 "\xC3\xB1",
                                                                 "VIVIENDA",
                                                                 "BUILDING-SHADE"};
    const std::size_t at = below(text.size() + 1);
    const std::size_t lineBegin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
    const std::size_t lineEnd = std::min(text.find('\n', at), text.size());
    switch (below(9)) {
      case 0:
        text.erase(at, 1 + below(4));
        break;
      case 1:
        text.insert(at, kPieces[below(kPieces.size())]);
        break;
      case 2:
        text.erase(lineBegin, lineEnd + 1 - lineBegin);
        break;
      case 3:
        text.insert(lineBegin, text.substr(lineBegin, lineEnd + 1 - lineBegin));
        break;
      case 4:
        if (at < text.size()) text[at] = static_cast<char>(below(256));
        break;
      case 5:
      case 6:
        changeNumber(text, at);
        break;
      case 7:
        text.insert(at, std::string(below(2) == 0 ? 260 : 3100, 'x'));
        break;
      default:
        if (below(4) == 0) text.erase(at);
    }
  }

  /// The next number of the text becomes another.
  void changeNumber(std::string& text, std::size_t at) {
    static constexpr std::array<std::string_view, 14> kNumbers = {
        "0", "-5", "1", "2", "3", "14", "22", "27", "1000", "5000", "nan", "1e38", "7.5", "x"};
    const std::size_t begin = text.find_first_of("0123456789", at);
    if (begin == std::string::npos) return;
    const std::size_t end = std::min(text.find_first_not_of("0123456789.", begin), text.size());
    text.replace(begin, end - begin, kNumbers[below(kNumbers.size())]);
  }

  std::mt19937 random_;
};

/// Every line that begins with `keyword` gets that value; "" takes it out.
void set(std::string& typology, std::string_view keyword, std::string_view value) {
  const std::size_t begin = typology.find("  " + std::string(keyword) + " = ");
  ASSERT_NE(std::string::npos, begin) << keyword;
  const std::size_t end = typology.find('\n', begin) + 1;
  const std::string line =
      value.empty() ? "" : "  " + std::string(keyword) + " = " + std::string(value) + "\n";
  typology.replace(begin, end - begin, line);
}

std::vector<std::string> errorsOf(const Inputs& inputs) {
  const TemporaryFolder folder;
  inputs.writeInto(folder);
  EXPECT_EQ("", contradiction(folder));
  return messagesOf(findingsOfCheck(folder), Severity::kError);
}

}  // namespace

TEST(FirstError, ThereIsNoneInASample) {
  const std::vector<Sample> samples = allSamples();
  ASSERT_LT(23U, samples.size());
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.folder + "/" + sample.typology);
    const TemporaryFolder folder;
    Inputs::ofSample(sample.folder, sample.typology).writeInto(folder);
    EXPECT_EQ("", contradiction(folder));
  }
}

TEST(FirstError, IsTheMessageOfTheRunOfSpoiltMinimalInputs) {
  const TemporaryFolder folder;
  int ended = 0;
  const int count = rounds(2000);
  for (int round = 0; round < count && !testing::Test::HasFailure(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    Inputs inputs = Inputs::minimal();
    Spoiler(static_cast<unsigned>(round)).spoil(inputs);
    inputs.writeInto(folder);
    EXPECT_EQ("", contradiction(folder)) << inputs.typology << "\n%%\n" << inputs.table;
    ended += faultOfRun(folder).has_value() ? 1 : 0;
  }
  // Otherwise half of what is asked for would not be tried.
  EXPECT_LT(count / 10, ended);
  EXPECT_GT(count * 9 / 10, ended);
}

TEST(FirstError, IsTheMessageOfTheRunOfSpoiltSamples) {
  const TemporaryFolder folder;
  const std::vector<Sample> samples = allSamples();
  const int count = rounds(150);
  for (int round = 0; round < count && !testing::Test::HasFailure(); ++round) {
    Spoiler spoiler(static_cast<unsigned>(1'000'000 + round));
    const Sample& sample = samples[spoiler.below(samples.size())];
    SCOPED_TRACE("round " + std::to_string(round) + " " + sample.folder + "/" + sample.typology);
    Inputs inputs = Inputs::ofSample(sample.folder, sample.typology);
    spoiler.spoil(inputs);
    inputs.writeInto(folder);
    EXPECT_EQ("", contradiction(folder)) << inputs.typology;
  }
}

TEST(FurtherErrors, EveryMissingKeywordIsNamed) {
  Inputs inputs = Inputs::minimal();
  inputs.typology = "\n\"T\" = VIVIENDA\n  TIPO = 1\n..\n";
  const std::string kMissing = "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD ";
  EXPECT_THAT(errorsOf(inputs),
              ElementsAre(kMissing + "NUMERO-PLANTAS", kMissing + "AREA-PLANTA",
                          kMissing + "LONGITUD-FACHADA", kMissing + "PORCENTAJE-FACHADA",
                          kMissing + "MUROS-FACHADA", kMissing + "PARTICION-INTERIOR-VERTICAL",
                          kMissing + "MEDIANERA", kMissing + "SUELOS",
                          kMissing + "PARTICION-INTERIOR-HORIZONTAL", kMissing + "CUBIERTAS",
                          kMissing + "VENTANA-VIDRIO"));
}

TEST(FurtherErrors, EveryBrokenLimitOfThePlanIsNamed) {
  Inputs inputs = Inputs::ofSample("bloque-escalera-patios", "tipo-14");
  inputs.typology =
      "\n\"T\" = VIVIENDA\n"
      "  TIPO = 14\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 400\n  LONGITUD-FACHADA = 5\n"
      "  AREA-PATIO = 3\n  PROFUNDIDAD-PATIO = 1\n  AREA-ESCALERA = 3\n"
      "  PROFUNDIDAD-ESCALERA = 1\n  PORCENTAJE-FACHADA = ( 0, 0, 0, 0 )\n"
      "  MUROS-FACHADA = \"A\"\n  PARTICION-INTERIOR-VERTICAL = \"A\"\n  MEDIANERA = \"A\"\n"
      "  SUELOS = \"A\"\n  PARTICION-INTERIOR-HORIZONTAL = \"A\"\n  CUBIERTAS = \"A\"\n"
      "  VENTANA-VIDRIO = \"A\"\n..\n";
  EXPECT_THAT(
      errorsOf(inputs),
      ElementsAre(
          toCp1252("Longitud de fachada no válida. Debe ser >14 y la profundidad >3"),
          toCp1252("Área de patio no válida. Debe ser >4 y < area de planta - 120"),
          toCp1252("Profundidad de patio no válida. Debe ser >2 al igual que la longitud"),
          toCp1252("Área de escalera no válida. Debe ser >4 y < area de planta - 120"),
          toCp1252("Profundidad de escalera no válida. Debe ser >2 al igual que la longitud")));
}

TEST(FurtherErrors, EveryMalformedLineOfTheTableIsNamed) {
  Inputs inputs = Inputs::minimal();
  inputs.table = "Tabla\nde superficies\n3 1\n" + std::string(200, 'a') +
                 "\n30 10 0.5 3 10 180 90 0 1 0\n\"Ventana\"\n1 1 2 1\n\"Otra\"\n\n" +
                 std::string(201, 'b') + "\n1 1 100 2\n";
  const TemporaryFolder folder;
  inputs.writeInto(folder);
  EXPECT_EQ("", contradiction(folder));
  const std::string file = "Error en el fichero " + (folder / "casa.tbl") + ", línea ";
  const std::string data =
      ": los datos de una superficie deben ser siete números reales y su clase";
  EXPECT_THAT(messagesOf(findingsOfCheck(folder), Severity::kError),
              ElementsAre(toCp1252(file + "4: el nombre es demasiado largo"),
                          toCp1252(file + "7" + data), toCp1252(file + "9" + data),
                          toCp1252(file + "10: el nombre es demasiado largo")));
}

TEST(FurtherErrors, EveryWindowWithoutBaysIsNamed) {
  Inputs inputs = Inputs::minimal();
  // Courtyard windows in a house, which has no courtyard.
  inputs.typology.insert(inputs.typology.find("  MUROS-FACHADA"),
                         "  PORCENTAJE-PATIO = ( 20, 20, 0, 0 )\n");
  inputs.table =
      "Tabla\nde superficies\n3 0\n\"Muro\"\n30 10 0.5 3 10 180 90 0 1 0\n"
      "\"Med1\"\n1 1 2 1 1 180 90 1 1 0\n\"Med2\"\n1 1 2 1 1 90 90 1 1 0\n";
  inputs.building.insert(inputs.building.find("END .."),
                         "\"Med1\" = WINDOW\n..\n\"Med2\" = WINDOW\n..\n");
  EXPECT_THAT(errorsOf(inputs), ElementsAre(testing::HasSubstr("la ventana \"Med1\""),
                                            testing::HasSubstr("la ventana \"Med2\"")));
}

TEST(FurtherErrors, EveryMissingFileIsNamedAndATypologyThatIsThereIsChecked) {
  const TemporaryFolder folder;
  const std::vector<std::string> all = {"No existe el fichero de datos *.bdl",
                                        "No existe el fichero de datos *.tbl",
                                        "No existe el fichero de datos *.tip",
                                        toCp1252("No existe el fichero de librería defectos.inp")};
  EXPECT_EQ(all, messagesOf(findingsOfCheck(folder), Severity::kError));
  EXPECT_EQ("", contradiction(folder));
  folder.write("casa.tip", "\n\"T\" = VIVIENDA\n..\n");
  const Findings findings = findingsOfCheck(folder);
  EXPECT_THAT(messagesOf(findings, Severity::kError), testing::Contains(testing::EndsWith("TIPO")));
  EXPECT_EQ(folder / "casa.bdl", findings.front().place->file);
}

TEST(Checker, ATypologyAloneHasTheErrorsThatNeedNoTemplate) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  EXPECT_THAT(messagesOf(Checker().check(folder / "no.tip"), Severity::kError),
              ElementsAre("No existe el fichero de datos *.tip"));
  set(inputs.typology, "TIPO", "24");
  set(inputs.typology, "NUMERO-PLANTAS", "3");
  folder.write("casa.tip", inputs.typology);
  EXPECT_THAT(messagesOf(Checker().check(folder / "casa.tip"), Severity::kError),
              ElementsAre(": "));
  set(inputs.typology, "TIPO", "2");
  set(inputs.typology, "AREA-PLANTA", "20");
  set(inputs.typology, "NUMERO-PLANTAS", "2");
  folder.write("casa.tip", inputs.typology);
  EXPECT_THAT(messagesOf(Checker().check(folder / "casa.tip"), Severity::kError),
              testing::Contains(toCp1252("Área de planta no válida. Debe ser >30 y <1000")));
}

TEST(Checker, WhatIsWrongWithATemplateIsSaidOnce) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.building.insert(inputs.building.find("END .."), "\"Olvidado\" = ROOF\n..\n");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  const auto ofTemplate = [](const Finding& f) { return f.code == Code::kComandoSinSuperficie; };
  Checker checker(folder / "casa.bdl");
  EXPECT_EQ(1, std::ranges::count_if(checker.check(folder / "casa.tip"), ofTemplate));
  EXPECT_EQ(0, std::ranges::count_if(checker.check(folder / "otra.tip"), ofTemplate));
}

TEST(Checker, WhatIsWrongWithATypologyIsSaidOfEachOne) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  set(inputs.typology, "MEDIANERA", "");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  for (const char* name : {"casa.tip", "otra.tip"}) {
    EXPECT_THAT(
        messagesOf(checker.check(folder / name), Severity::kError),
        ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD MEDIANERA"));
  }
}

TEST(Checker, ATemplateThatNoTypologyCanUseIsToldOnce) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.table = "Tabla\n";
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  EXPECT_EQ(1U, messagesOf(checker.check(folder / "casa.tip"), Severity::kError).size());
  EXPECT_THAT(messagesOf(checker.check(folder / "otra.tip"), Severity::kError), IsEmpty());
}

TEST(Checker, AnErrorInTheTemplateThatEndsEachTypologysRunIsToldOfEachOne) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::minimal();
  inputs.building.replace(inputs.building.find("BUILD-PARAMETERS"), 16, "OTRA-COSA");
  inputs.writeInto(folder);
  folder.write("otra.tip", inputs.typology);
  Checker checker(folder / "casa.bdl");
  for (const char* name : {"casa.tip", "otra.tip"}) {
    EXPECT_THAT(messagesOf(checker.check(folder / name), Severity::kError),
                ElementsAre("Error al generar el edificio. No se ha encontrado la clave: "
                            "BUILD-PARAMETERS"));
  }
}

TEST(Checker, ReadsATemplateOnceForAThousandTypologies) {
  const TemporaryFolder folder;
  Inputs::minimal().writeInto(folder);
  Checker checker(folder / "casa.bdl");
  EXPECT_THAT(messagesOf(checker.check(folder / "casa.tip"), Severity::kError), IsEmpty());
  // Whoever read it again would meet this.
  folder.write("casa.bdl", "nada");
  folder.write("casa.tbl", "nada");
  folder.write("defectos.inp", std::string(1, '\0'));
  for (int i = 1; i < 1000; ++i) {
    const std::string path =
        folder.write("casa-" + std::to_string(i) + ".tip", Inputs::minimal().typology);
    ASSERT_THAT(messagesOf(checker.check(path), Severity::kError), IsEmpty());
  }
}

TEST(FurtherErrors, WhatIsWrongWithTheTemplateIsToldBesideTheTypology) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("casa-una-planta", "tipo-01");
  const auto replace = [](std::string& text, std::string_view from, std::string_view to) {
    text.replace(text.find(from), from.size(), to);
  };
  replace(inputs.building, "= BUILD-PARAMETERS", "= OTRA-COSA");
  replace(inputs.typology, "   SUELOS", "   SUELO");
  replace(inputs.typology, "AREA-PLANTA = 110", "AREA-PLANTA = 20");
  inputs.writeInto(folder);
  EXPECT_THAT(messagesOf(findingsOfCheck(folder), Severity::kError),
              ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD SUELOS",
                          std::string("Área de planta no válida. Debe ser >30 y <1000"_cp1252)));
  replace(inputs.typology, "AREA-PLANTA = 20", "AREA-PLANTA = 110");
  inputs.writeInto(folder);
  EXPECT_THAT(
      messagesOf(findingsOfCheck(folder), Severity::kError),
      ElementsAre("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD SUELOS",
                  "Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS"));
}

TEST(FirstError, OfAPathThatIsTooLongIsTheRuns) {
  const TemporaryFolder folder;
  Inputs::minimal().writeInto(folder);
  const std::string slashes(3000, '/');
  EXPECT_THAT(messagesOf(Checker(folder / ("." + slashes + "casa.bdl")).check(folder / "casa.tip"),
                         Severity::kError),
              ElementsAre(testing::EndsWith("casa.bdl")));
  const std::string typology = folder / ("." + slashes + "casa.tip");
  const auto tooLong = ElementsAre(testing::StartsWith("La ruta es demasiado larga"));
  EXPECT_THAT(messagesOf(Checker().check(typology), Severity::kError), tooLong);
  EXPECT_THAT(messagesOf(Checker(folder / "casa.bdl").check(typology), Severity::kError), tooLong);
}

TEST(Checker, NoLimitOfThePlanFollowsFromANumberThatIsMissing) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("casa-una-planta", "tipo-01");
  inputs.typology.replace(inputs.typology.find("   TIPO"), 7, "   TIPA");
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  EXPECT_THAT(messagesOf(findings, Severity::kError), testing::SizeIs(1));
  for (const Finding& finding : findings) {
    EXPECT_NE(Code::kPlantasDeLaPlantilla, finding.code);
  }
}

TEST(Checker, AMeasureThatIsMissingAndNeededIsSaidToBeWrittenAndNotToBeUsed) {
  const TemporaryFolder folder;
  Inputs inputs = Inputs::ofSample("bloque-patio", "tipo-13");
  const std::string line = "   AREA-PATIO = 30\n";
  ASSERT_NE(std::string::npos, inputs.typology.find(line));
  inputs.typology.erase(inputs.typology.find(line), line.size());
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(Code::kMedidaDePlanta, findings.front().code);
  EXPECT_EQ("nada", findings.front().found);
  EXPECT_EQ("escriba AREA-PATIO", findings.front().suggestion);
  for (const Finding& finding : findings) EXPECT_NE(Code::kValorPorDefecto, finding.code);
}
