#include "generator/template_stops.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "generator/generator_fixture.h"

// A template whose lines are known makes the same building as one that is read line by line.

namespace {

using Use = Template::Use;

constexpr std::string_view kTable =
    "Tabla\nde superficies\n5 0\n"
    "\"Muro\"\n30 10 0.5 3 10 180 90 0 1 0\n"
    "\"Ventana\"\n3 1 0.5 1 1 180 90 1 1 0\n"
    "\"Med\"\n3 1 0.5 1 1 90 90 1 1 0\n"
    "HEIGHT\n3 1 0.5 1 1 0 90 0 1 0\n"
    "\"Cubierta\"\n3 1 0.5 1 1 0 0 1 1 0";

/// What means something to somebody, and what looks like it.
const std::vector<std::string> kWords = {"POLYGON",
                                         "BUILD-PARAMETERS",
                                         "BUILDING-SHADE",
                                         "\"Sombra001\"",
                                         "FLOOR",
                                         "SPACE",
                                         "\"Muro\"",
                                         "\"Ventana\"",
                                         "\"Med\"",
                                         "\"Cubierta\"",
                                         "WINDOW",
                                         "EXTERIOR-WALL",
                                         "..",
                                         "V1",
                                         "V4",
                                         "V5",
                                         "V05",
                                         "V",
                                         "HEIGHT",
                                         "WIDTH",
                                         "2.5",
                                         "3",
                                         "X",
                                         "COEFF",
                                         "MULTIPLIER",
                                         "1",
                                         "FLOOR-HEIGHT",
                                         "SPACE-HEIGHT",
                                         "AIR-CHANGES/HR",
                                         "CONSTRUCTION",
                                         "----------",
                                         "nada",
                                         "",
                                         " "};
const std::string kSchedule = "VALUES = ( 4, 4, 4, 4, 4, 4, 4, 4, 1 )";

class RandomTemplate {
 public:
  explicit RandomTemplate(unsigned seed) : random_(seed) {}

  std::string text() {
    const std::string lineEnd = oneIn(4) ? "\r\n" : "\n";
    std::string text;
    for (int polygons = number(3); polygons >= 0; --polygons) {
      text += "\"P\" = POLYGON" + lineEnd + lines(number(4), lineEnd) + ".." + lineEnd;
    }
    text += "\"D\" = BUILD-PARAMETERS" + lineEnd + lines(number(80), lineEnd);
    if (oneIn(2)) text.resize(text.size() - lineEnd.size());
    return text;
  }
  std::string typology() {
    return "\"T\" = VIVIENDA\n TIPO = 1\n NUMERO-PLANTAS = 1\n AREA-PLANTA = 100\n"
           " LONGITUD-FACHADA = 10\n PORCENTAJE-FACHADA = ( " +
           std::string(oneIn(2) ? "0" : "120") + ", 30, 0, 20 )\n PORCENTAJE-PATIO = ( 0, " +
           (oneIn(2) ? "0" : "30") +
           ", 0, 0 )\n MUROS-FACHADA = \"M\"\n PARTICION-INTERIOR-VERTICAL = \"PV\"\n"
           " MEDIANERA = \"ME\"\n SUELOS = \"SU\"\n PARTICION-INTERIOR-HORIZONTAL = \"PH\"\n"
           " CUBIERTAS = \"CU\"\n VENTANA-VIDRIO = \"VI\"\n AIR-CHANGES/HR = " +
           (oneIn(2) ? "0.5" : "0") + "\n..\n";
  }
  int storeys() { return 1 + number(7); }

 private:
  int number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool oneIn(int n) { return number(n) == 0; }
  const std::string& word() { return kWords[random_() % kWords.size()]; }
  std::string line() {
    if (oneIn(20)) return "  " + kSchedule;
    if (oneIn(400)) return std::string(3001, 'x');
    std::string line = word();
    for (int signs = oneIn(4) ? number(3) : 1; signs > 0; --signs) line += " = " + word();
    return line;
  }
  std::string lines(int count, const std::string& lineEnd) {
    std::string text;
    for (; count > 0; --count) text += line() + lineEnd;
    return text;
  }

