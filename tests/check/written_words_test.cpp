#include <gtest/gtest.h>

#include "check/written_fixture.h"
#include "check/written_words.h"
#include "core/cp1252.h"

using enum Code;

TEST(WrittenWords, EachThatIsMetOtherwiseHasItsFinding) {
  const Planted cases[] = {
      {"in a comment", "ALTURA-PLANTA", "   $ ALTURA-PLANTA = 2.40", kDatoEnComentario, 6, 13,
       "ALTURA-PLANTA = 2.40", "2.4", "quite ALTURA-PLANTA del comentario"},
      {"a colon for its equals", "ALTURA-PLANTA", "   ALTURA-PLANTA: 2.80", kFaltaIgual, 4, 13,
       "ALTURA-PLANTA: 2.80", "488", "ALTURA-PLANTA = 2.80"},
      {"two equals", "ALTURA-PLANTA", "   ALTURA-PLANTA == 2.80", kValorVacio, 4, 15,
       "ALTURA-PLANTA =", "3", ""},
      {"in a comment before its line", "ALTURA-PLANTA",
       "   $ antes ALTURA-PLANTA = 2.40\n   ALTURA-PLANTA = 2.80", kDatoEnComentario, 12, 13,
       "ALTURA-PLANTA = 2.40", "2.4", "quite ALTURA-PLANTA del comentario"},
      {"in a comment behind a value", "ALTURA-PLANTA",
       "   TIPO = 14 $ ORIENTACION: 15\n   ALTURA-PLANTA = 3", kDatoEnComentario, 16, 11,
       "ORIENTACION: 15", "3", "quite ORIENTACION del comentario"},
      {"a list's parenthesis in a comment", "PORCENTAJE-FACHADA",
       "$ PORCENTAJE-FACHADA (sur, este)\nPORCENTAJE-FACHADA = ( 25, 15, 20, 12 )",
       kDatoEnComentario, 3, 18, "PORCENTAJE-FACHADA (sur, este)", "( 0, 0, 0, 0 )",
       "quite PORCENTAJE-FACHADA del comentario"},
      {"in a longer word", "NUMERO-PLANTAS", "   AREA-PLANTA-UTIL = 90\n   NUMERO-PLANTAS = 4",
       kDatoDentroDeOtro, 4, 11, "AREA-PLANTA-UTIL", "90",
       "escriba antes la l\xEDnea de AREA-PLANTA"},
      {"at the end of a word", "TIPO", "   SUBTIPO = 3\n   TIPO = 14", kDatoDentroDeOtro, 7, 4,
       "SUBTIPO", "3", "escriba antes la l\xEDnea de TIPO"},
      {"in a name", "TIPO", "   SUELOS = \"Solera ORIENTACION 2\"\n   TIPO = 14", kDatoDentroDeOtro,
       21, 11, "\"Solera ORIENTACION 2\"", "14", "escriba antes la l\xEDnea de ORIENTACION"},
      {"in a name, between blanks", "MEDIANERA",
       "   CUBIERTAS = \"Muro MEDIANERA 2\"\n   SUELOS = \"S\"\n   MEDIANERA = \"M\"",
       kDatoDentroDeOtro, 22, 9, "\"Muro MEDIANERA 2\"", "\"S\"",
       "escriba antes la l\xEDnea de MEDIANERA"},
      {"twice", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.80\n   ALTURA-PLANTA = 3", kDatoRepetido, 4,
       13, "ALTURA-PLANTA = 3", "2.8", "deje una sola l\xEDnea de ALTURA-PLANTA", 1},
      {"twice the same", "SUELOS", "   SUELOS = \"A\"\n   SUELOS = \"A\"", kDatoRepetido, 4, 6,
       "SUELOS = \"A\"", "\"A\"", "deje una sola l\xEDnea de SUELOS", 1},
      {"three times: one finding", "TIPO", "   TIPO = 14\n TIPO = 15\n TIPO = 16", kDatoRepetido, 2,
       4, "TIPO = 15", "14", "deje una sola l\xEDnea de TIPO", 1},
      {"without =", "ALTURA-PLANTA", "   ALTURA-PLANTA 2.80", kFaltaIgual, 4, 13,
       "ALTURA-PLANTA 2.80", "488", "ALTURA-PLANTA = 2.80"},
      {"a colon", "ALTURA-PLANTA", "   ALTURA-PLANTA : 2.80", kFaltaIgual, 4, 13,
       "ALTURA-PLANTA : 2.80", "488", "ALTURA-PLANTA = 2.80"},
      {"without = at the end", "AIR-CHANGES/HR", "   AIR-CHANGES/HR 0.63", kFaltaIgual, 4, 14,
       "AIR-CHANGES/HR 0.63", "1", "AIR-CHANGES/HR = 0.63"},
      {"an empty value", "ALTURA-PLANTA", "   ALTURA-PLANTA =", kValorVacio, 4, 15,
       "ALTURA-PLANTA =", "3", ""},
      {"an empty value, a comment behind", "ORIENTACION", "   ORIENTACION = $ sin medir",
       kValorVacio, 4, 13, "ORIENTACION =", "0", ""},
      {"an empty name: the next word is read", "SUELOS", "   SUELOS =", kValorVacio, 4, 8,
       "SUELOS =", "PARTICION-INTERIOR-HORIZONTAL", ""},
      {"no blank before =", "SUELOS", "   SUELOS= \"Solera\"", kFaltaBlanco, 4, 6, "SUELOS", "",
       "SUELOS = \"Solera\""},
      {"a misspelt word", "ALTURA-PLANTA", "   ALTURA-PLATNA = 2.80", kPalabraDesconocida, 4, 13,
       "ALTURA-PLATNA", "", "ALTURA-PLANTA"},
      {"an underscore", "AREA-PATIO", "   AREA_PATIO = 40", kPalabraDesconocida, 4, 10,
       "AREA_PATIO", "", "AREA-PATIO"},
      {"nothing like it", "ORIENTACION", "   COLOR = 40", kPalabraDesconocida, 4, 5, "COLOR", "",
       ""},
      {"one letter", "ORIENTACION", "   X = 40", kPalabraDesconocida, 4, 1, "X", "", ""},
      {"a word alone", "ORIENTACION", "   provisional", kPalabraDesconocida, 4, 11, "provisional",
       "", ""},
      {"small letters", "ORIENTACION", "   orientacion = 40", kMinusculas, 4, 11, "orientacion", "",
       "ORIENTACION"},
      {"mixed letters", "ALTURA-PLANTA", "   Altura-Planta = 3", kMinusculas, 4, 13,
       "Altura-Planta", "", "ALTURA-PLANTA"},
      {"an accent", "ORIENTACION", "   ORIENTACI\xD3N = 40", kAcentoEnPalabra, 4, 11,
       "ORIENTACI\xD3N", "", "ORIENTACION"},
      {"an accent and small letters", "ORIENTACION", "   Orientaci\xF3n = 40", kAcentoEnPalabra, 4,
       11, "Orientaci\xF3n", "", "ORIENTACION"},
  };
  for (const Planted& planted : cases) {
    // A keyword that is taken from elsewhere leaves its old line the second one.
    expectPlanted(planted, {kDatoRepetido});
  }
  expectPlanted({"an accent in UTF-8", "ORIENTACION", "   ORIENTACI\xC3\x93N = 40",
                 kAcentoEnPalabra, 4, 12, "ORIENTACI\xC3\x93N", "", "ORIENTACION"},
                {kUtf8});
}

