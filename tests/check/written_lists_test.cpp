#include <gtest/gtest.h>

#include "check/written_fixture.h"

using enum Code;

namespace {
constexpr std::string_view kFacade = "PORCENTAJE-FACHADA";
}

TEST(WrittenLists, EachThatIsReadOtherwiseHasItsFinding) {
  const Planted cases[] = {
      {"semicolons", kFacade, "   PORCENTAJE-FACHADA = ( 25; 15; 20; 12 )", kSeparadorDeLista, 25,
       18, "( 25; 15; 20; 12 )", "( 25, 0, 0, 0 )", "( 25, 15, 20, 12 )"},
      {"semicolons and decimal commas", kFacade, "PORCENTAJE-FACHADA = (25,5;15;20;12)",
       kSeparadorDeLista, 22, 15, "(25,5;15;20;12)", "( 25, 5, 0, 0 )", "( 25.5, 15, 20, 12 )"},
      {"blanks", kFacade, "PORCENTAJE-FACHADA = ( 25 15 20 12 )", kSeparadorDeLista, 22, 15,
       "( 25 15 20 12 )", "( 25, 0, 0, 0 )", "( 25, 15, 20, 12 )"},
      {"one comma forgotten", kFacade, "PORCENTAJE-FACHADA = ( 25, 15 20, 12 )", kSeparadorDeLista,
       22, 17, "( 25, 15 20, 12 )", "( 25, 15, 12, 0 )", "( 25, 15, 20, 12 )"},
      {"a decimal comma, five values", kFacade, "PORCENTAJE-FACHADA = ( 12,5, 20, 8, 8 )",
       kComaDecimal, 24, 4, "12,5", "", "( 12.5, 20, 8, 8 )"},
      {"a decimal comma in the third", kFacade, "PORCENTAJE-FACHADA = ( 12, 20, 8,25, 8 )",
       kComaDecimal, 32, 4, "8,25", "", "( 12, 20, 8.25, 8 )"},
      {"decimal commas everywhere", kFacade, "PORCENTAJE-FACHADA = (12,5,20,0,8,0,8,5)",
       kComaDecimal, 23, 4, "12,5", "", "(12.5, 20.0, 8.0, 8.5)"},
      {"three values", kFacade, "PORCENTAJE-FACHADA = ( 25, 15, 20 )", kListaCorta, 22, 14,
       "( 25, 15, 20 )", "( 25, 15, 20, 0 )", ""},
      {"one value", kFacade, "PORCENTAJE-FACHADA = ( 25 )", kListaCorta, 22, 6, "( 25 )",
       "( 25, 0, 0, 0 )", ""},
      {"not closed: up to the other list's end", kFacade, "PORCENTAJE-FACHADA = ( 25, 15, 20, 12",
       kListaSinCerrar, 22, 16, "( 25, 15, 20, 12", "", "( 25, 15, 20, 12 )"},
      {"not closed, and none behind", "PORCENTAJE-PATIO", "PORCENTAJE-PATIO = ( 25, 15, 20, 12",
       kListaSinCerrar, 20, 16, "( 25, 15, 20, 12", "( 25, 0, 0, 0 )", "( 25, 15, 20, 12 )"},
      {"without parentheses: the other list is read", kFacade,
       "PORCENTAJE-FACHADA = 25, 15, 20, 12", kListaSinParentesis, 22, 14, "25, 15, 20, 12",
       "( 20, 15, 20, 16 )", "( 25, 15, 20, 12 )"},
      {"negative", kFacade, "PORCENTAJE-FACHADA = ( 25, -15, 20, 12 )", kPorcentajeNegativo, 28, 3,
       "-15", "-15", "0"},
      {"above 100", kFacade, "PORCENTAJE-FACHADA = ( 25, 15, 20, 120 )", kPorcentajeMayor100, 36, 3,
       "120", "120", "100"},
      {"a fraction", kFacade, "PORCENTAJE-FACHADA = ( 0.25, 15, 20, 12 )", kPorcentajeFraccion, 24,
       4, "0.25", "0.25", "25"},
      {"a fraction that is no float", kFacade, "PORCENTAJE-FACHADA = ( 0.15, 15, 20, 12 )",
       kPorcentajeFraccion, 24, 4, "0.15", "0.15", "15"},
      {"nan", kFacade, "PORCENTAJE-FACHADA = ( 25, nan, 20, 12 )", kNumeroNoFinito, 28, 3, "nan",
       "nan", ""},
      {"a unit", kFacade, "PORCENTAJE-FACHADA = ( 25, 15%, 20, 12 )", kUnidadEnNumero, 28, 3, "15%",
       "15", "15"},
      {"a unit behind a blank", kFacade, "PORCENTAJE-FACHADA = ( 25, 15 %, 20, 12 )",
       kUnidadEnNumero, 28, 4, "15 %", "15", "15"},
      {"a unit behind the list", kFacade, "PORCENTAJE-FACHADA = ( 25, 15, 20, 12 ) %",
       kUnidadEnNumero, 41, 1, "%", "( 25, 15, 20, 12 )", "( 25, 15, 20, 12 )"},
      {"nan beside a narrow comma", kFacade, "PORCENTAJE-FACHADA = (25,nan,20,12)", kNumeroNoFinito,
       26, 3, "nan", "nan", ""},
      {"an empty list", kFacade, "PORCENTAJE-FACHADA = ( )", kListaCorta, 22, 3, "( )",
       "( 0, 0, 0, 0 )", ""},
      {"a word", kFacade, "PORCENTAJE-FACHADA = ( 25, nada, 20, 12 )", kSinNumero, 28, 4, "nada",
       "0", ""},
      {"nothing between commas", kFacade, "PORCENTAJE-FACHADA = ( 25, , 20, 12 )", kSinNumero, 22,
       16, "( 25, , 20, 12 )", "0", ""},
      {"in the second line", kFacade, "PORCENTAJE-FACHADA = ( 25, 15,\n  20, 120 )",
       kPorcentajeMayor100, 7, 3, "120", "120", "100", 1},
  };
  for (const Planted& planted : cases) expectPlanted(planted);
}

TEST(WrittenLists, WhatBothReadingsTakeAlikeIsLetBe) {
  for (const std::string_view list :
       {"( 25, 15, 20, 12 )", "(25,15,20,12)", "(25.5,15,20,12)", "( 25.5,15, 20 ,12 )",
        "( 25 , 15 , 20 , 12 )", "( 0, 1, 100, 50 )", "(\t25,\t15,\t20,\t12\t)",
        "( 25, 15,\n 20, 12 )", "( 25, 15, 20, 12 );", "(25,15,+20,12)", "(\n25,15,20,12\n)"}) {
    const std::string line = "PORCENTAJE-FACHADA = " + std::string(list);
    EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with(kFacade, line).text()))) << line;
  }
}