  std::mt19937 random_;
};

std::string asText(const Fault& fault) {
  const Place place = fault.place.value_or(Place{});
  return fault.message + "|" + place.file + ":" + std::to_string(place.line) + ":" +
         std::to_string(place.column) + "+" + std::to_string(place.length) + "|" + place.text;
}

/// All that can be seen of generating a building: its text or how it ended, the steps of the bar,
/// and the faults that a check finds.
std::string buildingOf(const std::string& text, Use use, const std::string& typologyText,
                       int storeys) {
  std::string seen;
  const auto fault = faultOf([&] {
    const Template plantilla(SourceText("casa.bdl", text), SourceText("casa.tbl", kTable), use);
    TypologyRecord typology(SourceText("casa.tip", typologyText));
    typology.numeroPlantas = storeys;
    for (const Fault& each : faultsOfGenerating(plantilla, typology)) seen += asText(each) + "\n";
    OutputLines output;
    RecordingBar bar;
    const auto ended = faultOf([&] { generate(plantilla, typology, output, bar); });
    seen += ended ? asText(*ended) : "whole";
    seen += " " + std::to_string(bar.positions.size()) + " " + std::to_string(output.count()) +
            "\n" + output.text();
  });
  return fault ? asText(*fault) : seen;
}

}  // namespace

TEST(TemplateStops, MakeTheBuildingThatReadingLineByLineMakes) {
  int whole = 0;
  std::set<std::string> messages;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    SCOPED_TRACE(seed);
    RandomTemplate random(seed);
    const std::string text = random.text();
    const std::string typology = random.typology();
    const int storeys = random.storeys();
    const std::string expected = buildingOf(text, Use::kOnce, typology, storeys);
    ASSERT_EQ(expected, buildingOf(text, Use::kOften, typology, storeys)) << text;
    whole += expected.starts_with("whole") ? 1 : 0;
    messages.insert(expected.substr(0, expected.find('|')).substr(0, 30));
  }
  EXPECT_GT(whole, 500) << "too few buildings that come to their end";
  EXPECT_GT(messages.size(), 3U) << "too few kinds of end";
}

TEST(TemplateStops, AreOnlyTheLinesThatMeanSomething) {
  const NameList commands({"\"Muro\"", " SPACE ", " FLOOR "});
  const TemplateStops stops("$ nota\r\n\"Muro\" = EXTERIOR-WALL\r\nLOCATION = TOP\r\n..\r\n",
                            commands);
  EXPECT_EQ("$ nota\n\"Muro\" = EXTERIOR-WALL\nLOCATION = TOP\n..\n..\n", stops.text());
  EXPECT_EQ(5, stops.lines());
  ASSERT_EQ(3U, stops.stops().size());
  EXPECT_EQ(2, stops.stops()[0].number);
  EXPECT_EQ(0, stops.stops()[0].command);
  EXPECT_TRUE(stops.stops()[0].surface);
  EXPECT_EQ(4, stops.stops()[1].number);
  EXPECT_EQ(5, stops.stops()[2].number) << "the last line comes twice";
}

TEST(TemplateStops, OfWhatOnlyWindowsDropAreOneForAllLinesOnEnd) {
  const TemplateStops stops(
      "GLASS-TYPE = V\nX = 1\nWIDTH = 2\nHEIGHT = 2\nY = 1\n\nCOEFF = 1\nSETBACK = ..",
      NameList({}));
  std::vector<std::pair<int, int>> linesOfStops;
  for (const TemplateStop& stop : stops.stops()) linesOfStops.emplace_back(stop.number, stop.lines);
  EXPECT_EQ((std::vector<std::pair<int, int>>{{1, 3}, {4, 1}, {5, 1}, {7, 1}, {8, 1}}),
            linesOfStops);
}

TEST(TemplateStops, OfAnOutputThatIsFullLoseTheSameLines) {
  std::string text = "\"P\" = POLYGON\n..\n\"D\" = BUILD-PARAMETERS\n";
  for (int i = 0; i < OutputLines::kCapacity; ++i) text += "x\n";
  const std::string typology = RandomTemplate(1).typology();
  const std::string expected = buildingOf(text, Use::kOnce, typology, 1);
  EXPECT_TRUE(expected == buildingOf(text, Use::kOften, typology, 1));
  EXPECT_NE(std::string::npos, expected.find(" 100000\n"));
}
