#include "check/formats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "core/source_text.h"
#include "support/temporary_folder.h"

namespace {

using Json = nlohmann::json;

/// A warning about a span of a text that is called casa.tip.
Finding warningAt(std::string_view text, Span span, std::string message = "Aviso") {
  return {.code = Code::kComaDecimal,
          .message = std::move(message),
          .place = SourceText("casa.tip", text).placeOf(span)};
}

const Finding kFull = {
    .code = Code::kComaDecimal,
    .message = toCp1252("La PAÑO está escrita con coma"),
    .place = SourceText("casa.tip", toCp1252("\"T\" = VIVIENDA\nPAÑO = 2,4\n")).placeOf({22, 25}),
    .found = "2,4",
    .used = "2",
    .allowed = toCp1252("un número"),
    .suggestion = "2.4"};
const Finding kOfAFile = {.code = Code::kFaltaFichero,
                          .message = "No existe el fichero de datos *.tip",
                          .place = wholeFile("casa.tip")};
const Finding kOfNoPlace = {.code = Code::kOtroError, .message = "No hay memoria suficiente"};

}  // namespace

TEST(AsText, SaysAllInTheOrderInWhichItIsRead) {
  EXPECT_EQ(
      "aviso: La PAÑO está escrita con coma [coma-decimal]\n"
      "  casa.tip:2:8\n"
      "  PAÑO = 2,4\n"
      "         ^~~\n"
      "  se lee: 2,4\n"
      "  se usará: 2\n"
      "  se admite: un número\n"
      "  qué hacer: 2.4\n",
      asText(kFull));
}

TEST(AsText, WhatIsNotThereIsLeftOut) {
  EXPECT_EQ("error: No existe el fichero de datos *.tip [falta-fichero]\n  casa.tip\n",
            asText(kOfAFile));
  EXPECT_EQ("error: No hay memoria suficiente [otro-error]\n", asText(kOfNoPlace));
}

TEST(Words, AMessageWithoutAnyIsTheTitleOfItsCode) {
  for (const char* message : {": ", " ", ""}) {
    SCOPED_TRACE(message);
    const Finding finding = {.code = Code::kTipoDesconocido, .message = message};
    EXPECT_EQ("error: No existe ese número de tipología [tipo-desconocido]\n", asText(finding));
    EXPECT_EQ("tip2bdl-cli: error: No existe ese número de tipología [tipo-desconocido]\n",
              asGccLine(finding));
    EXPECT_EQ("No existe ese número de tipología",
              Json::parse(asJson({finding})).at("hallazgos").at(0).at("mensaje"));
  }
}

TEST(AsText, TheCaretStandsUnderItsSpan) {
  const struct {
    const char* why;
    std::string text;
    Span span;
    const char* shown;  // place, line and caret
  } cases[] = {
      {"first column", "TIPO = 1\n", {0, 4}, "  casa.tip:1:1\n  TIPO = 1\n  ^~~~\n"},
      {"one character", "TIPO = 1\n", {7, 8}, "  casa.tip:1:8\n  TIPO = 1\n         ^\n"},
      {"a point", "TIPO = 1\n", {5, 5}, "  casa.tip:1:6\n  TIPO = 1\n       ^\n"},
      {"behind tabs", "\tA\t= 1\n", {5, 6}, "  casa.tip:1:6\n  \tA\t= 1\n  \t \t  ^\n"},
      {"empty line", "A\n\nB\n", {2, 2}, "  casa.tip:2:1\n  \n  ^\n"},
      {"on the line end", "A = 1\nB\n", {5, 6}, "  casa.tip:1:6\n  A = 1\n       ^\n"},
      {"behind the last byte", "A = 1", {5, 5}, "  casa.tip:1:6\n  A = 1\n       ^\n"},
      {"behind the last line end", "A\n", {2, 2}, "  casa.tip:2:1\n  \n  ^\n"},
      {"the line end of Windows", "A = 1\r\nB\r\n", {4, 7}, "  casa.tip:1:5\n  A = 1\n      ^\n"},
      {"over two lines", "A = 1\nB = 2\n", {4, 9}, "  casa.tip:1:5\n  A = 1\n      ^\n"},
      {"behind an accent of Windows-1252",
       "A\xD1O = 2\n",
       {6, 7},
       "  casa.tip:1:7\n  AÑO = 2\n        ^\n"},
      {"behind an accent of UTF-8", "AÑO = 2\n", {7, 8}, "  casa.tip:1:7\n  AÑO = 2\n        ^\n"},
      {"accents in the span",
       "\"Salón\" = X\n",
       {0, 8},
       "  casa.tip:1:1\n  \"Salón\" = X\n  ^~~~~~~\n"},
      {"behind an accent of UTF-8 and a tab",
       "Ñ\t= 2\n",
       {5, 6},
       "  casa.tip:1:5\n  Ñ\t= 2\n   \t  ^\n"},
      {"behind control characters",
       "\x1B[31m\x07 2\n",
       {7, 8},
       "  casa.tip:1:8\n   [31m  2\n         ^\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("aviso: Aviso [coma-decimal]\n") + c.shown,
              asText(warningAt(c.text, c.span)));
  }
}

