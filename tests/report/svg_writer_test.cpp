#include "report/svg_writer.h"

#include <gtest/gtest.h>

#include "report/words.h"

using report::Drawing;
using report::Sign;
using report::SvgPlace;

TEST(SvgWriter, WhatAnInputSaysComesOutAsText) {
  const struct {
    const char* why;
    std::string_view text, written;
  } rows[] = {
      {"markup", "</text><script>", "&lt;/text&gt;&lt;script&gt;"},
      {"an entity", "A&amp;B", "A&amp;amp;B"},
      {"quotes", "\"a\" 'b'", "&quot;a&quot; &#39;b&#39;"},
      {"a control character, which XML forbids", "a\x01z", "a\uFFFDz"},
      {"a NUL", std::string_view("a\0z", 3), "a\uFFFDz"},
      {"a control of Windows-1252 without a character", "a\x81z", "a\uFFFDz"},
      {"a letter of Windows-1252", "\xD1", "Ñ"},
      {"a letter of UTF-8", "Ñ", "Ñ"},
      {"a code point that is no character", "a\xEF\xBF\xBFz", "a\uFFFDz"},
      {"a mark that turns the direction of writing", "a\u202Ez", "a\uFFFDz"},
      {"one that isolates", "a\u2067z", "a\uFFFDz"},
      {"a sign beside those marks", "a\u2013z", "a\u2013z"},
      {"a tab", "a\tz", "a\tz"},
      {"nothing", "", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(row.written, report::escaped(row.text)) << row.why;
}

TEST(SvgWriter, CoordinatesHaveTwoDecimalsAtMostAndNoMinusZero) {
  const struct {
    double value;
    const char* written;
  } rows[] = {{0, "0"},       {-0.0, "0"},     {-0.004, "0"},    {12, "12"},
              {12.5, "12.5"}, {1.255, "1.25"}, {-3.25, "-3.25"}, {100, "100"}};
  for (const auto& row : rows) EXPECT_EQ(row.written, report::coordinate(row.value));
}

TEST(SvgWriter, AFileCarriesItsStyleAndAPageDoesNot) {
  Drawing drawing;
  drawing.width = 10;
  drawing.height = 5;
  drawing.title = "<a>";
  drawing.line(Sign::kFacade, {0, 0}, {1.234567, 2});
  drawing.labels.push_back({{1, 2}, 3.5, report::Anchor::kMiddle, true, false, "A & B"});
  EXPECT_EQ(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"dibujo\" width=\"10mm\" height=\"5mm\" "
      "viewBox=\"0 0 10 5\" role=\"img\" aria-labelledby=\"x-t x-d\">\n"
      "<title id=\"x-t\">&lt;a&gt;</title>\n<desc id=\"x-d\"></desc>\n"
      "<path class=\"fachada\" d=\"M0 0L1.23 2\"/>\n"
      "<text class=\"m c\" x=\"1\" y=\"2\" transform=\"rotate(-90 1 2)\">A &amp; B</text>\n"
      "</svg>\n",
      report::svg(drawing, SvgPlace::kInPage, "x"));
  EXPECT_NE(std::string::npos, report::svg(drawing, SvgPlace::kFile).find("<style>"));
  EXPECT_EQ(std::string::npos, report::svg(drawing, SvgPlace::kFile).find("var("));
}

TEST(Words, NumbersAreSpanish) {
  EXPECT_EQ("12,50", report::number(12.5, 2));
  EXPECT_EQ("1234,5", report::number(1234.5, 1));
  EXPECT_EQ("12\u202F345,6", report::number(12345.6, 1));
  EXPECT_EQ("1\u202F234\u202F567", report::number(1234567, 0));
  EXPECT_EQ("0,00", report::number(-0.001, 2));
  EXPECT_EQ("−2,5", report::number(-2.5, 1));
  EXPECT_EQ("30", report::shortNumber(30, 2));
  EXPECT_EQ("0,63", report::shortNumber(0.63, 3));
  EXPECT_EQ("45\u00A0m²", report::quantity(45, 0, "m²"));
}

TEST(Words, DirectionsAreTheEightOfThePractice) {
  const struct {
    double azimuth;
    const char* symbol;
  } rows[] = {{0, "N"},      {22.5, "N"}, {22.6, "NE"},  {60, "NE"},    {60.1, "E"},   {111, "E"},
              {111.1, "SE"}, {162, "SE"}, {162.1, "S"},  {198, "S"},    {198.1, "SO"}, {249, "SO"},
              {249.1, "O"},  {300, "O"},  {300.1, "NO"}, {337.5, "NO"}, {337.6, "N"}};
  for (const auto& row : rows)
    EXPECT_EQ(row.symbol, report::directionSymbol(row.azimuth)) << row.azimuth;
}

TEST(Words, ATurnIsClockwise) {
  EXPECT_EQ(270, report::realAzimuth(kSouth, 90));
  EXPECT_EQ(180, report::realAzimuth(kEast, 90));
  EXPECT_EQ(0, report::realAzimuth(kNorth, -360));
  EXPECT_EQ(225, report::realAzimuth(kWest, -405));
}

TEST(TextWidth, ACutTextFits) {
  const std::string cut = report::cutToWidth("Ñandú ñoño y otras palabras", 2.5, 30);
  EXPECT_LE(report::textWidth(cut, 2.5), 30);
  EXPECT_TRUE(cut.ends_with("…"));
  EXPECT_EQ("corto", report::cutToWidth("corto", 2.5, 30));
}

TEST(TextWidth, WrappedLinesFitAndLoseNothing) {
  std::string joined;
  for (const std::string& line : report::wrapped("uno dos tres cuatro cinco", 2.5, 25)) {
    EXPECT_LE(report::textWidth(line, 2.5), 25);
    joined += line + " ";
  }
  EXPECT_EQ("uno dos tres cuatro cinco ", joined);
}
