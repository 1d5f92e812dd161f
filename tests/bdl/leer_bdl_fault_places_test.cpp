#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "bdl/valores_por_defecto.h"
#include "support/recording_application.h"

// Where in the file the cause of each fault stands.

namespace {

using Ask = std::function<void(LeerBDL&)>;

Ask text(std::string_view keyword, std::size_t capacity = LeerBDL::kLargoValor) {
  return [=](LeerBDL& model) {
    std::string value;
    model.leerCadena(keyword, value, capacity);
  };
}

void reals(LeerBDL& model) {
  std::vector<float> values(2);
  model.leerListaReales("KEY", values);
}

void words(LeerBDL& model) {
  std::vector<std::string> values;
  model.leerListaCadenas("KEY", values, 2, 6);
}

void house(LeerBDL& model) {
  bool found = false;
  LeerBDL(model, "HOUSE", found);
}

Ask wall(const std::string& name) {
  return [=](LeerBDL& model) { LeerBDL(model, "WALL", name); };
}

void nextWall(LeerBDL& model) { model.siguienteComando("WALL", 6); }

/// The same question, put to the first command M1.
Ask inWall(const Ask& ask) {
  return [=](LeerBDL& model) {
    LeerBDL command(model, "WALL", "\"M1\"");
    ask(command);
  };
}

}  // namespace

TEST(PlaceOfAFault, IsWhereItsCauseStands) {
  const std::string tabs(100, '\t');
  const std::string tooLong(10000, 'x');
  const struct {
    const char* why;
    std::string text;
    Ask ask;
    const char* message;
    std::string place;
  } cases[] = {
      {"a text without closing quotes", "\n\tKEY\t=\t\"a b", text("KEY"),
       "KEY: faltan las comillas de cierre del valor", "2: \tKEY\t=\t[\"a] b"},
      {"a text that is too long", "\n KEY = \"a b\" c", text("KEY", 5),
       "KEY: el valor es demasiado largo", "2:  KEY = [\"a b\"] c"},
      {"a word that is too long", "\r\n KEY = abcde f", text("KEY", 5),
       "KEY: el valor es demasiado largo", "2:  KEY = [abcde] f"},
      {"a text without a value", "\r\n KEY =", text("KEY"), "KEY: falta el valor", "2:  KEY [=]"},
      {"a text without a value, and lines behind", "\n KEY =\n \n\t\n", text("KEY"),
       "KEY: falta el valor", "2:  KEY [=]"},
      {"too many blanks: where they begin", "\nKEY =" + tabs + "a", text("KEY"),
       "KEY: hay demasiados blancos delante del valor", "2: KEY =[]" + tabs + "a"},
      {"reals without a bracket", "\n\tKEY = 1, 2", reals,
       "KEY: falta la lista de valores entre paréntesis", "2: \tKEY = [1,] 2"},
      {"reals without a value", "\n\tKEY =", reals,
       "KEY: falta la lista de valores entre paréntesis", "2: \tKEY [=]"},
      {"reals without a value before a keyword", "\n\tKEY =\n\tDEF = 1", reals,
       "KEY: falta la lista de valores entre paréntesis", "2: \tKEY [=]"},
      {"reals without an =", "\n\tKEY\n\tDEF = 1", reals,
       "KEY: falta la lista de valores entre paréntesis", "2: \t[KEY]"},
      {"reals without a bracket on the next line", "\n\tKEY =\n\t1, 2", reals,
       "KEY: falta la lista de valores entre paréntesis", "3: \t[1,] 2"},
      {"too many reals", "\n KEY =\t( 1,  2, 3 ) x", reals,
       "KEY: la lista debe tener como máximo 2 valores", "2:  KEY =\t[( 1,  2, 3 )] x"},
      {"words without a bracket", "\r\nKEY = \"a\" b", words,
       "KEY: falta la lista de valores entre paréntesis", "2: KEY = [\"a\"] b"},
      {"words without quotes", "\r\nKEY = (\ta, b ) x", words,
       "KEY: faltan comillas en la lista de valores", "2: KEY = [(\ta, b )] x"},
      {"words that are not closed", "\r\nKEY = ( \"a", words,
       "KEY: faltan comillas en la lista de valores", "2: KEY = [(] \"a"},
      {"a word of a list that is too long", "\nKEY = ( \"a\",\n  \"b  cde\" )", words,
       "KEY: un valor de la lista es demasiado largo", "3:   [\"b  cde\"] )"},
      {"too many words: the one too many", "\nKEY = ( \"a\",\n\t\"b\",\n\t\"c\" )", words,
       "KEY: la lista debe tener como máximo 2 valores", "4: \t[\"c\"] )"},
      {"a block without an end", "$ x\r\n\t\"C\" = HOUSE\r\nA = 1\r\n", house,
       "HOUSE: falta el cierre \"..\"", "2: \t\"C\" = [HOUSE]"},
      {"a block that is too long", "\n\"C\" = HOUSE A " + tooLong + " ..", house,
       "HOUSE: el bloque es demasiado largo", "2: \"C\" = [HOUSE] A " + tooLong + " .."},
      {"defaults without an end", "\n\"M1\" = WALL ..\n\tSET-DEFAULT FOR WALL A = 1",
       wall("\"M1\""), "SET-DEFAULT FOR WALL: falta el cierre \"..\"",
       "3: \t[SET-DEFAULT] FOR WALL A = 1"},
      {"defaults that are too long",
       "\n\"M1\" = WALL ..\n SET-DEFAULT FOR WALL A " + tooLong + "..", wall("\"M1\""),
       "SET-DEFAULT FOR WALL: el bloque es demasiado largo",
       "3:  [SET-DEFAULT] FOR WALL A " + tooLong + ".."},
      {"a command that its label does not find", "\nX ..\n\t\"M=1\" = WALL ..", wall("\"M=1\""),
       "No se encuentra: \"M=1\"", "3: \t\"M=1\" = [WALL] .."},
      {"a command at the very first character", "\"M1\" = WALL ..", wall("\"M1\""),
       "No se encuentra: \"M1\"", "1: \"M1\" = [WALL] .."},
      {"a long name that is malformed", "\n\"M1\" = WALL\r\n LONG-NAME = \"A ..", wall("\"A\""),
       "LONG-NAME: faltan las comillas de cierre del valor", "3:  LONG-NAME = [\"A] .."},
      {"no more commands: the end", "\n\"D\" = DOOR ..\n", nextWall,
       "WALL: no hay más comandos de este tipo", "3: []"},
      {"no more commands in an empty text", "", nextWall, "WALL: no hay más comandos de este tipo",
       "1: []"},
      {"a command without an opening quote", "\n M1\" = WALL ..", nextWall,
       "WALL: falta el nombre entre comillas de un comando", "2:  M1\" = [WALL] .."},
      {"a name that is too long", "\r\n\t\"a  bcd\" = WALL ..", nextWall,
       "WALL: el nombre de un comando es demasiado largo", "2: \t[\"a  bcd\"] = WALL .."},
      {"a value of a command", "\nX ..\n\"M1\" = WALL\n\tKEY = \"a ..", inWall(text("KEY")),
       "KEY: faltan las comillas de cierre del valor", "4: \tKEY = [\"a] .."},
      {"a value of a command's defaults",
       "\n SET-DEFAULT FOR WALL\n\tKEY = \"a ..\n\"M1\" = WALL ..", inWall(text("KEY")),
       "KEY: faltan las comillas de cierre del valor", "3: \tKEY = [\"a] .."},
      {"a missing value of a command", "\n\"M1\" = WALL KEY =..", inWall(text("KEY")),
       "KEY: falta el valor", "2: \"M1\" = WALL KEY [=].."},
      {"a missing list of a command", "\nX ..\n\"M1\" = WALL KEY =..", inWall(reals),
       "KEY: falta la lista de valores entre paréntesis", "3: \"M1\" = WALL KEY [=].."},
      {
          "no more commands in a command: its end",
          "\nX ..\n\"M1\" = DOOR ..\n\"M1\" = WALL A ..",
          inWall([](LeerBDL& model) { model.siguienteComando("DOOR"); }),
          "DOOR: no hay más comandos de este tipo",
          "4: \"M1\" = WALL A []..",
      },
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    LoadedText file(c.text);
    const Fault fault = stopFault([&] { c.ask(file.model); });
    const bool namesTheFile = !std::string_view(c.message).starts_with("No se encuentra");
    EXPECT_EQ(namesTheFile ? LoadedText::message(c.message) : c.message, fault.message);
    EXPECT_EQ("modelo.inp:" + c.place, marked(fault.place));
  }
}

