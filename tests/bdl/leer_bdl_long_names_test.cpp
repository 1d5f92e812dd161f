#include <gtest/gtest.h>

#include <string>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

namespace {

std::string wall(std::string_view text, const std::string& name) {
  LoadedText file(text);
  return textOf(LeerBDL(file.model, "WALL", name));
}

std::string stopInWall(std::string_view text, const std::string& name) {
  LoadedText file(text);
  return stopMessage([&] { LeerBDL(file.model, "WALL", name); });
}

}  // namespace

TEST(LongNameSearch, FindsTheCommandWhoseLongNameIsTheName) {
  EXPECT_EQ("\"M1\" = WALL LONG-NAME = \"Muro exterior\" ABS = 1 ",
            wall("\n\"M0\" = WALL LONG-NAME = \"Otro\" .."
                 "\n\"M1\" = WALL LONG-NAME = \"Muro exterior\" ABS = 1 ..",
                 "\"Muro exterior\""));
}

TEST(LongNameSearch, FindsTheCommandWhoseNameIsTheName) {
  EXPECT_EQ("\"M1\" = WALL NAME = \"Muro exterior\" ",
            wall("\n\"M1\" = WALL NAME = \"Muro exterior\" ..", "\"Muro exterior\""));
}

TEST(LongNameSearch, ALongNameHidesTheName) {
  EXPECT_EQ("(not found)", wall("\n\"M1\" = WALL LONG-NAME = \"A\" NAME = \"B\" ..", "\"B\""));
  EXPECT_EQ("(not found)", wall("\n\"M1\" = WALL NAME = \"B\" LONG-NAME = \"A\" ..", "\"B\""));
}

TEST(LongNameSearch, ANameNeedsABlankBehindIt) {
  EXPECT_EQ("(not found)", wall("\n\"M1\" = WALL NAME= \"B\" ..", "\"B\""));
}

TEST(LongNameSearch, TheFirstOfTwoCommandsWins) {
  EXPECT_EQ(
      "\"M1\" = WALL LONG-NAME = \"A\" ",
      wall("\n\"M1\" = WALL LONG-NAME = \"A\" ..\n\"M2\" = WALL LONG-NAME = \"A\" ..", "\"A\""));
}

TEST(LongNameSearch, ALabelComesBeforeEveryLongName) {
  EXPECT_EQ("\"A\" = WALL ABS = 2 ",
            wall("\n\"M1\" = WALL LONG-NAME = \"A\" ..\n\"A\" = WALL ABS = 2 ..", "\"A\""));
}

