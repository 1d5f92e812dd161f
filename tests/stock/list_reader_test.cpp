#include "stock/list_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "list_text.h"
#include "stock/list_numbers.h"
#include "support/new_files.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

using stock::readListInteger;
using stock::readListNumber;

TEST(ListReader, TheFirstLineSaysWhatSeparates) {
  const struct {
    const char* why;
    const char* text;
    char separator;
  } cases[] = {
      {"a Spanish spreadsheet", "ID;TIPO\n", ';'},
      {"an English one", "ID,TIPO\n", ','},
      {"tabs", "ID\tTIPO\n", '\t'},
      {"one column", "ID\n", ';'},
      {"nothing", "", ';'},
      {"what stands in quotes separates nothing", "\"a,b,c,d\";TIPO\n", ';'},
      {"only the first line counts", "ID;TIPO\na,b,c,d\n", ';'},
      {"what a line for spreadsheets says", "sep=,\nID;a;b;c,TIPO\n", ','},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    stock::ListReader list = listOf(c.text);
    stock::Record record;
    list.next(record);
    EXPECT_EQ(c.separator, list.separator());
  }
}

TEST(ListReader, HandsOutCellsAsTheyAreMeant) {
  const struct {
    const char* why;
    std::string text;
    Rows rows;
  } cases[] = {
      {"LF", "a;b\nc;d\n", {{"a", "b"}, {"c", "d"}}},
      {"CR LF", "a;b\r\nc;d\r\n", {{"a", "b"}, {"c", "d"}}},
      {"no line end at the end", "a;b\nc;d", {{"a", "b"}, {"c", "d"}}},
      {"empty cells", "a;;b\n;x;\n", {{"a", "", "b"}, {"", "x", ""}}},
      {"lines without content", "\na;b\n\r\n;\n ; \nc;d\n\n", {{"a", "b"}, {"c", "d"}}},
      {"a separator in quotes", "a;b\n\"x;y\";z\n", {{"a", "b"}, {"x;y", "z"}}},
      {"a doubled quote", "a;b\n\"x\"\"y\";\"\"\"\"\n", {{"a", "b"}, {"x\"y", "\""}}},
      {"line ends in quotes", "a;b\n\"x\ny\r\nz\";w\n", {{"a", "b"}, {"x\ny\r\nz", "w"}}},
      {"a quote inside a cell", "a;b\nx\"y;z\n", {{"a", "b"}, {"x\"y", "z"}}},
      {"a lone CR", "a;b\nx\ry;z\n", {{"a", "b"}, {"x\ry", "z"}}},
      {"quoted at the end of the text", "a;b\nx;\"y\"", {{"a", "b"}, {"x", "y"}}},
      {"UTF-8", "a;ñ\n", {{"a", "ñ"}}},
      {"UTF-8 with its mark",
       "\xEF\xBB\xBF"
       "a;ñ\n",
       {{"a", "ñ"}}},
      {"Windows-1252", "a;\xF1\x80\n", {{"a", "ñ€"}}},
      {"a line for spreadsheets", "sep=,\r\na,b;c\n", {{"a", "b;c"}}},
      {"the same behind the mark",
       "\xEF\xBB\xBF"
       "sep=\t\na\tb\n",
       {{"a", "b"}}},
      {"a column that begins like it", "sep=a;b\n", {{"sep=a", "b"}}},
      {"one of no such separator", "sep=|\na;b\n", {{"sep=|"}, {"a", "b"}}},
      {"one that ends the text", "sep=;", {{"sep=", ""}}},
      {"blanks stay", " a ; b\n", {{" a ", " b"}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.rows, rowsOf(listOf(c.text)));
    EXPECT_EQ(c.rows, rowsOf(listOf(c.text, 1))) << "a byte at a time";
  }
}

TEST(ListReader, EveryCellKnowsItsPlace) {
  stock::ListReader list = listOf(
      "\xEF\xBB\xBF"
      "a;b\r\n\"x\ny\";ñ;z\r\nc;d\r\n");
  stock::Record record;
  ASSERT_TRUE(list.next(record));
  EXPECT_EQ(1, record.fields()[0].column) << "the mark is not counted";
  ASSERT_TRUE(list.next(record));
  EXPECT_EQ(2, record.line());
  EXPECT_EQ(3, record.fields()[1].line);
  EXPECT_EQ(4, record.fields()[1].column);
  EXPECT_EQ(7, record.fields()[2].column) << "in bytes";
  ASSERT_TRUE(list.next(record));
  EXPECT_EQ(4, record.line());
}

TEST(ListReader, SaysWhereSomethingStandsBehindAClosingQuote) {
  stock::ListReader list = listOf("a;b\nx;\"y\"z\nx;\"y\"\n");
  stock::Record record;
  list.next(record);
  EXPECT_EQ(-1, record.badQuotes());
  list.next(record);
  EXPECT_EQ(1, record.badQuotes());
  EXPECT_EQ("yz", record.fields()[1].text);
  list.next(record);
  EXPECT_EQ(-1, record.badQuotes());
}

TEST(ListReader, WhatCannotBeAListEndsTheRun) {
  const std::string kStart = "Error en el fichero lista.csv, línea ";
  const struct {
    const char* why;
    std::string text;
    std::string message;
  } cases[] = {
      {"quotes left open: at their line", "a;b\nx;y\n\"x;y\nz;w\n",
       kStart + "3: faltan las comillas de cierre"},
      {"NUL", std::string("a;b\nx;\0\n", 8),
       kStart + "2: contiene un carácter nulo: no es un fichero de texto"},
      {"UTF-16",
       "\xFF\xFE"
       "a;b\n",
       kStart + "1: está en UTF-16; debe guardarse en UTF-8 o en Windows-1252"},
      {"an endless row", "a;b\n" + std::string(stock::ListReader::kLargestRow + 1, 'x'),
       kStart + "2: la fila es demasiado larga; quizá falten unas comillas de cierre"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.message, stopMessage([&] { rowsOf(listOf(c.text)); }));
  }
}

TEST(ListReader, AFileThatIsNotThereEndsTheRun) {
  const TemporaryFolder folder;
  const std::string path = folder / "no.csv";
  EXPECT_EQ("Error al abrir fichero de lectura: " + path,
            stopMessage([&] { stock::ListReader::open(path); }));
}

TEST(ListReader, AFolderEndsTheRun) {
  const TemporaryFolder folder;
  EXPECT_EQ("Error al leer fichero: " + folder.path(),
            stopMessage([&] { rowsOf(stock::ListReader::open(folder.path())); }));
}

TEST(ListReader, APipeIsRefusedAndNotWaitedFor) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "lista.csv";
  if (!makePipe(pipe)) GTEST_SKIP() << "no pipes with names here";
  EXPECT_EQ("La lista debe ser un fichero y no un tubo ni un dispositivo: " + pipe,
            stopMessage([&] { rowsOf(stock::ListReader::open(pipe)); }));
}

