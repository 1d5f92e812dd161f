#include "stock/outcome.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "stock/row_typology.h"

namespace stock {

namespace {

using report::Measures;

/// A row of cells while it grows.
class RowText {
 public:
  RowText() {
    constexpr std::size_t kUsualRow = 512;  // bytes
    text_.reserve(kUsualRow);
  }
  void add(std::string_view cell) {
    if (cells_++ > 0) text_ += ';';
    text_ += cell;
  }
  /// "12,50": a number for a Spanish spreadsheet. Nothing for one that is not finite.
  void add(double value, int decimals) {
    std::array<char, 64> digits{};
    char* end = digits.data();
    if (std::isfinite(value)) {
      const auto written = std::to_chars(digits.data(), digits.data() + digits.size() - 1, value,
                                         std::chars_format::fixed, decimals);
      if (written.ec == std::errc()) end = written.ptr;
    }
    std::replace(digits.data(), end, '.', ',');
    add({digits.data(), end});
  }
  std::string take() { return std::move(text_.append("\r\n")); }

 private:
  std::string text_;
  int cells_ = 0;
};

/// A measure with its heading. Areas and percentages have 2 decimals, ratios 3.
struct MeasureColumn {
  std::string_view name;
  int decimals;
  double (*value)(const Measures& measures);
};

constexpr int kCount = 0;
constexpr int kArea = 2;
constexpr int kRatio = 3;

constexpr MeasureColumn kMeasures[] = {
    {"plantas", kCount, [](const Measures& m) { return static_cast<double>(m.storeys); }},
    {"altura_planta_m", kArea, [](const Measures& m) { return m.storeyHeight; }},
    {"viviendas", kCount, [](const Measures& m) { return static_cast<double>(m.dwellings); }},
    {"superficie_planta_m2", kArea, [](const Measures& m) { return m.footprint; }},
    {"superficie_total_m2", kArea, [](const Measures& m) { return m.floorArea; }},
    {"volumen_m3", kArea, [](const Measures& m) { return m.volume; }},
    {"compacidad_m3_m2", kRatio, [](const Measures& m) { return m.compactness; }},
    {"fachada_m2", kArea, [](const Measures& m) { return m.facade; }},
    {"patio_m2", kArea, [](const Measures& m) { return m.courtyard; }},
    {"medianera_m2", kArea, [](const Measures& m) { return m.party; }},
    {"cubierta_m2", kArea, [](const Measures& m) { return m.roof; }},
    {"suelo_m2", kArea, [](const Measures& m) { return m.ground; }},
    {"huecos_m2", kArea, [](const Measures& m) { return m.openings; }},
};

struct SideName {
  Facade side;
  bool courtyard;
  std::string_view name;
};

constexpr SideName kSidesInOrder[] = {
    {kSouth, false, "fachada_sur"},   {kEast, false, "fachada_este"},
    {kNorth, false, "fachada_norte"}, {kWest, false, "fachada_oeste"},
    {kSouth, true, "patio_sur"},      {kEast, true, "patio_este"},
    {kNorth, true, "patio_norte"},    {kWest, true, "patio_oeste"},
};

constexpr std::array kFirstColumns = {"ID",    "ESTADO", "CODIGO", "MENSAJE",
                                      "LUGAR", "AVISOS", "SALIDA"};

std::vector<std::string> makeHeadings() {
  std::vector<std::string> names(kFirstColumns.begin(), kFirstColumns.end());
  names.emplace_back("tipo");
  for (const MeasureColumn& column : kMeasures) names.emplace_back(column.name);
  for (const SideName& side : kSidesInOrder) {
    names.push_back(concat(side.name, "_pedido_pct"));
    names.push_back(concat(side.name, "_obtenido_pct"));
  }
  for (const char* name : {"huecos_por_planta_pct", "huella", "version"}) names.emplace_back(name);
  return names;
}

const std::vector<std::string>& headings() {
  static const std::vector<std::string> names = makeHeadings();
  return names;
}

/// A cell, in quotes where it needs them. Whatever may end a line or a text becomes a blank.
std::string cell(std::string_view text) {
  std::string plain(text);
  std::ranges::replace_if(
      plain, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, ' ');
  if (plain.find_first_of(";\"") == std::string::npos) return plain;
  std::string quoted = "\"";
  for (const char c : plain) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

/// The ID as it is; one that no dwelling can have, and that a spreadsheet would take for a formula,
/// behind an apostrophe.
std::string idCell(const std::string& id) {
  const bool formula =
      !id.empty() && std::string_view("=+-@").find(id.front()) != std::string::npos;
  return cell((formula && !isGoodId(id) ? "'" : "") + cp1252::toUtf8(id));
}

void addSides(const Measures* measures, RowText& row) {
  for (const SideName& side : kSidesInOrder) {
    const report::FacadeMeasure* facade = nullptr;
    if (measures != nullptr) {
      const auto found = std::ranges::find_if(measures->facades, [&](const auto& each) {
        return each.side == side.side && each.courtyard == side.courtyard;
      });
      if (found != measures->facades.end()) facade = &*found;
    }
    if (facade != nullptr) {
      row.add(facade->asked, kArea);
      row.add(facade->obtained, kArea);
    } else {
      row.add("");
      row.add("");
    }
  }
}

}  // namespace

std::string_view wordOf(State state) {
  switch (state) {
    case State::kCorrecta:
      return "correcta";
    case State::kRechazada:
      return "rechazada";
    case State::kFallida:
      return "fallida";
  }
  return "";
}

std::string resultsHeading() {
  RowText row;
  for (const std::string& heading : headings()) row.add(heading);
  return "\xEF\xBB\xBF" + row.take();
}

std::string resultsRow(const Outcome& outcome, std::string_view version) {
  std::string place;
  if (outcome.place) {
    place = outcome.place->file;
    if (outcome.place->line > 0) {
      place += concat(":", std::to_string(outcome.place->line), ":",
                      std::to_string(outcome.place->column));
    }
  }
  RowText row;
  row.add(idCell(outcome.id));
  row.add(wordOf(outcome.state));
  row.add(cell(outcome.code));
  row.add(cell(cp1252::toUtf8(outcome.message)));
  row.add(cell(cp1252::toUtf8(place)));
  row.add(cell(outcome.notes));
  row.add(cell(outcome.output));
  const Measures* const measures = outcome.measures ? &outcome.measures->measures : nullptr;
  const auto addMeasure = [&](double value, int decimals) {
    if (measures != nullptr) {
      row.add(value, decimals);
    } else {
      row.add("");
    }
  };
  addMeasure(measures == nullptr ? 0 : outcome.measures->tipo, kCount);
  for (const MeasureColumn& column : kMeasures) {
    addMeasure(measures == nullptr ? 0 : column.value(*measures), column.decimals);
  }
  addSides(measures, row);
  addMeasure(measures == nullptr ? 0 : measures->openingsByFloor, kArea);
  row.add(cell(outcome.fingerprint));
  row.add(cell(version));
  return row.take();
}

std::optional<std::vector<std::string>> cellsOf(std::string_view text) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      if (quoted && text.substr(i + 1).starts_with('"')) {
        cells.back() += '"';
        ++i;
      } else {
        quoted = !quoted;
      }
    } else if (c == ';' && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  if (quoted || cells.size() != headings().size()) return std::nullopt;
  return cells;
}

std::size_t resultColumn(std::string_view heading) {
  const std::vector<std::string>& names = headings();
  return static_cast<std::size_t>(std::ranges::find(names, heading) - names.begin());
}

std::size_t fingerprintColumn() { return headings().size() - 2; }

}  // namespace stock
