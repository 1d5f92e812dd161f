#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/report_error.h"
#include "support/recording_application.h"
#include "typology/typology_file.h"

namespace {

constexpr const char* kNoCommand = "En el fichero *.tip debe existir un COMMAND VIVIENDA";
constexpr const char* kStoreys0 =
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser mayor que 0";
constexpr const char* kStoreys1 =
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser 1";
constexpr const char* kStoreys2 =
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser 2";
constexpr const char* kStoreysMore =
    "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser mayor que 2";
constexpr const char* kHeight =
    "En el COMMAND VIVIENDA del fichero *.tip la ALTURA-PLANTA debe ser mayor que 0";

/// The required keywords, in the order in which they are asked for.
constexpr std::pair<const char*, const char*> kRequired[] = {
    {"TIPO", "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD TIPO"},
    {"NUMERO-PLANTAS",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD NUMERO-PLANTAS"},
    {"AREA-PLANTA", "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD AREA-PLANTA"},
    {"LONGITUD-FACHADA",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD LONGITUD-FACHADA"},
    {"PORCENTAJE-FACHADA",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD PORCENTAJE-FACHADA"},
    {"MUROS-FACHADA",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD MUROS-FACHADA"},
    {"PARTICION-INTERIOR-VERTICAL",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD "
     "PARTICION-INTERIOR-VERTICAL"},
    {"MEDIANERA", "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD MEDIANERA"},
    {"SUELOS", "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD SUELOS"},
    {"PARTICION-INTERIOR-HORIZONTAL",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD "
     "PARTICION-INTERIOR-HORIZONTAL"},
    {"CUBIERTAS", "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD CUBIERTAS"},
    {"VENTANA-VIDRIO",
     "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD VENTANA-VIDRIO"},
};

/// Every fault that a check meets, in the order of the checks.
struct CheckFault {
  std::vector<std::pair<const char*, const char*>> lines;  // null: the keyword is missing
  const char* message;
};

std::vector<CheckFault> faultsInOrder() {
  std::vector<CheckFault> faults;
  for (const auto& [keyword, message] : kRequired) {
    if (std::string_view(keyword) == "AREA-PLANTA") {
      faults.push_back({{{"NUMERO-PLANTAS", "0"}}, kStoreys0});
      faults.push_back({{{"NUMERO-PLANTAS", "2"}}, kStoreys1});
      faults.push_back({{{"ALTURA-PLANTA", "0"}}, kHeight});
    }
    if (std::string_view(keyword) == "PORCENTAJE-FACHADA") {
      faults.push_back({{{"LONGITUD-FACHADA", "0"}}, kHeight});
    }
    faults.push_back({{{keyword, nullptr}}, message});
  }
  return faults;
}

void apply(const CheckFault& fault, TypologyFile& file) {
  for (const auto& [keyword, value] : fault.lines) {
    value == nullptr ? file.without(keyword) : file.with(keyword, value);
  }
}

std::string stopWith(std::string_view keyword, std::string_view value) {
  return TypologyFile().with(keyword, value).stop();
}

std::string exactly(float value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
  return text;
}

}  // namespace

TEST(TypologyChecks, TheFileOfTheseTestsPasses) { EXPECT_EQ(kNotStopped, TypologyFile().stop()); }

TEST(TypologyChecks, AFileWithoutViviendaEndsTheRunBeforeAnyKeywordIsRead) {
  const struct {
    const char* why;
    const char* text;
  } cases[] = {
      {"an empty file", ""},
      {"keywords without the command", "\nTIPO = 1\n..\n"},
      {"another command", "\n\"C\" = CASA\nTIPO = 1\n..\n"},
      {"another case", "\n\"C\" = vivienda\nTIPO = 1\n..\n"},
      {"the word at the very first character", "VIVIENDA TIPO = 1 .."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(kNoCommand, TypologyFile::stopOf(c.text));
  }
}

TEST(TypologyChecks, ViviendaWithoutClosingDotsEndsTheRun) {
  EXPECT_EQ("Error en el fichero casa.tip: VIVIENDA: falta el cierre \"..\"",
            TypologyFile::stopOf("\n\"C\" = VIVIENDA\nTIPO = 1\n"));
}

TEST(TypologyChecks, ViviendaHasLessThan10000Bytes) {
  const std::string start = "\n\"C\" = VIVIENDA";
  const std::string message =
      "Error en el fichero casa.tip: VIVIENDA: el bloque es demasiado largo";
  EXPECT_EQ(kRequired[0].second, TypologyFile::stopOf(start + std::string(9991, 'x') + ".."));
  EXPECT_EQ(message, TypologyFile::stopOf(start + std::string(9992, 'x') + ".."));
}

TEST(TypologyChecks, ARequiredKeywordThatIsMissingIsNamed) {
  for (const auto& [keyword, message] : kRequired) {
    EXPECT_EQ(message, TypologyFile().without(keyword).stop()) << keyword;
  }
  for (const ViviendaKeyword& row : viviendaKeywords()) {
    if (!row.required) continue;
    EXPECT_TRUE(std::ranges::any_of(kRequired, [&](const auto& r) { return row.name == r.first; }))
        << row.name << " is in no row of kRequired";
  }
}

TEST(TypologyChecks, OfTwoFaultsTheFirstIsReported) {
  const std::vector<CheckFault> faults = faultsInOrder();
  for (std::size_t first = 0; first < faults.size(); ++first) {
    for (std::size_t second = first + 1; second < faults.size(); ++second) {
      // The first fault is applied last: both may be about one keyword.
      TypologyFile file;
      apply(faults[second], file);
      apply(faults[first], file);
      EXPECT_EQ(faults[first].message, file.stop()) << "with " << faults[second].message;
    }
  }
}

TEST(TypologyChecks, AnEmptyCommandMissesItsFirstKeyword) {
  EXPECT_EQ(kRequired[0].second, TypologyFile::stopOf("\n\"C\" = VIVIENDA\n..\n"));
}

TEST(TypologyChecks, AKeywordOfAnotherCommandDoesNotCount) {
  EXPECT_EQ(kRequired[0].second,
            TypologyFile().without("TIPO").behind("\"X\" = OTRO\nTIPO = 1\n..\n").stop());
}

TEST(TypologyChecks, ARequiredNumberThatDoesNotConvertCountsAsMissing) {
  for (const auto& [keyword, message] : {kRequired[0], kRequired[1], kRequired[2], kRequired[3]}) {
    for (const char* value : {"abc", "\"1\"", "- 1", ","}) {
      EXPECT_EQ(message, stopWith(keyword, value)) << keyword << " = " << value;
    }
  }
}

TEST(TypologyChecks, ARequiredNumberMayHaveTextBehindIt) {
  for (const auto& [keyword, message] : {kRequired[0], kRequired[1], kRequired[2], kRequired[3]}) {
    EXPECT_EQ(kNotStopped, stopWith(keyword, "1x")) << keyword;
  }
}

TEST(TypologyChecks, TheTypologyNumberFixesTheStoreys) {
  const struct {
    const char* why;
    int tipo;
    int plantas;
    std::string_view outcome;
  } cases[] = {
      {"no storeys, the smallest typology", INT_MIN, 0, kStoreys0},
      {"no storeys, typology 0", 0, 0, kStoreys0},
      {"no storeys: this check comes first for typology 1", 1, 0, kStoreys0},
      {"no storeys: this check comes first for typology 5", 5, 0, kStoreys0},
      {"no storeys: this check comes first for typology 12", 12, 0, kStoreys0},
      {"negative", 1, -1, kStoreys0},
      {"the least", 1, INT_MIN, kStoreys0},
      {"typology 1, one storey", 1, 1, kNotStopped},
      {"typology 1, two storeys", 1, 2, kStoreys1},
      {"typology 1, many storeys", 1, INT_MAX, kStoreys1},
      {"typology 2, one storey", 2, 1, kStoreys2},
      {"typology 2, two storeys", 2, 2, kNotStopped},
      {"typology 2, three storeys", 2, 3, kStoreys2},
      {"typology 5, three storeys", 5, 3, kStoreys2},
      {"typology 9, one storey", 9, 1, kStoreys2},
      {"typology 9, two storeys", 9, 2, kNotStopped},
      {"typology 9, three storeys", 9, 3, kStoreys2},
      {"typology 10, one storey", 10, 1, kStoreysMore},
      {"typology 10, two storeys", 10, 2, kStoreysMore},
      {"typology 10, three storeys", 10, 3, kNotStopped},
      {"typology 12, two storeys", 12, 2, kStoreysMore},
      {"the greatest typology, two storeys", INT_MAX, 2, kStoreysMore},
      {"the greatest of both", INT_MAX, INT_MAX, kNotStopped},
      {"typology 0 goes with any", 0, 7, kNotStopped},
      {"typology 0, one storey", 0, 1, kNotStopped},
      {"a negative typology goes with any", -1, 2, kNotStopped},
      {"the smallest typology goes with any", INT_MIN, 1, kNotStopped},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.outcome, TypologyFile()
                             .with("TIPO", std::to_string(c.tipo))
                             .with("NUMERO-PLANTAS", std::to_string(c.plantas))
                             .stop());
  }
}

TEST(TypologyChecks, ADecimalStoreyCountLosesItsDecimals) {
  EXPECT_EQ(kNotStopped, stopWith("NUMERO-PLANTAS", "1.9"));
  EXPECT_EQ(kStoreys0, stopWith("NUMERO-PLANTAS", "0.9"));
}

/// ALTURA-PLANTA and LONGITUD-FACHADA have one rule and one message.
class PositiveLength : public testing::TestWithParam<const char*> {};

TEST_P(PositiveLength, AboveZeroPasses) {
  using Limits = std::numeric_limits<float>;
  for (const float value : {std::nextafterf(0, 1), Limits::min(), 1.0F, Limits::max()}) {
    EXPECT_EQ(kNotStopped, stopWith(GetParam(), exactly(value))) << value;
  }
}

TEST_P(PositiveLength, ZeroAndBelowIsRejectedWithTheHeightsMessage) {
  using Limits = std::numeric_limits<float>;
  for (const float value : {0.0F, -0.0F, std::nextafterf(0, -1), -2.8F, Limits::lowest()}) {
    EXPECT_EQ(kHeight, stopWith(GetParam(), exactly(value))) << value;
  }
}

TEST_P(PositiveLength, WhatRoundsToZeroIsRejected) {
  EXPECT_EQ(kHeight, stopWith(GetParam(), "1e-46"));
}

TEST_P(PositiveLength, NotANumberIsRejected) { EXPECT_EQ(kHeight, stopWith(GetParam(), "nan")); }

TEST_P(PositiveLength, AnInfiniteLengthPassesAndTheOtherIsRejected) {
  EXPECT_EQ(kNotStopped, stopWith(GetParam(), "inf"));
  EXPECT_EQ(kHeight, stopWith(GetParam(), "-inf"));
}

INSTANTIATE_TEST_SUITE_P(TypologyChecks, PositiveLength,
                         testing::Values("ALTURA-PLANTA", "LONGITUD-FACHADA"));

TEST(TypologyChecks, NothingChecksTheRangesOfTheOtherReals) {
  for (const char* keyword : {"AREA-PLANTA", "AREA-PATIO", "AREA-ESCALERA", "PROFUNDIDAD-PATIO",
                              "PROFUNDIDAD-ESCALERA", "ORIENTACION", "AIR-CHANGES/HR"}) {
    for (const char* value : {"0", "-1", "1e38"}) {
      EXPECT_EQ(kNotStopped, stopWith(keyword, value)) << keyword << " = " << value;
    }
  }
}

TEST(TypologyChecks, AListHasUpToFourPercentages) {
  for (const char* keyword : {"PORCENTAJE-FACHADA", "PORCENTAJE-PATIO"}) {
    SCOPED_TRACE(keyword);
    EXPECT_EQ(kNotStopped, stopWith(keyword, "( 1, 2, 3, 4 )"));
    EXPECT_EQ(std::string("Error en el fichero casa.tip: ") + keyword +
                  ": la lista debe tener como máximo 4 valores",
              stopWith(keyword, "( 1, 2, 3, 4, 5 )"));
  }
}

TEST(TypologyChecks, AListNeedsItsBracket) {
  EXPECT_EQ(
      "Error en el fichero casa.tip: PORCENTAJE-PATIO: "
      "falta la lista de valores entre paréntesis",
      stopWith("PORCENTAJE-PATIO", "20"));
}

TEST(TypologyChecks, ATextHasLessThan250Bytes) {
  for (const char* keyword :
       {"CUBIERTA", "ATICO", "SOTANO", "MUROS-FACHADA", "PARTICION-INTERIOR-VERTICAL", "MEDIANERA",
        "SUELOS", "PARTICION-INTERIOR-HORIZONTAL", "CUBIERTAS", "VENTANA-VIDRIO", "VENTANA-MARCO",
        "VENTANA-SOMBRA"}) {
    SCOPED_TRACE(keyword);
    const std::string longest = '"' + std::string(247, 'x') + '"';
    EXPECT_EQ(kNotStopped, stopWith(keyword, longest));
    EXPECT_EQ(
        std::string("Error en el fichero casa.tip: ") + keyword + ": el valor es demasiado largo",
        stopWith(keyword, longest.substr(0, 248) + "x\""));
  }
}

TEST(TypologyChecks, EndTheProcessWithExitCode3) {
  EXPECT_EXIT(
      {
        ExitingApplication exiting;
        TypologyFile::recordOf("\n\"C\" = VIVIENDA\n..\n");
      },
      testing::ExitedWithCode(3), "^Se ha producido un error: En el COMMAND VIVIENDA del fichero ");
}
