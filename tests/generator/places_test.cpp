#include <gtest/gtest.h>

#include "core/concat.h"
#include "generator/generation_sequence.h"
#include "generator/generator_fixture.h"
#include "generator/typology_geometry.h"
#include "support/temporary_folder.h"

// Where the faults of a generation stand: the value, the line or the command to look at.

namespace {

/// A typology whose first lines are `numbers`, from line 2 on.
std::string vivienda(std::string_view numbers) {
  return concat("\"T\" = VIVIENDA\n", numbers,
                "  PORCENTAJE-FACHADA = ( 20, 20, 20, 20 )\n"
                "  MUROS-FACHADA = \"M1\"\n"
                "  PARTICION-INTERIOR-VERTICAL = \"PV\"\n"
                "  MEDIANERA = \"ME\"\n"
                "  SUELOS = \"SU\"\n"
                "  PARTICION-INTERIOR-HORIZONTAL = \"PH\"\n"
                "  CUBIERTAS = \"CU\"\n"
                "  VENTANA-VIDRIO = \"VI\"\n"
                "..\n");
}

/// Where the fault of the plan of a typology stands.
std::string placeOfPlanFault(std::string_view typology) {
  return placeOfFault([&] {
    GeneratorRun run({}, kEmptyTable, typology);
    geometriaTipologia(run.context());
  });
}

std::string placeOfTableFault(std::string_view table) {
  return placeOfFault([&] { GeneratorRun({}, table); });
}

/// The place where the whole generation of these texts ends.
std::string placeOfGeneration(const std::vector<std::string>& lines, std::string_view typology,
                              std::string_view table = kEmptyTable) {
  return placeOfFault([&] {
    GeneratorRun run(lines, table, typology);
    RecordingBar bar;
    run.generate(bar);
  });
}

/// A template of a house: a plan, its parameters, and then `lines`.
std::vector<std::string> house(const std::vector<std::string>& lines = {}) {
  std::vector<std::string> whole = {"P = POLYGON", "..", "D = BUILD-PARAMETERS", ".."};
  whole.insert(whole.end(), lines.begin(), lines.end());
  return whole;
}

/// The numbers of a house of one storey, 100 m2, and whatever follows them, from line 6 on.
std::string houseWith(std::string_view more) {
  return vivienda(concat(
      "  TIPO = 1\n  NUMERO-PLANTAS = 1\n  AREA-PLANTA = 100\n  LONGITUD-FACHADA = 10\n", more));
}

}  // namespace