TEST(WrittenWords, AKeywordInACommentIsLetBeWhereItChangesNothing) {
  for (const std::string_view comment : {"$ TIPO de la casa", "$ TIPO:", "$ bloque de VIVIENDA"}) {
    EXPECT_EQ("", asLines(warningsOf(WrittenFile14().before("TIPO", comment).text()))) << comment;
  }
  // Behind its line no keyword is met first.
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().before("..", "$ TIPO = 3, antes").text())));
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().before("VIVIENDA", "$ TIPO = 3").text())));
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().before("VIVIENDA", "$ VIVIENDA").text())));
}

TEST(WrittenWords, SeveralKeywordsOfALineAreReadLikeSeveralLines) {
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14()
                                       .with("TIPO", "TIPO = 14 AREA-PATIO = 40")
                                       .with("AREA-PATIO", "")
                                       .text())));
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with("TIPO", "TIPO\n=\n14").text())));
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with("TIPO", "TIPO=14").text())));
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with("TIPO", "TIPO := 14").text())));
}

TEST(WrittenWords, ASentenceHasItsNumbersAsPeopleWriteThem) {
  const Findings findings =
      warningsOf(WrittenFile14().with("ALTURA-PLANTA", "$ ALTURA-PLANTA = 2.40").text());
  ASSERT_EQ(1U, findings.size());
  EXPECT_EQ("ALTURA-PLANTA se lee de un comentario: se leerá 2,4 m"_cp1252,
            findings.front().message);
}

TEST(WrittenWords, AQuestionIsAskedOfANearWord) {
  const Findings findings =
      warningsOf(WrittenFile14().with("ORIENTACION", "ORIENTACON = 5").text());
  ASSERT_EQ(1U, findings.size());
  EXPECT_EQ("Esta palabra no es un dato de VIVIENDA y no se lee: ¿quería decir ORIENTACION?"_cp1252,
            findings.front().message);
}

