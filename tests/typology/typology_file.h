#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/source_text.h"
#include "support/recording_application.h"
#include "typology/typology_record.h"
#include "typology/vivienda_keywords.h"

/// A typology file "casa.tip" with a VIVIENDA command that passes every check, to be changed for a
/// test: TypologyFile().with("TIPO", "5").without("ATICO").record().
class TypologyFile {
 public:
  /// Gives `keyword` another value; one that a test has taken out is added at the end.
  TypologyFile& with(std::string_view keyword, std::string_view value) {
    for (auto& line : lines_) {
      if (line.first == keyword) {
        line.second = value;
        return *this;
      }
    }
    if (findViviendaKeyword(keyword) == nullptr) {
      ADD_FAILURE() << keyword << " is no keyword of VIVIENDA: is its row of viviendaKeywords() "
                    << "missing? (A word that is meant to be none is for withWord.)";
    }
    return withWord(keyword, value);
  }
  /// Adds at the end what looks like a keyword and is none.
  TypologyFile& withWord(std::string_view word, std::string_view value) {
    lines_.emplace_back(word, value);
    return *this;
  }
  TypologyFile& without(std::string_view keyword) {
    std::erase_if(lines_, [&](const auto& line) { return line.first == keyword; });
    return *this;
  }
  /// Sets `text` before or behind the VIVIENDA command.
  TypologyFile& before(std::string_view text) {
    before_ = text;
    return *this;
  }
  TypologyFile& behind(std::string_view text) {
    behind_ = text;
    return *this;
  }
  TypologyFile& lineEnd(std::string_view text) {
    lineEnd_ = text;
    return *this;
  }
  TypologyFile& equals(std::string_view text) {
    equals_ = text;
    return *this;
  }

  /// The value that the file has for `keyword`; nothing where it has none.
  std::optional<std::string> valueOf(std::string_view keyword) const {
    for (const auto& [name, value] : lines_) {
      if (name == keyword) return value;
    }
    return std::nullopt;
  }

  std::string text() const {
    std::string text = before_ + "\"C\" = VIVIENDA" + lineEnd_;
    for (const auto& [keyword, value] : lines_) text += keyword + equals_ + value + lineEnd_;
    return text + ".." + lineEnd_ + behind_;
  }

  // cppcheck-suppress returnDanglingLifetime ; the record keeps a copy of the text
  TypologyRecord record() const { return recordOf(text()); }
  static TypologyRecord recordOf(std::string_view text) {
    return TypologyRecord(SourceText("casa.tip", text));
  }

  /// The message that reading the file ends with, and its place as `marked` writes it.
  std::string stop() const { return stopOf(text()); }
  std::string place() const { return placeOf(text()); }

  static std::string stopOf(std::string_view text) {
    return stopMessage([&] { recordOf(text); });
  }
  static std::string placeOf(std::string_view text) {
    return stopPlace([&] { recordOf(text); });
  }

 private:
  std::string before_ = "\n";
  std::string behind_;
  std::string lineEnd_ = "\n";
  std::string equals_ = " = ";
  std::vector<std::pair<std::string, std::string>> lines_ = {
      {"TIPO", "1"},
      {"NUMERO-PLANTAS", "1"},
      {"ALTURA-PLANTA", "2.8"},
      {"AREA-PLANTA", "110.5"},
      {"AREA-PATIO", "12.25"},
      {"AREA-ESCALERA", "9.5"},
      {"LONGITUD-FACHADA", "11.2"},
      {"PROFUNDIDAD-PATIO", "3.4"},
      {"PROFUNDIDAD-ESCALERA", "4.6"},
      {"CUBIERTA", "PLANA"},
      {"ATICO", "NO"},
      {"SOTANO", "NO"},
      {"PORCENTAJE-FACHADA", "( 22, 12.5, 10, 14 )"},
      {"PORCENTAJE-PATIO", "( 1, 2.5, 3, 4 )"},
      {"ORIENTACION", "90.0"},
      {"MUROS-FACHADA", "\"Muro exterior\""},
      {"PARTICION-INTERIOR-VERTICAL", "\"Tabique\""},
      {"MEDIANERA", "\"Medianera 1\""},
      {"SUELOS", "\"Solera\""},
      {"PARTICION-INTERIOR-HORIZONTAL", "\"Forjado\""},
      {"CUBIERTAS", "\"Cubierta plana\""},
      {"VENTANA-VIDRIO", "\"Doble 4-12-4\""},
      {"VENTANA-MARCO", "\"PVC\""},
      {"VENTANA-SOMBRA", "\"Voladizo\""},
      {"AIR-CHANGES/HR", "0.63"},
  };
};
