#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "bdl/valores_por_defecto.h"
#include "core/source_text.h"
#include "support/recording_application.h"

using testing::ElementsAre;

namespace {

using V = ValoresPorDefecto;
using Puente = V::PuenteTermico;

V library(std::string_view text) { return V(SourceText("defectos.inp", text)); }

std::vector<Puente> bridges(std::string_view text) { return library(text).puentes; }

/// The one bridge of a library.
Puente bridge(std::string_view text) {
  const std::vector<Puente> all = bridges(text);
  EXPECT_EQ(1U, all.size());
  return all.empty() ? Puente{} : all.front();
}

std::vector<std::string> namesOf(const std::vector<Puente>& all) {
  std::vector<std::string> names;
  for (const Puente& puente : all) names.push_back(puente.nombre);
  return names;
}

std::string stopIn(std::string_view text) {
  std::string message = stopMessage([&] { library(text); });
  const std::string file = "Error en el fichero defectos.inp: ";
  if (message.starts_with(file)) message.replace(0, file.size(), "(file): ");
  return message;
}

}  // namespace

TEST(ThermalBridges, ALibraryMayHaveNone) { EXPECT_EQ(0, library("\nx").numPuentes()); }

// Walked anew for each bridge, a library of this size would take minutes.
TEST(ThermalBridges, ThousandsMayShareOneEndAndTheValuesThatFollow) {
  constexpr int kMany = 50'000;
  std::string text = "\nSET-DEFAULT FOR THERMAL-BRIDGE PARTITION = YES ..\n";
  for (int i = 0; i < kMany; ++i) {
    text += "\"P" + std::to_string(i) + "\" = THERMAL-BRIDGE\n";
    if (i == kMany / 2) text += " TTL = 0.5 TYPE = OTHER\n";
  }
  const std::vector<Puente> all = bridges(text + " TTL = 0.25 ..\n");
  ASSERT_EQ(std::size_t{kMany}, all.size());
  for (int i = 0; i < kMany; ++i) {
    const Puente& puente = all[static_cast<std::size_t>(i)];
    const bool beforeTheMiddle = i <= kMany / 2;
    ASSERT_EQ(beforeTheMiddle ? 0.5F : 0.25F, puente.TTL) << i;
    ASSERT_EQ(beforeTheMiddle ? "OTHER" : "MASONRY", puente.TYPE) << i;
    ASSERT_EQ("YES", puente.PARTITION) << i;
  }
}

// What grew with the square would take hours and meet the time limit of every test.

// The first labels of the two names lie in front of two different "..", far away each.
TEST(ThermalBridges, ThousandsMayLeadToAndFroBetweenTwoEnds) {
  constexpr int kMany = 200'000;
  const std::string far(16'000'000, 'z');
  std::string text = "\n..\n\"X\" = THERMAL-BRIDGE TTL = 1\n" + far + "\n..\n";
  for (int i = 0; i < kMany; ++i) text += "\"Y\" = THERMAL-BRIDGE\n\"X\" = THERMAL-BRIDGE\n";
  text += "TTL = 2\n..\n";
  const std::vector<Puente> all = bridges(text);
  ASSERT_EQ(2U * kMany + 1, all.size());
  for (std::size_t i = 0; i < all.size(); ++i) ASSERT_EQ(i % 2 == 0 ? 1 : 2, all[i].TTL) << i;
}

TEST(ThermalBridges, ThousandsMayShareANumberOfMillionsOfDigits) {
  constexpr int kMany = 100'000;
  std::string text = "\n..\n";
  for (int i = 0; i < kMany; ++i) text += "\"Y" + std::to_string(i) + "\" = THERMAL-BRIDGE\n";
  text += "TTL = " + std::string(10'000'000, '0') + "7\n..\n";
  const std::vector<Puente> all = bridges(text);
  ASSERT_EQ(std::size_t{kMany}, all.size());
  for (const Puente& puente : all) ASSERT_EQ(7, puente.TTL);
}

TEST(ThermalBridges, AreListedInFileOrderWithTheirNamesInQuotes) {
  const V values = library(
      "\n\"Pilar\" = THERMAL-BRIDGE ..\n\"M\" = WALL .."
      "\n\"Frente de forjado\" = THERMAL-BRIDGE ..\n");
  EXPECT_EQ(2, values.numPuentes());
  EXPECT_THAT(namesOf(values.puentes), ElementsAre("\"Pilar\"", "\"Frente de forjado\""));
}

TEST(ThermalBridges, ReadTheirKeywords) {
  const Puente puente = bridge(
      "\n\"Pilar\" = THERMAL-BRIDGE\nTTL = 0.35\nANGLE-MIN = 80\nANGLE-MAX = 100.5"
      "\nTYPE = STEEL\nPARTITION = YES\n..");
  EXPECT_EQ(0.35F, puente.TTL);
  EXPECT_EQ(80.0F, puente.ANGLE_MIN);
  EXPECT_EQ(100.5F, puente.ANGLE_MAX);
  EXPECT_EQ("STEEL", puente.TYPE);
  EXPECT_EQ("YES", puente.PARTITION);
}

TEST(ThermalBridges, AbsentKeywordsHaveTheirDefaults) {
  const Puente puente = bridge("\n\"Pilar\" = THERMAL-BRIDGE ..");
  EXPECT_EQ(0.0F, puente.TTL);
  EXPECT_EQ(0.0F, puente.ANGLE_MIN);
  EXPECT_EQ(0.0F, puente.ANGLE_MAX);
  EXPECT_EQ("MASONRY", puente.TYPE);
  EXPECT_EQ("BOTH", puente.PARTITION);
}