TEST(AsText, ColoursAreThereOnlyWhenAskedFor) {
  for (const Finding& finding : {kFull, kOfAFile, kOfNoPlace}) {
    EXPECT_EQ(std::string::npos, asText(finding).find('\x1B'));
    const std::string coloured = asText(finding, true);
    ASSERT_NE(std::string::npos, coloured.find("\x1B[1m"));
    EXPECT_TRUE(coloured.ends_with("\n"));
    // Every colour is taken back.
    std::string plain;
    bool on = false;
    for (std::size_t i = 0; i < coloured.size(); ++i) {
      if (coloured[i] != '\x1B') {
        plain += coloured[i];
        continue;
      }
      const std::size_t end = coloured.find('m', i);
      on = coloured.substr(i, end - i + 1) != "\x1B[0m";
      i = end;
    }
    EXPECT_FALSE(on);
    EXPECT_EQ(asText(finding), plain);
  }
}

TEST(AsText, NoControlCharacterOfAFileReachesATerminal) {
  // Order of colour, bell, delete, and the two-byte form of an order in UTF-8.
  const std::string orders = "A\x1B[31m\x07\x7F\xC2\x9B\r\x01Z";
  Finding finding = warningAt(orders + "\n", {0, 1}, orders);
  finding.place->file = orders;
  finding.found = finding.used = finding.allowed = finding.suggestion = orders;
  for (const std::string& text : {asText(finding), asGccLine(finding)}) {
    for (const char* order : {"\x1B", "\x07", "\x7F", "\xC2\x9B", "\r", "\x01"}) {
      EXPECT_EQ(std::string::npos, text.find(order)) << text;
    }
    EXPECT_NE(std::string::npos, text.find('Z'));
  }
}

TEST(AsGccLine, IsOneLineWithThePlaceInCharacters) {
  EXPECT_EQ("casa.tip:2:8: aviso: La PAÑO está escrita con coma [coma-decimal]\n",
            asGccLine(kFull));
  EXPECT_EQ("casa.tip: error: No existe el fichero de datos *.tip [falta-fichero]\n",
            asGccLine(kOfAFile));
  EXPECT_EQ("tip2bdl-cli: error: No hay memoria suficiente [otro-error]\n", asGccLine(kOfNoPlace));
  EXPECT_EQ("casa.tip:1:1: nota: Nada [poco-habitual]\n",
            asGccLine({.code = Code::kPocoHabitual,
                       .message = "Nada",
                       .place = SourceText("casa.tip", "A").placeOf({0, 1})}));
}

TEST(AsGccLine, StaysOneLineWhateverTheNames) {
  Finding finding = warningAt("A\n", {0, 1}, "dos\nrenglones");
  finding.place->file = "ca\nsa.tip";
  const std::string line = asGccLine(finding);
  EXPECT_EQ(1, std::count(line.begin(), line.end(), '\n'));
  EXPECT_EQ("ca sa.tip:1:1: aviso: dos renglones [coma-decimal]\n", line);
}

TEST(CountLine, NumbersAgreeWithTheirWords) {
  EXPECT_EQ("0 errores, 0 avisos, 0 notas", countLine({}));
  const Finding note = {.code = Code::kPocoHabitual, .message = ""};
  EXPECT_EQ("1 error, 1 aviso, 1 nota", countLine({kOfAFile, kFull, note}));
  EXPECT_EQ("2 errores, 0 avisos, 3 notas", countLine({kOfAFile, kOfNoPlace, note, note, note}));
}

