#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <variant>

#include "bdl/valores_por_defecto.h"
#include "core/source_text.h"

namespace {

using V = ValoresPorDefecto;

struct Keyword {
  std::string_view search;  // exactly as searched, blanks included
  std::variant<float V::*, int V::*> field;
  float ifAbsent;
};

/// All keywords that hold one number and that every library is asked for, in an order in which no
/// search meets an earlier keyword: PERMEABILIDAD before DELTAP-ENSAYO-PERMEABILIDAD, GROUND-R
/// before GROUND-REFLECTANCE.
constexpr Keyword kKeywords[] = {
    {"LONGITUD-DE-REFERENCIA", &V::LONGITUD_DE_REFERENCIA, 15.0F},
    {"ABS-CORTA", &V::ABS_CORTA, 0},
    {"EMISIVIDAD", &V::EMISIVIDAD, 0},
    {"ROCP", &V::ROCP, 0},
    {"DELTAT", &V::DELTAT, 0},
    {"FURN-CP", &V::FURN_CP, 0},
    {"FURN-FRACTION", &V::FURN_FRACTION, 0},
    {"FURN-WEIGHT", &V::FURN_WEIGHT, 0},
    {"MAX-DEN", &V::MAX_DEN, 0},
    {"MIN-NUM", &V::MIN_NUM, 0},
    {"MAX-NUM", &V::MAX_NUM, 0},
    {"HCINT", &V::HCINT, 0},
    {"HRINT", &V::HRINT, 0},
    {"HPINT", &V::HPINT, 0},
    {"HPOUT", &V::HPOUT, 0},
    {"NINT-WF", &V::NINT_WF, 0},
    {"ALTURA-FORJADO", &V::ALTURA_FORJADO, 0.2F},
    {"PERMEABILIDAD", &V::PERMEABILIDAD, 42.0F},
    {"DELTAP-ENSAYO-PERMEABILIDAD", &V::DELTAP_ENSAYO_PERMEABILIDAD, 100.0F},
    {"VAPOUR-DIFFUSIVITY-FACTOR", &V::VAPOUR_DIFFUSIVITY_FACTOR, 1.0F},
    {"NUM-HORAS", &V::NUM_HORAS, 0},
    {"NUM-PUN-VEN", &V::NUM_PUN_VEN, 0},
    {"NUM-PUN-MUR", &V::NUM_PUN_MUR, 0},
    {"HCEXT", &V::HCEXT, 0},
    {"FF-SKY-C", &V::FF_SKY_C, 0},
    {"HREXT", &V::HREXT, 5.0F},
    {"DISCR-FI", &V::DISCR_FI, 0},
    {"DISCR-TE", &V::DISCR_TE, 0},
    {"FRAME-WIDTH", &V::FRAME_WIDTH, 0},
    {"FRAME-ABS", &V::FRAME_ABS, 0},
    {"FRAME-CONDUCT", &V::FRAME_CONDUCT, 0},
    {"JET-PARTITION", &V::JET_PARTITION, 0},
    {"CROSS-PARTITION", &V::CROSS_PARTITION, 0},
    {"AIR-TEMPERATURE", &V::AIR_TEMPERATURE, 0},
    {"X-PARTITION", &V::X_PARTITION, 0},
    {"Y-PARTITION", &V::Y_PARTITION, 0},
    {"Z-PARTITION", &V::Z_PARTITION, 0},
    {"ABS_PARTITION = ", &V::ABS_PARTITION, 0},
    {"EMI_PARTITION = ", &V::EMI_PARTITION, 0},
    {"CON_PARTITION = ", &V::CON_PARTITION, 0.8F},
    {"DEN_PARTITION = ", &V::DEN_PARTITION, 1500.0F},
    {"SH_PARTITION = ", &V::SH_PARTITION, 800.0F},
    {"TH_PARTITION = ", &V::TH_PARTITION, 0.1F},
    {"RES_PARTITION = ", &V::RES_PARTITION, 0},
    {"U_PARTITION = ", &V::U_PARTITION, 1.0F},
    {"RV_PARTITION", &V::RV_PARTITION, 1.0F},
    {"TINIFINITEDIFFERENCES =", &V::TINIFINITEDIFFERENCES, 22.0F},
    {"LINEAR-THERMAL-TRANSMITTANCE = ", &V::LINEAR_THERMAL_TRANSMITTANCE, 0},
    {"PILARES-POR-ZONA", &V::PILARES_POR_ZONA, 0},
    {"MULTIPLICADOR-CONTORNOS = ", &V::MULTIPLICADOR_CONTORNOS, 4},
    {"TOLERANCIA-PTL = ", &V::TOLERANCIA_PTL, 0.001F},
    {"TOL-HOR-FRENTE-FORJADO = ", &V::TOL_HOR_FRENTE_FORJADO, 30.0F},
    {"GROUND-K", &V::GROUND_K, 2.0F},
    {"GROUND-L", &V::GROUND_L, 1.0F},
    {"GROUND-R", &V::GROUND_R, 0.5F},
    {"GROUND-RO", &V::GROUND_RO, 2000.0F},
    {"GROUND-SH", &V::GROUND_SH, 1000.0F},
    {"GROUND-RV", &V::GROUND_RV, 1.0F},
    {"GROUND-EIT", &V::GROUND_EIT, 0},
    {"GROUND-L2DSTEADY", &V::GROUND_L2DSTEADY, 0},
    {"GROUND-ZGROUND", &V::GROUND_ZGROUND, 0},
    {"GROUND-HEIGHT", &V::GROUND_HEIGHT, 0},
    {"GROUND-REFLECTANCE", &V::GROUND_REFLECTANCE, 0},
    {"EIGENRATIO =", &V::EIGENRATIO, 50.0F},
    {"NFRMUROS =", &V::NFRMUROS, 100},
    {"TAUMUROANCHO =", &V::TAUMUROANCHO, 540000.0F},
    {"RH-MAX", &V::RH_MAX, 0},
    {"RH-MIN", &V::RH_MIN, 0},
    {"ANCHO-P", &V::ANCHO_P, 0},
    {"ANCHO-V", &V::ANCHO_V, 0},
    {"ALTO-P", &V::ALTO_P, 0},
    {"ALTO-V", &V::ALTO_V, 0},
    {"CD-P", &V::CD_P, 0},
    {"CD-V", &V::CD_V, 0},
    {"H0", &V::H0, 0},
    {"ARF-P", &V::ARF_P, 0},
    {"ARF-V", &V::ARF_V, 0},
    {"LONG-LEAK", &V::LONG_LEAK, 0},
    {"C-LEAK", &V::C_LEAK, 0},
    {"N-LEAK", &V::N_LEAK, 0},
    {"H-LEAK", &V::H_LEAK, 0},
    {"SUP-CR", &V::SUP_CR, 0},
    {"C-CR", &V::C_CR, 0},
    {"N-CR", &V::N_CR, 0},
    {"H-CR", &V::H_CR, 0},
};

/// Those that are read only with AUTOMATIC-SHUTTER, whose tests try them.
constexpr std::string_view kOfShutters[] = {
    "SHUTTER-CONDUCTANCE-MULTIPLIER-WINTER",
    "SHUTTER-CONDUCTANCE-MULTIPLIER-SUMMER",
    "SHUTTER-TRANSMITTANCE-MULTIPLIER-SUMMER",
};

V library(std::string_view text) { return V(SourceText("defectos.inp", text)); }

float valueOf(const V& values, const Keyword& keyword) {
  if (const auto* real = std::get_if<float V::*>(&keyword.field)) return values.**real;
  return static_cast<float>(values.*std::get<int V::*>(keyword.field));
}

std::string_view wordOf(const Keyword& keyword) {
  return keyword.search.substr(0, keyword.search.find(' '));
}

std::string line(const Keyword& keyword, std::string_view equals, std::string_view value) {
  return "\n" + std::string(wordOf(keyword)) + std::string(equals) + std::string(value);
}

/// A value for each keyword that no other has: whole numbers, as many keywords are integers.
int ownValue(std::size_t row) { return 1001 + static_cast<int>(row); }

std::string wholeLibrary(std::string_view lineEnd, std::string_view equals) {
  std::string text = "$ valores por defecto";
  for (std::size_t row = 0; row < std::size(kKeywords); ++row) {
    text += lineEnd;
    text += wordOf(kKeywords[row]);
    text += equals;
    text += std::to_string(ownValue(row));
  }
  return text;
}

void expectAllRead(const V& values) {
  for (std::size_t row = 0; row < std::size(kKeywords); ++row) {
    EXPECT_EQ(static_cast<float>(ownValue(row)), valueOf(values, kKeywords[row]))
        << kKeywords[row].search;
  }
}

}  // namespace