TEST(PlaceOfAPlanFault, IsTheValueOfTheKeywordToBlame) {
  const struct {
    const char* why;
    const char* numbers;
    const char* place;
  } cases[] = {
      {"a house too small",
       "  TIPO = 1\n  NUMERO-PLANTAS = 1\n"
       "  AREA-PLANTA = 29.5\n  LONGITUD-FACHADA = 10\n",
       "casa.tip:4:17 [29.5]"},
      {"a house too narrow",
       "  TIPO = 2\n  NUMERO-PLANTAS = 2\n"
       "  AREA-PLANTA = 100\n  LONGITUD-FACHADA = 3\n",
       "casa.tip:5:22 [3]"},
      {"a house not deep enough: the façade, not the area",
       "  TIPO = 9\n  NUMERO-PLANTAS = 2\n"
       "  AREA-PLANTA = 100\n  LONGITUD-FACHADA = 40\n",
       "casa.tip:5:22 [40]"},
      {"a row too large",
       "  TIPO = 10\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 4000\n  AREA-ESCALERA = 30\n  LONGITUD-FACHADA = 44\n",
       "casa.tip:4:17 [4000]"},
      {"a row's stair too large",
       "  TIPO = 12\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 632\n  AREA-ESCALERA =512\n  LONGITUD-FACHADA = 44\n",
       "casa.tip:5:18 [512]"},
      {"a courtyard too deep for the block",
       "  TIPO = 13\n  NUMERO-PLANTAS = 3\n  PROFUNDIDAD-PATIO = 12\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 40\n  LONGITUD-FACHADA = 20\n",
       "casa.tip:4:23 [12]"},
      {"a courtyard as long as the façade: the façade",
       "  TIPO = 13\n  NUMERO-PLANTAS = 3\n  PROFUNDIDAD-PATIO = 4\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 40\n  LONGITUD-FACHADA = 10\n",
       "casa.tip:7:22 [10]"},
      {"a stair-well too small",
       "  TIPO = 23\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 240\n  AREA-ESCALERA = 4\n  PROFUNDIDAD-ESCALERA = 2.1\n"
       "  LONGITUD-FACHADA = 12\n",
       "casa.tip:5:19 [4]"},
      {"courtyards in the façades that meet the stair",
       "  TIPO = 14\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 40\n  AREA-ESCALERA = 20\n"
       "  LONGITUD-FACHADA = 20\n  PROFUNDIDAD-PATIO = 3\n  PROFUNDIDAD-ESCALERA = 6\n",
       "casa.tip:8:23 [3]"},
      {"courtyards in the façades, too long: the area",
       "  TIPO = 17\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 64\n  AREA-ESCALERA = 20\n"
       "  LONGITUD-FACHADA = 8\n  PROFUNDIDAD-PATIO = 4\n  PROFUNDIDAD-ESCALERA = 6\n",
       "casa.tip:5:16 [64]"},
      {"courtyards in the sides, too wide for the block",
       "  TIPO = 15\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 40\n  AREA-ESCALERA = 20\n"
       "  LONGITUD-FACHADA = 20\n  PROFUNDIDAD-PATIO = 12\n  PROFUNDIDAD-ESCALERA = 6\n",
       "casa.tip:8:23 [12]"},
      {"courtyards in the sides that meet the stair: the façade",
       "  TIPO = 21\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 200\n  AREA-PATIO = 48\n  AREA-ESCALERA = 24\n"
       "  LONGITUD-FACHADA = 16\n  PROFUNDIDAD-PATIO = 4\n  PROFUNDIDAD-ESCALERA = 4\n",
       "casa.tip:7:22 [16]"},
      {"a stair core not deep enough",
       "  TIPO = 22\n  NUMERO-PLANTAS = 3\n"
       "  AREA-PLANTA = 632\n  AREA-ESCALERA = 200\n"
       "  LONGITUD-FACHADA = 44\n  PROFUNDIDAD-ESCALERA = 3.000\n",
       "casa.tip:7:26 [3.000]"},
      {"a number without a plan",
       "  TIPO = 24\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 100\n  LONGITUD-FACHADA = 10\n",
       "casa.tip:2:10 [24]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeOfPlanFault(vivienda(c.numbers)));
  }
}

TEST(PlaceOfAPlanFault, OfADefaultedKeywordIsTheWordVivienda) {
  const struct {
    const char* why;
    const char* numbers;
  } cases[] = {
      {"a row without its stair",
       "  TIPO = 10\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 632\n  LONGITUD-FACHADA = 44\n"},
      {"a courtyard without its area",
       "  TIPO = 13\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 240\n  LONGITUD-FACHADA = 12\n"
       "  PROFUNDIDAD-PATIO = 8\n"},
      {"a courtyard without its depth",
       "  TIPO = 13\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 240\n  LONGITUD-FACHADA = 12\n"
       "  AREA-PATIO = 48\n"},
      {"a stair-well without its depth",
       "  TIPO = 23\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 240\n  LONGITUD-FACHADA = 12\n"
       "  AREA-ESCALERA = 48\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ("casa.tip:1:7 [VIVIENDA]", placeOfPlanFault(vivienda(c.numbers)));
  }
}

TEST(PlaceOfAPlanFault, IsFoundHoweverTheFileIsWritten) {
  const std::string numbers =
      "  TIPO = 1\n  NUMERO-PLANTAS = 1\n  AREA-PLANTA = 29\n  LONGITUD-FACHADA = 10\n";
  const auto with = [&](std::string_view line) {
    std::string changed = numbers;
    const std::string_view old = "  AREA-PLANTA = 29\n";
    return vivienda(changed.replace(changed.find(old), old.size(), line));
  };
  const struct {
    const char* why;
    std::string typology;
    const char* place;
  } cases[] = {
      {"tabs are single bytes", with("\tAREA-PLANTA\t=\t29\n"), "casa.tip:4:16 [29]"},
      {"many blanks", with("  AREA-PLANTA     =     29\n"), "casa.tip:4:25 [29]"},
      {"CR LF", with("  AREA-PLANTA = 29\r\n"), "casa.tip:4:17 [29]"},
      {"the value on the line behind", with("  AREA-PLANTA =\n    29\n"), "casa.tip:5:5 [29]"},
      {"the same with CR LF", with("  AREA-PLANTA =\r\n 29\r\n"), "casa.tip:5:2 [29]"},
      {"two on a line", with("  ATICO = NO  AREA-PLANTA = 29 SOTANO = NO\n"), "casa.tip:4:29 [29]"},
      {"behind an accent, in bytes",
       with("  NOTA = \"" + toCp1252("año") + "\" AREA-PLANTA = 29\n"), "casa.tip:4:30 [29]"},
      {"behind a comment and empty lines", "$ Casa\n\n\n" + vivienda(numbers),
       "casa.tip:7:17 [29]"},
      {"the first one counts", with("  AREA-PLANTA = 29\n  AREA-PLANTA = 100\n"),
       "casa.tip:4:17 [29]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeOfPlanFault(c.typology));
  }
}

TEST(PlaceOfATableFault, IsTheLineThatIsWrong) {
  const struct {
    const char* why;
    std::string table;
    std::string place;
  } cases[] = {
      {"no counts", "a\nb\nuno dos\n", "casa.tbl:3:1 [uno]"},
      {"a negative count", "a\nb\n-1 0\n", "casa.tbl:3:1 [-1]"},
      {"another", "a\nb\n1 -2\n", "casa.tbl:3:3 [-2]"},
      {"one count", "a\nb\n1\n", "casa.tbl:3:2 []"},
      {"blanks in front", "a\nb\n \tx 15\n", "casa.tbl:3:3 [x]"},
      {"a surface without its kind", "a\nb\n1 0\n\"M\"\n1 2 3 4 5 6 7\n", "casa.tbl:5:14 []"},
      {"the second one", "a\nb\n2 0\n\"M\"\n1 2 3 4 5 6 7 0\n\"N\"\n  falta \n",
       "casa.tbl:7:3 [falta]"},
      {"a comma in a number", "a\r\nb\r\n1 0\r\n\"M\"\r\n1,5\r\n", "casa.tbl:5:2 [,5]"},
      {"an overlong name", "a\nb\n1 0\n" + std::string(200, 'n') + "\n1 2 3 4 5 6 7 0\n",
       "casa.tbl:4:1 [" + std::string(200, 'n') + "]"},
      {"too few lines: the last one", "a\nb\n9 0\n\"M\"\n", "casa.tbl:4:1 [\"M\"]"},
      {"without a line end", "a\nb\n9 0\n\"M\"", "casa.tbl:4:1 [\"M\"]"},
      {"not even three", "a\nb\n", "casa.tbl:2:1 [b]"},
      {"an empty last line", "a\n\n", "casa.tbl:2:1 []"},
      {"nothing at all", "", "casa.tbl:1:1 []"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeOfTableFault(c.table));
  }
}

TEST(PlaceInTheTemplate, OfALineTooLongIsTheLine) {
  const std::string tooLong(3001, 'x');
  EXPECT_EQ("casa.bdl:5:1 [" + tooLong + "]",
            placeOfGeneration(house({tooLong + "\r", "b"}), houseWith("")));
}

TEST(PlaceInTheTemplate, OfAWindowInARoofIsItsHeader) {
  EXPECT_EQ("casa.bdl:6:1 [  \"V\" = WINDOW]",
            placeOfGeneration(house({"$ nota", "  \"V\" = WINDOW", "X = 1", ".."}), houseWith(""),
                              tableOf({"\"V\"", "1 0 0 0 0 180 0 1"})));
}

TEST(PlaceInTheTemplate, OfAWindowWithoutBaysIsItsHeader) {
  // A house has no courtyard. A tall window takes the courtyard's bays, which is known at its end.
  EXPECT_EQ("casa.bdl:5:1 [\"V\" = WINDOW]",
            placeOfGeneration(house({"\"V\" = WINDOW", "HEIGHT = 3", "X = 1", "..", "END .."}),
                              houseWith(""), tableOf({"\"V\"", "1 0 0 0 0 180 90 1"})));
  EXPECT_EQ("casa.bdl:5:1 [\"V_Med\" = WINDOW]",
            placeOfGeneration(house({"\"V_Med\" = WINDOW", ".."}),
                              houseWith("  PORCENTAJE-PATIO = ( 20, 20, 20, 20 )\n"),
                              tableOf({"\"V_Med\"", "1 0 0 0 0 180 90 1"})));
}

TEST(PlaceInTheTemplate, OfAMissingCommandIsTheLastLine) {
  const std::string sides =
      vivienda("  TIPO = 15\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 240\n  LONGITUD-FACHADA = 12\n");
  const struct {
    const char* why;
    std::vector<std::string> lines;
    std::string typology;
    const char* place;
  } cases[] = {
      {"POLYGON", {"D = BUILD-PARAMETERS", "..", "END .."}, houseWith(""), "casa.bdl:3:1 [END ..]"},
      {"BUILD-PARAMETERS", {"P = POLYGON", "..", "  FIN"}, houseWith(""), "casa.bdl:3:1 [  FIN]"},
      {"BUILDING-SHADE", {"P = POLYGON", ".."}, sides, "casa.bdl:2:1 [..]"},
      {"a line end behind it makes no other",
       {"a", "END ..", ""},
       houseWith(""),
       "casa.bdl:2:1 [END ..]"},
      {"nor does CR LF", {"a", "END ..\r", ""}, houseWith(""), "casa.bdl:2:1 [END ..]"},
      {"an empty template", {}, houseWith(""), "casa.bdl:1:1 []"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeOfGeneration(c.lines, c.typology));
  }
}

TEST(PlaceOfANumberThatIsNotFinite, IsTheValueThatItComesFrom) {
  const std::vector<std::string> lines =
      house({"F = FLOOR", "FLOOR-HEIGHT = 1", "..", "E = SPACE", "AIR-CHANGES/HR = 1", ".."});
  const struct {
    const char* why;
    const char* number;
    const char* place;
  } cases[] = {
      {"written as it is", "  ORIENTACION = nan\n", "casa.tip:6:17 [nan]"},
      {"an infinity", "  ORIENTACION = -inf\n", "casa.tip:6:17 [-inf]"},
      {"too large for a real", "  ORIENTACION = 1e39\n", "casa.tip:6:17 [1e39]"},
      {"a storey's height", "  ALTURA-PLANTA = inf\n", "casa.tip:6:19 [inf]"},
      {"air changes", "  AIR-CHANGES/HR = nan\n", "casa.tip:6:20 [nan]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeOfGeneration(lines, houseWith(c.number)));
  }
}

TEST(PlaceOfANumberThatIsNotFinite, OfAListIsTheWholeList) {
  const std::string typology = vivienda(
      "  TIPO = 13\n  NUMERO-PLANTAS = 3\n  AREA-PLANTA = 240\n  LONGITUD-FACHADA = 12\n"
      "  AREA-PATIO = 48\n  PROFUNDIDAD-PATIO = 8\n  PORCENTAJE-PATIO = ( nan, 0, 0, 0 )\n");
  std::vector<std::string> lines;
  for (int i = 0; i < 5; ++i) lines.insert(lines.end(), {"P = POLYGON", ".."});
  for (const std::string& line : house({"\"V\" = WINDOW", "HEIGHT = 3", ".."})) {
    lines.push_back(line);
  }
  // A street window as tall as the storey takes the courtyard's percentage.
  EXPECT_EQ("casa.tip:8:22 [( nan, 0, 0, 0 )]",
            placeOfGeneration(lines, typology, tableOf({"\"V\"", "1 0 0 0 0 180 90 1"})));
}

TEST(PlaceOfANumberThatIsNotFinite, IsFoundBehindOthersThatAreNotWritten) {
  EXPECT_EQ("casa.tip:7:17 [nan]",
            placeOfGeneration(house(), houseWith("  AREA-PATIO = nan\n  ORIENTACION = nan\n")));
}

TEST(PlaceOfANumberThatIsNotFinite, OfAFiniteOneIsTheValueThatItComesFrom) {
  // Four times as many air changes as these are more than a real can hold.
  EXPECT_EQ("casa.tip:6:20 [1e-40]",
            placeOfGeneration(house({"VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )"}),
                              houseWith("  AIR-CHANGES/HR = 1e-40\n")));
}
