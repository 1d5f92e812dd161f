#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "check/formats.h"
#include "core/cp1252.h"
#include "generator/window_emitter.h"
#include "run_and_check.h"

// Bytes of all the inputs, names of typology and template, windows that are foretold.

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  ASSERT_NE(std::string::npos, text.find(from)) << from;
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::vector<std::string> linesOf(const Inputs& inputs, Code code) {
  const TemporaryFolder folder;
  inputs.writeInto(folder);
  std::vector<std::string> lines;
  for (Finding finding : findingsOfCheck(folder)) {
    if (finding.code != code) continue;
    finding.place->file.erase(0, finding.place->file.rfind('/') + 1);
    lines.push_back(asGccLine(finding));
  }
  return lines;
}

Inputs house() { return Inputs::ofSample("casa-una-planta", "tipo-01"); }

}  // namespace

TEST(Bytes, OfEveryInputAreLookedAt) {
  for (std::string Inputs::*const input : {&Inputs::building, &Inputs::table, &Inputs::defaults}) {
    Inputs inputs = house();
    EXPECT_THAT(linesOf(inputs, Code::kUtf8), IsEmpty());
    inputs.*input = cp1252::toUtf8(inputs.*input);
    EXPECT_THAT(linesOf(inputs, Code::kUtf8), testing::SizeIs(1));
    inputs.*input = "\xEF\xBB\xBF" + inputs.*input;
    EXPECT_THAT(linesOf(inputs, Code::kMarcaDeOrden), testing::SizeIs(1));
    inputs.*input += '\a';
    EXPECT_THAT(linesOf(inputs, Code::kCaracterDeControl), testing::SizeIs(1));
  }
}

TEST(Bytes, OfMixedLineEndsAreTold) {
  for (std::string Inputs::*const input : {&Inputs::building, &Inputs::table, &Inputs::defaults}) {
    Inputs inputs = house();
    EXPECT_THAT(linesOf(inputs, Code::kFinesDeLinea), IsEmpty());
    inputs.*input += "\r\n";
    EXPECT_THAT(linesOf(inputs, Code::kFinesDeLinea), testing::SizeIs(1));
  }
}

TEST(Names, InAnotherEncodingAreToldOnce) {
  Inputs inputs = house();
  inputs.building = cp1252::toUtf8(inputs.building);
  EXPECT_THAT(linesOf(inputs, Code::kSuperficieConAcentos), testing::SizeIs(11));
  EXPECT_THAT(linesOf(inputs, Code::kComandoSinSuperficie), IsEmpty());
}

TEST(Names, AreFoundBetweenTabsAndBeforeAComment) {
  for (const std::string_view line :
       {"\"Solera_Aislada\"\t=\tCONSTRUCTION", "\"Solera_Aislada\" = CONSTRUCTION $ de 1979"}) {
    Inputs inputs = house();
    replaceAll(inputs.building, "\"Solera_Aislada\" = CONSTRUCTION", line);
    EXPECT_THAT(linesOf(inputs, Code::kNombreNoDefinido), IsEmpty()) << line;
  }
}

TEST(Names, OfTheTemplateAreProposedWhereTheyAreNear) {
  const TemporaryFolder folder;
  Inputs inputs = house();
  replaceAll(inputs.typology, "\"Vidrio_Doble_4-12-4\"", "\"Vidrio_Doble_4-12-5\"");
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  const auto finding = std::ranges::find(findings, Code::kNombreNoDefinido, &Finding::code);
  ASSERT_NE(findings.end(), finding);
  EXPECT_EQ("\"Vidrio_Doble_4-12-4\"", finding->suggestion);
}

TEST(Names, ThatAreMisreadAreNotMissedAsWell) {
  for (const std::string_view name : {"'Solera_Aislada'", "\" \"", "Solera Aislada"}) {
    Inputs inputs = house();
    replaceAll(inputs.typology, "\"Solera_Aislada\"", name);
    EXPECT_THAT(linesOf(inputs, Code::kNombreNoDefinido), IsEmpty()) << name;
  }
}

TEST(Storeys, AreMissedWhereTheTemplateHasNone) {
  Inputs inputs = house();
  replaceAll(inputs.building, "= FLOOR", "= SPACE");
  EXPECT_THAT(linesOf(inputs, Code::kPlantasDeLaPlantilla),
              ElementsAre(HasSubstr("La plantilla tiene 0 plantas (FLOOR)")));
}

TEST(Windows, OfACourtyardAreCalledSo) {
  Inputs inputs = Inputs::ofSample("bloque-patio", "tipo-13");
  replaceAll(inputs.typology, "( 20, 20, 25, 20 )", "( 20, 20, 125, 20 )");
  EXPECT_THAT(linesOf(inputs, Code::kVentanaLimitada),
              ElementsAre(HasSubstr("La ventana de la fachada norte del patio (125 %)")));
  inputs = Inputs::ofSample("bloque-hilera", "tipo-12");
  EXPECT_THAT(linesOf(inputs, Code::kVentanaMasAlta),
              Contains(HasSubstr("de la fachada sur del extremo de la escalera (100 %)")));
}