TEST(ThermalBridges, TakeWhatTheyLackFromTheDefaultsOfTheirType) {
  const std::vector<Puente> all = bridges(
      "\n\"P1\" = THERMAL-BRIDGE TYPE = STEEL ..\n\"P2\" = THERMAL-BRIDGE .."
      "\nSET-DEFAULT FOR THERMAL-BRIDGE TTL = 0.1 TYPE = WOOD PARTITION = NO ..");
  ASSERT_EQ(2U, all.size());
  EXPECT_EQ("STEEL", all[0].TYPE);
  EXPECT_EQ("NO", all[0].PARTITION);
  EXPECT_EQ(0.1F, all[0].TTL);
  EXPECT_EQ("WOOD", all[1].TYPE);
}

TEST(ThermalBridges, TakeNothingFromEachOther) {
  const std::vector<Puente> all =
      bridges("\n\"P1\" = THERMAL-BRIDGE ..\n\"P2\" = THERMAL-BRIDGE TTL = 0.2 ..");
  ASSERT_EQ(2U, all.size());
  EXPECT_EQ(0.0F, all[0].TTL);
  EXPECT_EQ(0.2F, all[1].TTL);
}

TEST(ThermalBridges, AValueThatIsNotANumberLeavesTheDefault) {
  const Puente puente = bridge("\n\"P\" = THERMAL-BRIDGE TTL = a ANGLE-MIN = b ANGLE-MAX = c ..");
  EXPECT_EQ(0.0F, puente.TTL);
  EXPECT_EQ(0.0F, puente.ANGLE_MIN);
  EXPECT_EQ(0.0F, puente.ANGLE_MAX);
}

TEST(ThermalBridges, KeywordsAreSearchedWithABlankAndTheEqualsSign) {
  const Puente puente =
      bridge("\n\"P\" = THERMAL-BRIDGE TTL= 1 ANGLE-MIN= 2 ANGLE-MAX= 3 TYPE= A PARTITION= B ..");
  EXPECT_EQ(0.0F, puente.TTL);
  EXPECT_EQ(0.0F, puente.ANGLE_MIN);
  EXPECT_EQ(0.0F, puente.ANGLE_MAX);
  EXPECT_EQ("MASONRY", puente.TYPE);
  EXPECT_EQ("BOTH", puente.PARTITION);
}

TEST(ThermalBridges, AKeywordIsFoundAtTheEndOfALongerOne) {
  EXPECT_EQ("A", bridge("\n\"P\" = THERMAL-BRIDGE SUBTYPE = A TYPE = B ..").TYPE);
  EXPECT_EQ("A", bridge("\n\"P\" = THERMAL-BRIDGE X-PARTITION = A PARTITION = B ..").PARTITION);
}

TEST(ThermalBridges, TypesThatBeginWithTheWordCountToo) {
  EXPECT_THAT(namesOf(bridges("\n\"P1\" = THERMAL-BRIDGE-2D ..\n\"P2\" = THERMAL-BRIDGE ..")),
              ElementsAre("\"P1\"", "\"P2\""));
}

TEST(ThermalBridges, TwoOfOneNameAreTheFirstTwice) {
  const std::vector<Puente> all =
      bridges("\n\"P\" = THERMAL-BRIDGE TTL = 0.1 ..\n\"P\" = THERMAL-BRIDGE TTL = 0.2 ..");
  ASSERT_EQ(2U, all.size());
  EXPECT_EQ(0.1F, all[1].TTL);
}

TEST(ThermalBridges, ABridgeThatItsLabelDoesNotFindEndsTheRun) {
  EXPECT_EQ("No se encuentra: \"P\"", stopIn("\"P\" = THERMAL-BRIDGE .."));
  EXPECT_EQ("No se encuentra: \"P = 1\"", stopIn("\n\"P = 1\" = THERMAL-BRIDGE .."));
}

TEST(ThermalBridges, ABridgeWithoutClosingDotsEndsTheRun) {
  EXPECT_EQ("(file): \"P\" = THERMAL-BRIDGE: falta el cierre \"..\"",
            stopIn("\n\"P\" = THERMAL-BRIDGE TTL = 0.1"));
}

TEST(ThermalBridges, TheirTextsHaveLessThan200Bytes) {
  const std::string longest(199, 'x');
  EXPECT_EQ(longest, bridge("\n\"P\" = THERMAL-BRIDGE TYPE = " + longest + " ..").TYPE);
  EXPECT_EQ(longest, bridge("\n\"P\" = THERMAL-BRIDGE PARTITION = " + longest + " ..").PARTITION);
  EXPECT_EQ("(file): TYPE: el valor es demasiado largo",
            stopIn("\n\"P\" = THERMAL-BRIDGE TYPE = " + longest + "x .."));
  EXPECT_EQ("(file): PARTITION: el valor es demasiado largo",
            stopIn("\n\"P\" = THERMAL-BRIDGE PARTITION = " + longest + "x .."));
}

TEST(ThermalBridges, TheirNamesHaveLessThan200BytesWithTheirQuotes) {
  const std::string longest(197, 'x');
  EXPECT_EQ('"' + longest + '"', bridge("\n\"" + longest + "\" = THERMAL-BRIDGE ..").nombre);
  EXPECT_EQ("(file): THERMAL-BRIDGE: el nombre de un comando es demasiado largo",
            stopIn("\n\"" + longest + "x\" = THERMAL-BRIDGE .."));
}