TEST(ValoresPorDefecto, EveryKeywordFillsItsField) {
  expectAllRead(library(wholeLibrary("\n", " = ")));
}

TEST(ValoresPorDefecto, EveryKeywordIsInTheTablesOfTheseTests) {
  EXPECT_FALSE(V::clavesDeNumeros().empty());
  for (const std::string_view search : V::clavesDeNumeros()) {
    EXPECT_EQ(1, std::ranges::count(kKeywords, search, &Keyword::search) +
                     std::ranges::count(kOfShutters, search))
        << "\"" << search << "\" is in no row of kKeywords, with the field and what it holds "
        << "without it";
  }
}

TEST(ValoresPorDefecto, ReadsALibraryWithCrLf) {
  expectAllRead(library(wholeLibrary("\r\n", " = ") + "\r\n"));
}

TEST(ValoresPorDefecto, ReadsALibraryWithTabs) {
  expectAllRead(library(wholeLibrary("\n\t", "\t=\t")));
}

TEST(ValoresPorDefecto, AnAbsentKeywordHasItsDefault) {
  const V values = library("");
  for (const Keyword& keyword : kKeywords) {
    EXPECT_EQ(keyword.ifAbsent, valueOf(values, keyword)) << keyword.search;
  }
}

TEST(ValoresPorDefecto, AKeywordAloneIsRead) {
  for (const Keyword& keyword : kKeywords) {
    EXPECT_EQ(7.0F, valueOf(library(line(keyword, " = ", "7")), keyword)) << keyword.search;
  }
}

