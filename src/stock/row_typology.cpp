#include "stock/row_typology.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "core/concat.h"
#include "core/numbers.h"
#include "stock/encoding.h"
#include "stock/file_names.h"
#include "stock/list_numbers.h"
#include "stock/refusal.h"

namespace stock {

namespace {

constexpr std::size_t kLongestId = 100;

[[noreturn]] void refuse(const char* code, std::string message, Place place) {
  throw Refusal{code, std::move(message), std::move(place)};
}

/// One keyword of a row. Empty cells leave the keyword out.
class KeywordWriter {
 public:
  KeywordWriter(const ListRow& row, const KeywordColumns& columns, RowTypology& out)
      : row_(row), columns_(columns), out_(out) {}

  void operator()(int TypologyRecord::*) const {
    if (const auto text = cell(0); !text.empty()) {
      line(numberOf(0, readListInteger(text, row_.columns().commaSeparates())));
    }
    endForm();
  }
  void operator()(float TypologyRecord::*) const {
    if (const auto text = cell(0); !text.empty()) line(real(0));
    endForm();
  }
  void operator()(PerFacade<float> TypologyRecord::*) const {
    const auto size = columns_.at.size();
    std::size_t given = 0;
    for (std::size_t i = 0; i < size; ++i) given += cell(i).empty() ? 0 : 1;
    if (given == 0) return endForm();
    std::string list = "( ";
    for (std::size_t i = 0; i < size; ++i) {
      if (cell(i).empty()) {
        refuse(kMissingCell, concat("Falta el valor de ", columns_.names[i]),
               row_.placeOf(columns_.at[i]));
      }
      list += concat(i > 0 ? ", " : "", real(i));
    }
    line(list + " )");
    endForm();
  }
  void operator()(std::string TypologyRecord::*) const { name(); }
  void operator()(IgnoredText) const { name(); }

 private:
  std::string_view cell(std::size_t i) const { return row_.text(columns_.at[i]); }

  std::string numberOf(std::size_t i, const ListNumber& number) const {
    if (!number.fault.empty()) {
      refuse(kBadNumber, concat(columns_.names[i], ": \"", cell(i), "\" ", number.fault),
             row_.placeOf(columns_.at[i]));
    }
    if (number.noted && !std::ranges::count(out_.notes, kPointNote)) {
      out_.notes.emplace_back(kPointNote);
    }
    addToForm(number.text);
    return number.text;
  }
  std::string real(std::size_t i) const {
    return numberOf(i, readListNumber(cell(i), row_.columns().commaSeparates()));
  }

  void name() const {
    std::string_view text = cell(0);
    if (text.empty()) return endForm();
    // Whoever copies a name from a file may copy its quotes as well.
    if (text.size() > 1 && text.starts_with('"') && text.ends_with('"')) {
      text = text.substr(1, text.size() - 2);
    }
    const auto refuseText = [&](std::string_view why) {
      refuse(kBadText, concat(columns_.names[0], ": \"", text, "\" ", why),
             row_.placeOf(columns_.at[0]));
    };
    if (std::ranges::any_of(
            text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '"'; })) {
      refuseText("contiene comillas, fines de línea u otros caracteres que un nombre no admite");
    }
    const std::optional<std::string> bytes = toCp1252(text);
    if (!bytes) refuseText("contiene caracteres que no existen en Windows-1252");
    line(concat("\"", *bytes, "\""));
    out_.form.append("\"").append(*bytes);  // an empty one is not one that is left out
    endForm();
  }

  void line(std::string_view value) const {
    out_.bytes.append("   ").append(columns_.keyword->name).append(" = ").append(value) += '\n';
    out_.columnOfLine.push_back(columns_.at[0]);
  }

  /// Of a number its marks, and that there are digits.
  void addToForm(std::string_view number) const {
    bool inDigits = false;
    for (const char c : number) {
      const bool digit = c >= '0' && c <= '9';
      if (!digit || !inDigits) out_.form += digit ? '0' : c;
      inDigits = digit;
    }
    out_.form += ' ';
  }
  /// No name holds a line end.
  void endForm() const { out_.form += '\n'; }

  const ListRow& row_;
  const KeywordColumns& columns_;
  RowTypology& out_;
};

/// Whether a field holds what the row says.
class HoldsWhatIsWritten {
 public:
  HoldsWhatIsWritten(const ListRow& row, const KeywordColumns& columns, const TypologyRecord& read)
      : row_(row), columns_(columns), read_(read) {}

  bool operator()(int TypologyRecord::*field) const {
    int wanted = 0;
    const std::string number = readListInteger(cell(0), row_.columns().commaSeparates()).text;
    std::string_view text = number;
    return number.empty() || (scanInteger(text, wanted) && read_.*field == wanted);
  }
  bool operator()(float TypologyRecord::*field) const { return same(0, read_.*field); }
  bool operator()(PerFacade<float> TypologyRecord::*field) const {
    for (std::size_t i = 0; i < columns_.at.size(); ++i) {
      if (!same(i, (read_.*field).at(i))) return false;
    }
    return true;
  }
  bool operator()(std::string TypologyRecord::*field) const {
    std::string_view text = cell(0);
    if (text.empty()) return (read_.*field).empty() || columns_.keyword->required;
    if (text.size() > 1 && text.starts_with('"') && text.ends_with('"')) {
      text = text.substr(1, text.size() - 2);
    }
    return read_.*field == concat("\"", toCp1252(text).value_or(""), "\"");
  }
  bool operator()(IgnoredText) const { return true; }

