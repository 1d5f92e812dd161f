#include "check/written_vivienda.h"

#include <algorithm>
#include <charconv>
#include <variant>

#include "core/concat.h"
#include "core/cp1252.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;

const TypologyRecord& emptyRecord() {
  static const TypologyRecord kRecord = [] {
    std::vector<Fault> faults;
    return TypologyRecord(SourceText("", ""), faults);
  }();
  return kRecord;
}

std::string plainList(const PerFacade<float>& values) {
  std::string text = "( ";
  for (const float value : values) text += concat(text.size() > 2 ? ", " : "", plainNumber(value));
  return text + " )";
}

struct AsInFile {
  const TypologyRecord& record;
  std::string operator()(int TypologyRecord::*field) const { return std::to_string(record.*field); }
  std::string operator()(float TypologyRecord::*field) const { return plainNumber(record.*field); }
  std::string operator()(PerFacade<float> TypologyRecord::*field) const {
    return plainList(record.*field);
  }
  std::string operator()(std::string TypologyRecord::*) const { return {}; }
  std::string operator()(IgnoredText) const { return {}; }
};

struct Taken {
  const RunReading& run;
  const RunReading::Hit& hit;

  std::string operator()(int TypologyRecord::*) const {
    const auto number = run.integerAt(hit.equals + 1);
    return number ? std::to_string(number->value) : std::string();
  }
  std::string operator()(float TypologyRecord::*) const {
    const auto number = run.realAt(hit.equals + 1);
    return number ? plainNumber(number->value) : std::string();
  }
  std::string operator()(PerFacade<float> TypologyRecord::*) const {
    const auto list = run.listOf(hit);
    if (!list) return {};
    PerFacade<float> values{};
    std::size_t begin = list->items.begin;
    for (float& value : values) {
      if (const auto number = run.realAt(begin)) value = number->value;
      const std::size_t comma = run.at(list->items).find(',', begin - list->items.begin);
      if (comma == kNone) return plainList(values);
      begin = list->items.begin + comma + 1;
    }
    return {};  // more than four end the run
  }
  std::string operator()(std::string TypologyRecord::*) const { return text(); }
  std::string operator()(IgnoredText) const { return text(); }
  std::string text() const {
    const auto span = run.textAt(hit.equals + 1);
    return span ? std::string(run.at(*span)) : std::string();
  }
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

const KeywordInBoth& WrittenVivienda::keyword(std::string_view name) const {
  return *std::ranges::find_if(
      keywords, [&](const KeywordInBoth& keyword) { return keyword.row->name == name; });
}

std::string defaultOf(const ViviendaKeyword& keyword) {
  return std::visit(AsInFile{emptyRecord()}, keyword.field);
}

std::string takenBy(const RunReading& run, const ViviendaKeyword& keyword,
                    const RunReading::Hit& hit) {
  return std::visit(Taken{run, hit}, keyword.field);
}

IfAbsent ifAbsent(const ViviendaKeyword& keyword) {
  if (keyword.required) return {{}, std::string("la ejecución se detendrá"_cp1252)};
  std::string used = defaultOf(keyword);
  if (used.empty()) return {{}, std::string("no se usará ninguno"_cp1252)};
  std::string prose = used;
  if (std::holds_alternative<float TypologyRecord::*>(keyword.field)) {
    std::ranges::replace(prose, '.', ',');
    prose = withUnit(prose, keyword);
  }
  return {used, concat("se usará "_cp1252, prose)};
}

std::optional<Code> codeOfPercentage(float value) {
  if (value < 0) return Code::kPorcentajeNegativo;
  if (value > 100) return Code::kPorcentajeMayor100;
  if (value > 0 && value < 1) return Code::kPorcentajeFraccion;
  return std::nullopt;
}

bool isOfPercentage(Code code) {
  return code == Code::kPorcentajeNegativo || code == Code::kPorcentajeMayor100 ||
         code == Code::kPorcentajeFraccion;
}

std::string plainNumber(float value) {
  char buffer[64];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, value);
  return {buffer, written.ptr};
}

std::string numberInProse(float value) {
  std::string text = plainNumber(value);
  std::ranges::replace(text, '.', ',');
  return text;
}

std::string withUnit(const std::string& number, const ViviendaKeyword& keyword) {
  constexpr struct {
    std::string_view unit, words;
  } kUnits[] = {{"m", " m"}, {"m2", " m²"_cp1252}, {"%", " %"}, {"ren/h", " ren/h"}};
  for (const auto& [unit, words] : kUnits) {
    if (keyword.unit == unit) return concat(number, words);
  }
  // Degrees stand right behind the number.
  return keyword.unit.empty() ? number : concat(number, "°"_cp1252);
}

bool goesOnWithComma(std::string_view text) {
  const bool mark = text.starts_with(',') || text.starts_with('\'');
  return mark && text.size() > 1 && isDigit(text[1]);
}

std::string meantNumber(std::string_view text) {
  const std::size_t begin = text.find_first_of("+-0123456789.,");
  if (begin == kNone) return {};
  std::size_t end = text.find_first_not_of("0123456789.,'", begin + 1);
  std::string number(text.substr(begin, end == kNone ? kNone : end - begin));
  std::ranges::replace(number, '\'', ',');
  while (!number.empty() && (number.back() == ',' || number.back() == '.')) number.pop_back();
  const std::size_t comma = number.rfind(',');
  const std::size_t point = number.rfind('.');
  const auto commas = std::ranges::count(number, ',');
  const auto points = std::ranges::count(number, '.');
  // Of two marks the last one is decimal; of several equal ones none is.
  std::size_t mark = kNone;
  if (comma != kNone && (point == kNone || comma > point) && commas == 1) mark = comma;
  if (point != kNone && (comma == kNone || point > comma) && points == 1) mark = point;
  std::string plain;
  for (std::size_t i = 0; i < number.size(); ++i) {
    if (i == mark) {
      if (plain.empty() || !isDigit(plain.back())) plain += '0';
      plain += '.';
    } else if (number[i] != ',' && number[i] != '.') {
      plain += number[i];
    }
  }
  return std::ranges::any_of(plain, isDigit) ? plain : std::string();
}
