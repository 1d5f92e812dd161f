#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>

#include "typology/typology_file.h"

using testing::Each;
using testing::ElementsAre;

namespace {

using R = TypologyRecord;

R recordWith(std::string_view keyword, std::string_view value) {
  return TypologyFile().with(keyword, value).record();
}

R recordWithout(std::string_view keyword) { return TypologyFile().without(keyword).record(); }

struct OptionalReal {
  std::string_view keyword;
  float R::*field;
  float ifAbsent;
};

constexpr OptionalReal kOptionalReals[] = {
    {"ALTURA-PLANTA", &R::alturaPlanta, 3.0F},
    {"AREA-PATIO", &R::areaPatio, 0},
    {"AREA-ESCALERA", &R::areaEscalera, 0},
    {"PROFUNDIDAD-PATIO", &R::profundidadPatio, 0},
    {"PROFUNDIDAD-ESCALERA", &R::profundidadEscalera, 0},
    {"ORIENTACION", &R::orientacion, 0},
    {"AIR-CHANGES/HR", &R::airChangesHr, 1.0F},
};

struct Name {
  std::string_view keyword;
  std::string R::*field;
};

/// Searched with a blank before and behind.
constexpr Name kConstructions[] = {
    {"MUROS-FACHADA", &R::murosFachada},
    {"PARTICION-INTERIOR-VERTICAL", &R::particionInteriorVertical},
    {"MEDIANERA", &R::medianera},
    {"SUELOS", &R::suelos},
    {"PARTICION-INTERIOR-HORIZONTAL", &R::particionInteriorHorizontal},
    {"CUBIERTAS", &R::cubiertas},
};

constexpr Name kWindows[] = {
    {"VENTANA-VIDRIO", &R::ventanaVidrio},
    {"VENTANA-MARCO", &R::ventanaMarco},
    {"VENTANA-SOMBRA", &R::ventanaSombra},
};

/// Whether a table of this file has a row for the keyword.
template <typename Rows>
bool hasRow(const Rows& rows, std::string_view keyword) {
  return std::ranges::any_of(rows, [&](const auto& row) { return row.keyword == keyword; });
}

/// What a value of the file stands for, read without the reader that is tested.
struct ValueOfTheFile {
  const R& record;
  std::string text;

  void operator()(int R::*field) const { EXPECT_EQ(text, std::to_string(record.*field)); }
  void operator()(float R::*field) const {
    EXPECT_EQ(std::strtof(text.c_str(), nullptr), record.*field);
  }
  void operator()(PerFacade<float> R::*field) const {
    PerFacade<float> values{};
    char delimiter = 0;
    std::istringstream list(text);
    for (float& value : values) list >> delimiter >> value;
    EXPECT_TRUE(list) << text;
    EXPECT_EQ(values, record.*field);
  }
  void operator()(std::string R::*field) const { EXPECT_EQ(text, record.*field); }
  void operator()(const IgnoredText& ignored) const { EXPECT_EQ(text, record.*ignored.kept); }
};

/// The values of the file of these tests.
void expectWholeFile(const R& record) {
  EXPECT_EQ(1, record.tipo);
  EXPECT_EQ(1, record.numeroPlantas);
  EXPECT_EQ(2.8F, record.alturaPlanta);
  EXPECT_EQ(110.5F, record.areaPlanta);
  EXPECT_EQ(12.25F, record.areaPatio);
  EXPECT_EQ(9.5F, record.areaEscalera);
  EXPECT_EQ(11.2F, record.longitudFachada);
  EXPECT_EQ(3.4F, record.profundidadPatio);
  EXPECT_EQ(4.6F, record.profundidadEscalera);
  EXPECT_THAT(record.porcentajeFachada, ElementsAre(22.0F, 12.5F, 10.0F, 14.0F));
  EXPECT_THAT(record.porcentajePatio, ElementsAre(1.0F, 2.5F, 3.0F, 4.0F));
  EXPECT_EQ(90.0F, record.orientacion);
  EXPECT_EQ("\"Muro exterior\"", record.murosFachada);
  EXPECT_EQ("\"Tabique\"", record.particionInteriorVertical);
  EXPECT_EQ("\"Medianera 1\"", record.medianera);
  EXPECT_EQ("\"Solera\"", record.suelos);
  EXPECT_EQ("\"Forjado\"", record.particionInteriorHorizontal);
  EXPECT_EQ("\"Cubierta plana\"", record.cubiertas);
  EXPECT_EQ("\"Doble 4-12-4\"", record.ventanaVidrio);
  EXPECT_EQ("\"PVC\"", record.ventanaMarco);
  EXPECT_EQ("\"Voladizo\"", record.ventanaSombra);
  EXPECT_EQ(0.63F, record.airChangesHr);
}

}  // namespace

