#include <gtest/gtest.h>

#include <algorithm>

#include "check/written_fixture.h"

using enum Code;

namespace {

/// One finding of a text's bytes, and where.
struct Bytes {
  const char* why;
  std::string text;
  Code code;
  long line, column;
  std::size_t length;
  std::string_view found;
};

void expectBytes(const Bytes& c) {
  SCOPED_TRACE(c.why);
  const Findings findings = findingsOf(c.text);
  SCOPED_TRACE(asLines(findings));
  ASSERT_EQ(1U, findings.size());
  EXPECT_EQ(c.code, findings.front().code);
  EXPECT_EQ(c.line, findings.front().place->line);
  EXPECT_EQ(c.column, findings.front().place->column);
  EXPECT_EQ(c.length, findings.front().place->length);
  EXPECT_EQ(c.found, findings.front().found);
}

WrittenFile14 file() { return {}; }

}  // namespace

TEST(WrittenBytes, AnotherEncodingAndControlCharactersHaveTheirFinding) {
  const std::string plain = file().text();
  const Bytes cases[] = {
      {"UTF-8 in a name", file().with("SUELOS", "   SUELOS = \"Cer\xC3\xA1mica\"").text(), kUtf8,
       22, 17, 2, "\xC3\xA1"},
      {"UTF-8 in a comment", file().with("$", "$ Ba\xC3\xB1o").text(), kUtf8, 1, 5, 2, "\xC3\xB1"},
      {"the first of several", file().with("$", "$ \xE2\x82\xAC \xC3\xB1").text(), kUtf8, 1, 3, 3,
       "\xE2\x82\xAC"},
      {"a mark", "\xEF\xBB\xBF" + plain, kMarcaDeOrden, 1, 1, 3, "EF BB BF"},
      {"a bell", file().with("$", "$ a\ab").text(), kCaracterDeControl, 1, 4, 1, "07"},
      {"the end of an old file", plain + "\x1A", kCaracterDeControl, 37, 1, 1, "1A"},
      {"delete", file().with("$", "$\x7F\x01").text(), kCaracterDeControl, 1, 2, 1, "7F"},
      {"a hard blank", file().with("TIPO", "\xA0TIPO = 14").text(), kCaracterDeControl, 4, 1, 1,
       "A0"},
      {"LF among CR LF", file().lineEnd("\r\n").behind("$\n").text(), kFinesDeLinea, 37, 2, 0,
       "LF"},
      {"CR LF among LF", file().behind("$\r\n").text(), kFinesDeLinea, 37, 2, 0, "CR LF"},
      {"a lone CR", file().behind("$ a\r$ b\n").text(), kFinesDeLinea, 37, 4, 0, "CR"},
  };
  for (const Bytes& c : cases) expectBytes(c);
}

TEST(WrittenBytes, AccentsOfWindows1252AreLetBe) {
  for (const std::string_view name :
       {"Cer\xE1mica", "\xC1rido", "5 \x80", "\xC3\x41", "\xC3 \xA1", "\xE1\xC3\xA1", "\xFF\xFE",
        "a\xA0"
        "b",
        "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE0\x80\x80"}) {
    const std::string line = "   SUELOS = \"" + std::string(name) + "\"";
    EXPECT_EQ("", asLines(findingsOf(file().with("SUELOS", line).text()))) << line;
  }
  for (const std::string_view end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ("", asLines(findingsOf(file().lineEnd(end).text()))) << end;
  }
}

TEST(WrittenBytes, AFileInUtf16IsTold) {
  const Findings findings = findingsOf(std::string_view("\xFF\xFE\"\0a\0", 6));
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(kMarcaDeOrden, findings.front().code);
  EXPECT_EQ("FF FE", findings.front().found);
}
