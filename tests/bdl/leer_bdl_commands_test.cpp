#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

using testing::ElementsAre;

namespace {

int counted(std::string_view text) { return LoadedText(text).model.contarComandos("WALL"); }

std::vector<std::string> namesOf(std::string_view text) {
  LoadedText file(text);
  std::vector<std::string> names;
  file.model.rebobinar();
  for (int left = file.model.contarComandos("WALL"); left > 0; --left) {
    names.push_back(file.model.siguienteComando("WALL"));
  }
  return names;
}

std::string wall(std::string_view text, const std::string& name = "\"M1\"") {
  LoadedText file(text);
  return textOf(LeerBDL(file.model, "WALL", name));
}

void expectFaultInWall(std::string_view fault, std::string_view text) {
  LoadedText file(text);
  EXPECT_EQ(file.message(fault), stopMessage([&] { LeerBDL(file.model, "WALL", "\"M1\""); }));
}

}  // namespace

TEST(ContarComandos, CountsTheTypeWordsBehindAQuotedName) {
  const struct {
    const char* why;
    const char* text;
    int number;
  } cases[] = {
      {"none", "\nx", 0},
      {"one", "\n\"M1\" = WALL ..", 1},
      {"two", "\n\"M1\" = WALL ..\n\"M2\" = WALL ..", 2},
      {"at the very start of the text", "\"M1\" = WALL ..", 1},
      {"the shortest text in front", "\" = WALL", 1},
      {"tabs are blanks", "\n\"M1\"\t=\tWALL", 1},
      {"a value", "\nTYPE = WALL ..", 0},
      {"a quoted value", "\nTYPE = \"WALL\" ..", 0},
      {"a name without quotes", "\nM1 = WALL ..", 0},
      {"a default block's header", "\nSET-DEFAULT FOR WALL ..", 0},
      {"no blank behind the =", "\n\"M1\" =WALL ..", 0},
      {"a letter between the = and the word", "\n\"M1\" =xWALL ..", 0},
      {"no blank before the =", "\n\"M1\"= WALL ..", 0},
      {"two blanks before the =", "\n\"M1\"\t = WALL ..", 0},
      {"two blanks behind the =", "\n\"M1\" = \tWALL ..", 0},
      {"the character before the = is not examined", "\n\"M1\"x= WALL ..", 1},
      {"a longer type that begins with it", "\n\"M1\" = WALL-IN ..\n\"M2\" = WALL ..", 2},
      {"a type that ends with it", "\n\"M1\" = IN-WALL ..", 0},
      {"inside a name", "\n\"M = WALL\" = WALL ..", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.number, counted(c.text));
  }
}

TEST(SiguienteComando, GivesTheNamesInOrderAndInQuotes) {
  EXPECT_THAT(namesOf("\n\"M1\" = WALL ..\n\"X\" = DOOR ..\n\"Muro 2\" = WALL KIND = WALL .."),
              ElementsAre("\"M1\"", "\"Muro 2\""));
}

TEST(SiguienteComando, GivesAnEmptyNameInQuotes) {
  EXPECT_THAT(namesOf("\n\"\" = WALL .."), ElementsAre("\"\""));
}

TEST(SiguienteComando, GivesTheNamesOfLongerTypesToo) {
  EXPECT_THAT(namesOf("\n\"M1\" = WALL-IN ..\n\"M2\" = WALL .."), ElementsAre("\"M1\"", "\"M2\""));
}

TEST(SiguienteComando, StartsAgainAfterRewinding) {
  LoadedText file("\n\"M1\" = WALL ..\n\"M2\" = WALL ..");
  file.model.rebobinar();
  file.model.siguienteComando("WALL");
  file.model.rebobinar();
  EXPECT_EQ("\"M1\"", file.model.siguienteComando("WALL"));
}

TEST(SiguienteComando, GoesOnFromAPositionThatItIsGiven) {
  LoadedText file("\n\"M1\" = WALL ..\n\"M2\" = WALL ..");
  file.model.situarCursor(file.model.buscar("\"M2\"", 0));
  EXPECT_EQ("\"M2\"", file.model.siguienteComando("WALL"));
}

TEST(SiguienteComando, GoesFromOneTypeToTheNextOfAnother) {
  LoadedText file("\n\"M1\" = WALL ..\n\"D1\" = DOOR ..\n\"M2\" = WALL ..");
  EXPECT_EQ("\"D1\"", file.model.siguienteComando("DOOR"));
  EXPECT_EQ("\"M2\"", file.model.siguienteComando("WALL"));
}

TEST(SiguienteComando, PastTheLastOneTheRunEnds) {
  LoadedText file("\n\"M1\" = WALL ..");
  file.model.siguienteComando("WALL");
  EXPECT_EQ(file.message("WALL: no hay más comandos de este tipo"),
            stopMessage([&] { file.model.siguienteComando("WALL"); }));
}

