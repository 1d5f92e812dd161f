#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "check/written_fixture.h"
#include "check/written_run.h"
#include "core/concat.h"
#include "core/source_text.h"
#include "typology/kinds_of_buildings.h"
#include "typology/vivienda_keywords.h"

// Texts that nobody chose: the samples, valid files of many layouts, bytes at random.

namespace {

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  std::size_t below(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(engine_);
  }
  bool oneIn(std::size_t n) { return below(n) == 0; }
  template <typename T, std::size_t N>
  const T& oneOf(const T (&items)[N]) {
    return items[below(N)];
  }
  template <typename T>
  void shuffle(T& items) {
    std::ranges::shuffle(items, engine_);
  }
  std::string decimal(int low, int high) {
    std::string text =
        std::to_string(static_cast<std::size_t>(low) + below(static_cast<std::size_t>(high - low)));
    if (oneIn(2)) return text;
    return concat(text, ".", std::to_string(below(1000)));
  }

 private:
  std::mt19937 engine_;
};

std::vector<std::pair<std::string, std::string>> samples() {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(SOURCE_FOLDER "/samples")) {
    if (entry.path().extension() != ".tip") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    texts.emplace_back(entry.path().filename().string(),
                       std::string(std::istreambuf_iterator<char>(file), {}));
  }
  std::ranges::sort(texts);
  return texts;
}

constexpr std::string_view kNames[] = {"\"Muro exterior\"",
                                       "\"Ladrillo 1/2 pie, 12 cm\"",
                                       "Solera",
                                       "\"Cer\xE1mica 4-12-4\"",
                                       "\"d\x92"
                                       "acier (2)\"",
                                       "\"50 % = mitad $\"",
                                       "\"\xC1tico\""};
constexpr std::string_view kComments[] = {"$ datos del proyecto",
                                          "$",
                                          "$ a\xF1o 1979; 12,5 m2",
                                          "$ \"sin cerrar",
                                          "$ ( 12 13",
                                          "$ muro a patio = 12",
                                          "$ \x93nota\x94 (provisional)"};

/// A list of four percentages of any layout.
std::string randomList(Dice& dice) {
  constexpr std::string_view kCommas[] = {",", ", ", " , ", ",\t"};
  const std::string_view comma = dice.oneOf(kCommas);
  const std::string_view inside = dice.oneIn(2) ? " " : "";
  std::string text = concat("(", inside);
  for (int i = 0; i < 4; ++i) {
    text += concat(i == 0 ? "" : comma, dice.oneIn(3) ? "0" : dice.decimal(1, 99));
  }
  return concat(text, inside, ")");
}

/// A value of a keyword for which nothing is to be said of a block, by the field that it fills.
struct RandomValue {
  std::string_view keyword;
  Dice& dice;

  std::string operator()(int TypologyRecord::* /*field*/) const {
    const std::vector<int> blocks =
        numbersWhere([](const TipoRow& row) { return row.storeys.most == kAnyNumber; });
    if (keyword == "TIPO") return std::to_string(blocks[dice.below(blocks.size())]);
    return std::to_string(3 + dice.below(20));
  }
  std::string operator()(float TypologyRecord::* /*field*/) const {
    if (keyword == "AREA-PLANTA") return dice.decimal(200, 3000);
    if (keyword == "LONGITUD-FACHADA") return dice.decimal(7, 60);
    return dice.decimal(1, 40);
  }
  std::string operator()(PerFacade<float> TypologyRecord::* /*field*/) const {
    return randomList(dice);
  }
  std::string operator()(std::string TypologyRecord::* /*field*/) const {
    return std::string(dice.oneOf(kNames));
  }
  std::string operator()(const IgnoredText& text) const { return defaultTypology().*text.kept; }
};