TEST(ListReader, ReadsBackWhatIsWrittenByTheRules) {
  std::mt19937 random(1);
  constexpr std::string_view kAlphabet = "ab;\",\n\r\t ";
  const auto any = [&](std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
  };
  for (int i = 0; i < 500; ++i) {
    Rows rows(1 + any(5), std::vector<std::string>(1 + any(4)));
    std::string text;
    rows.insert(rows.begin(), {"cabecera;", "de la lista"});
    for (auto& row : rows) {
      std::string line;
      for (std::string& cell : row) {
        if (&row != &rows.front()) {
          cell = "x";
          for (std::size_t k = any(6); k > 0; --k) cell += kAlphabet[any(kAlphabet.size())];
        }
        line += line.empty() ? "\"" : ";\"";
        for (const char c : cell) line += c == '"' ? std::string("\"\"") : std::string(1, c);
        line += '"';
      }
      text += line + (any(2) == 0 ? "\n" : "\r\n");
    }
    SCOPED_TRACE(text);
    EXPECT_EQ(rows, rowsOf(listOf(text, 1 + any(9))));
  }
}

TEST(ListNumbers, AreReadAsPeopleWriteThem) {
  const struct {
    const char* text;
    bool commaSeparates;
    const char* read;
    bool noted;
  } cases[] = {
      {"12,5", false, "12.5", false},     {"12.5", false, "12.5", false},
      {"12.5", true, "12.5", false},      {"110", true, "110", false},
      {"-3,25", false, "-3.25", false},   {"+3", false, "+3", false},
      {"1.200", false, "1.200", true},    {"1,200", false, "1.200", false},
      {"1.2000", false, "1.2000", false}, {"1e3", false, "1e3", false},
      {"1,5E-2", false, "1.5E-2", false}, {"0.630", true, "0.630", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const stock::ListNumber number = readListNumber(c.text, c.commaSeparates);
    EXPECT_EQ("", number.fault);
    EXPECT_EQ(c.read, number.text);
    EXPECT_EQ(c.noted, number.noted);
  }
}

TEST(ListNumbers, WhatIsNoneIsRefusedWithItsReason) {
  constexpr auto kMixed = "mezcla punto y coma; escriba un solo separador decimal";
  const struct {
    const char* text;
    bool commaSeparates;
    const char* fault;
  } cases[] = {
      {"1.234,5", false, kMixed},
      {"1,234.5", true, kMixed},
      {"12,5", true, "tiene una coma, que en esta lista separa las columnas; escriba un punto"},
      {"", false, "no es un número"},
      {",5", false, "no es un número"},
      {"5,", false, "no es un número"},
      {"1,2,3", false, "no es un número"},
      {"12 m2", false, "no es un número"},
      {"1e", false, "no es un número"},
      {"nan", false, "no es un número"},
      {"0x10", false, "no es un número"},
      {"--1", false, "no es un número"},
      {"11111111111111111111111111111111111111111", false, "es demasiado largo"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const stock::ListNumber number = readListNumber(c.text, c.commaSeparates);
    EXPECT_EQ(c.fault, number.fault);
    EXPECT_EQ("", number.text);
  }
  EXPECT_EQ("no es un número entero", readListInteger("3,5", false).fault);
  EXPECT_EQ("no es un número entero", readListInteger("3.000", false).fault) << "or three thousand";
  EXPECT_EQ("no es un número entero", readListInteger("", false).fault);
  EXPECT_EQ("es demasiado grande", readListInteger("9999999999", false).fault);
  EXPECT_EQ("22", readListInteger("22", false).text);
  EXPECT_EQ("-3", readListInteger("-3,0", false).text);
  EXPECT_EQ("3", readListInteger("3.00", true).text);
  EXPECT_NE("", readListInteger("3,0", true).fault);
}