TEST(TypologyRecord, HoldsTheValuesOfTheFile) { expectWholeFile(TypologyFile().record()); }

TEST(TypologyRecord, EveryKeywordFillsItsField) {
  const R record = TypologyFile().record();
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    SCOPED_TRACE(keyword.name);
    std::visit(ValueOfTheFile{record, TypologyFile().valueOf(keyword.name).value_or("")},
               keyword.field);
  }
}

TEST(TypologyRecord, EveryKeywordIsInTheTablesOfTheseTests) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    EXPECT_TRUE(TypologyFile().valueOf(keyword.name))
        << keyword.name << " is in no row of the file of these tests, typology_file.h";
    if (std::holds_alternative<float R::*>(keyword.field) && !keyword.required) {
      EXPECT_TRUE(hasRow(kOptionalReals, keyword.name))
          << keyword.name << " is in no row of kOptionalReals";
    }
    if (std::holds_alternative<std::string R::*>(keyword.field)) {
      const bool blanks = keyword.pattern != keyword.name;
      EXPECT_TRUE(blanks ? hasRow(kConstructions, keyword.name) : hasRow(kWindows, keyword.name))
          << keyword.name << " is in no row of " << (blanks ? "kConstructions" : "kWindows");
    }
  }
}

TEST(TypologyRecord, ReadsCrLf) { expectWholeFile(TypologyFile().lineEnd("\r\n").record()); }

TEST(TypologyRecord, ReadsTabs) {
  expectWholeFile(TypologyFile().lineEnd("\n\t").equals("\t=\t").record());
}

TEST(TypologyRecord, ReadsAFileOnOneLine) { expectWholeFile(TypologyFile().lineEnd(" ").record()); }

TEST(TypologyRecord, ReadsTheFirstOfTwoViviendas) {
  expectWholeFile(TypologyFile().behind("\"D\" = VIVIENDA\nTIPO = 5\n..\n").record());
}

TEST(TypologyRecord, KnowsItsFile) {
  const R record(SourceText("obra/casa.tip", TypologyFile().text()));
  EXPECT_EQ("obra/casa.tip", record.fuente().name());
  EXPECT_EQ(TypologyFile().text(), record.fuente().bytes());
}

TEST(TypologyRecord, AnOptionalRealThatIsAbsentHasItsDefault) {
  for (const OptionalReal& real : kOptionalReals) {
    EXPECT_EQ(real.ifAbsent, recordWithout(real.keyword).*real.field) << real.keyword;
  }
}

TEST(TypologyRecord, AnOptionalRealThatDoesNotConvertCountsAsAbsent) {
  for (const OptionalReal& real : kOptionalReals) {
    for (const char* value : {"abc", "\"7\"", "- 7"}) {
      EXPECT_EQ(real.ifAbsent, recordWith(real.keyword, value).*real.field)
          << real.keyword << " = " << value;
    }
  }
}

TEST(TypologyRecord, ARealIsReadAsTheCLibraryDoes) {
  for (const OptionalReal& real : kOptionalReals) {
    SCOPED_TRACE(real.keyword);
    EXPECT_EQ(7.25F, recordWith(real.keyword, "7.25m").*real.field);
    EXPECT_EQ(7.0F, recordWith(real.keyword, "7,25").*real.field);
    EXPECT_EQ(0.0725F, recordWith(real.keyword, "+7.25e-2").*real.field);
  }
}

