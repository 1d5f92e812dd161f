#include <gtest/gtest.h>

#include <string>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

namespace {

std::string wall(std::string_view text) {
  LoadedText file(text);
  return textOf(LeerBDL(file.model, "EXTERIOR-WALL", "\"Muro\""));
}

float absorptance(std::string_view text) {
  LoadedText file(text);
  float value = -1;
  LeerBDL(file.model, "EXTERIOR-WALL", "\"Muro\"").leerReal("ABSORPTANCE", value);
  return value;
}

constexpr std::string_view kDefaults = "\nSET-DEFAULT FOR EXTERIOR-WALL ABSORPTANCE = 0.5 ..";

}  // namespace

TEST(SetDefault, AKeywordOfTheCommandWins) {
  EXPECT_EQ(0.7F, absorptance("\n\"Muro\" = EXTERIOR-WALL ABSORPTANCE = 0.7 .." +
                              std::string(kDefaults)));
}

TEST(SetDefault, AKeywordThatTheCommandLacksComesFromTheBlock) {
  EXPECT_EQ(0.5F, absorptance("\n\"Muro\" = EXTERIOR-WALL .." + std::string(kDefaults)));
}

TEST(SetDefault, MayStandBeforeTheCommand) {
  EXPECT_EQ(0.7F, absorptance(std::string(kDefaults) +
                              "\n\"Muro\" = EXTERIOR-WALL ABSORPTANCE = 0.7 .."));
  EXPECT_EQ(0.5F, absorptance(std::string(kDefaults) + "\n\"Muro\" = EXTERIOR-WALL .."));
}

TEST(SetDefault, IsAppendedDirectlyAndWithItsHeader) {
  EXPECT_EQ("\"Muro\" = EXTERIOR-WALL A = 1SET-DEFAULT FOR EXTERIOR-WALL B = 2 ",
            wall("\n\"Muro\" = EXTERIOR-WALL A = 1..\nSET-DEFAULT FOR EXTERIOR-WALL B = 2 .."));
}

TEST(SetDefault, OnlyTheFirstBlockOfTheTypeCounts) {
  EXPECT_EQ("\"Muro\" = EXTERIOR-WALL SET-DEFAULT FOR EXTERIOR-WALL A = 1 ",
            wall("\n\"Muro\" = EXTERIOR-WALL ..\nSET-DEFAULT FOR EXTERIOR-WALL A = 1 .."
                 "\nSET-DEFAULT FOR EXTERIOR-WALL B = 2 .."));
}

TEST(SetDefault, ABlockOfALongerTypeQualifiesToo) {
  EXPECT_EQ(0.3F, absorptance("\nSET-DEFAULT FOR EXTERIOR-WALL-LAYERS ABSORPTANCE = 0.3 .." +
                              std::string(kDefaults) + "\n\"Muro\" = EXTERIOR-WALL .."));
}

TEST(SetDefault, ABlockOfAnotherTypeDoesNot) {
  EXPECT_EQ(-1.0F, absorptance("\nSET-DEFAULT FOR WINDOW ABSORPTANCE = 0.3 .."
                               "\nSET-DEFAULT FOR EXTERIOR ABSORPTANCE = 0.4 .."
                               "\n\"Muro\" = EXTERIOR-WALL .."));
}

TEST(SetDefault, ItsHeaderHasSingleBlanks) {
  EXPECT_EQ(0.5F, absorptance("\nSET-DEFAULT   FOR  EXTERIOR-WALL ABSORPTANCE = 0.5 .."
                              "\n\"Muro\" = EXTERIOR-WALL .."));
  EXPECT_EQ(-1.0F, absorptance("\nSET-DEFAULT FOR \tEXTERIOR-WALL ABSORPTANCE = 0.5 .."
                               "\n\"Muro\" = EXTERIOR-WALL .."));
}

TEST(SetDefault, ABlockAtTheVeryFirstCharacterIsNotFound) {
  EXPECT_EQ(-1.0F, absorptance("SET-DEFAULT FOR EXTERIOR-WALL ABSORPTANCE = 0.5 .."
                               "\n\"Muro\" = EXTERIOR-WALL .."));
}

TEST(SetDefault, AValueWithoutANumberInTheCommandStillHidesTheDefault) {
  EXPECT_EQ(-1.0F,
            absorptance("\n\"Muro\" = EXTERIOR-WALL ABSORPTANCE = x .." + std::string(kDefaults)));
}

TEST(SetDefault, WithoutClosingDotsTheRunEnds) {
  LoadedText file("\n\"Muro\" = EXTERIOR-WALL ..\nSET-DEFAULT FOR EXTERIOR-WALL A = 1");
  EXPECT_EQ(file.message("SET-DEFAULT FOR EXTERIOR-WALL: falta el cierre \"..\""),
            stopMessage([&] { LeerBDL(file.model, "EXTERIOR-WALL", "\"Muro\""); }));
}

TEST(SetDefault, HasLessThan1000Bytes) {
  const std::string header = "SET-DEFAULT FOR EXTERIOR-WALL A = ";
  const std::string longest = header + std::string(999 - header.size(), 'x');
  const std::string command = "\n\"Muro\" = EXTERIOR-WALL ..\n";
  EXPECT_EQ("\"Muro\" = EXTERIOR-WALL " + longest, wall(command + longest + ".."));

  LoadedText tooLong(command + longest + "x..");
  EXPECT_EQ(tooLong.message("SET-DEFAULT FOR EXTERIOR-WALL: el bloque es demasiado largo"),
            stopMessage([&] { LeerBDL(tooLong.model, "EXTERIOR-WALL", "\"Muro\""); }));
}
