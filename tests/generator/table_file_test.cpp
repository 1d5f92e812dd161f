#include "generator/table_file.h"

#include <gtest/gtest.h>

#include <list>
#include <string>

#include "core/source_text.h"
#include "support/recording_application.h"

namespace {

/// The table of `text`. Its names are views into the text, which is kept until the tests end.
TableFile tableFrom(std::string_view text) {
  static std::list<SourceText> texts;
  return readTableFile(texts.emplace_back("casa.tbl", text));
}

/// The message that ends the reading of `text`.
std::string tableError(std::string_view text) {
  return stopMessage([&] { readTableFile(SourceText("casa.tbl", text)); });
}

const std::string kOneSurface = "Tabla\nde superficies\n1 0\n\"Muro\"\n";

}  // namespace

TEST(TableFile, SurfaceLineGivesSevenColumnsItsKindAndItsPair) {
  const TableFile table = tableFrom(kOneSurface + "27.5 28 0.446 11 3 180.5 90 -4 1 2\n");
  ASSERT_EQ(1U, table.surfaces.size());
  const Surface& surface = table.surfaces[0];
  EXPECT_EQ("\"Muro\"", surface.name);
  EXPECT_EQ(27.5F, surface.area);
  EXPECT_EQ(28, surface.column2);
  EXPECT_EQ(0.446F, surface.value);
  EXPECT_EQ(11, surface.column4);
  EXPECT_EQ(3, surface.column5);
  EXPECT_EQ(180.5F, surface.azimuth);
  EXPECT_EQ(90, surface.tilt);
  EXPECT_EQ(-4, surface.kind);
  EXPECT_EQ((std::array{1, 2}), surface.pair);
}

TEST(TableFile, ZoneLineGivesNumberFlagAreaAndValue) {
  const TableFile table = tableFrom("a\nb\n0 1\n\"P01_E01\"\n3 1 110.5 4.25\n");
  ASSERT_EQ(1U, table.zones.size());
  EXPECT_EQ("\"P01_E01\"", table.zones[0].name);
  EXPECT_EQ(3, table.zones[0].number);
  EXPECT_EQ(1, table.zones[0].flag);
  EXPECT_EQ(110.5F, table.zones[0].area);
  EXPECT_EQ(4.25F, table.zones[0].value);
}

TEST(TableFile, KeepsTheOrderOfTheFile) {
  const TableFile table =
      tableFrom("a\nb\n2 2\nS1\n1 0 0 0 0 0 0 0\nS2\n2 0 0 0 0 0 0 0\nZ1\n1\nZ2\n2\n");
  ASSERT_EQ(2U, table.surfaces.size());
  EXPECT_EQ("S1", table.surfaces[0].name);
  EXPECT_EQ(2, table.surfaces[1].area);
  ASSERT_EQ(2U, table.zones.size());
  EXPECT_EQ("Z1", table.zones[0].name);
  EXPECT_EQ(2, table.zones[1].number);
}

TEST(TableFile, SurfaceNameIsKeptExactlyAsReadBlanksIncluded) {
  const TableFile table = tableFrom("a\nb\n1 0\n  \"Muro  A\" \t\n1 0 0 0 0 0 0 0\n");
  EXPECT_EQ("  \"Muro  A\" \t", table.surfaces[0].name);
}

TEST(TableFile, FirstTwoLinesAreFreeText) {
  EXPECT_EQ(1U, tableFrom("9 9\n\n1 0\nS\n1 0 0 0 0 0 0 0").surfaces.size());
}

TEST(TableFile, LinesBehindTheAnnouncedOnesAreFreeText) {
  EXPECT_EQ(1U, tableFrom("a\nb\n1 0\nS\n1 0 0 0 0 0 0 0\nfin\nx\ny\n").surfaces.size());
}

