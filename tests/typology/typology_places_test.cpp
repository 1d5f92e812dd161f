#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/recording_application.h"
#include "support/temporary_folder.h"
#include "typology/typology_file.h"
#include "typology/vivienda_keywords.h"

// Where in the file the things stand that a message may be about.

namespace {

/// The place of a keyword's value, line number left out: files differ in how many come before.
std::string placeIn(const TypologyRecord& record, std::string_view keyword) {
  const Place place = record.placeOf(keyword);
  EXPECT_EQ("casa.tip", place.file);
  const std::string text = marked(place);
  return text.substr(text.find(": ") + 2);
}

/// The place, as `marked` writes it, of a line of the text that is given with brackets round what
/// is meant: its number is counted in the text.
std::string placed(std::string_view text, const std::string& bracketed) {
  std::string line = bracketed;
  line.erase(line.rfind(']'), 1).erase(line.find('['), 1);
  std::vector<std::string> lines = linesOf(text);
  for (std::string& each : lines) {
    if (each.ends_with('\r')) each.pop_back();
  }
  const auto at = std::ranges::find(lines, line);
  EXPECT_NE(lines.end(), at) << "the text has no such line: " << line;
  return "casa.tip:" + std::to_string(at - lines.begin() + 1) + ": " + bracketed;
}

constexpr auto kVivienda = "\"C\" = [VIVIENDA]";

}  // namespace

TEST(TypologyPlaceOf, IsTheValueOfEachKeyword) {
  for (const std::string_view lineEnd : {"\n", "\r\n", "\n\t", "\r\n  "}) {
    for (const std::string_view equals : {" = ", "\t=\t", "  =   "}) {
      const TypologyRecord record = TypologyFile().lineEnd(lineEnd).equals(equals).record();
      const std::string indent(lineEnd.substr(lineEnd.find('\n') + 1));
      for (const ViviendaKeyword& keyword : viviendaKeywords()) {
        // Nothing but the value is between the brackets.
        const Place place = record.placeOf(keyword.name);
        EXPECT_EQ(indent + std::string(keyword.name) + std::string(equals),
                  place.text.substr(0, static_cast<std::size_t>(place.column) - 1));
        EXPECT_EQ(place.text.size() + 1, static_cast<std::size_t>(place.column) + place.length);
        EXPECT_GT(place.length, 0U);
      }
    }
  }
}

TEST(TypologyPlaceOf, IsTheWordAndTheLineOfTheFile) {
  const Place place = TypologyFile().before("\n\n").record().placeOf("TIPO");
  EXPECT_EQ("casa.tip", place.file);
  EXPECT_EQ(4, place.line);
  EXPECT_EQ(8, place.column);
  EXPECT_EQ(1U, place.length);
  EXPECT_EQ("TIPO = 1", place.text);
}

TEST(TypologyPlaceOf, IsTheWordAndTheLineBehindOtherKeywords) {
  const Place place = TypologyFile().record().placeOf("AREA-PLANTA");
  EXPECT_EQ(placed(TypologyFile().text(), "AREA-PLANTA = [110.5]"), marked(place));
  EXPECT_EQ(15, place.column);
  EXPECT_EQ(5U, place.length);
  EXPECT_EQ("AREA-PLANTA = 110.5", place.text);
}

