#include <gtest/gtest.h>

#include <algorithm>

#include "check/written_fixture.h"
#include "core/cp1252.h"
#include "typology/vivienda_keywords.h"

using enum Code;

TEST(WrittenUsual, WhatHasNoEffectOrIsSeldomMetHasItsFinding) {
  const Planted cases[] = {
      {"a pitched roof", "CUBIERTA", "   CUBIERTA = INCLINADA", kSinEfecto, 15, 9, "INCLINADA",
       "PLANA", "PLANA"},
      {"an attic", "ATICO", "   ATICO = SI", kSinEfecto, 12, 2, "SI", "NO", "NO"},
      {"a basement in quotes", "SOTANO", "   SOTANO = \"SI\"", kSinEfecto, 13, 4, "\"SI\"", "NO",
       "NO"},
      {"number 0", "TIPO", "   TIPO = 0", kTipoComoCasa, 11, 1, "0", "0", ""},
      {"a negative number", "TIPO", "   TIPO = -3", kTipoComoCasa, 11, 2, "-3", "-3", ""},
      {"no use for a courtyard", "TIPO", "   TIPO = 10", kMedidaSinUso, 17, 2, "40", "", "", 4},
      {"no use for a stair", "TIPO", "   TIPO = 13", kMedidaSinUso, 20, 2, "25", "", "", 5},
      {"a low storey", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.3", kPocoHabitual, 20, 3, "2.3",
       "2.3", ""},
      {"a high storey", "ALTURA-PLANTA", "   ALTURA-PLANTA = 4.2", kPocoHabitual, 20, 3, "4.2",
       "4.2", ""},
      {"many storeys", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 13", kPocoHabitual, 21, 2, "13", "13",
       ""},
      {"little air", "AIR-CHANGES/HR", "   AIR-CHANGES/HR = 0.2", kPocoHabitual, 21, 3, "0.2",
       "0.2", ""},
      {"much air", "AIR-CHANGES/HR", "   AIR-CHANGES/HR = 4", kPocoHabitual, 21, 1, "4", "4", ""},
      {"equal openings", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 20, 20, 20, 20 )",
       kPocoHabitual, 25, 18, "( 20, 20, 20, 20 )", "", ""},
      {"no openings", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 0, 0, 0, 0 )", kPocoHabitual,
       25, 14, "( 0, 0, 0, 0 )", "", ""},
      {"large openings", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 20, 0, 75, 20 )",
       kPocoHabitual, 34, 2, "75", "75", ""},
      {"a short façade", "LONGITUD-FACHADA", "   LONGITUD-FACHADA = 14", kPocoHabitual, 23, 2, "14",
       "14", ""},
      {"a deep block", "LONGITUD-FACHADA", "   LONGITUD-FACHADA = 18", kPocoHabitual, 23, 2, "18",
       "29.33", ""},
      {"a narrow courtyard", "PROFUNDIDAD-PATIO", "   PROFUNDIDAD-PATIO = 2.2", kPocoHabitual, 24,
       3, "2.2", "2.2", ""},
      {"large dwellings", "AREA-PLANTA", "   AREA-PLANTA = 649", kPocoHabitual, 18, 3, "649", "156",
       ""},
      {"a large stair", "AREA-ESCALERA", "   AREA-ESCALERA = 36", kPocoHabitual, 20, 2, "36", "36",
       ""},
  };
  for (const Planted& planted : cases) expectPlanted(planted);
}

namespace {

/// A default that is worth a note where the number uses it.
struct UsedDefault {
  std::string_view keyword, used, suggestion, message;
};

const UsedDefault kUsedDefaults[] = {
    {"ALTURA-PLANTA", "3", "ALTURA-PLANTA = 3",
     "Falta ALTURA-PLANTA: se usará 3 m, el valor por defecto"_cp1252},
    {"PORCENTAJE-PATIO", "( 0, 0, 0, 0 )", "PORCENTAJE-PATIO = ( 0, 0, 0, 0 )",
     "Falta PORCENTAJE-PATIO: se usará ( 0, 0, 0, 0 ), el valor por defecto"_cp1252},
    {"ORIENTACION", "0", "ORIENTACION = 0",
     "Falta ORIENTACION: se usará 0°, el valor por defecto"_cp1252},
    {"AIR-CHANGES/HR", "1", "AIR-CHANGES/HR = 1",
     "Falta AIR-CHANGES/HR: se usará 1 ren/h, el valor por defecto; 0,63 es el valor habitual "
     "en certificados"_cp1252},
};

/// What a house of one storey does without, and nothing is said of it.
constexpr std::string_view kNotMissed[] = {"AREA-PATIO",
                                           "AREA-ESCALERA",
                                           "PROFUNDIDAD-PATIO",
                                           "PROFUNDIDAD-ESCALERA",
                                           "PORCENTAJE-PATIO",
                                           "CUBIERTA",
                                           "ATICO",
                                           "SOTANO",
                                           "VENTANA-MARCO",
                                           "VENTANA-SOMBRA"};

}  // namespace