TEST(WrittenCommands, EachThatEndsOrBeginsElsewhereHasItsFinding) {
  const Planted cases[] = {
      {"two dots in a comment", "MEDIANERA", "   MEDIANERA = \"M\" $ 12..14", kCierreFueraDeSitio,
       24, 2, "..", "", "escriba aqu\xED un solo punto"},
      {"two dots in a name", "CUBIERTAS", "   CUBIERTAS = \"Cubierta 1..2\"", kCierreFueraDeSitio,
       27, 2, "..", "", "escriba aqu\xED un solo punto"},
      {"two dots in a number", "AREA-PLANTA", "AREA-PLANTA = 48..8", kCierreFueraDeSitio, 17, 2,
       "..", "", "escriba aqu\xED un solo punto"},
      {"a comma in a frame", "FRAME-WIDTH", "   FRAME-WIDTH = 0,12", kComaDecimal, 18, 4, "0,12",
       "0,12", "0.12"},
      {"a comma in a shade", "OVERHANG-D", "   OVERHANG-D = -0,60 m", kComaDecimal, 17, 5, "-0,60",
       "-0,60", "-0.60"},
      {"the type in small letters", "NAME-FRAME", "\"Marco de PVC\" = name-frame", kMinusculas, 18,
       10, "name-frame", "", "NAME-FRAME"},
      {"a misspelt type", "NAME-FRAME", "\"Marco de PVC\" = NAME-FRAM", kPalabraDesconocida, 18, 9,
       "NAME-FRAM", "", "NAME-FRAME"},
      {"typographic quotes", "NAME-FRAME", "\x93Marco de PVC\x94 = NAME-FRAME",
       kComillasTipograficas, 1, 14, "\x93Marco de PVC\x94", "", ""},
      {"the solar position in a comment", "$", "$ sin SOLAR-POSITION", kDatoEnComentario, 7, 14,
       "$ sin SOLAR-POSITION", "", "quite SOLAR-POSITION del comentario"},
  };
  for (const Planted& planted : cases) {
    expectPlanted(planted, {kNombreNoDefinido, kNombreDeOtraCosa, kNombreCortado, kUnidadEnNumero});
  }
}

TEST(WrittenCommands, OneThatIsThereTwiceIsTold) {
  const struct {
    std::string_view second, message;
  } cases[] = {
      {"\"b\" = VIVIENDA\n..\n",
       "El comando VIVIENDA está escrito dos veces: vale el primero"_cp1252},
      {"\"b\" = SOLAR-POSITION\n..\n\"c\" = SOLAR-POSITION\n..\n\"d\" = SOLAR-POSITION\n..\n",
       "El comando SOLAR-POSITION está escrito dos veces: vale el primero"_cp1252},
      {"\"Marco de PVC\" = NAME-FRAME\n..\n",
       "El comando NAME-FRAME \"Marco de PVC\" está escrito dos veces: vale el primero"_cp1252},
  };
  for (const auto& c : cases) {
    const Findings findings = warningsOf(WrittenFile14().behind(c.second).text());
    ASSERT_EQ(1U, findings.size()) << c.second;
    EXPECT_EQ(kDatoRepetido, findings.front().code);
    EXPECT_EQ(c.message, findings.front().message);
  }
  EXPECT_EQ("", asLines(warningsOf(WrittenFile14().behind("\"b\" = NAME-FRAME\n..\n").text())));
}

TEST(WrittenCommands, AForgottenClosingIsToldAtTheType) {
  const std::string text =
      "\n\"a\" = VIVIENDA\nTIPO = 1\n\"M\" = NAME-FRAME\nFRAME-ABS = 0.1\n..\n";
  const Findings findings = warningsOf(text);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(kCierreFueraDeSitio, findings.front().code);
  EXPECT_EQ(2, findings.front().place->line);
  EXPECT_EQ(7, findings.front().place->column);
}

TEST(WrittenCommands, AnotherVIVIENDAThanTheOneMeantIsTold) {
  const std::string text =
      "$ VIVIENDA de dos plantas\n\"M\" = NAME-FRAME\n..\n\"a\" = VIVIENDA\n..\n";
  const Findings findings = warningsOf(text);
  ASSERT_EQ(1U, findings.size()) << asLines(findings);
  EXPECT_EQ(kDatoEnComentario, findings.front().code);
  EXPECT_EQ(1, findings.front().place->line);
  EXPECT_EQ(3, findings.front().place->column);
  EXPECT_EQ(8U, findings.front().place->length);
}

TEST(FoldWord, CapitalsWithoutAccentsInBothEncodings) {
  EXPECT_EQ("ATICO", foldWord("\xC1tico").word);
  EXPECT_EQ("ATICO", foldWord("\xC3\x81TICO").word);
  EXPECT_EQ("ATICO", foldWord("\xC3\xA1tico").word);
  EXPECT_TRUE(foldWord("\xE1tico").accents);
  EXPECT_FALSE(foldWord("atico").accents);
  EXPECT_EQ("ANO", foldWord("a\xF1o").word);
  EXPECT_EQ("\xD7", foldWord("\xD7").word);
  EXPECT_EQ("A", foldWord("\xC3").word);
}
