#include <gtest/gtest.h>

#include "check/written_fixture.h"
#include "core/cp1252.h"

using enum Code;

TEST(WrittenNumbers, EachThatIsReadOtherwiseHasItsFinding) {
  const Planted cases[] = {
      {"decimal comma", "AREA-PLANTA", "   AREA-PLANTA = 488,5", kComaDecimal, 18, 5, "488,5",
       "488", "488.5"},
      {"decimal comma of a default's keyword", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2,80",
       kComaDecimal, 20, 4, "2,80", "2", "2.80"},
      {"a hard blank", "ALTURA-PLANTA",
       "   ALTURA-PLANTA = \xA0"
       "2.80",
       kSinNumero, 20, 5,
       "\xA0"
       "2.80",
       "3", "2.80"},
      {"thousands and decimals", "AREA-PLANTA", "   AREA-PLANTA = 1.488,25", kComaDecimal, 18, 8,
       "1.488,25", "1.488", "1488.25"},
      {"thousands by comma", "AREA-PLANTA", "   AREA-PLANTA = 1,488.25", kComaDecimal, 18, 8,
       "1,488.25", "1", "1488.25"},
      {"an apostrophe", "AREA-PLANTA", "   AREA-PLANTA = 488'5", kComaDecimal, 18, 5, "488'5",
       "488", "488.5"},
      {"a blank before the comma", "AREA-PLANTA", "   AREA-PLANTA = 488 ,5", kComaDecimal, 18, 6,
       "488 ,5", "488", "488.5"},
      {"nothing before the comma", "ORIENTACION", "   ORIENTACION = ,5", kComaDecimal, 18, 2, ",5",
       "0", "0.5"},
      {"a comma and a unit", "AREA-PLANTA", "\tAREA-PLANTA\t=\t488,5m2", kComaDecimal, 16, 7,
       "488,5m2", "488", "488.5"},
      {"a unit", "AREA-PLANTA", "   AREA-PLANTA = 488 m2", kUnidadEnNumero, 18, 6, "488 m2", "488",
       "488"},
      {"a unit without a blank", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.80m", kUnidadEnNumero, 20,
       5, "2.80m", "2.8", "2.8"},
      {"an exponent without digits", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.8e", kUnidadEnNumero,
       20, 4, "2.8e", "2.8", "2.8"},
      {"an exponent with a mere sign", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.8E+", kUnidadEnNumero,
       20, 5, "2.8E+", "2.8", "2.8"},
      {"a unit in front of a comment", "AREA-PLANTA", "   AREA-PLANTA = 488 m2 $ planta",
       kUnidadEnNumero, 18, 6, "488 m2", "488", "488"},
      {"a degree sign", "ORIENTACION", "   ORIENTACION = 45\xB0", kUnidadEnNumero, 18, 3, "45\xB0",
       "45", "45"},
      {"a gap for thousands", "AREA-PLANTA", "   AREA-PLANTA = 1 488", kUnidadEnNumero, 18, 5,
       "1 488", "1", "1488"},
      {"a word behind", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4 plantas", kUnidadEnNumero, 21, 9,
       "4 plantas", "4", "4"},
      {"quotes", "AREA-PATIO", "   AREA-PATIO = \"40\"", kNumeroEntreComillas, 17, 4, "\"40\"", "0",
       "40"},
      {"quotes round what a run cannot do without", "AREA-PLANTA", "   AREA-PLANTA = \"488,5\"",
       kNumeroEntreComillas, 18, 7, "\"488,5\"", "", "488.5"},
      {"typographic quotes", "AREA-PATIO",
       "   AREA-PATIO = \x93"
       "40\x94",
       kNumeroEntreComillas, 17, 4,
       "\x93"
       "40\x94",
       "0", "40"},
      {"nan", "ORIENTACION", "   ORIENTACION = nan", kNumeroNoFinito, 18, 3, "nan", "nan", ""},
      {"infinity", "ORIENTACION", "   ORIENTACION = -INF", kNumeroNoFinito, 18, 4, "-INF", "-inf",
       ""},
      {"too large for a real", "ORIENTACION", "   ORIENTACION = 1e50", kNumeroNoFinito, 18, 4,
       "1e50", "inf", ""},
      {"a real for an integer", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4.7", kEnteroCortado, 21, 3,
       "4.7", "4", "4"},
      {"a real with a comma", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4,5", kEnteroCortado, 21, 3,
       "4,5", "4", "4"},
      {"an exponent", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4e1", kEnteroCortado, 21, 3, "4e1",
       "4", "4"},
      {"beyond 32 bits", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4294967300", kEnteroDesbordado, 21,
       10, "4294967300", "4", ""},
      {"beyond 64 bits", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 99999999999999999999",
       kEnteroDesbordado, 21, 20, "99999999999999999999", "-1", ""},
      {"a word", "ALTURA-PLANTA", "   ALTURA-PLANTA = tres", kSinNumero, 20, 4, "tres", "3", ""},
      {"a lone mark", "ORIENTACION", "   ORIENTACION = -", kSinNumero, 18, 1, "-", "0", ""},
      {"a list", "ORIENTACION", "   ORIENTACION = ( 15 )", kSinNumero, 18, 6, "( 15 )", "0", ""},
  };
  for (const Planted& planted : cases) expectPlanted(planted, {kCaracterDeControl});
}

TEST(WrittenNumbers, WhatBothReadingsTakeAlikeIsLetBe) {
  constexpr std::string_view kKeywords[] = {"AREA-PLANTA", "ORIENTACION"};
  constexpr std::string_view kValues[] = {"488",  "+488", "488.",    "488.0", "4.88e2",
                                          "488 ", "488$", "0488.00", "488\t", "488 $ m2, 12,5"};
  for (const std::string_view keyword : kKeywords) {
    for (const std::string_view value : kValues) {
      const std::string line = std::string(keyword) + " = " + std::string(value);
      EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with(keyword, line).text()))) << line;
    }
  }
  for (const std::string_view value : {"4", "4.0", "4.", "+4", "04"}) {
    const std::string line = "NUMERO-PLANTAS = " + std::string(value);
    EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with("NUMERO-PLANTAS", line).text()))) << line;
  }
}

TEST(WrittenNumbers, MessagesSayWhatWillBeUsed) {
  const struct {
    std::string_view keyword, line, message;
  } cases[] = {
      {"ALTURA-PLANTA", "ALTURA-PLANTA = 2,80",
       "El valor de ALTURA-PLANTA lleva coma decimal: se leerá 2 m"_cp1252},
      {"ALTURA-PLANTA", "ALTURA-PLANTA = \"2.80\"",
       "El valor de ALTURA-PLANTA está entre comillas y no se lee: se usará 3 m"_cp1252},
      {"AREA-PLANTA", "AREA-PLANTA = unos 488",
       "El valor de AREA-PLANTA no es un número y no cuenta: la ejecución se detendrá"_cp1252},
      {"ALTURA-PLANTA", "ALTURA-PLANTA = 2.80 m",
       "Detrás del valor de ALTURA-PLANTA sobra texto: se leerá 2,8 m"_cp1252},
      {"NUMERO-PLANTAS", "NUMERO-PLANTAS = 4.7",
       "NUMERO-PLANTAS es un número entero: se leerá 4"_cp1252},
  };
  for (const auto& c : cases) {
    const Findings findings = warningsOf(WrittenFile14().with(c.keyword, c.line).text());
    ASSERT_EQ(1U, findings.size()) << c.line;
    EXPECT_EQ(c.message, findings.front().message);
  }
}
