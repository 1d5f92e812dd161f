#include "stock/row_typology.h"

#include <gtest/gtest.h>

#include <functional>

#include "list_text.h"
#include "stock/encoding.h"
#include "stock/refusal.h"
#include "support/temporary_folder.h"

using stock::ListRow;
using stock::Refusal;

namespace {

/// A list of one house whose cells a test changes.
class OneRow {
 public:
  OneRow& with(const std::string& column, const std::string& value) {
    for (auto& cell : cells_) {
      if (cell.first == column) {
        cell.second = value;
        return *this;
      }
    }
    cells_.emplace_back(column, value);
    return *this;
  }
  std::string text(char separator = ';') const {
    std::string names, values;
    for (const auto& [name, value] : cells_) {
      names += (names.empty() ? std::string() : std::string(1, separator)) + name;
      std::string quoted;
      for (const char c : value) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
      values += (values.empty() ? std::string() : std::string(1, separator)) + '"' + quoted + '"';
    }
    return names + "\n" + values + "\n";
  }
  void use(const std::function<void(const ListRow&)>& body, char separator = ';') const {
    stock::ListReader list = listOf(text(separator));
    const stock::ListColumns columns = readHeader(list, false);
    stock::Record record;
    ASSERT_TRUE(list.next(record));
    body(ListRow(columns, record, "lista.csv"));
  }
  std::string typology(std::string_view texts = "") const {
    std::string bytes;
    use([&](const ListRow& row) { bytes = writeTypology(row, texts).bytes; });
    return bytes;
  }
  /// What refuses the row, or nothing.
  std::string refusal(char separator = ';') const {
    std::string message;
    use(
        [&](const ListRow& row) {
          try {
            const TypologyRecord read(SourceText("a.tip", writeTypology(row, "").bytes));
            requireReadAsWritten(row, read);
          } catch (const Refusal& refusal) {
            message = refusal.message;
            EXPECT_TRUE(refusal.place && refusal.place->line == 2) << message;
          }
        },
        separator);
    return message;
  }

 private:
  std::vector<std::pair<std::string, std::string>> cells_ = {
      {"ID", "TIPO-1"},
      {"TIPO", "1"},
      {"NUMERO-PLANTAS", "1"},
      {"AREA-PLANTA", "72,5"},
      {"LONGITUD-FACHADA", "8.5"},
      {"PORCENTAJE-FACHADA-SUR", "20"},
      {"PORCENTAJE-FACHADA-ESTE", "0"},
      {"PORCENTAJE-FACHADA-NORTE", "12,5"},
      {"PORCENTAJE-FACHADA-OESTE", "0"},
      {"MUROS-FACHADA", "Muro_Fábrica"},
      {"PARTICION-INTERIOR-VERTICAL", "PV"},
      {"MEDIANERA", "ME"},
      {"SUELOS", "SU"},
      {"PARTICION-INTERIOR-HORIZONTAL", "PH"},
      {"CUBIERTAS", "CU"},
      {"VENTANA-VIDRIO", "VI"},
  };
};

}  // namespace

TEST(RowTypology, IsTheCommandOfTheRowAndThenItsTexts) {
  EXPECT_EQ(toCp1252("\"Edificio\" = VIVIENDA\n"
                     "   TIPO = 1\n"
                     "   NUMERO-PLANTAS = 1\n"
                     "   AREA-PLANTA = 72.5\n"
                     "   LONGITUD-FACHADA = 8.5\n"
                     "   PORCENTAJE-FACHADA = ( 20, 0, 12.5, 0 )\n"
                     "   MUROS-FACHADA = \"Muro_Fábrica\"\n"
                     "   PARTICION-INTERIOR-VERTICAL = \"PV\"\n"
                     "   MEDIANERA = \"ME\"\n"
                     "   SUELOS = \"SU\"\n"
                     "   PARTICION-INTERIOR-HORIZONTAL = \"PH\"\n"
                     "   CUBIERTAS = \"CU\"\n"
                     "   VENTANA-VIDRIO = \"VI\"\n"
                     "   ..\n"
                     "$ textos\n"),
            OneRow().typology("$ textos\n"));
}

TEST(RowTypology, HasTheLineEndsOfItsTexts) {
  const std::string text = OneRow().typology("$ textos\r\n$ y más\n");
  EXPECT_TRUE(text.starts_with("\"Edificio\" = VIVIENDA\r\n   TIPO = 1\r\n")) << text;
  EXPECT_TRUE(text.ends_with("   ..\r\n$ textos\r\n$ y más\n")) << text;
}