TEST(AsJson, CarriesEveryPieceOfAFinding) {
  const Json json = Json::parse(asJson({kOfAFile, kFull, kOfNoPlace}));
  EXPECT_EQ(1, json["version"]);
  EXPECT_EQ(2, json["errores"]);
  EXPECT_EQ(1, json["avisos"]);
  EXPECT_EQ(0, json["notas"]);
  ASSERT_EQ(3U, json["hallazgos"].size());
  const Json expected = {{"codigo", "coma-decimal"},
                         {"gravedad", "aviso"},
                         {"mensaje", "La PAÑO está escrita con coma"},
                         {"fichero", "casa.tip"},
                         {"linea", 2},
                         {"columna", 8},
                         {"columna_final", 11},
                         {"columna_byte", 8},
                         {"columna_byte_final", 11},
                         {"texto", "PAÑO = 2,4"},
                         {"leido", "2,4"},
                         {"usado", "2"},
                         {"admitido", "un número"},
                         {"sugerencia", "2.4"}};
  EXPECT_EQ(expected, json["hallazgos"][1]);
  const Json ofAFile = {{"codigo", "falta-fichero"},
                        {"gravedad", "error"},
                        {"mensaje", "No existe el fichero de datos *.tip"},
                        {"fichero", "casa.tip"}};
  EXPECT_EQ(ofAFile, json["hallazgos"][0]);
  const Json ofNoPlace = {
      {"codigo", "otro-error"}, {"gravedad", "error"}, {"mensaje", "No hay memoria suficiente"}};
  EXPECT_EQ(ofNoPlace, json["hallazgos"][2]);
}

TEST(AsJson, BytesAndCharactersAreCountedApart) {
  const Json json = Json::parse(asJson({warningAt("AÑO = ñ2\n", {7, 10})}));
  const Json& finding = json["hallazgos"][0];
  EXPECT_EQ(7, finding["columna"]);
  EXPECT_EQ(9, finding["columna_final"]);
  EXPECT_EQ(8, finding["columna_byte"]);
  EXPECT_EQ(11, finding["columna_byte_final"]);
}

TEST(AsJson, AnyBytesGiveADocument) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  Finding finding = warningAt(all, {0, 1}, all);
  finding.found = finding.suggestion = all;
  EXPECT_EQ(1U, Json::parse(asJson({finding}))["hallazgos"].size());
  EXPECT_EQ(1U, Json::parse(asSarif({finding}))["runs"][0]["results"].size());
  EXPECT_EQ(0U, Json::parse(asJson({}))["hallazgos"].size());
}

TEST(AsSarif, NamesEveryRuleAndPointsAtIt) {
  const Json run = Json::parse(asSarif({kOfAFile, kFull, kOfNoPlace}))["runs"][0];
  const Json& rules = run["tool"]["driver"]["rules"];
  ASSERT_EQ(allCodes().size(), rules.size());
  for (const Json& result : run["results"]) {
    EXPECT_EQ(result["ruleId"], rules[result["ruleIndex"].get<std::size_t>()]["id"]);
  }
  EXPECT_EQ("unicodeCodePoints", run["columnKind"]);
}

TEST(AsSarif, HasARegionWhereThereIsALine) {
  const Json results = Json::parse(asSarif({kOfAFile, kFull, kOfNoPlace}))["runs"][0]["results"];
  EXPECT_EQ("error", results[0]["level"]);
  const Json& file = results[0]["locations"][0]["physicalLocation"];
  EXPECT_EQ("casa.tip", file["artifactLocation"]["uri"]);
  EXPECT_FALSE(file.contains("region"));
  EXPECT_EQ("warning", results[1]["level"]);
  const Json& region = results[1]["locations"][0]["physicalLocation"]["region"];
  EXPECT_EQ(2, region["startLine"]);
  EXPECT_EQ(8, region["startColumn"]);
  EXPECT_EQ(2, region["endLine"]);
  EXPECT_EQ(11, region["endColumn"]);
  EXPECT_EQ("PAÑO = 2,4", region["snippet"]["text"]);
  EXPECT_FALSE(results[2].contains("locations"));
}

TEST(AsSarif, AMessageIsNeverEmptyAndAPathIsAReference) {
  Finding finding = kOfAFile;
  finding.place->file = "mis casas/ca:sa.tip";
  finding.code = Code::kTipoDesconocido;
  finding.message = " ";
  const Json result = Json::parse(asSarif({finding}))["runs"][0]["results"][0];
  EXPECT_EQ("No existe ese número de tipología", result["message"]["text"]);
  EXPECT_EQ("mis%20casas/ca%3Asa.tip",
            result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"]);
}