TEST(PlaceOfAFault, OfTheCommandsEndIsItsLabel) {
  LoadedText file("\nX ..\n\t\"Muro 1\" = WALL\n\tA = 1\n");
  const Fault fault = stopFault([&] { LeerBDL(file.model, "WALL", "\"Muro 1\""); });
  EXPECT_EQ(LoadedText::message("\"Muro 1\" = WALL: falta el cierre \"..\""), fault.message);
  EXPECT_EQ("modelo.inp:3: \t[\"Muro 1\"] = WALL", marked(fault.place));
}

TEST(PlaceOfAFault, OfTheDefaultsLibraryIsInItsFile) {
  const struct {
    const char* why;
    const char* text;
    const char* place;
  } cases[] = {
      {"a text", "\n\tSPACER-TYPE\t= \"A", "2: \tSPACER-TYPE\t= [\"A]"},
      {"a bridge's text", "\r\n\"P\" = THERMAL-BRIDGE\r\n TTL = 1 TYPE = \"A ..",
       "3:  TTL = 1 TYPE = [\"A] .."},
      {"the names", "\nNO-HABITABLES = x", "2: NO-HABITABLES = [x]"},
      {"a bridge that its label does not find", "\n\"P=\" = THERMAL-BRIDGE ..",
       "2: \"P=\" = [THERMAL-BRIDGE] .."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(std::string("defectos.inp:") + c.place,
              stopPlace([&] { ValoresPorDefecto(SourceText("defectos.inp", c.text)); }));
  }
}