TEST(WrittenUsual, EveryKeywordThatMayBeLeftOutIsInATableOfTheseTests) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    WrittenFile14().lineOf(keyword.name);  // fails where it has none
    if (keyword.required) continue;
    EXPECT_TRUE(std::ranges::count(kNotMissed, keyword.name) +
                    std::ranges::count(kUsedDefaults, keyword.name, &UsedDefault::keyword) >
                0)
        << keyword.name << " is in no row of kUsedDefaults or kNotMissed";
  }
}

TEST(WrittenUsual, WhatIsLeftOutGivesItsDefaultWhereTheNumberUsesIt) {
  for (const UsedDefault& c : kUsedDefaults) {
    const Findings findings = findingsOf(WrittenFile14().with(c.keyword, "").text());
    SCOPED_TRACE(asLines(findings));
    ASSERT_EQ(1U, findings.size()) << c.keyword;
    EXPECT_EQ(kValorPorDefecto, findings.front().code);
    EXPECT_EQ(3, findings.front().place->line);  // the command's type
    EXPECT_EQ(12, findings.front().place->column);
    EXPECT_EQ(8U, findings.front().place->length);
    EXPECT_EQ(c.used, findings.front().used);
    EXPECT_EQ(c.suggestion, findings.front().suggestion);
    EXPECT_EQ(c.message, findings.front().message);
  }
}

TEST(WrittenUsual, WhatANumberDoesNotUseIsNotMissed) {
  WrittenFile14 file;
  file.with("TIPO", "TIPO = 1").with("NUMERO-PLANTAS", "NUMERO-PLANTAS = 1");
  file.with("AREA-PLANTA", "AREA-PLANTA = 100").with("LONGITUD-FACHADA", "LONGITUD-FACHADA = 10");
  for (const std::string_view keyword : kNotMissed) file.with(keyword, "");
  EXPECT_EQ("", asLines(findingsOf(file.text())));
  // Neither is a 0 in its place anything to speak of.
  file.with("AREA-PATIO", "AREA-PATIO = 0").with("PROFUNDIDAD-PATIO", "PROFUNDIDAD-PATIO = 0.0");
  EXPECT_EQ("", asLines(findingsOf(file.text())));
}

TEST(WrittenUsual, SmallLettersOfWhatIsBuiltAreLetBe) {
  WrittenFile14 file;
  file.with("CUBIERTA", "CUBIERTA = plana").with("ATICO", "ATICO = \"No\"");
  EXPECT_EQ("", asLines(findingsOf(file.text())));
}

TEST(WrittenUsual, WhatEndsTheRunIsNotCalledUnusualAsWell) {
  for (const auto& [keyword, line] :
       {std::pair("NUMERO-PLANTAS", "NUMERO-PLANTAS = -1"), std::pair("NUMERO-PLANTAS", ""),
        std::pair("NUMERO-PLANTAS", "NUMERO-PLANTAS = 99999999999"),
        std::pair("ALTURA-PLANTA", "ALTURA-PLANTA = -2.8")}) {
    for (const Finding& finding : findingsOf(WrittenFile14().with(keyword, line).text())) {
      EXPECT_NE(kPocoHabitual, finding.code) << line;
    }
  }
}

TEST(WrittenUsual, LittleLightForAStoreyIsTold) {
  const Findings findings =
      findingsOf(WrittenFile14()
                     .with("PORCENTAJE-FACHADA", "PORCENTAJE-FACHADA = ( 10, 0, 6, 0 )")
                     .with("PORCENTAJE-PATIO", "PORCENTAJE-PATIO = ( 0, 0, 0, 0 )")
                     .text());
  ASSERT_EQ(1U, findings.size()) << asLines(findings);
  EXPECT_EQ(kPocoHabitual, findings.front().code);
  EXPECT_NE(std::string::npos,
            findings.front().message.find("es poco habitual: lo habitual es de 8 a 25 %"));
}
