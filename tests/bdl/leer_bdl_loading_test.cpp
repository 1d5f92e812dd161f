#include <gtest/gtest.h>

#include <string>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"

namespace {

std::string loaded(std::string_view bytes) { return textOf(LoadedText(bytes).model); }

}  // namespace

TEST(LeerBDLLoading, TheWholeFileIsOneLine) {
  const struct {
    const char* why;
    const char* bytes;
    const char* text;
  } cases[] = {
      {"an empty file", "", ""},
      {"line feeds between blanks, as blanks", "a\nb", "a   b"},
      {"carriage returns stay", "a\r\nb", "a \r    b"},
      {"tabs are blanks and do not collapse", "a\t\tb", "a  b"},
      {"blanks collapse", "a   b", "a b"},
      {"blanks around a tab do not collapse with it", "a \t b", "a   b"},
      {"quotes and accents stay",
       "\"Tabiquer\xED"
       "a\"",
       "\"Tabiquer\xED"
       "a\""},
      {"a comment is text like any other", "$ a = 1", "$ a = 1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.text, loaded(c.bytes));
  }
}

TEST(LeerBDLLoading, KnowsItsFile) {
  const SourceText source("obra/casa.tip", "a");
  EXPECT_EQ(&source, &LeerBDL(source).fuente());
}

TEST(LeerBDLLoading, ALineHasNoLongestLength) {
  const std::string longLine = "a = " + std::string(50000, 'x');
  EXPECT_EQ(longLine, loaded(longLine));
}

TEST(LeerBDLSearch, GivesThePositionFromTheStartOfTheText) {
  LoadedText text("0123 KEY 90 KEY");
  EXPECT_EQ(5U, text.model.buscar("KEY", 0));
  EXPECT_EQ(5U, text.model.buscar("KEY", 5));
  EXPECT_EQ(12U, text.model.buscar("KEY", 6));
}

TEST(LeerBDLSearch, AnAbsentPatternIs0) {
  LoadedText text("0123 KEY");
  EXPECT_EQ(0U, text.model.buscar("OTHER", 0));
  EXPECT_EQ(0U, text.model.buscar("KEY", 6));
  EXPECT_EQ(0U, text.model.buscar("KEY", 1000));
}

TEST(LeerBDLSearch, APatternAtTheVeryFirstCharacterIsNotFound) {
  LoadedText text("KEY = 1");
  EXPECT_EQ(0U, text.model.buscar("KEY", 0));
  int value = -7;
  EXPECT_EQ(-1, text.model.leerEntero("KEY", value));
  EXPECT_EQ(-7, value);
}

TEST(LeerBDLSearch, APatternAtTheVeryFirstCharacterHidesLaterOnes) {
  LoadedText text("KEY = 1 KEY = 2");
  int value = -7;
  EXPECT_EQ(-1, text.model.leerEntero("KEY", value));
}

TEST(LeerBDLSearch, TheSecondCharacterIsFound) {
  LoadedText text(" KEY = 1");
  EXPECT_EQ(1U, text.model.buscar("KEY", 0));
}

TEST(LeerBDLSearch, ALineEndInFrontPutsBlanksInFront) {
  LoadedText text("\nKEY = 1");
  EXPECT_EQ(3U, text.model.buscar("KEY", 0));
}

TEST(LeerBDLSearch, KnowsNoWordBoundaries) {
  LoadedText text("x GROUND-REFLECTANCE = 0.2 GROUND-R = 0.5");
  EXPECT_EQ(2U, text.model.buscar("GROUND-R", 0));
  float value = 0;
  EXPECT_EQ(0, text.model.leerReal("GROUND-R", value));
  EXPECT_EQ(0.2F, value);
}

TEST(LeerBDLSearch, FindsAKeywordInsideACommentAndAValue) {
  const struct {
    const char* why;
    const char* bytes;
  } cases[] = {
      {"a comment", "\n$ HCINT = 1\nHCINT = 2"},
      {"a quoted value", "\nNAME = \"HCINT = 1\" HCINT = 2"},
      {"a longer word", "\nXHCINTX = 1\nHCINT = 2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    int value = 0;
    EXPECT_EQ(0, LoadedText(c.bytes).model.leerEntero("HCINT", value));
    EXPECT_EQ(1, value);
  }
}

TEST(LeerBDLSearch, IsCaseSensitive) {
  EXPECT_EQ(0U, LoadedText("x key = 1").model.buscar("KEY", 0));
}

TEST(LeerBDLSearch, OfAMissingPieceFindsNothing) {
  LoadedText text("x KEY = 1 ..");
  bool found = true;
  LeerBDL missing(text.model, "OTHER", found);
  float real = -7;
  std::string word = "antes";
  std::vector<std::string> words = {"antes"};
  EXPECT_EQ(0U, missing.buscar("KEY", 0));
  EXPECT_EQ(-1, missing.leerReal("KEY", real));
  EXPECT_EQ(-1, missing.leerCadena("KEY", word));
  EXPECT_EQ(-1, missing.leerListaReales("KEY", {&real, 1}));
  EXPECT_EQ(-1, missing.leerListaCadenas("KEY", words, 1, 100));
  EXPECT_EQ(0, missing.contarComandos("KEY"));
}