TEST(TypologyPlaceOf, IsWhatWasReadForTheKeyword) {
  const struct {
    const char* why;
    TypologyFile file;
    const char* keyword;
    const char* place;
  } cases[] = {
      {"a list", TypologyFile(), "PORCENTAJE-FACHADA",
       "PORCENTAJE-FACHADA = [( 22, 12.5, 10, 14 )]"},
      {"a quoted name", TypologyFile(), "MUROS-FACHADA", "MUROS-FACHADA = [\"Muro exterior\"]"},
      {"a keyword with blanks around it", TypologyFile(), "CUBIERTAS",
       "CUBIERTAS = [\"Cubierta plana\"]"},
      {"one that is read and replaced", TypologyFile(), "CUBIERTA", "CUBIERTA = [PLANA]"},
      {"a decimal comma, with what was not read", TypologyFile().with("AREA-PLANTA", "72,9"),
       "AREA-PLANTA", "AREA-PLANTA = [72,9]"},
      {"a longer word that comes first",
       TypologyFile().without("AREA-PATIO").withWord("SUBAREA-PATIO-2", "7"), "AREA-PATIO",
       "SUBAREA-PATIO-2 = [7]"},
      {"a value that is no number", TypologyFile().with("AREA-PATIO", "abc"), "AREA-PATIO",
       "AREA-PATIO = [abc]"},
      {"an optional keyword that is absent: the command", TypologyFile().without("ORIENTACION"),
       "ORIENTACION", kVivienda},
      {"an unknown keyword: the command", TypologyFile(), "AREA", kVivienda},
      {"no keyword: the command", TypologyFile(), "", kVivienda},
      {"one of another command only: the command",
       TypologyFile().without("AREA-PATIO").behind("\"X\" = OTRO\nAREA-PATIO = 7\n..\n"),
       "AREA-PATIO", kVivienda},
      {"the first of two commands", TypologyFile().behind("\"D\" = VIVIENDA\nAREA-PATIO = 7\n..\n"),
       "AREA-PATIO", "AREA-PATIO = [12.25]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(c.place, placeIn(c.file.record(), c.keyword));
  }
}

TEST(TypologyPlaceOf, OfACopyOutlivesTheRecord) {
  std::optional<TypologyRecord> record = TypologyFile().record();
  const TypologyRecord copy = *record;
  const std::string_view text = copy.textoTipologia();
  record.reset();
  EXPECT_EQ(TypologyFile().text(), text);
  EXPECT_EQ("AREA-PLANTA = [110.5]", placeIn(copy, "AREA-PLANTA"));
}

TEST(TypologyFaultPlace, OfAMissingKeywordIsTheCommand) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    if (!keyword.required) continue;
    SCOPED_TRACE(keyword.name);
    EXPECT_EQ("casa.tip:2: \"C\" = [VIVIENDA]", TypologyFile().without(keyword.name).place());
    EXPECT_EQ(
        "casa.tip:4: \"C\" = [VIVIENDA]",
        TypologyFile().lineEnd("\r\n").before("$ x\r\n\r\n\r\n").without(keyword.name).place());
  }
}

TEST(TypologyFaultPlace, OfARequiredNumberThatDoesNotConvertIsWhatStandsThere) {
  EXPECT_EQ("casa.tip:3: TIPO = [abc]", TypologyFile().with("TIPO", "abc").place());
}

