#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>

#include "bdl/valores_por_defecto.h"
#include "core/source_text.h"
#include "support/recording_application.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using V = ValoresPorDefecto;

V library(std::string_view text) { return V(SourceText("defectos.inp", text)); }

void expectFault(std::string_view fault, std::string_view text) {
  EXPECT_EQ("Error en el fichero defectos.inp: " + std::string(fault),
            stopMessage([&] { library(text); }));
}

std::string text(std::size_t size) { return std::string(size, 'x'); }

std::string namesList(int number) {
  std::string list = "\nNO-HABITABLES = ( \"0\"";
  for (int i = 1; i < number; ++i) list += ", \"" + std::to_string(i) + '"';
  return list + " )";
}

constexpr const char* kMultipliers =
    "\nSHUTTER-TRANSMITTANCE-MULTIPLIER-SUMMER = 0.25"
    "\nSHUTTER-CONDUCTANCE-MULTIPLIER-SUMMER = 0.5"
    "\nSHUTTER-CONDUCTANCE-MULTIPLIER-WINTER = 0.75";

}  // namespace

TEST(InternalPartitions, SaysWhichOfTheThreeHolds) {
  const struct {
    const char* why;
    const char* text;
    std::tuple<bool, bool, bool> flags;  // overwritten, added, own
  } cases[] = {
      {"absent", "\nx", {false, false, true}},
      {"overwritten", "\nINTERNAL-PARTITIONS = DEFAULT-OVERWRITTEN", {true, false, false}},
      {"added", "\nINTERNAL-PARTITIONS = DEFAULT-ADDED", {false, true, false}},
      {"custom", "\nINTERNAL-PARTITIONS = CUSTOM", {false, false, true}},
      {"direct", "\nINTERNAL-PARTITIONS = DIRECTO", {false, false, true}},
      {"an unknown word", "\nINTERNAL-PARTITIONS = OTHER", {false, false, true}},
      {"another case", "\nINTERNAL-PARTITIONS = default-added", {false, false, true}},
      {"in quotes", "\nINTERNAL-PARTITIONS = \"DEFAULT-ADDED\"", {false, false, true}},
      {"the start of a word", "\nINTERNAL-PARTITIONS = DEFAULT", {false, false, true}},
      {"without its blanks it is absent",
       "\nINTERNAL-PARTITIONS=DEFAULT-ADDED",
       {false, false, true}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const V values = library(c.text);
    EXPECT_EQ(c.flags, std::tuple(values.particionesSobrescritas, values.particionesAnadidas,
                                  values.particionesPropias));
  }
}

TEST(TypePartition, DecidesWhetherUPartitionIsRead) {
  const struct {
    const char* why;
    const char* text;
    const char* type;
    float u;
  } cases[] = {
      {"both absent", "\nx", "U-VALUE", 1.0F},
      {"type absent: U read", "\nU_PARTITION = 2.5", "U-VALUE", 2.5F},
      {"type U-VALUE: U read", "\nTYPE_PARTITION = U-VALUE\nU_PARTITION = 2.5", "U-VALUE", 2.5F},
      {"type U-VALUE, U absent", "\nTYPE_PARTITION = U-VALUE\n", "U-VALUE", 1.0F},
      {"type LAYERS: U not read", "\nTYPE_PARTITION = LAYERS\nU_PARTITION = 2.5", "LAYERS", 1.0F},
      {"quotes belong to the type", "\nTYPE_PARTITION = \"U-VALUE\"\nU_PARTITION = 2.5",
       "\"U-VALUE\"", 1.0F},
      {"without its blanks the type is absent", "\nTYPE_PARTITION=LAYERS\nU_PARTITION = 2.5",
       "U-VALUE", 2.5F},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const V values = library(c.text);
    EXPECT_EQ(c.type, values.TYPE_PARTITION);
    EXPECT_EQ(c.u, values.U_PARTITION);
  }
}

TEST(SeveralOptions, IsOnlyYES) {
  EXPECT_TRUE(library("\nSEVERAL-OPTIONS = YES").variasOpciones);
  for (const char* text : {"\nx", "\nSEVERAL-OPTIONS = NO", "\nSEVERAL-OPTIONS = yes",
                           "\nSEVERAL-OPTIONS = \"YES\"", "\nSEVERAL-OPTIONS=YES"}) {
    EXPECT_FALSE(library(text).variasOpciones) << text;
  }
}

TEST(AutomaticShutter, AbsentIsNOAndThreeMultipliersOf1) {
  const V values = library("\nx");
  EXPECT_EQ("NO", values.AUTOMATIC_SHUTTER);
  EXPECT_EQ(1.0F, values.SHUTTER_TRANSMITTANCE_MULTIPLIER_SUMMER);
  EXPECT_EQ(1.0F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_SUMMER);
  EXPECT_EQ(1.0F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_WINTER);
}

TEST(AutomaticShutter, AbsentLeavesTheMultipliersOfTheFileUnread) {
  const V values = library(kMultipliers);
  EXPECT_EQ("NO", values.AUTOMATIC_SHUTTER);
  EXPECT_EQ(1.0F, values.SHUTTER_TRANSMITTANCE_MULTIPLIER_SUMMER);
  EXPECT_EQ(1.0F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_SUMMER);
  EXPECT_EQ(1.0F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_WINTER);
}

TEST(AutomaticShutter, PresentReadsTheThreeMultipliersWhateverItSays) {
  for (const char* word : {"YES", "NO"}) {
    const V values = library("\nAUTOMATIC-SHUTTER = " + std::string(word) + kMultipliers);
    EXPECT_EQ(word, values.AUTOMATIC_SHUTTER);
    EXPECT_EQ(0.25F, values.SHUTTER_TRANSMITTANCE_MULTIPLIER_SUMMER);
    EXPECT_EQ(0.5F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_SUMMER);
    EXPECT_EQ(0.75F, values.SHUTTER_CONDUCTANCE_MULTIPLIER_WINTER);
  }
}

TEST(AutomaticShutter, ALongWordIsKeptWhole) {
  EXPECT_EQ(text(3), library("\nAUTOMATIC-SHUTTER = " + text(3)).AUTOMATIC_SHUTTER);
  EXPECT_EQ(text(4), library("\nAUTOMATIC-SHUTTER = " + text(4)).AUTOMATIC_SHUTTER);
  EXPECT_EQ(text(300), library("\nAUTOMATIC-SHUTTER = " + text(300)).AUTOMATIC_SHUTTER);
}

TEST(SpacerType, IsATextAndAbsentIsEmpty) {
  EXPECT_EQ("", library("\nx").SPACER_TYPE);
  EXPECT_EQ("STEEL", library("\nSPACER-TYPE = STEEL\n").SPACER_TYPE);
  EXPECT_EQ("\"STEEL A\"", library("\nSPACER-TYPE = \"STEEL A\"\n").SPACER_TYPE);
}

TEST(SpacerType, ALongWordIsKeptWhole) {
  EXPECT_EQ(text(19), library("\nSPACER-TYPE = " + text(19)).SPACER_TYPE);
  EXPECT_EQ(text(20), library("\nSPACER-TYPE = " + text(20)).SPACER_TYPE);
  EXPECT_EQ(text(300), library("\nSPACER-TYPE = " + text(300)).SPACER_TYPE);
}

TEST(DefaultsTexts, HaveLessThan200Bytes) {
  EXPECT_EQ(text(199), library("\nTYPE_PARTITION = " + text(199)).TYPE_PARTITION);
  expectFault("TYPE_PARTITION: el valor es demasiado largo", "\nTYPE_PARTITION = " + text(200));
  expectFault("INTERNAL-PARTITIONS: el valor es demasiado largo",
              "\nINTERNAL-PARTITIONS = " + text(200));
  expectFault("SEVERAL-OPTIONS: el valor es demasiado largo", "\nSEVERAL-OPTIONS = " + text(200));
}

TEST(NoHabitables, AreTheNamesInQuotes) {
  const V values = library("\nNO-HABITABLES = ( \"Garaje\", \"Bajo cubierta\" )");
  EXPECT_EQ(2, values.numNoHabitables);
  EXPECT_THAT(values.NO_HABITABLES, ElementsAre("\"Garaje\"", "\"Bajo cubierta\""));
}

TEST(NoHabitables, AbsentIsMinus1AndNoNames) {
  const V values = library("\nx");
  EXPECT_EQ(-1, values.numNoHabitables);
  EXPECT_THAT(values.NO_HABITABLES, IsEmpty());
}

TEST(NoHabitables, AreUpTo100) {
  const V values = library(namesList(100));
  EXPECT_EQ(100, values.numNoHabitables);
  EXPECT_EQ("\"99\"", values.NO_HABITABLES.back());
  expectFault("NO-HABITABLES: la lista debe tener como máximo 100 valores", namesList(101));
}

TEST(NoHabitables, HaveLessThan100BytesEach) {
  EXPECT_THAT(library("\nNO-HABITABLES = ( \"" + text(97) + "\" )").NO_HABITABLES,
              ElementsAre('"' + text(97) + '"'));
  expectFault("NO-HABITABLES: un valor de la lista es demasiado largo",
              "\nNO-HABITABLES = ( \"" + text(98) + "\" )");
}

TEST(DefaultsLibrary, TheFirstOfTwoFaultsIsReported) {
  const struct {
    const char* why;
    const char* text;
    const char* fault;
  } cases[] = {
      {"the spacer before the partitions", "\nINTERNAL-PARTITIONS = \"x\nSPACER-TYPE = \"",
       "SPACER-TYPE: faltan las comillas de cierre del valor"},
      {"the partitions before the bridges", "\n\"P\" = THERMAL-BRIDGE\nTYPE_PARTITION = \"",
       "TYPE_PARTITION: faltan las comillas de cierre del valor"},
      {"the options before the bridges", "\n\"P\" = THERMAL-BRIDGE\nSEVERAL-OPTIONS = \"",
       "SEVERAL-OPTIONS: faltan las comillas de cierre del valor"},
      {"the bridges before the names", "\n\"P\" = THERMAL-BRIDGE\nNO-HABITABLES = x",
       "\"P\" = THERMAL-BRIDGE: falta el cierre \"..\""},
      {"the names before the shutter", "\nNO-HABITABLES = x\nAUTOMATIC-SHUTTER = \"",
       "NO-HABITABLES: falta la lista de valores entre paréntesis"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    expectFault(c.fault, c.text);
  }
}