 private:
  std::string_view cell(std::size_t i) const { return row_.text(columns_.at[i]); }
  bool same(std::size_t i, float value) const {
    const std::string number = readListNumber(cell(i), row_.columns().commaSeparates()).text;
    if (number.empty()) return true;
    std::string_view text = number;
    float wanted = 0;
    return scanReal(text, wanted) && wanted == value;
  }

  const ListRow& row_;
  const KeywordColumns& columns_;
  const TypologyRecord& read_;
};

/// Puts the numbers that a row gives into a record. Gives whether a run takes them as they are.
class SetsNumbers {
 public:
  SetsNumbers(const ListRow& row, const KeywordColumns& columns, TypologyRecord& typology)
      : row_(row), columns_(columns), typology_(typology) {}

  bool operator()(int TypologyRecord::*field) const {
    if (cell(0).empty()) return true;
    const std::string number = readListInteger(cell(0), row_.columns().commaSeparates()).text;
    std::string_view text = number;
    return scanInteger(text, typology_.*field);
  }
  bool operator()(float TypologyRecord::*field) const { return set(0, typology_.*field); }
  bool operator()(PerFacade<float> TypologyRecord::*field) const {
    for (std::size_t i = 0; i < columns_.at.size(); ++i) {
      if (!set(i, (typology_.*field).at(i))) return false;
    }
    return true;
  }
  bool operator()(std::string TypologyRecord::*) const { return true; }
  bool operator()(IgnoredText) const { return true; }

 private:
  std::string_view cell(std::size_t i) const { return row_.text(columns_.at[i]); }
  bool set(std::size_t i, float& value) const {
    if (cell(i).empty()) return true;
    const std::string number = readListNumber(cell(i), row_.columns().commaSeparates()).text;
    std::string_view text = number;
    return scanReal(text, value) && std::isfinite(value);
  }

  const ListRow& row_;
  const KeywordColumns& columns_;
  TypologyRecord& typology_;
};

/// Line ends of two kinds in one file would be a finding of every dwelling.
bool endsLinesInCrLf(std::string_view texts) {
  const std::size_t end = texts.find('\n');
  return end != std::string_view::npos && end > 0 && texts[end - 1] == '\r';
}

std::string withCrLf(std::string_view lines) {
  std::string text;
  for (const char c : lines) {
    if (c == '\n') text += '\r';
    text += c;
  }
  return text;
}

}  // namespace

std::string_view ListRow::text(int column) const {
  if (column < 0 || static_cast<std::size_t>(column) >= record_.size()) return {};
  std::string_view text = record_.fields()[static_cast<std::size_t>(column)].text;
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

Place ListRow::placeOf(int column) const {
  Place place{.file = std::string(listName_), .line = record_.line(), .column = 1, .text = {}};
  if (column < 0 || static_cast<std::size_t>(column) >= record_.size()) return place;
  const Field& field = record_.fields()[static_cast<std::size_t>(column)];
  place.line = field.line;
  place.column = field.column;
  place.length = field.text.size();
  return place;
}

bool isGoodId(std::string_view id) {
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
  return !id.empty() && id.size() <= kLongestId &&
         id.find_first_not_of(kAllowed) == std::string_view::npos && !isDeviceName(id);
}

RowTypology writeTypology(const ListRow& row, std::string_view texts) {
  constexpr std::size_t kUsual = 1000;  // bytes of a row's command
  RowTypology out;
  out.bytes.reserve(kUsual + texts.size());
  out.form.reserve(kUsual);
  out.columnOfLine.reserve(row.columns().keywords.size() + 2);
  out.form += concat(row.text(row.columns().plantilla), "\n", row.text(row.columns().textos), "\n");
  // No ID in it: the reading goes by search, and an ID may hold a keyword.
  out.bytes = "\"Edificio\" = VIVIENDA\n";
  out.columnOfLine.push_back(-1);
  for (const KeywordColumns& columns : row.columns().keywords) {
    std::visit(KeywordWriter(row, columns, out), columns.keyword->field);
  }
  out.bytes += "   ..\n";
  out.columnOfLine.push_back(-1);
  out.textsLine = static_cast<long>(out.columnOfLine.size()) + 1;
  if (endsLinesInCrLf(texts)) out.bytes = withCrLf(out.bytes);
  out.bytes += texts;
  return out;
}

bool describesItself(const ListRow& row) {
  const ListColumns& columns = row.columns();
  return !row.text(columns.textos).empty() ||
         std::ranges::any_of(columns.keywords, [&](const KeywordColumns& keyword) {
           return std::ranges::any_of(keyword.at, [&](int at) { return !row.text(at).empty(); });
         });
}

std::optional<Place> placeOfMissing(const ListRow& row) {
  for (const KeywordColumns& columns : row.columns().keywords) {
    if (columns.keyword->required && row.text(columns.at.front()).empty()) {
      return row.placeOf(columns.at.front());
    }
  }
  return std::nullopt;
}

void requireReadAsWritten(const ListRow& row, const TypologyRecord& read) {
  for (const KeywordColumns& columns : row.columns().keywords) {
    if (std::visit(HoldsWhatIsWritten(row, columns, read), columns.keyword->field)) continue;
    refuse(kBadText,
           concat(columns.keyword->name,
                  " se leería de otro modo: otro nombre de la fila contiene esa palabra"),
           row.placeOf(columns.at[0]));
  }
}

bool setNumbers(const ListRow& row, TypologyRecord& typology) {
  return std::ranges::all_of(row.columns().keywords, [&](const KeywordColumns& columns) {
    const ViviendaKeyword& keyword = *columns.keyword;
    return std::visit(SetsNumbers(row, columns, typology), keyword.field) &&
           (keyword.fault == nullptr || keyword.fault(typology).empty());
  });
}

}  // namespace stock