// What stands in the next line is read instead, but the line to be mended is the keyword's.
TEST(TypologyFaultPlace, OfAValueThatIsMissingIsTheKeywordsLine) {
  const struct {
    const char* why;
    TypologyFile file;
    const char* place;
  } cases[] = {
      {"a whole number", TypologyFile().equals(" =").with("TIPO", ""), "TIPO [=]"},
      {"a whole number, with blanks behind", TypologyFile().with("TIPO", ""), "TIPO [=] "},
      {"a real number", TypologyFile().with("AREA-PLANTA", ""), "AREA-PLANTA [=] "},
      {"a real number, CR LF and tabs",
       TypologyFile().lineEnd("\r\n\t").equals("\t=").with("AREA-PLANTA", ""),
       "\tAREA-PLANTA\t[=]"},
      {"a number in front of a comment", TypologyFile().with("TIPO", "\n$ unifamiliar"),
       "TIPO [=] "},
      {"a list",
       TypologyFile()
           .without("PORCENTAJE-FACHADA")
           .without("PORCENTAJE-PATIO")
           .with("PORCENTAJE-FACHADA", "")
           .withWord("X", "1"),
       "PORCENTAJE-FACHADA [=] "},
      {"a list on the next line that is none",
       TypologyFile()
           .without("PORCENTAJE-FACHADA")
           .without("PORCENTAJE-PATIO")
           .with("PORCENTAJE-FACHADA", "\n22, 12")
           .withWord("X", "1"),
       "[22,] 12"},
      {"a list, with its =",
       TypologyFile()
           .without("PORCENTAJE-FACHADA")
           .without("PORCENTAJE-PATIO")
           .withWord("X", "1\nPORCENTAJE-FACHADA")
           .withWord("Y", "2"),
       "[PORCENTAJE-FACHADA]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(placed(c.file.text(), c.place), c.file.place());
  }
}

TEST(TypologyFaultPlace, OfAValueThatIsNotValidIsTheValue) {
  const struct {
    const char* why;
    TypologyFile file;
    const char* place;
  } cases[] = {
      {"no storeys", TypologyFile().with("NUMERO-PLANTAS", "0"), "NUMERO-PLANTAS = [0]"},
      {"storeys that the typology does not allow", TypologyFile().with("NUMERO-PLANTAS", "12"),
       "NUMERO-PLANTAS = [12]"},
      {"too few for a block", TypologyFile().with("TIPO", "10").with("NUMERO-PLANTAS", "2"),
       "NUMERO-PLANTAS = [2]"},
      {"storeys, CR LF and tabs",
       TypologyFile().lineEnd("\r\n\t").equals("\t=\t").with("NUMERO-PLANTAS", "0,9"),
       "\tNUMERO-PLANTAS\t=\t[0,9]"},
      {"a storey height", TypologyFile().with("ALTURA-PLANTA", "-2.8"), "ALTURA-PLANTA = [-2.8]"},
      {"a storey height, with what was not read", TypologyFile().with("ALTURA-PLANTA", "0,5"),
       "ALTURA-PLANTA = [0,5]"},
      {"a storey height that is no number", TypologyFile().with("ALTURA-PLANTA", "nan"),
       "ALTURA-PLANTA = [nan]"},
      {"a façade, whose message is the height's", TypologyFile().with("LONGITUD-FACHADA", "0"),
       "LONGITUD-FACHADA = [0]"},
      {"a height read from a comment", TypologyFile().with("TIPO", "1\n$ la ALTURA-PLANTA = 0 m"),
       "$ la ALTURA-PLANTA = [0] m"},
      {"a height read from a longer word", TypologyFile().with("TIPO", "1\nX-ALTURA-PLANTA-2 = 0"),
       "X-ALTURA-PLANTA-2 = [0]"},
      {"a height whose value stands on another line", TypologyFile().with("ALTURA-PLANTA", "\n\t0"),
       "\t[0]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(placed(c.file.text(), c.place), c.file.place());
  }
}

TEST(TypologyFaultPlace, OfAValueThatCannotBeReadIsTheValue) {
  const std::string tooLong = '"' + std::string(248, 'x') + '"';
  const struct {
    const char* why;
    TypologyFile file;
    std::string place;
  } cases[] = {
      {"too many percentages", TypologyFile().with("PORCENTAJE-FACHADA", "( 1, 2, 3, 4, 5 )"),
       "PORCENTAJE-FACHADA = [( 1, 2, 3, 4, 5 )]"},
      {"no bracket", TypologyFile().with("PORCENTAJE-PATIO", "20"), "PORCENTAJE-PATIO = [20]"},
      {"a text that is too long", TypologyFile().with("SUELOS", tooLong),
       "SUELOS = [" + tooLong + "]"},
      {"one that is read and replaced", TypologyFile().with("ATICO", tooLong),
       "ATICO = [" + tooLong + "]"},
      {"quotes that are not closed",
       TypologyFile()
           .without("VENTANA-MARCO")
           .without("VENTANA-SOMBRA")
           .with("VENTANA-VIDRIO", "\"Doble"),
       "VENTANA-VIDRIO = [\"Doble]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(placed(c.file.text(), c.place), c.file.place());
  }
}

TEST(TypologyFaultPlace, OfAFileWithoutViviendaIsTheFileAsAWhole) {
  for (const std::string_view text : {"", "\nTIPO = 1\n..\n", "VIVIENDA TIPO = 1 .."}) {
    EXPECT_EQ("casa.tip", TypologyFile::placeOf(text)) << text;
  }
}

TEST(TypologyFaultPlace, OfACommandIsItsBeginning) {
  const struct {
    const char* why;
    std::string text;
    std::string place;
  } cases[] = {
      {"the house without its end", "\n\t\"C\" = VIVIENDA\nTIPO = 1\n", "\t\"C\" = [VIVIENDA]"},
      {"a house that is too long", "\r\n\"C\" = VIVIENDA\r\n" + std::string(10000, 'x') + "\r\n..",
       "\"C\" = [VIVIENDA]"},
      {"a frame without its end", TypologyFile().behind("\"PVC\" = NAME-FRAME\nA = 1").text(),
       "[\"PVC\"] = NAME-FRAME"},
      {"a shade without its end",
       TypologyFile().behind("\n\t\"Voladizo\" = VENTANA-SOMBRA A = 1").text(),
       "\t[\"Voladizo\"] = VENTANA-SOMBRA A = 1"},
      {"a position without its end",
       TypologyFile().behind("\"V\" = SOLAR-POSITION\r\nA = 1").text(), "\"V\" = [SOLAR-POSITION]"},
      {"a frame that its label does not find",
       TypologyFile().behind("\"A=1\" = NAME-FRAME B = 2 ..").text(),
       "\"A=1\" = [NAME-FRAME] B = 2 .."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(placed(c.text, c.place), TypologyFile::placeOf(c.text));
  }
}