TEST(TableFile, CarriageReturnsAreNoPartOfNamesAndNumbers) {
  const TableFile table =
      tableFrom("a\r\nb\r\n1 1\r\nS\r\n1 2 3 4 5 6 7 0 8 9\r\nZ\r\n1 1 2 3\r\n");
  EXPECT_EQ("S", table.surfaces[0].name);
  EXPECT_EQ(9, table.surfaces[0].pair[1]);
  EXPECT_EQ("Z", table.zones[0].name);
  EXPECT_EQ(3, table.zones[0].value);
}

TEST(TableFile, NumbersStandBetweenBlanksOrTabs) {
  EXPECT_EQ(7, tableFrom("a\nb\n\t1\t0\nS\n  1\t2  3 4 5 6 7\t0").surfaces[0].tilt);
}

TEST(TableFile, ThirdLineOfTwoZerosGivesEmptyTablesAndAMeanOfZero) {
  const TableFile table = tableFrom("a\nb\n0 0\n");
  EXPECT_TRUE(table.surfaces.empty());
  EXPECT_TRUE(table.zones.empty());
  EXPECT_EQ(0, table.zoneAreaSum);
  EXPECT_EQ(0, table.zoneMean);
  EXPECT_EQ(0, table.zonesWithoutFlag);
}

TEST(TableFile, MeanOfTheFlaggedZonesIsWeightedByArea) {
  const TableFile table = tableFrom("a\nb\n0 3\nA\n1 1 50 2\nB\n2 1 150 4\nC\n3 0 80 9\n");
  EXPECT_EQ(200, table.zoneAreaSum);
  EXPECT_EQ(3.5F, table.zoneMean);
  EXPECT_EQ(1, table.zonesWithoutFlag);
}

TEST(TableFile, AnyFlagButZeroCounts) {
  EXPECT_EQ(30, tableFrom("a\nb\n0 2\nA\n1 -1 10 2\nB\n2 7 20 4\n").zoneAreaSum);
}

TEST(TableFile, FlaggedZonesWithoutAreaGiveAMeanOfZero) {
  const TableFile table = tableFrom("a\nb\n0 2\nA\n1 1 0 2\nB\n2 0 80 9\n");
  EXPECT_EQ(0, table.zoneAreaSum);
  EXPECT_EQ(0, table.zoneMean);
}

TEST(TableFile, MissingPairIsZero) {
  const struct {
    const char* why;
    const char* data;
    std::array<int, 2> pair;
  } cases[] = {
      {"none", "1 2 3 4 5 6 7 0", {0, 0}},
      {"the first only", "1 2 3 4 5 6 7 0 8", {8, 0}},
      {"text in its place", "1 2 3 4 5 6 7 0 x 9", {0, 0}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.pair, tableFrom(kOneSurface + c.data).surfaces[0].pair);
  }
}