TEST(LongNameSearch, NamesAreComparedExactlyWithTheirQuotes) {
  const struct {
    const char* why;
    const char* name;
  } cases[] = {{"case", "\"muro\""},
               {"no quotes", "Mur"},
               {"a blank more", "\"Muro \""},
               {"the start of it", "\"Mur\""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ("(not found)", wall("\n\"M1\" = WALL LONG-NAME = \"Muro\" ..", c.name));
  }
}

TEST(LongNameSearch, AnUnquotedLongNameIsFoundByItsWord) {
  EXPECT_EQ("\"M1\" = WALL LONG-NAME = Muro A = 1 ",
            wall("\n\"M1\" = WALL LONG-NAME = Muro A = 1 ..", "Muro"));
}

TEST(LongNameSearch, ALongNameOfTheDefaultsIsFoundToo) {
  EXPECT_EQ("\"M1\" = WALL SET-DEFAULT FOR WALL LONG-NAME = \"A\" ",
            wall("\n\"M1\" = WALL ..\nSET-DEFAULT FOR WALL LONG-NAME = \"A\" ..", "\"A\""));
}

TEST(LongNameSearch, AppendsTheDefaultsOfTheType) {
  EXPECT_EQ("\"M1\" = WALL LONG-NAME = \"A\" SET-DEFAULT FOR WALL ABS = 1 ",
            wall("\n\"M1\" = WALL LONG-NAME = \"A\" ..\nSET-DEFAULT FOR WALL ABS = 1 ..", "\"A\""));
}

TEST(LongNameSearch, OtherTypesAreNotAsked) {
  EXPECT_EQ("(not found)", wall("\n\"M1\" = DOOR LONG-NAME = \"A\" ..", "\"A\""));
}

TEST(LongNameSearch, LeavesTheEnumerationAtTheStart) {
  LoadedText file("\n\"M1\" = WALL ..\n\"M2\" = WALL LONG-NAME = \"A\" ..\n\"M3\" = WALL ..");
  file.model.siguienteComando("WALL");
  file.model.siguienteComando("WALL");
  const LeerBDL found(file.model, "WALL", "\"A\"");
  ASSERT_TRUE(found.obtenerTexto());
  EXPECT_EQ("\"M1\"", file.model.siguienteComando("WALL"));
}

TEST(LongNameSearch, ALabelThatIsFoundLeavesTheEnumerationWhereItWas) {
  LoadedText file("\n\"M1\" = WALL ..\n\"M2\" = WALL ..");
  file.model.siguienteComando("WALL");
  const LeerBDL found(file.model, "WALL", "\"M1\"");
  ASSERT_TRUE(found.obtenerTexto());
  EXPECT_EQ("\"M2\"", file.model.siguienteComando("WALL"));
}

TEST(LongNameSearch, ACommandAtTheVeryFirstCharacterIsNotFoundByItsLabel) {
  EXPECT_EQ("No se encuentra: \"M1\"", stopInWall("\"M1\" = WALL ..", "\"M1\""));
  EXPECT_EQ("No se encuentra: \"M1\"", stopInWall("\"M1\" = WALL ..\n\"M2\" = WALL ..", "\"M9\""));
}

TEST(LongNameSearch, ACommandWithAnEqualsSignInItsNameIsNotFoundByItsLabel) {
  EXPECT_EQ("No se encuentra: \"M=1\"", stopInWall("\n\"M=1\" = WALL ..", "\"M=1\""));
  EXPECT_EQ("No se encuentra: \"M=1\"", stopInWall("\n\"M=1\" = WALL ..", "\"M9\""));
}

TEST(LongNameSearch, ACommandThatIsMetBeforeTheUnfindableOneIsTaken) {
  EXPECT_EQ("\"M1\" = WALL LONG-NAME = \"A\" ",
            wall("\n\"M1\" = WALL LONG-NAME = \"A\" ..\n\"M=2\" = WALL ..", "\"A\""));
}

TEST(LongNameSearch, ALongNameOfTheUnfindableCommandDoesNotHelpIt) {
  EXPECT_EQ("No se encuentra: \"M=1\"",
            stopInWall("\n\"M=1\" = WALL LONG-NAME = \"A\" ..", "\"A\""));
}

TEST(LongNameSearch, MalformedLongNamesEndTheRun) {
  LoadedText file("\n\"M1\" = WALL LONG-NAME = \"A ..");
  EXPECT_EQ(file.message("LONG-NAME: faltan las comillas de cierre del valor"),
            stopMessage([&] { LeerBDL(file.model, "WALL", "\"A\""); }));
}

TEST(LongNameSearch, ALongNameHasLessThan250Bytes) {
  const std::string longest = '"' + std::string(247, 'x') + '"';
  EXPECT_EQ("\"M1\" = WALL LONG-NAME = " + longest + " ",
            wall("\n\"M1\" = WALL LONG-NAME = " + longest + " ..", longest));
  LoadedText tooLong("\n\"M1\" = WALL LONG-NAME = \"" + std::string(248, 'x') + "\" ..");
  EXPECT_EQ(tooLong.message("LONG-NAME: el valor es demasiado largo"),
            stopMessage([&] { LeerBDL(tooLong.model, "WALL", "\"A\""); }));
}

TEST(LongNameSearch, EndsForManyCommands) {
  std::string text = "\n";
  for (int i = 0; i < 300; ++i) text += "\"M" + std::to_string(i) + "\" = WALL ..\n";
  EXPECT_EQ("\"Z\" = WALL NAME = \"A\" ", wall(text + "\"Z\" = WALL NAME = \"A\" ..", "\"A\""));
}