TEST(ValoresPorDefecto, AValueThatIsNotANumberLeavesTheField) {
  for (const Keyword& keyword : kKeywords) {
    EXPECT_EQ(keyword.ifAbsent, valueOf(library(line(keyword, " = ", "abc")), keyword))
        << keyword.search;
  }
}

TEST(ValoresPorDefecto, RealsKeepTheirDecimals) {
  for (const Keyword& keyword : kKeywords) {
    const bool isReal = std::holds_alternative<float V::*>(keyword.field);
    EXPECT_EQ(isReal ? -1.75e-3F : -1.0F,
              valueOf(library(line(keyword, " = ", "-1.75e-3")), keyword))
        << keyword.search;
  }
}

TEST(ValoresPorDefecto, EachKeywordIsSearchedWithItsOwnBlanksAndEqualsSign) {
  for (const Keyword& keyword : kKeywords) {
    SCOPED_TRACE(keyword.search);
    const bool needsBlankBehind = keyword.search.ends_with("= ");
    const bool needsBlankBefore = keyword.search.find(" =") != std::string_view::npos;
    EXPECT_EQ(needsBlankBehind ? keyword.ifAbsent : 7.0F,
              valueOf(library(line(keyword, " =", "7")), keyword));
    EXPECT_EQ(needsBlankBefore ? keyword.ifAbsent : 7.0F,
              valueOf(library(line(keyword, "= ", "7")), keyword));
  }
}

TEST(ValoresPorDefecto, AKeywordAtTheVeryFirstCharacterIsAbsent) {
  EXPECT_EQ(0.0F, library("ROCP = 7").ROCP);
}

TEST(ValoresPorDefecto, TheFirstOccurrenceCountsAlsoInsideALongerKeyword) {
  const struct {
    const char* why;
    const char* text;
    float V::*field;
  } cases[] = {
      {"GROUND-R in GROUND-REFLECTANCE", "\nGROUND-REFLECTANCE = 9\nGROUND-R = 1", &V::GROUND_R},
      {"GROUND-R in GROUND-RO", "\nGROUND-RO = 9\nGROUND-R = 1", &V::GROUND_R},
      {"GROUND-R in GROUND-RV", "\nGROUND-RV = 9\nGROUND-R = 1", &V::GROUND_R},
      {"GROUND-L in GROUND-L2DSTEADY", "\nGROUND-L2DSTEADY = 9\nGROUND-L = 1", &V::GROUND_L},
      {"PERMEABILIDAD in DELTAP-ENSAYO-PERMEABILIDAD",
       "\nDELTAP-ENSAYO-PERMEABILIDAD = 9\nPERMEABILIDAD = 1", &V::PERMEABILIDAD},
      {"ROCP in a comment", "\n$ ROCP = 9\nROCP = 1", &V::ROCP},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(9.0F, library(c.text).*c.field);
  }
}

TEST(ValoresPorDefecto, KeywordsBelongToNoCommand) {
  EXPECT_EQ(7.0F, library("\n\"A\" = ANYTHING ..\n\"B\" = OTHER ROCP = 7 ..").ROCP);
}

TEST(HREXT, AbsentIs5AndN) {
  const V values = library("\nHCEXT = 1");
  EXPECT_EQ(5.0F, values.HREXT);
  EXPECT_EQ('N', values.hrextDado);
}

TEST(HREXT, PresentIsItsValueAndS) {
  const V values = library("\nHREXT = 6.5");
  EXPECT_EQ(6.5F, values.HREXT);
  EXPECT_EQ('S', values.hrextDado);
}

TEST(HREXT, PresentWithoutANumberIsStillS) { EXPECT_EQ('S', library("\nHREXT = abc").hrextDado); }

TEST(PartitionDefaults, AbsentAreTheValuesOfTheLibrary) {
  const V values = library("\nABS-CORTA = 0.6\nEMISIVIDAD = 0.9");
  EXPECT_EQ(0.6F, values.ABS_PARTITION);
  EXPECT_EQ(0.9F, values.EMI_PARTITION);
}

TEST(PartitionDefaults, TheirOwnValuesWin) {
  const V values =
      library("\nABS-CORTA = 0.6\nEMISIVIDAD = 0.9\nABS_PARTITION = 0.1\nEMI_PARTITION = 0.2");
  EXPECT_EQ(0.1F, values.ABS_PARTITION);
  EXPECT_EQ(0.2F, values.EMI_PARTITION);
}