TEST(SiguienteComando, ANameWithoutItsOpeningQuoteEndsTheRun) {
  for (const char* text : {"\nM1\" = WALL ..", "\" = WALL .."}) {
    SCOPED_TRACE(text);
    LoadedText file(text);
    EXPECT_EQ(file.message("WALL: falta el nombre entre comillas de un comando"),
              stopMessage([&] { file.model.siguienteComando("WALL"); }));
  }
}

TEST(SiguienteComando, ANameHasLessThan250BytesWithItsQuotes) {
  const std::string longest = '"' + std::string(247, 'x') + '"';
  EXPECT_THAT(namesOf("\n" + longest + " = WALL .."), ElementsAre(longest));
  LoadedText file("\n\"" + std::string(248, 'x') + "\" = WALL ..");
  EXPECT_EQ(file.message("WALL: el nombre de un comando es demasiado largo"),
            stopMessage([&] { file.model.siguienteComando("WALL"); }));
}

TEST(SiguienteComando, TheCallersCapacityHolds) {
  LoadedText file("\n\"12345678\" = WALL ..");
  EXPECT_EQ("\"12345678\"", file.model.siguienteComando("WALL", 11));
  file.model.rebobinar();
  EXPECT_EQ(file.message("WALL: el nombre de un comando es demasiado largo"),
            stopMessage([&] { file.model.siguienteComando("WALL", 10); }));
}

TEST(ExtractCommand, IsTheTextFromTheLabelToTheClosingDots) {
  EXPECT_EQ("\"M1\" = WALL   ABS = 0.7   ",
            wall("\n\"M0\" = WALL\nABS = 0.1\n..\n\"M1\" = WALL\nABS = 0.7\n..\n\"M2\" = WALL .."));
}

TEST(ExtractCommand, KeepsCarriageReturns) {
  EXPECT_EQ("\"M1\" = WALL \r    ABS = 0.7 \r    ",
            wall("\r\n\"M1\" = WALL\r\nABS = 0.7\r\n..\r\n"));
}

TEST(ExtractCommand, EndsAtTwoDotsWhereverTheyOccur) {
  EXPECT_EQ("\"M1\" = WALL NAME = \"a", wall("\n\"M1\" = WALL NAME = \"a..b\" ABS = 0.7 .."));
}

TEST(ExtractCommand, EndsAtTheFirstTwoOfManyDots) {
  EXPECT_EQ("\"M1\" = WALL ABS = 7", wall("\n\"M1\" = WALL ABS = 7..."));
}

TEST(ExtractCommand, KnowsItsFile) {
  LoadedText file("\n\"M1\" = WALL ..");
  EXPECT_EQ(&file.model.fuente(), &LeerBDL(file.model, "WALL", "\"M1\"").fuente());
}

TEST(ExtractCommand, HasNoTextWhenThereIsNone) {
  LoadedText file("\n\"M1\" = WALL ..");
  EXPECT_FALSE(LeerBDL(file.model, "WALL", "\"M9\"").obtenerTexto());
  EXPECT_FALSE(LeerBDL(file.model, "DOOR", "\"M1\"").obtenerTexto());
}

TEST(ExtractCommand, HasNoTextInACommandThatWasNotFound) {
  LoadedText file("\n\"M1\" = WALL ..");
  LeerBDL missing(file.model, "WALL", "\"M9\"");
  EXPECT_FALSE(LeerBDL(missing, "WALL", "\"M1\"").obtenerTexto());
}

TEST(ExtractCommand, FindsTheLabelBehindOtherUsesOfTheName) {
  EXPECT_EQ("\"M1\" = WALL ABS = 1 ",
            wall("\nCONSTRUCTION = \"M1\" A = 2\n\"M1\" = DOOR ..\n\"M1\" = WALL ABS = 1 .."));
}

