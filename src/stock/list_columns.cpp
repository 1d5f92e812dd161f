#include "stock/list_columns.h"

#include <algorithm>
#include <numeric>
#include <variant>

#include "core/concat.h"
#include "core/report_error.h"

namespace stock {

namespace {

bool hasFourValues(const ViviendaKeyword& keyword) {
  return std::holds_alternative<PerFacade<float> TypologyRecord::*>(keyword.field);
}

/// A name without blanks around it, accents and case, to compare it with others.
std::string folded(std::string_view name) {
  struct Accent {
    std::string_view letter;
    char plain;
  };
  constexpr Accent kAccents[] = {{"á", 'A'}, {"é", 'E'}, {"í", 'I'}, {"ó", 'O'}, {"ú", 'U'},
                                 {"ü", 'U'}, {"ñ", 'N'}, {"Á", 'A'}, {"É", 'E'}, {"Í", 'I'},
                                 {"Ó", 'O'}, {"Ú", 'U'}, {"Ü", 'U'}, {"Ñ", 'N'}};
  const std::size_t first = name.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  name = name.substr(first, name.find_last_not_of(" \t") - first + 1);
  std::string plain;
  while (!name.empty()) {
    const auto* accent = std::ranges::find_if(
        kAccents, [&](const Accent& row) { return name.starts_with(row.letter); });
    if (accent != std::end(kAccents)) {
      plain += accent->plain;
      name.remove_prefix(accent->letter.size());
      continue;
    }
    const char c = name.front();
    plain += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    name.remove_prefix(1);
  }
  return plain;
}

/// Letters to add, take away or change until `a` is `b`.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, change}));
    }
  }
  return row[b.size()];
}

/// The nearest of the names, within a third of the longer one; empty when none is near.
std::string nearest(const std::string& name, const std::vector<std::string>& names) {
  std::string best;
  std::size_t least = 0;
  for (const std::string& candidate : names) {
    const auto [shorter, longer] = std::minmax({name.size(), candidate.size()});
    const std::size_t most = (longer + 2) / 3;
    if (name.size() < 2 || longer - shorter > most) continue;
    const std::size_t distance = editDistance(name, candidate);
    if (distance > most || (!best.empty() && distance >= least)) continue;
    best = candidate;
    least = distance;
  }
  return best;
}

/// The columns by name while a header is read.
class HeaderReader {
 public:
  HeaderReader(const ListReader& list, ListColumns& columns) : list_(list), columns_(columns) {
    add(kIdColumn, columns.id);
    add(kTemplateColumn, columns.plantilla);
    add(kTypologyColumn, columns.tipologia);
    add(kTextsColumn, columns.textos);
    for (KeywordColumns& keyword : columns.keywords) {
      for (std::size_t i = 0; i < keyword.names.size(); ++i) add(keyword.names[i], keyword.at[i]);
    }
  }

  void read(const Record& header) {
    for (std::size_t i = 0; i < header.size(); ++i) {
      const Field& field = header.fields()[i];
      const std::string name = folded(field.text);
      const auto known = std::ranges::find(names_, name);
      if (known == names_.end()) {
        const Unknown column = {field.text, nearest(name, names_), placeOf(field)};
        unknown_.push_back(column);
        columns_.warnings.push_back({warningOf(column), column.place});
        continue;
      }
      int& at = *targets_[static_cast<std::size_t>(known - names_.begin())];
      if (at >= 0) {
        ReportFailure(ErrorLog,
                      {concat("La lista tiene dos veces la columna ", name), placeOf(field)});
      }
      at = static_cast<int>(i);
    }
  }

  void require(bool there, std::string_view name) const {
    if (there) return;
    const auto meant = std::ranges::find(unknown_, name, &Unknown::meant);
    if (meant != unknown_.end()) {
      ReportFailure(ErrorLog,
                    {concat("Falta la columna ", name, " en la lista. ¿Es \"", meant->text, "\"?"),
                     meant->place});
    }
    ReportFailure(ErrorLog, {concat("Falta la columna ", name, " en la lista"),
                             Place{.file = list_.name(), .line = 1, .column = 1, .text = {}}});
  }

 private:
  void add(std::string_view name, int& target) {
    names_.emplace_back(name);
    targets_.push_back(&target);
  }
  Place placeOf(const Field& field) const {
    return {.file = list_.name(),
            .line = field.line,
            .column = field.column,
            .length = field.text.size(),
            .text = {}};
  }
  /// A column that nobody reads.
  struct Unknown {
    std::string text;   // as it is written
    std::string meant;  // the column that is near it; empty: none
    Place place;
  };
  static std::string warningOf(const Unknown& column) {
    std::string message = concat("Columna desconocida: \"", column.text, "\". No se leerá.");
    if (!column.meant.empty()) message += concat(" ¿Quería decir ", column.meant, "?");
    return message;
  }

  const ListReader& list_;
  ListColumns& columns_;
  std::vector<std::string> names_;
  std::vector<int*> targets_;
  std::vector<Unknown> unknown_;
};

}  // namespace

std::vector<KeywordColumns> keywordColumns() {
  std::vector<KeywordColumns> all;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    KeywordColumns columns{&keyword, {}, {}};
    if (hasFourValues(keyword)) {
      for (const std::string_view suffix : kFacadeSuffixes) {
        columns.names.push_back(concat(keyword.name, suffix));
      }
    } else {
      columns.names.emplace_back(keyword.name);
    }
    columns.at.assign(columns.names.size(), -1);
    all.push_back(std::move(columns));
  }
  return all;
}

ListColumns readHeader(ListReader& list, bool needsTemplate) {
  ListColumns columns;
  columns.keywords = keywordColumns();
  Record header;
  if (!list.next(header)) {
    ReportFailure(ErrorLog, {"La lista está vacía: falta la línea con los nombres de las columnas",
                             wholeFile(list.name())});
  }
  columns.count = header.size();
  columns.separator = list.separator();
  HeaderReader reader(list, columns);
  reader.read(header);
  reader.require(columns.id >= 0, kIdColumn);
  reader.require(columns.plantilla >= 0 || !needsTemplate, kTemplateColumn);
  for (const KeywordColumns& keyword : columns.keywords) {
    const bool any = std::ranges::any_of(keyword.at, [](int at) { return at >= 0; });
    for (std::size_t i = 0; i < keyword.at.size(); ++i) {
      const bool missing = (keyword.keyword->required || any) && keyword.at[i] < 0;
      reader.require(!missing || columns.tipologia >= 0, keyword.names[i]);
      if (missing) columns.describe = false;
    }
  }
  return columns;
}

}  // namespace stock
