#include "check/written_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/concat.h"
#include "core/cp1252.h"

WrittenFile14::WrittenFile14()
    : lines_{{"$", "$ Bloque de cuatro plantas"},
             {"", ""},
             {"VIVIENDA", "\"bloque\" = VIVIENDA"},
             {"TIPO", "   TIPO = 14"},
             {"NUMERO-PLANTAS", "   NUMERO-PLANTAS = 4"},
             {"ALTURA-PLANTA", "   ALTURA-PLANTA = 2.80"},
             {"AREA-PLANTA", "   AREA-PLANTA = 488"},
             {"AREA-PATIO", "   AREA-PATIO = 40"},
             {"AREA-ESCALERA", "   AREA-ESCALERA = 25"},
             {"LONGITUD-FACHADA", "   LONGITUD-FACHADA = 24"},
             {"PROFUNDIDAD-PATIO", "   PROFUNDIDAD-PATIO = 4"},
             {"PROFUNDIDAD-ESCALERA", "   PROFUNDIDAD-ESCALERA = 5"},
             {"CUBIERTA", "   CUBIERTA = PLANA"},
             {"ATICO", "   ATICO = NO"},
             {"SOTANO", "   SOTANO = NO"},
             {"PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 25, 15, 20, 16 )"},
             {"PORCENTAJE-PATIO", "   PORCENTAJE-PATIO = ( 20, 15, 20, 16 )"},
             {"ORIENTACION", "   ORIENTACION = 15"},
             {"MUROS-FACHADA", "   MUROS-FACHADA = \"Muro exterior\""},
             {"PARTICION-INTERIOR-VERTICAL", "   PARTICION-INTERIOR-VERTICAL = \"Tabique\""},
             {"MEDIANERA", "   MEDIANERA = \"Muro de medianera\""},
             {"SUELOS", "   SUELOS = \"Solera\""},
             {"PARTICION-INTERIOR-HORIZONTAL", "   PARTICION-INTERIOR-HORIZONTAL = \"Forjado\""},
             {"CUBIERTAS", "   CUBIERTAS = \"Cubierta plana\""},
             {"VENTANA-VIDRIO", "   VENTANA-VIDRIO = \"Doble 4-12-4\""},
             {"VENTANA-MARCO", "   VENTANA-MARCO = \"Marco de PVC\""},
             {"VENTANA-SOMBRA", "   VENTANA-SOMBRA = \"Voladizo\""},
             {"AIR-CHANGES/HR", "   AIR-CHANGES/HR = 0.63"},
             {"..", "   .."},
             {"", ""},
             {"NAME-FRAME", "\"Marco de PVC\" = NAME-FRAME"},
             {"FRAME-WIDTH", "   FRAME-WIDTH = 0.12"},
             {"..", "   .."},
             {"SHADE", "\"Voladizo\" = VENTANA-SOMBRA"},
             {"OVERHANG-D", "   OVERHANG-D = 0.60"},
             {"..", "   .."}} {}

WrittenFile14& WrittenFile14::with(std::string_view keyword, std::string_view line) {
  const auto at = find(keyword);
  if (at != lines_.end()) at->second = line;
  return *this;
}

WrittenFile14& WrittenFile14::before(std::string_view keyword, std::string_view line) {
  lines_.insert(find(keyword), {"", std::string(line)});
  return *this;
}

WrittenFile14::Lines::iterator WrittenFile14::find(std::string_view keyword) {
  const auto at = std::ranges::find(lines_, keyword, &Lines::value_type::first);
  if (at == lines_.end()) {
    ADD_FAILURE() << keyword << " has no line in WrittenFile14, in written_fixture.cpp";
  }
  return at;
}

WrittenFile14& WrittenFile14::behind(std::string_view text) {
  behind_ = text;
  return *this;
}

WrittenFile14& WrittenFile14::lineEnd(std::string_view text) {
  lineEnd_ = text;
  return *this;
}

std::string WrittenFile14::text() const {
  std::string text;
  for (const auto& [keyword, line] : lines_) {
    if (!line.empty() || keyword.empty()) text += line + lineEnd_;
  }
  return text + behind_;
}

long WrittenFile14::lineOf(std::string_view keyword) const {
  long number = 1;
  for (const auto& [name, line] : lines_) {
    if (name == keyword) return number;
    number += static_cast<long>(std::ranges::count(line, '\n'));
    number += line.empty() && !name.empty() ? 0 : 1;
  }
  ADD_FAILURE() << keyword << " has no line in WrittenFile14, in written_fixture.cpp";
  return 0;
}

Findings findingsOf(std::string_view text, std::span<const std::string> framesOfTemplate) {
  std::vector<Fault> faults;
  const TypologyRecord record(SourceText("casa.tip", text), faults);
  return compareReadings(record, framesOfTemplate);
}

Findings warningsOf(std::string_view text) {
  Findings findings = findingsOf(text);
  std::erase_if(findings,
                [](const Finding& finding) { return severityOf(finding) != Severity::kWarning; });
  return findings;
}

std::string asLines(const Findings& findings) {
  std::string lines;
  for (const Finding& f : findings) {
    const Place place = f.place.value_or(Place{});
    lines += concat(std::to_string(place.line), ":", std::to_string(place.column), "+",
                    std::to_string(place.length), " ", rowOf(f.code).word, " [", f.found, "] -> [",
                    f.used, "] (", f.suggestion, ") ", f.message, "\n");
  }
  return cp1252::toUtf8(lines);
}

void expectPlanted(const Planted& planted, std::vector<Code> besides) {
  SCOPED_TRACE(planted.why);
  WrittenFile14 file;
  file.with(planted.keyword, planted.line);
  const Findings findings = findingsOf(file.text());
  SCOPED_TRACE(asLines(findings));
  besides.push_back(planted.code);
  for (const Finding& finding : findings) {
    if (severityOf(finding) == Severity::kWarning) {
      EXPECT_NE(std::ranges::find(besides, finding.code), besides.end())
          << rowOf(finding.code).word;
    }
  }
  const auto finding = std::ranges::find(findings, planted.code, &Finding::code);
  ASSERT_NE(finding, findings.end());
  ASSERT_TRUE(finding->place);
  EXPECT_EQ("casa.tip", finding->place->file);
  EXPECT_EQ(file.lineOf(planted.keyword) + planted.below, finding->place->line);
  EXPECT_EQ(planted.column, finding->place->column);
  EXPECT_EQ(planted.length, finding->place->length);
  EXPECT_EQ(planted.found, finding->found);
  EXPECT_EQ(planted.used, finding->used);
  EXPECT_EQ(planted.suggestion, finding->suggestion);
}