TEST(RowTypology, IsReadBackAsTheRowSays) {
  EXPECT_EQ("", OneRow().refusal());
  EXPECT_EQ("", OneRow().with("MUROS-FACHADA", "\"con comillas\"").refusal());
  EXPECT_EQ("", OneRow().with("CUBIERTA", "PLANA").with("AIR-CHANGES/HR", "0,63").refusal());
  EXPECT_EQ("", OneRow().with("ORIENTACION", "").with("VENTANA-MARCO", "").refusal());
}

TEST(RowTypology, ACellThatCannotBeWrittenRefusesTheRow) {
  const struct {
    const char* column;
    const char* value;
    const char* message;
  } cases[] = {
      {"AREA-PLANTA", "1.234,5",
       "AREA-PLANTA: \"1.234,5\" mezcla punto y coma; escriba un solo separador decimal"},
      {"TIPO", "1,5", "TIPO: \"1,5\" no es un número entero"},
      {"PORCENTAJE-FACHADA-ESTE", "x", "PORCENTAJE-FACHADA-ESTE: \"x\" no es un número"},
      {"PORCENTAJE-FACHADA-ESTE", "", "Falta el valor de PORCENTAJE-FACHADA-ESTE"},
      {"SUELOS", "a\"b",
       "SUELOS: \"a\"b\" contiene comillas, fines de línea u otros caracteres que un nombre no "
       "admite"},
      {"SUELOS", "a\nb",
       "SUELOS: \"a\nb\" contiene comillas, fines de línea u otros caracteres que un nombre no "
       "admite"},
      {"SUELOS", "жук", "SUELOS: \"жук\" contiene caracteres que no existen en Windows-1252"},
      {"MUROS-FACHADA", "muro MEDIANERA = x",
       "MEDIANERA se leería de otro modo: otro nombre de la fila contiene esa palabra"},
      {"VENTANA-VIDRIO", "VENTANA-MARCO = M ",
       "VENTANA-MARCO se leería de otro modo: otro nombre de la fila contiene esa palabra"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    EXPECT_EQ(c.message, OneRow().with(c.column, c.value).refusal());
  }
  EXPECT_EQ(
      "AREA-PLANTA: \"72,5\" tiene una coma, que en esta lista separa las columnas; escriba un "
      "punto",
      OneRow().refusal(','));
}

TEST(RowTypology, NotesANumberThatMayHaveMeantThousands) {
  OneRow().with("AREA-PLANTA", "1.200").use([](const ListRow& row) {
    EXPECT_EQ(std::vector<std::string>{"punto-decimal"}, writeTypology(row, "").notes);
  });
  OneRow().use([](const ListRow& row) { EXPECT_TRUE(writeTypology(row, "").notes.empty()); });
}

TEST(RowTypology, ALineLeadsBackToItsColumn) {
  OneRow().use([](const ListRow& row) {
    const stock::RowTypology typology = writeTypology(row, "$ textos\n");
    const std::vector<std::string> lines = linesOf(typology.bytes);
    ASSERT_EQ(static_cast<std::size_t>(typology.textsLine), lines.size());
    EXPECT_EQ("$ textos", lines.back());
    for (std::size_t i = 0; i < typology.columnOfLine.size(); ++i) {
      if (lines[i].find("AREA-PLANTA") != std::string::npos) {
        EXPECT_EQ("72,5", row.text(typology.columnOfLine[i]));
      }
    }
  });
}

TEST(RowTypology, AnIdIsMadeOfWhatAnyFileNameMayHave) {
  for (const char* id : {"a", "Z9-_.", "0001"}) EXPECT_TRUE(stock::isGoodId(id)) << id;
  EXPECT_TRUE(stock::isGoodId(std::string(100, 'x')));
  for (const char* id : {"", "a/b", "a\\b", "ñ", "a b", "a:b", "a\n"}) {
    EXPECT_FALSE(stock::isGoodId(id)) << id;
  }
  EXPECT_FALSE(stock::isGoodId(std::string(101, 'x')));
}

TEST(Encoding, IsTheOneOfTheChainsFiles) {
  EXPECT_EQ("\xF1\x80\xE1", stock::toCp1252("ñ€á"));
  EXPECT_EQ(std::nullopt, stock::toCp1252("ж"));
  EXPECT_EQ(std::nullopt, stock::toCp1252("\xF0\x9F\x98\x80"));
}