TEST(Windows, AreForetoldAsTallAsTheyAreMade) {
  for (const int percentage : {1, 39, 40, 41, 63, 90, 99, 100}) {
    Inputs inputs = house();
    const std::string shares = "( " + std::to_string(percentage) + ", 0, 0, 0 )";
    replaceAll(inputs.typology, "( 22, 12, 10, 12 )", shares);
    replaceAll(inputs.typology, "ALTURA-PLANTA = 2.80", "ALTURA-PLANTA = 1.00");
    const std::vector<std::string> lines = linesOf(inputs, Code::kVentanaMasAlta);
    ASSERT_THAT(lines, ElementsAre(HasSubstr("mide "))) << percentage;
    std::string told = lines.front().substr(lines.front().find("mide ") + 5);
    std::ranges::replace(told, ',', '.');
    EXPECT_NEAR(sizeWindow(static_cast<float>(percentage), 24, 0).height, std::stod(told), 1e-5)
        << percentage;
  }
}

TEST(Windows, ThatTheTemplateDoesNotHaveAreNotForetold) {
  Inputs inputs = house();
  replaceAll(inputs.typology, "( 22, 12, 10, 12 )", "( 120, 12, 10, 12 )");
  EXPECT_THAT(linesOf(inputs, Code::kVentanaLimitada), testing::SizeIs(1));
  // Its window looks west now.
  replaceAll(inputs.table, "180.000 90.000 1 1 0", "270.000 90.000 1 1 0");
  EXPECT_THAT(linesOf(inputs, Code::kVentanaLimitada), IsEmpty());
  EXPECT_THAT(linesOf(inputs, Code::kFachadaSinVentanas), testing::SizeIs(1));
}

TEST(Windows, AreNotForetoldOfWhatIsNoNumber) {
  Inputs inputs = house();
  replaceAll(inputs.typology, "ALTURA-PLANTA = 2.80", "ALTURA-PLANTA = inf");
  EXPECT_THAT(linesOf(inputs, Code::kHuecosDistintos), IsEmpty());
  inputs = house();
  replaceAll(inputs.typology, "( 22, 12, 10, 12 )", "( inf, 12, 10, 12 )");
  EXPECT_THAT(linesOf(inputs, Code::kVentanaLimitada), IsEmpty());
}

TEST(Azimuth, IsProposedAsItShouldStand) {
  const TemporaryFolder folder;
  Inputs inputs = house();
  replaceAll(inputs.table, "180.000 90.000 1 1 0", "-540.000 90.000 1 1 0");
  inputs.writeInto(folder);
  const Findings findings = findingsOfCheck(folder);
  const auto finding = std::ranges::find(findings, Code::kAzimutSinReducir, &Finding::code);
  ASSERT_NE(findings.end(), finding);
  EXPECT_EQ("180.000", finding->suggestion);
}

TEST(Checker, LargeInputsTakeAsLongAsTheyAreLarge) {
  constexpr int kMany = 60000;
  const auto many = [](std::string_view before, std::string_view behind) {
    std::string text;
    for (int i = 0; i < kMany; ++i) {
      text += before;
      text += std::to_string(i);
      text += behind;
    }
    return text;
  };
  const std::string sound = "1 1 1 1 1 180 90 0 0 0\n";
  const std::string count = std::to_string(kMany);
  const struct {
    const char* why;
    std::string building, table, typology;
  } cases[] = {
      {"windows that the table lacks", many("\"V", "\" = WINDOW\n  ..\n"), "", ""},
      {"windows in a roof", many("\"S", "\" = WINDOW\n  ..\n"),
       "a\nb\n" + count + " 0\n" + many("\"S", "\"\n1 1 1 1 1 180 0 1 0 0\n"), ""},
      {"surfaces that the template lacks", "",
       "a\nb\n" + count + " 0\n" + many("\"S", "\"\n" + sound), ""},
      {"malformed lines of the table", "", "a\nb\n" + count + " 0\n" + many("\"S", "\"\n1 x\n"),
       ""},
      {"commands without a close", "", "", many("\"", "\" = VIVIENDA\n")},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const TemporaryFolder folder;
    Inputs inputs = Inputs::minimal();
    inputs.building += c.building;
    if (!c.table.empty()) inputs.table = c.table;
    inputs.typology += c.typology;
    inputs.writeInto(folder);
    // Seconds; what grew with the square would take hours and meet the time limit of every test.
    EXPECT_THAT(findingsOfCheck(folder), Not(IsEmpty()));
  }
}
