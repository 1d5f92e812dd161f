#include <gtest/gtest.h>

#include "check/written_fixture.h"

using enum Code;

TEST(WrittenNames, EachThatIsReadOtherwiseHasItsFinding) {
  const Planted cases[] = {
      {"typographic quotes", "SUELOS", "   SUELOS = \x93Solera fina\x94", kComillasTipograficas, 13,
       13, "\x93Solera fina\x94", "\x93Solera", "\"Solera fina\""},
      {"angular quotes", "SUELOS", "   SUELOS = \xABSolera fina\xBB", kComillasTipograficas, 13, 13,
       "\xABSolera fina\xBB", "\xABSolera", "\"Solera fina\""},
      {"single quotes", "SUELOS", "   SUELOS = 'Solera fina'", kComillasTipograficas, 13, 13,
       "'Solera fina'", "'Solera", "\"Solera fina\""},
      {"no closing quote", "SUELOS", "   SUELOS = \"Solera", kComillasSinCerrar, 13, 7, "\"Solera",
       "\"Solera\n   PARTICION-INTERIOR-HORIZONTAL = \"", "\"Solera\""},
      {"an empty name", "SUELOS", "   SUELOS = \"\"", kNombreVacio, 13, 2, "\"\"", "\"\"", ""},
      {"a blank name", "VENTANA-MARCO", "   VENTANA-MARCO = \" \"", kNombreVacio, 20, 3, "\" \"",
       "\" \"", ""},
      {"no quotes round two words", "SUELOS", "   SUELOS = Solera fina", kNombreCortado, 13, 11,
       "Solera fina", "Solera", "\"Solera fina\""},
      {"a word behind the quotes", "SUELOS", "   SUELOS = \"Solera\" fina", kNombreCortado, 13, 13,
       "\"Solera\" fina", "\"Solera\"", "\"Solera\""},
      {"a frame that is not there", "VENTANA-MARCO", "   VENTANA-MARCO = \"Marco de PV\"",
       kNombreNoDefinido, 20, 13, "\"Marco de PV\"", "", "\"Marco de PVC\""},
      {"a shade that is not there", "VENTANA-SOMBRA", "   VENTANA-SOMBRA = \"Toldo\"",
       kNombreNoDefinido, 21, 7, "\"Toldo\"", "", ""},
      {"a shade for a frame", "VENTANA-MARCO", "   VENTANA-MARCO = \"Voladizo\"", kNombreDeOtraCosa,
       20, 10, "\"Voladizo\"", "", ""},
  };
  for (const Planted& planted : cases) expectPlanted(planted);
  expectPlanted({"typographic quotes in UTF-8", "SUELOS",
                 "   SUELOS = \xE2\x80\x9CSolera fina\xE2\x80\x9D", kComillasTipograficas, 13, 17,
                 "\xE2\x80\x9CSolera fina\xE2\x80\x9D", "\xE2\x80\x9CSolera", "\"Solera fina\""},
                {kUtf8});
}

TEST(WrittenNames, WhatBothReadingsTakeAlikeIsLetBe) {
  for (const std::string_view value :
       {"\"Solera\"", "Solera", "\"Solera d'or, 2 (1)\"", "\"50 $\"", "\"a = b\"",
        "\"d\x92"
        "acier\"",
        "\n \"Solera\""}) {
    const std::string line = " SUELOS = " + std::string(value);
    EXPECT_EQ("", asLines(warningsOf(WrittenFile14().with("SUELOS", line).text()))) << line;
  }
}

TEST(WrittenNames, AFrameIsAlsoFoundByItsLongName) {
  WrittenFile14 file;
  file.with("VENTANA-MARCO", "VENTANA-MARCO = \"De pino\"");
  file.before("FRAME-WIDTH", "   LONG-NAME = \"De pino\"");
  EXPECT_EQ("", asLines(warningsOf(file.text())));
}

TEST(WrittenNames, AFrameOfTheTemplateIsLeftToTheFindingsOfBothFiles) {
  const std::string frames[] = {"\"Aluminio\""};
  WrittenFile14 file;
  file.with("VENTANA-MARCO", "VENTANA-MARCO = \"Aluminio\"");
  EXPECT_EQ("", asLines(findingsOf(file.text(), frames)));
  // It would be no shade.
  file = {};
  file.with("VENTANA-SOMBRA", "VENTANA-SOMBRA = \"Aluminio\"");
  EXPECT_EQ(1U, findingsOf(file.text(), frames).size());
}