/// A valid VIVIENDA of any layout, its frame and shade, and what may stand round them.
std::string validFile(Dice& dice) {
  const std::string end = dice.oneIn(3) ? "\r\n" : "\n";
  const bool frame = dice.oneIn(2);
  const bool shade = dice.oneIn(2);
  std::vector<std::pair<std::string, std::string>> rows;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    if (keyword.name == "VENTANA-MARCO") {
      if (frame) rows.emplace_back(keyword.name, "\"Marco 1\"");
    } else if (keyword.name == "VENTANA-SOMBRA") {
      if (shade) rows.emplace_back(keyword.name, "\"Toldo\"");
    } else if (keyword.required || dice.oneIn(2)) {
      rows.emplace_back(keyword.name, std::visit(RandomValue{keyword.name, dice}, keyword.field));
    }
  }
  dice.shuffle(rows);

  const auto filler = [&](std::string& text) {
    while (dice.oneIn(5)) {
      text += concat(dice.oneIn(2) ? "  " : "", dice.oneIn(2) ? "" : dice.oneOf(kComments), end);
    }
  };
  constexpr std::string_view kIndents[] = {"", " ", "   ", "\t", "\t  "};
  constexpr std::string_view kEquals[] = {" = ", " =", "  =   ", "\t=\t", " =\t "};
  std::string vivienda = concat("\"Bloque\" = VIVIENDA", end);
  const std::string_view indent = dice.oneOf(kIndents);
  const std::string_view equals = dice.oneOf(kEquals);
  for (const auto& [keyword, value] : rows) {
    filler(vivienda);
    vivienda +=
        concat(indent, keyword, equals, value, dice.oneIn(6) ? "  " : "",
               dice.oneIn(6) ? concat(" ", dice.oneOf(kComments)) : "", dice.oneIn(20) ? " " : end);
    // A comment takes what follows it on its line.
    if (!vivienda.ends_with(end)) vivienda += end;
  }
  vivienda += concat(indent, "..", end);
  std::vector<std::string> commands = {vivienda};
  if (frame)
    commands.push_back(concat("\"Marco 1\" = NAME-FRAME", end, " FRAME-ABS = 0.3", end, "..", end));
  if (shade)
    commands.push_back(concat("\"Toldo\" = VENTANA-SOMBRA", end, "\tOVERHANG-D = 0.3 ..", end));
  if (dice.oneIn(2)) {
    commands.push_back(
        concat("\"Lugar\" = SOLAR-POSITION", end, "LATITUDE = 40.4", end, "..", end));
  }
  if (dice.oneIn(3))
    commands.push_back(concat("SET-DEFAULT FOR NAME-FRAME", end, "A = 1", end, "..", end));
  dice.shuffle(commands);
  std::string text = concat("$ Al azar", end);
  for (const std::string& command : commands) {
    filler(text);
    text += command;
  }
  return text;
}

/// Some bytes changed, doubled or left out; now and then a piece of the file's own words put in.
std::string mutated(std::string text, Dice& dice) {
  constexpr std::string_view kPieces[] = {"$",    "\"",       "..",
                                          "=",    "(",        ")",
                                          ",",    "\r",       "\n",
                                          "\x93", "\xC3\xA1", "\xEF\xBB\xBF",
                                          "TIPO", " SUELOS ", "VIVIENDA",
                                          "'",    ";",        "1e99",
                                          "nan",  "-",        " = VENTANA-SOMBRA",
                                          "\xA0"};
  for (std::size_t i = 1 + dice.below(8); i > 0 && !text.empty(); --i) {
    const std::size_t at = dice.below(text.size());
    switch (dice.below(4)) {
      case 0:
        text[at] = static_cast<char>(dice.below(256));
        break;
      case 1:
        text.erase(at, 1 + dice.below(20));
        break;
      case 2:
        text.insert(at, dice.oneOf(kPieces));
        break;
      default:
        text.insert(dice.below(text.size()), text.substr(at, 1 + dice.below(40)));
    }
  }
  return text;
}

/// Every finding is somewhere, in order, and of what the text has there.
void expectSound(const std::string& text) {
  const SourceText source("casa.tip", text);
  const Findings findings = findingsOf(text);
  std::pair<long, long> last;
  for (const Finding& finding : findings) {
    ASSERT_NE(Severity::kError, severityOf(finding)) << finding.message;
    ASSERT_TRUE(finding.place);
    const Place& place = *finding.place;
    ASSERT_LE(last, std::pair(place.line, place.column)) << asLines(findings);
    last = {place.line, place.column};
    ASSERT_GE(place.line, 1);
    ASSERT_GE(place.column, 1);
    // A span may begin at a line's end, or at its CR.
    ASSERT_LE(static_cast<std::size_t>(place.column) - 1, place.text.size() + 1);
    ASSERT_FALSE(finding.message.empty());
  }
}

/// That the keywords are met where the run meets them.
void expectSameHits(const std::string& text) {
  std::vector<Fault> faults;
  const TypologyRecord record(SourceText("casa.tip", text), faults);
  const RunReading run(record.textoTipologia());
  const LineIndex places(record.fuente());
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    const auto hit = run.find(keyword);
    if (!run.closed()) continue;
    const Place theirs = record.placeOf(keyword.name);
    const Place absent = record.placeOf("");
    const bool isAbsent = theirs.line == absent.line && theirs.column == absent.column;
    ASSERT_EQ(hit.has_value(), !isAbsent) << keyword.name << "\n" << text;
    if (!hit) continue;
    const std::size_t value =
        std::min(text.find_first_not_of(" \t\r\n", hit->equals + 1), run.block().end);
    // Without a value the run's place is the "=".
    const std::size_t at = value >= run.block().end ? hit->equals : value;
    Place ours = places.placeOf({at, at});
    // Where the value stands in another line than these, the run's place may be the "=", or the
    // keyword without one.
    for (const std::size_t instead : {hit->equals, hit->at}) {
      const Place place = places.placeOf({instead, instead});
      const bool shown = place.line == theirs.line && place.column == theirs.column;
      if (shown && place.line < ours.line) ours = place;
    }
    ASSERT_EQ(theirs.line, ours.line) << keyword.name << "\n" << text;
    ASSERT_EQ(theirs.column, ours.column) << keyword.name << "\n" << text;
  }
}

}  // namespace

