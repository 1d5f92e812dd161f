#include <gtest/gtest.h>

#include <string>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

namespace {

/// The value of KEY.
std::string valueIn(std::string_view text) {
  std::string value = "antes";
  EXPECT_EQ(0, LoadedText(text).model.leerCadena("KEY", value));
  return value;
}

/// The fault that reading KEY meets in `text`, without the file in front.
void expectFault(std::string_view fault, std::string_view text,
                 std::size_t capacity = LeerBDL::kLargoValor) {
  LoadedText file(text);
  std::string value;
  EXPECT_EQ(file.message(fault),
            stopMessage([&] { file.model.leerCadena("KEY", value, capacity); }));
}

std::string blanksBefore(int number) {
  return "\nKEY =" + std::string(static_cast<std::size_t>(number), '\t') + "ABC ";
}

}  // namespace

TEST(LeerCadena, AWordEndsBeforeTheNextBlank) {
  const struct {
    const char* why;
    const char* text;
    const char* value;
  } cases[] = {
      {"a word", "\nKEY = ABC DEF", "ABC"},
      {"no blank in front", "\nKEY=ABC DEF", "ABC"},
      {"the end of the text", "\nKEY = ABC", "ABC"},
      {"the end of the line", "\nKEY = ABC\nDEF = 1", "ABC"},
      {"the end of the line, CR LF", "\r\nKEY = ABC\r\nDEF = 1\r\n", "ABC"},
      {"a tab is a blank", "\nKEY =\tABC\tDEF", "ABC"},
      {"one character", "\nKEY = A ", "A"},
      {"a quote inside belongs to it", "\nKEY = A\"B C\"", "A\"B"},
      {"a list's bracket is a word", "\nKEY = ( 1, 2 )", "("},
      {"the closing dots are a word", "\nKEY = ..", ".."},
      {"the closing dots right behind belong to it", "\nKEY = ABC..", "ABC.."},
      {"on the next line", "\nKEY =\n  ABC", "ABC"},
      {"the next = counts, wherever it is", "\nKEY\nDEF = ABC", "ABC"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.value, valueIn(c.text));
  }
}

TEST(LeerCadena, AQuotedTextKeepsItsQuotes) {
  const struct {
    const char* why;
    const char* text;
    const char* value;
  } cases[] = {
      {"blanks inside", "\nKEY = \"A B\" C", "\"A B\""},
      {"a run of blanks is one", "\nKEY = \"A   B\"", "\"A B\""},
      {"nothing inside", "\nKEY = \"\" C", "\"\""},
      {"text right behind", "\nKEY = \"A\"B", "\"A\""},
      {"the end of the text", "\nKEY = \"A\"", "\"A\""},
      {"an = inside", "\nKEY = \"A = B\"", "\"A = B\""},
      {"accents",
       "\nKEY = \"Tabiquer\xED"
       "a\"",
       "\"Tabiquer\xED"
       "a\""},
      {"over the end of the line", "\nKEY = \"A\nB\"", "\"A   B\""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.value, valueIn(c.text));
  }
}

TEST(LeerCadena, ACarriageReturnIsNoBlank) { EXPECT_EQ("\r", valueIn("\nKEY = \r\n ABC")); }

TEST(LeerCadena, UnquotedNameIsItsThreeCharactersAndQuotedNameItsFive) {
  std::string value;
  EXPECT_EQ(0, LoadedText("\nNAME = ABC\n").model.leerCadena("NAME ", value));
  EXPECT_EQ("ABC", value);
  EXPECT_EQ(0, LoadedText("\nNAME = \"A B\"\n").model.leerCadena("NAME ", value));
  EXPECT_EQ("\"A B\"", value);
}

TEST(LeerCadena, AMissingKeywordIsMinus1AndLeavesTheDestination) {
  std::string value = "antes";
  EXPECT_EQ(-1, LoadedText("\nOTHER = ABC").model.leerCadena("KEY", value));
  EXPECT_EQ("antes", value);
}

TEST(LeerCadena, WithoutAnyEqualsSignBehindTheKeywordItIsAbsent) {
  std::string value = "antes";
  EXPECT_EQ(-1, LoadedText("x = 1 KEY ABC").model.leerCadena("KEY", value));
  EXPECT_EQ("antes", value);
}

TEST(LeerCadena, SkipsUpTo99Blanks) { EXPECT_EQ("ABC", valueIn(blanksBefore(99))); }

TEST(LeerCadena, With100BlanksTheRunEnds) {
  expectFault("KEY: hay demasiados blancos delante del valor", blanksBefore(100));
  expectFault("KEY: hay demasiados blancos delante del valor", blanksBefore(101));
}

TEST(LeerCadena, AnEmptyRestEndsTheRun) {
  expectFault("KEY: falta el valor", "\nKEY =");
  expectFault("KEY: falta el valor", "\nKEY = \n");
}

TEST(LeerCadena, AMissingClosingQuoteEndsTheRun) {
  expectFault("KEY: faltan las comillas de cierre del valor", "\nKEY = \"ABC DEF");
  expectFault("KEY: faltan las comillas de cierre del valor", "\nKEY = \"");
}

TEST(LeerCadena, AWordHasLessThan250Bytes) {
  const std::string longest(249, 'x');
  EXPECT_EQ(longest, valueIn("\nKEY = " + longest + " ABC"));
  expectFault("KEY: el valor es demasiado largo", "\nKEY = " + longest + "x ABC");
}

TEST(LeerCadena, AQuotedTextHasLessThan250BytesWithItsQuotes) {
  const std::string longest = '"' + std::string(247, 'x') + '"';
  EXPECT_EQ(longest, valueIn("\nKEY = " + longest + " ABC"));
  expectFault("KEY: el valor es demasiado largo", "\nKEY = \"" + std::string(248, 'x') + "\" ABC");
}

TEST(LeerCadena, TheCallersCapacityHolds) {
  std::string value;
  LoadedText fits("\nKEY = " + std::string(199, 'x'));
  EXPECT_EQ(0, fits.model.leerCadena("KEY", value, 200));
  EXPECT_EQ(199U, value.size());
  expectFault("KEY: el valor es demasiado largo", "\nKEY = " + std::string(200, 'x'), 200);
}

TEST(LeerCadena, WithoutALimitAnyLengthIsKept) {
  std::string value;
  LoadedText text("\nKEY = " + std::string(5000, 'x'));
  EXPECT_EQ(0, text.model.leerCadena("KEY", value, LeerBDL::kSinLimite));
  EXPECT_EQ(5000U, value.size());
}

TEST(LeerCadena, TheMessageNamesTheKeywordWithoutTheBlanksAndTheEqualsOfItsSearch) {
  LoadedText file("\n MUROS-FACHADA = ");
  for (const char* key : {" MUROS-FACHADA ", "MUROS-FACHADA =", "MUROS-FACHADA = "}) {
    SCOPED_TRACE(key);
    std::string value;
    EXPECT_EQ(file.message("MUROS-FACHADA: falta el valor"),
              stopMessage([&] { file.model.leerCadena(key, value); }));
  }
}

TEST(LeerCadena, TheMessageAboutAKeyOfBlanksAndEqualsNamesNone) {
  LoadedText file("\nKEY = ");
  std::string value;
  EXPECT_EQ(file.message(": falta el valor"),
            stopMessage([&] { file.model.leerCadena(" = ", value); }));
}
