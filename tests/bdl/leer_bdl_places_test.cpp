#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "bdl/normalised_text.h"
#include "support/recording_application.h"

// Where in the file the things stand that a message may be about. The file is searched with its
// line ends, tabs and runs of blanks changed, so every place has to be led back.

namespace {

std::string marked(const LeerBDL& model, const std::optional<Span>& span) {
  if (!span) return "(none)";
  EXPECT_LE(span->begin, span->end);
  return marked(model.fuente().placeOf(*span));
}

std::string valueIn(std::string_view text, std::string_view keyword = "KEY") {
  LoadedText file(text);
  return marked(file.model, file.model.lugarDeValor(keyword));
}

std::string firstIn(std::string_view text, std::string_view pattern) {
  LoadedText file(text);
  return marked(file.model, file.model.lugarDe(pattern));
}

std::string valueInWall(std::string_view text, std::string_view keyword = "KEY",
                        const std::string& name = "\"M1\"") {
  LoadedText file(text);
  LeerBDL wall(file.model, "WALL", name);
  return marked(wall, wall.lugarDeValor(keyword));
}

std::string valueInBlock(std::string_view text, std::string_view keyword = "KEY") {
  LoadedText file(text);
  bool found = false;
  LeerBDL block(file.model, "HOUSE", found);
  EXPECT_TRUE(found);
  return marked(block, block.lugarDeValor(keyword));
}

}  // namespace