TEST(ExtractCommand, TheEqualsSignFollowsWithinThreeCharactersOfTheLabel) {
  const struct {
    const char* why;
    const char* text;
    const char* found;
  } cases[] = {
      {"directly", "\n\"M1\"= WALL ..", "\"M1\"= WALL "},
      {"one blank", "\n\"M1\" = WALL ..", "\"M1\" = WALL "},
      {"two blanks", "\n\"M1\" \t= WALL ..", "\"M1\"  = WALL "},
      {"three blanks: not found", "\n\"M1\" \t\t= WALL ..", "(not found)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.found, wall(c.text));
  }
}

TEST(ExtractCommand, TheTypeFollowsWithinThreeCharactersOfTheEqualsSign) {
  const struct {
    const char* why;
    const char* text;
    const char* found;
  } cases[] = {
      {"directly", "\n\"M1\" =WALL ..", "\"M1\" =WALL "},
      {"one blank", "\n\"M1\" = WALL ..", "\"M1\" = WALL "},
      {"two blanks", "\n\"M1\" = \tWALL ..", "\"M1\" =  WALL "},
      {"three blanks: not found", "\n\"M1\" = \t\tWALL ..", "(not found)"},
      {"the end of a longer word", "\n\"M1\" =INWALL ..", "\"M1\" =INWALL "},
      {"the start of a longer word", "\n\"M1\" = WALL-IN ..", "\"M1\" = WALL-IN "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.found, wall(c.text));
  }
}

TEST(ExtractCommand, ANameWithoutQuotesIsFoundInsideTheLabel) {
  EXPECT_EQ("Muro\" = WALL ABS = 1 ", wall("\n\"Muro\" = WALL ABS = 1 ..", "Muro"));
}

TEST(ExtractCommand, ANameWithoutQuotesIsFoundAtTheEndOfALongerLabel) {
  EXPECT_EQ("Muro\" = WALL ABS = 1 ", wall("\n\"Otro Muro\" = WALL ABS = 1 ..", "Muro"));
}

TEST(ExtractCommand, AnEmptyNameFindsNothing) {
  EXPECT_EQ("(not found)", wall("\n\"M1\" = WALL ABS = 1 ..", ""));
}

TEST(ExtractCommand, WithoutClosingDotsTheRunEnds) {
  expectFaultInWall("\"M1\" = WALL: falta el cierre \"..\"", "\n\"M1\" = WALL ABS = 0.7 .");
}

TEST(ExtractCommand, IsFoundWhateverItsLength) {
  const std::string longValue(20000, 'x');
  EXPECT_EQ("\"M1\" = WALL A = " + longValue, wall("\n\"M1\" = WALL A = " + longValue + ".."));
}

TEST(ExtractBlock, IsTheTextFromTheWordToTheClosingDots) {
  LoadedText file("\n$ casa\n\"C\" = HOUSE\nTIPO = 1\n..\n\"D\" = HOUSE\nTIPO = 2\n..");
  bool found = false;
  const LeerBDL block(file.model, "HOUSE", found);
  EXPECT_TRUE(found);
  EXPECT_EQ("HOUSE   TIPO = 1   ", textOf(block));
  EXPECT_EQ(&file.model.fuente(), &block.fuente());
}

TEST(ExtractBlock, BeginsAtTheFirstOccurrenceOfTheWordEvenInsideAnother) {
  LoadedText file("\n\"MY-HOUSE\" = HOUSE TIPO = 1 ..");
  bool found = false;
  EXPECT_EQ("HOUSE\" = HOUSE TIPO = 1 ", textOf(LeerBDL(file.model, "HOUSE", found)));
}

TEST(ExtractBlock, GetsNoDefaultsAppended) {
  LoadedText file("\n\"C\" = HOUSE A = 1 ..\nSET-DEFAULT FOR HOUSE B = 2 ..");
  bool found = false;
  EXPECT_EQ("HOUSE A = 1 ", textOf(LeerBDL(file.model, "HOUSE", found)));
}

TEST(ExtractBlock, AMissingWordIsSaidAndHasNoText) {
  LoadedText file("\nA = 1 ..");
  bool found = true;
  EXPECT_FALSE(LeerBDL(file.model, "HOUSE", found).obtenerTexto());
  EXPECT_FALSE(found);
}

TEST(ExtractBlock, AWordAtTheVeryFirstCharacterIsMissing) {
  LoadedText file("HOUSE A = 1 ..");
  bool found = true;
  EXPECT_EQ("(not found)", textOf(LeerBDL(file.model, "HOUSE", found)));
  EXPECT_FALSE(found);
}

TEST(ExtractBlock, WithoutClosingDotsTheRunEnds) {
  LoadedText file("\n\"C\" = HOUSE A = 1 .");
  bool found = false;
  EXPECT_EQ(file.message("HOUSE: falta el cierre \"..\""),
            stopMessage([&] { LeerBDL(file.model, "HOUSE", found); }));
}

TEST(ExtractBlock, HasLessThan10000Bytes) {
  const std::string longest = "HOUSE" + std::string(9994, 'x');
  LoadedText fits("\n" + longest + "..");
  bool found = false;
  EXPECT_EQ(longest, textOf(LeerBDL(fits.model, "HOUSE", found)));

  LoadedText tooLong("\n" + longest + "x..");
  EXPECT_EQ(tooLong.message("HOUSE: el bloque es demasiado largo"),
            stopMessage([&] { LeerBDL(tooLong.model, "HOUSE", found); }));
}