TEST(TypologyRecord, TheStartOfAKeywordIsNotTheKeyword) {
  for (const OptionalReal& real : kOptionalReals) {
    std::string_view start = real.keyword;
    start.remove_suffix(1);
    EXPECT_EQ(real.ifAbsent,
              TypologyFile().without(real.keyword).withWord(start, "7").record().*real.field)
        << real.keyword;
  }
  EXPECT_EQ(
      1.0F,
      TypologyFile().without("AIR-CHANGES/HR").withWord("AIR-CHANGES", "7").record().airChangesHr);
}

TEST(TypologyRecord, TheGlassOfTheCourtyardIs0WhenAbsent) {
  EXPECT_THAT(recordWithout("PORCENTAJE-PATIO").porcentajePatio, Each(0.0F));
}

TEST(TypologyRecord, PercentagesThatAreMissingOrNoNumbersStay0) {
  const struct {
    const char* why;
    const char* list;
    PerFacade<float> read;
  } cases[] = {
      {"one", "( 5 )", {5, 0, 0, 0}},
      {"three", "( 5, 6, 7 )", {5, 6, 7, 0}},
      {"an empty list", "( )", {0, 0, 0, 0}},
      {"a word", "( 5, x, 7, 8 )", {5, 0, 7, 8}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.read, recordWith("PORCENTAJE-FACHADA", c.list).porcentajeFachada);
    EXPECT_EQ(c.read, recordWith("PORCENTAJE-PATIO", c.list).porcentajePatio);
  }
}

TEST(TypologyRecord, AListWhoseBracketsTouchTakesTheNextOnesValues) {
  EXPECT_EQ((PerFacade<float>{0, 2.5F, 3, 4}),
            recordWith("PORCENTAJE-FACHADA", "()").porcentajeFachada);
}

TEST(TypologyRecord, RoofAtticAndBasementAreReplacedWhateverTheFileSays) {
  const R record = TypologyFile()
                       .with("CUBIERTA", "INCLINADA")
                       .with("ATICO", "SI")
                       .with("SOTANO", "SI")
                       .record();
  EXPECT_EQ("PLANA", record.cubierta);
  EXPECT_EQ("NO", record.atico);
  EXPECT_EQ("NO", record.sotano);
}

TEST(TypologyRecord, RoofAtticAndBasementMayBeAbsent) {
  const R record = TypologyFile().without("CUBIERTA").without("ATICO").without("SOTANO").record();
  EXPECT_EQ("PLANA", record.cubierta);
  EXPECT_EQ("NO", record.atico);
  EXPECT_EQ("NO", record.sotano);
}

TEST(TypologyRecord, AQuotedNameKeepsItsQuotes) {
  for (const Name& name : kConstructions) {
    EXPECT_EQ("\"Un nombre\"", recordWith(name.keyword, "\"Un nombre\"").*name.field);
  }
  for (const Name& name : kWindows) {
    EXPECT_EQ("\"Un nombre\"", recordWith(name.keyword, "\"Un nombre\"").*name.field);
  }
}

TEST(TypologyRecord, ANameWithoutQuotesEndsAtTheFirstBlank) {
  for (const Name& name : kConstructions) {
    EXPECT_EQ("Un", recordWith(name.keyword, "Un nombre").*name.field) << name.keyword;
  }
  for (const Name& name : kWindows) {
    EXPECT_EQ("Un", recordWith(name.keyword, "Un nombre").*name.field) << name.keyword;
  }
}

TEST(TypologyRecord, ANameKeepsTheBytesOfTheFile) {
  EXPECT_EQ(
      "\"Tabiquer\xED"
      "a\"",
      recordWith("SUELOS",
                 "\"Tabiquer\xED"
                 "a\"")
          .suelos);
}

TEST(TypologyRecord, FrameAndShadeMayBeAbsent) {
  EXPECT_EQ("", recordWithout("VENTANA-MARCO").ventanaMarco);
  EXPECT_EQ("", recordWithout("VENTANA-SOMBRA").ventanaSombra);
}

TEST(TypologyRecord, ConstructionsAreSearchedWithABlankOnBothSides) {
  for (const Name& name : kConstructions) {
    const std::string missing =
        "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD " +
        std::string(name.keyword);
    const std::string value = "= \"Otro\"\n";
    TypologyFile file;
    file.without(name.keyword);
    const std::string others = file.text();
    const auto stopWithLine = [&](const std::string& line) {
      std::string text = others;
      return TypologyFile::stopOf(text.insert(text.rfind(".."), line + value));
    };
    const std::string keyword(name.keyword);
    EXPECT_EQ(kNotStopped, stopWithLine(keyword + " "));
    EXPECT_EQ(missing, stopWithLine(keyword)) << "no blank behind";
    EXPECT_EQ(missing, stopWithLine("X-" + keyword + " ")) << "no blank before";
    EXPECT_EQ(missing, stopWithLine(keyword + "-2 ")) << "a longer word";
  }
}

