#include "generator/template_stops.h"

#include <gtest/gtest.h>

#include <set>

#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "generator/generator_fixture.h"
#include "generator/random_template.h"

// A template whose lines are known makes the same building as one that is read line by line.

namespace {

using Use = Template::Use;

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
    const Template plantilla(SourceText("casa.bdl", text),
                             SourceText("casa.tbl", RandomTemplate::kTable), use);
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