TEST(CompareReadings, SamplesWarnOfNothingButWhatIsAbove100) {
  ASSERT_FALSE(samples().empty());
  for (const auto& [name, text] : samples()) {
    Findings warnings = warningsOf(text);
    std::erase_if(warnings, [](const Finding& f) { return f.code == Code::kPorcentajeMayor100; });
    EXPECT_EQ("", asLines(warnings)) << name;
  }
}

TEST(CompareReadings, ThereIsNothingToSayOfAnOrdinaryFile) {
  EXPECT_EQ("", asLines(findingsOf(WrittenFile14().text())));
}

TEST(CompareReadings, ValidFilesOfAnyLayoutGiveNoWarning) {
  Dice dice(20);
  for (int i = 0; i < 2000; ++i) {
    const std::string text = validFile(dice);
    ASSERT_EQ("", asLines(warningsOf(text))) << text;
  }
}

TEST(CompareReadings, KeywordsAreMetWhereTheRunMeetsThem) {
  Dice dice(21);
  for (int i = 0; i < 300; ++i) {
    std::string text = validFile(dice);
    if (i % 2 == 1) text = mutated(text, dice);
    std::erase(text, '\0');
    ASSERT_NO_FATAL_FAILURE(expectSameHits(text));
  }
}

TEST(CompareReadings, AnyBytesAreReadToTheirEnd) {
  Dice dice(22);
  const auto texts = samples();
  for (int i = 0; i < 1500; ++i) {
    std::string text = mutated(texts[dice.below(texts.size())].second, dice);
    if (i % 4 == 0) text.resize(dice.below(text.size() + 1));
    ASSERT_NO_FATAL_FAILURE(expectSound(text)) << text;
  }
  for (int i = 0; i < 300; ++i) {
    std::string text(dice.below(3000), ' ');
    const std::size_t kinds = i % 2 == 0 ? 256 : 48;
    for (char& c : text) c = static_cast<char>(dice.below(kinds));
    ASSERT_NO_FATAL_FAILURE(expectSound(text)) << text;
    ASSERT_NO_FATAL_FAILURE(expectSound("\n\"a\" = VIVIENDA\n" + text + "\n..\n")) << text;
  }
  for (const std::string_view text :
       {"", "V", "VIVIENDA", " VIVIENDA", "\"", "(", "=", "$", "..", "\n\"\" = VIVIENDA",
        "\n\"\" = VIVIENDA\nTIPO =", "\n\"\" = VIVIENDA\nPORCENTAJE-FACHADA = ("}) {
    ASSERT_NO_FATAL_FAILURE(expectSound(std::string(text))) << text;
  }
}

TEST(CompareReadings, LargeFilesTakeAsLongAsTheyAreLarge) {
  constexpr std::size_t kLarge = 1 << 16;
  for (const std::string_view piece : {"TIPO = 3,5\n",
                                       "TIPO = ",
                                       "TIPO ",
                                       "COLOR = \"a\" ",
                                       "\x93",
                                       "'",
                                       "\xAB",
                                       "\"",
                                       "(",
                                       "$",
                                       "=",
                                       "..",
                                       "\"a\" = VIVIENDA\n",
                                       "PORCENTAJE-FACHADA = ( 1, 2\n",
                                       "\"M\" = NAME-FRAME\n",
                                       "A = ( ",
                                       "\xC3\xA1",
                                       "\a",
                                       "\r",
                                       "1,5 ",
                                       "$ TIPO = 3\n",
                                       "SUBTIPO = 4\n",
                                       ","}) {
    std::string text = "\n\"a\" = VIVIENDA\n";
    while (text.size() < kLarge) text += piece;
    text += "\n..\n";
    std::vector<Fault> faults;
    const TypologyRecord record(SourceText("casa.tip", text), faults);
    const auto begin = std::chrono::steady_clock::now();
    const Findings findings = compareReadings(record);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    // It takes milliseconds; what grows with the square would take minutes.
    EXPECT_LT(seconds.count(), 5) << piece;
    EXPECT_LT(findings.size(), 300U) << piece;
  }
}