TEST(TypologyRecord, AConstructionIsNotMetInsideALongerKeyword) {
  EXPECT_EQ("\"Medianera 1\"", recordWith("MUROS-FACHADA", "MEDIANERA-X").medianera);
}

TEST(TypologyRecord, OtherKeywordsAreFoundInsideLongerWordsThatComeEarlier) {
  EXPECT_EQ(
      7.0F,
      TypologyFile().without("AREA-PATIO").withWord("SUBAREA-PATIO-2", "7").record().areaPatio);
  EXPECT_EQ("\"Doble\"", TypologyFile()
                             .without("VENTANA-VIDRIO")
                             .withWord("XVENTANA-VIDRIOX", "\"Doble\"")
                             .record()
                             .ventanaVidrio);
}

TEST(TypologyRecord, TipoIsFoundInTheNameOfTheCommandWhereThatHoldsVivienda) {
  const std::string text = TypologyFile().text();
  const std::string rest = text.substr(text.find("TIPO"));
  const auto named = [&](const std::string& name) {
    return "\n\"" + name + "\" = VIVIENDA\n" + rest;
  };
  const std::string missing =
      "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD TIPO";
  EXPECT_EQ(missing, TypologyFile::stopOf(named("VIVIENDA TIPO A")))
      << "the next value is the word VIVIENDA";
  EXPECT_EQ(kNotStopped, TypologyFile::stopOf(named("VIVIENDA A")));
  EXPECT_EQ(kNotStopped, TypologyFile::stopOf(named("CASA TIPO A")));
}

TEST(TypologyRecord, TipoIsFoundInALongerWordThatComesBeforeIt) {
  const std::string text = TypologyFile().text();
  const std::string rest = text.substr(text.find("TIPO"));
  EXPECT_EQ(-4, TypologyFile::recordOf("\n\"C\" = VIVIENDA\nSUBTIPO-2 = -4\n" + rest).tipo);
}

TEST(TypologyRecord, AKeywordIsFoundInACommentAndInAValueThatComeBeforeIt) {
  const std::string text = TypologyFile().text();
  const std::string rest = text.substr(text.find("TIPO"));
  for (const char* line : {"$ TIPO = -4\n", "NOTA = \"TIPO = -4\"\n"}) {
    EXPECT_EQ(-4, TypologyFile::recordOf(std::string("\n\"C\" = VIVIENDA\n") + line + rest).tipo)
        << line;
  }
}

TEST(TypologyRecord, ViviendaIsFoundInACommentThatComesBeforeIt) {
  EXPECT_EQ("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD TIPO",
            TypologyFile().before("\n$ una VIVIENDA de dos plantas ..\n").stop());
}

TEST(TypologyRecord, TheCommandEndsAtTwoDotsInsideAValue) {
  EXPECT_EQ(
      "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD "
      "PARTICION-INTERIOR-VERTICAL",
      TypologyFile().with("MUROS-FACHADA", "\"Muro\"\nNOTA = \"y..\"").stop());
}

TEST(TypologyRecord, TheFirstOfTwoEqualKeywordsCounts) {
  EXPECT_EQ(2.8F, TypologyFile().withWord("OTRA-ALTURA-PLANTA", "9").record().alturaPlanta);
}

TEST(TypologyRecord, FacadesAreSouthEastNorthWest) {
  const R record = recordWith("PORCENTAJE-FACHADA", "( 1, 2, 3, 4 )");
  EXPECT_EQ(1.0F, record.porcentajeFachada[kSouth]);
  EXPECT_EQ(2.0F, record.porcentajeFachada[kEast]);
  EXPECT_EQ(3.0F, record.porcentajeFachada[kNorth]);
  EXPECT_EQ(4.0F, record.porcentajeFachada[kWest]);
}