TEST(LugarDeValor, IsTheWholeValueInTheFile) {
  const struct {
    const char* why;
    const char* text;
    const char* place;
  } cases[] = {
      {"a word", "\nKEY = abc DEF", "2: KEY = [abc] DEF"},
      {"a word up to the end of the text", "\nKEY = abc", "2: KEY = [abc]"},
      {"one character", "\nKEY = a", "2: KEY = [a]"},
      {"no blanks", "\nKEY=abc", "2: KEY=[abc]"},
      {"a decimal comma belongs to it", "\nKEY = 72,9\n", "2: KEY = [72,9]"},
      {"the end of the line", "\nKEY = abc\nDEF = 1\n", "2: KEY = [abc]"},
      {"the end of the line, CR LF", "\r\nKEY = abc\r\nDEF = 1\r\n", "2: KEY = [abc]"},
      {"a run of blanks", "\n   KEY   =    abc   \n", "2:    KEY   =    [abc]   "},
      {"tabs", "\n\tKEY\t=\t\tabc\t\n", "2: \tKEY\t=\t\t[abc]\t"},
      {"tabs and blanks", "\n \t KEY \t = \t abc", "2:  \t KEY \t = \t [abc]"},
      {"tabs and CR LF", "$ x\r\n\tKEY\t=\tabc\t\r\n", "2: \tKEY\t=\t[abc]\t"},
      {"behind many line ends", "\r\n\n\r\n\n\n KEY = abc", "6:  KEY = [abc]"},
      {"behind an accent", "\n$ Espa\xF1\nKEY = \xD1x y", "3: KEY = [Ñx] y"},
      {"a quoted text", "\nKEY = \"a b\" DEF", "2: KEY = [\"a b\"] DEF"},
      {"a quoted text with runs of blanks", "\nKEY = \"a   b\" DEF", "2: KEY = [\"a   b\"] DEF"},
      {"a quoted text with an = in it", "\nKEY = \"a = b\"", "2: KEY = [\"a = b\"]"},
      {"an empty quoted text", "\nKEY = \"\"", "2: KEY = [\"\"]"},
      {"a quoted text over two lines", "\nKEY = \"a\n b\"", "2: KEY = [\"a]"},
      {"quotes that are not closed: its word", "\nKEY = \"a b", "2: KEY = [\"a] b"},
      {"a list", "\nKEY = ( 1,\t2 ) DEF", "2: KEY = [( 1,\t2 )] DEF"},
      {"a list over two lines", "\nKEY = ( 1,\r\n  2 )\r\n", "2: KEY = [( 1,]"},
      {"a list that is not closed: its word", "\nKEY = (1, 2", "2: KEY = [(1,] 2"},
      {"on the next line", "\nKEY =\n  abc\n", "3:   [abc]"},
      {"on the next line, CR LF", "\r\nKEY =\r\n\tabc\r\n", "3: \t[abc]"},
      {"on the next line, behind an = there", "\nKEY\n = abc\n", "3:  = [abc]"},
      {"on the next line, in quotes", "\nKEY =\n\"a = b\"\nDEF = 1", "3: [\"a = b\"]"},
      {"on the next line, a list", "\nKEY =\n( 1, 2 )\nDEF = 1", "3: [( 1, 2 )]"},
      {"another word on the line", "\nKEY es = abc", "2: KEY es = [abc]"},
      {"the same behind a lone CR, which ends no line", "\nKEY\r es = abc", "2: KEY\r es = [abc]"},
      {"the word before another = on its line", "\nKEY = DEF = 1", "2: KEY = [DEF] = 1"},
      {"the closing dots", "\nKEY = ..", "2: KEY = [..]"},
      {"the first occurrence, in a comment", "\n$ KEY = 1 m\nKEY = 2", "2: $ KEY = [1] m"},
      {"missing at the end: the =", "\nKEY =", "2: KEY [=]"},
      {"missing at the end behind blanks: the =", "\nKEY =  \r\n \n", "2: KEY [=]  "},
      {"missing before another keyword: the =", "\nKEY =\nDEF = 1", "2: KEY [=]"},
      {"missing before another keyword, CR LF: the =", "\r\n\tKEY = \r\n\tDEF = 1\r\n",
       "2: \tKEY [=] "},
      {"missing before a keyword without blanks: the =", "\nKEY=\nDEF=1", "2: KEY[=]"},
      {"missing before a command: the =", "\nKEY =\n\"M1\" = WALL", "2: KEY [=]"},
      {"missing before a comment: the =", "\nKEY =\n$ DEF\nDEF = 1", "2: KEY [=]"},
      {"missing with its =: the keyword", "\n  KEY\nDEF = abc", "2:   [KEY]"},
      {"missing with its =, CR LF: the keyword", "\r\nKEY \r\nDEF = abc", "2: [KEY] "},
      {"missing its =, with a value: the keyword", "\nKEY 12\nDEF = abc", "2: [KEY] 12"},
      {"missing its = in a longer word: the rest", "\nSUBKEY-2\nDEF = 1", "2: SUB[KEY-2]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("modelo.inp:") + c.place, valueIn(c.text));
  }
}

TEST(LugarDeValor, IsNoneWhereTheGettersFindNothing) {
  const struct {
    const char* why;
    const char* text;
  } cases[] = {
      {"an empty text", ""},
      {"no keyword", "\nDEF = 1"},
      {"at the very first character", "KEY = 1"},
      {"no = behind it", "\nDEF = 1 KEY"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ("(none)", valueIn(c.text));
  }
}

TEST(LugarDeValor, SearchesWithTheKeywordsOwnBlanks) {
  constexpr auto kText = "\nKEY-LONG = 1\nKEY = 2";
  EXPECT_EQ("modelo.inp:2: KEY-LONG = [1]", valueIn(kText, "KEY"));
  EXPECT_EQ("modelo.inp:3: KEY = [2]", valueIn(kText, " KEY "));
}

TEST(LugarDe, IsTheFirstOccurrence) {
  EXPECT_EQ("modelo.inp:2: \t[KEY]\t= 1", firstIn("$ x\r\n\tKEY\t= 1\r\nKEY = 2", "KEY"));
  EXPECT_EQ("modelo.inp:2: [K]", firstIn("\nK", "K"));
  EXPECT_EQ("modelo.inp:1: x [A   B]", firstIn("x A   B", "A B")) << "as it stands in the file";
  EXPECT_EQ("(none)", firstIn("KEY = 1", "KEY")) << "the very first character";
  EXPECT_EQ("(none)", firstIn("\nKEY = 1", "DEF"));
  EXPECT_EQ("(none)", firstIn("", "DEF"));
}

// A command is cut out from behind the ".." before it and its type's defaults put behind it.
TEST(LugarDeValor, OfACommandIsInTheFile) {
  const struct {
    const char* why;
    const char* text;
    const char* place;
  } cases[] = {
      {"the first command", "\n\"M1\" = WALL\n KEY = abc ..", "3:  KEY = [abc] .."},
      {"behind another", "\n\"M0\" = WALL KEY = 1 ..\n\"M1\" = WALL\n KEY = abc\n..",
       "4:  KEY = [abc]"},
      {"the first of two that share their end",
       "\nX = 1 ..\n\"M1\" = WALL\n\tA = 1\n\"M2\" = WALL\n KEY = abc\n..", "6:  KEY = [abc]"},
      {"tabs and CR LF", "$ x ..\r\n\"M1\"\t=\tWALL\r\n\tKEY\t=\t\"a  b\"\t..\r\n",
       "3: \tKEY\t=\t[\"a  b\"]\t.."},
      {"a default behind it",
       "\n\"M1\" = WALL A = 1 ..\n\nSET-DEFAULT FOR WALL\n\tKEY =  abc\n..\n", "5: \tKEY =  [abc]"},
      {"a default before it",
       "\r\nSET-DEFAULT FOR WALL\r\n\tKEY =  abc\r\n..\r\n\"M1\" = WALL A = 1 ..",
       "3: \tKEY =  [abc]"},
      {"its own value wins over the default",
       "\nSET-DEFAULT FOR WALL KEY = 1 ..\n\"M1\" = WALL KEY = abc ..",
       "3: \"M1\" = WALL KEY = [abc] .."},
      {"a value right before its dots, no defaults", "\n\"M1\" = WALL KEY = abc..",
       "2: \"M1\" = WALL KEY = [abc].."},
      {"a value right before its dots, defaults behind",
       "\n\"M1\" = WALL KEY = abc..\nSET-DEFAULT FOR WALL A = 1 ..",
       "2: \"M1\" = WALL KEY = [abc].."},
      {"a value right before its dots, defaults before",
       "\nSET-DEFAULT FOR WALL A = 1 ..\n\"M1\" = WALL KEY = abc..",
       "3: \"M1\" = WALL KEY = [abc].."},
      {"missing, no defaults: the =", "\n\"M1\" = WALL KEY =..", "2: \"M1\" = WALL KEY [=].."},
      {"in the defaults, right before the dots",
       "\n\"M1\" = WALL ..\nSET-DEFAULT FOR WALL KEY = abc..",
       "3: SET-DEFAULT FOR WALL KEY = [abc].."},
      {"missing in the defaults: the =", "\n\"M1\" = WALL ..\nSET-DEFAULT FOR WALL KEY =  ..",
       "3: SET-DEFAULT FOR WALL KEY [=]  .."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("modelo.inp:") + c.place, valueInWall(c.text));
  }
}

TEST(LugarDeValor, OfACommandWithTheSameEndIsItsOwn) {
  LoadedText file("\nX ..\n\"M1\" = WALL A = 1\n\"M2\" = WALL A = 2\n..\n");
  LeerBDL first(file.model, "WALL", "\"M1\"");
  LeerBDL second(file.model, "WALL", "\"M2\"");
  EXPECT_EQ("modelo.inp:3: \"M1\" = WALL A = [1]", marked(first, first.lugarDeValor("A ")));
  EXPECT_EQ("modelo.inp:4: \"M2\" = WALL A = [2]", marked(second, second.lugarDeValor("A ")));
}

TEST(LugarDeValor, OfACommandFoundByItsLongNameIsInTheFile) {
  EXPECT_EQ("modelo.inp:3:  KEY = [abc] ..",
            valueInWall("\n\"M1\" = WALL LONG-NAME = \"Muro\"\n KEY = abc ..", "KEY", "\"Muro\""));
}

TEST(LugarDeValor, OfABlockIsInTheFile) {
  const struct {
    const char* why;
    const char* text;
    const char* place;
  } cases[] = {
      {"a block", "\n\"C\" = HOUSE\n  KEY = abc\n..", "3:   KEY = [abc]"},
      {"tabs and CR LF", "$ x\r\n\"C\"\t=\tHOUSE\r\n\tKEY\t=\t( 1,\t2 )\r\n..",
       "3: \tKEY\t=\t[( 1,\t2 )]"},
      {"right before its dots", "\n\"C\" = HOUSE KEY = abc..\nX", "2: \"C\" = HOUSE KEY = [abc].."},
      {"missing at its end: the =", "\n\"C\" = HOUSE\nKEY =\n..", "3: KEY [=]"},
      {"a comment in it", "\n\"C\" = HOUSE\n$ KEY = 0 m\nKEY = 1\n..", "3: $ KEY = [0] m"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("modelo.inp:") + c.place, valueInBlock(c.text));
  }
}

TEST(LugarDeValor, OfACommandInABlockIsInTheFile) {
  LoadedText file("$ x\r\n\"C\" = HOUSE\r\n\"M1\" = WALL\r\n\tKEY = abc ..\r\n");
  bool found = false;
  LeerBDL block(file.model, "HOUSE", found);
  EXPECT_EQ("modelo.inp:4: \tKEY = [abc] ..", marked(block, block.lugarDeValor("KEY")));
  EXPECT_EQ("modelo.inp:3: [\"M1\"] = WALL", marked(block, block.lugarDe("\"M1\"")));
}

namespace {

/// Compares the place of KEY's value with what the getter reads; true when it reads one.
bool placeIsWhereTheGetterReads(LeerBDL& model) {
  std::string value;
  int outcome = -1;
  if (stopMessage([&] { outcome = model.leerCadena("KEY", value); }) != kNotStopped) return false;
  const std::optional<Span> span = model.lugarDeValor("KEY");
  EXPECT_EQ(outcome == 0, span.has_value());
  if (!span || outcome != 0) return false;
  const std::string_view bytes = model.fuente().bytes();
  EXPECT_LE(span->begin, span->end);
  EXPECT_LE(span->end, bytes.size());
  // The getter takes what comes next for a value that is missing.
  const std::string_view shown = bytes.substr(span->begin, span->end - span->begin);
  if (shown == "=" || span->begin == model.lugarDe("KEY")->begin) return false;
  std::string piece = normalised(bytes.substr(span->begin, span->end - span->begin));
  std::ranges::replace_if(
      piece, [](char c) { return c == '\n' || c == '\t'; }, ' ');
  // The defaults may go on where a command ends in the middle of a value.
  if (value.find("SET-DEFAULT") != std::string::npos) {
    EXPECT_TRUE(value.starts_with(piece)) << value << " and " << piece;
  } else {
    EXPECT_EQ(value, piece);
  }
  return true;
}

}  // namespace

TEST(LugarDeValor, IsWhereTheGetterReadsInAnyText) {
  constexpr std::string_view kPieces[] = {" ",
                                          "  ",
                                          "\t",
                                          "\n",
                                          "\n",
                                          "KEY",
                                          "KEY = ",
                                          "= ",
                                          "\"",
                                          "a",
                                          "\"b\"",
                                          "..",
                                          " .. ",
                                          "\n\"M1\" = WALL ",
                                          "\nSET-DEFAULT FOR WALL "};
  std::mt19937 random(20240813);
  int inFiles = 0;
  int inCommands = 0;
  for (int round = 0; round < 10000 && !testing::Test::HasFailure(); ++round) {
    std::string text = "\n";
    for (std::size_t left = random() % 20; left > 0; --left) {
      text += kPieces[random() % std::size(kPieces)];
    }
    SCOPED_TRACE(testing::PrintToString(text));
    LoadedText file(text);
    if (placeIsWhereTheGetterReads(file.model)) ++inFiles;
    std::optional<LeerBDL> wall;
    stopMessage([&] { wall.emplace(file.model, "WALL", "\"M1\""); });
    if (wall && placeIsWhereTheGetterReads(*wall)) ++inCommands;
  }
  EXPECT_GT(inFiles, 200) << "the texts must hold values";
  EXPECT_GT(inCommands, 200) << "the texts must hold values in commands";
}

TEST(LugarDeValor, OfAMissingPieceIsNone) {
  LoadedText file("\nKEY = 1 ..");
  LeerBDL missing(file.model, "WALL", "\"M9\"");
  EXPECT_EQ("(none)", marked(missing, missing.lugarDeValor("KEY")));
  EXPECT_EQ("(none)", marked(missing, missing.lugarDe("KEY")));
}