TEST(TableFile, MissingZoneNumbersAreZero) {
  const struct {
    const char* why;
    const char* data;
    int number, flag;
    float area, value;
  } cases[] = {
      {"an empty line", "", 0, 0, 0, 0},
      {"the number only", "4", 4, 0, 0, 0},
      {"no area", "4 1", 4, 1, 0, 0},
      {"no value", "4 1 20", 4, 1, 20, 0},
      {"text in place of the flag", "4 x 20 3", 4, 0, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Zone zone = tableFrom(std::string("a\nb\n0 1\nZ\n") + c.data + "\n").zones.at(0);
    EXPECT_EQ(c.number, zone.number);
    EXPECT_EQ(c.flag, zone.flag);
    EXPECT_EQ(c.area, zone.area);
    EXPECT_EQ(c.value, zone.value);
  }
}

TEST(TableFile, ZoneWithoutAFlagNumberIsOneWithoutFlag) {
  EXPECT_EQ(1, tableFrom("a\nb\n0 1\nZ\n4\n").zonesWithoutFlag);
}

TEST(TableFile, ThirdLineWithoutTwoCountsEndsTheRun) {
  const struct {
    const char* why;
    const char* line;
  } cases[] = {
      {"empty", ""},
      {"one count", "1"},
      {"text", "uno dos"},
      {"text behind the first", "1 dos"},
      {"a real", "1.5 2"},
      {"negative surfaces", "-1 1"},
      {"negative zones", "1 -1"},
      {"a comma between them", "0,0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(
        "Error en el fichero casa.tbl, línea 3: debe contener el número de superficies y el de "
        "zonas",
        tableError(std::string("a\nb\n") + c.line + "\nS\n1 2 3 4 5 6 7 0\nZ\n1 1 1 1\n"));
  }
}

TEST(TableFile, FewerLinesThanAnnouncedEndTheRun) {
  const struct {
    const char* why;
    std::string text;
    const char* where;
  } cases[] = {
      {"an empty file", "", ""},
      {"one line", "a\n", ", línea 1"},
      {"no third line: the second is not its repeat", "a\n0 0\n", ", línea 2"},
      {"a surface's data are missing", kOneSurface, ", línea 4"},
      {"the repeated last line is none of them", "a\nb\n1 0\n1 2 3 4 5 6 7 0\n", ", línea 4"},
      {"the same without a last line end", "a\nb\n1 0\n1 2 3 4 5 6 7 0", ", línea 4"},
      {"the second surface", "a\nb\n2 0\nS\n1 2 3 4 5 6 7 0\n", ", línea 5"},
      {"the zone", "a\nb\n1 1\nS\n1 2 3 4 5 6 7 0\nZ\n", ", línea 6"},
      {"more surfaces than memory", "a\nb\n2147483647 0\n", ", línea 3"},
      {"more zones than memory", "a\nb\n0 2147483647\n", ", línea 3"},
      {"more than 32 bits count", "a\nb\n2147483647 2147483647\n", ", línea 3"},
      {"twice the surfaces overflows 32 bits to none", "a\nb\n1073741824 1073741824\n",
       ", línea 3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("Error en el fichero casa.tbl") + c.where +
                  ": el fichero tiene menos líneas de las anunciadas",
              tableError(c.text));
  }
}

TEST(TableFile, SurfaceWithoutItsSevenRealsAndItsKindEndsTheRun) {
  const struct {
    const char* why;
    const char* data;
  } cases[] = {
      {"empty", ""},
      {"six reals", "1 2 3 4 5 6"},
      {"no kind", "1 2 3 4 5 6 7"},
      {"text in place of a real", "1 2 x 4 5 6 7 0"},
      {"text in place of the kind", "1 2 3 4 5 6 7 muro"},
      {"a decimal comma", "1,5 2 3 4 5 6 7 0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(
        "Error en el fichero casa.tbl, línea 5: los datos de una superficie deben ser siete "
        "números reales y su clase",
        tableError(kOneSurface + c.data + "\n"));
  }
}

TEST(TableFile, LineNumberIsThatOfTheFaultyLine) {
  EXPECT_EQ(
      "Error en el fichero casa.tbl, línea 7: los datos de una superficie deben ser siete números "
      "reales y su clase",
      tableError("a\nb\n2 0\nS\n1 2 3 4 5 6 7 0\nT\nfalta\n"));
}

TEST(TableFile, NamesHaveFewerThan200Bytes) {
  const std::string longest(199, 'n');
  const std::string tooLong(200, 'n');
  EXPECT_EQ(longest, tableFrom("a\nb\n1 0\n" + longest + "\n1 2 3 4 5 6 7 0").surfaces[0].name);
  EXPECT_EQ(longest, tableFrom("a\nb\n0 1\n" + longest + "\n1 1 1 1").zones[0].name);
  EXPECT_EQ("Error en el fichero casa.tbl, línea 4: el nombre es demasiado largo",
            tableError("a\nb\n1 0\n" + tooLong + "\n1 2 3 4 5 6 7 0"));
  EXPECT_EQ("Error en el fichero casa.tbl, línea 6: el nombre es demasiado largo",
            tableError("a\nb\n1 1\nS\n1 2 3 4 5 6 7 0\n" + tooLong + "\n1 1 1 1"));
}
