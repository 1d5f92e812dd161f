#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "check/checker.h"
#include "run_and_check.h"

// The first error of a check is the message that the run ends with, whatever the inputs are.

namespace fs = std::filesystem;

using testing::ElementsAre;

namespace {

struct Sample {
  std::string folder;
  std::string typology;
};

std::vector<Sample> allSamples() {
  std::vector<Sample> samples;
  for (const auto& folder : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    if (!fs::exists(folder.path() / "defectos.inp")) continue;
    for (const auto& file : fs::directory_iterator(folder)) {
      if (file.path().extension() != ".tip") continue;
      samples.push_back({folder.path().filename().string(), file.path().stem().string()});
    }
  }
  std::ranges::sort(samples, {}, [](const Sample& s) { return s.folder + "/" + s.typology; });
  return samples;
}

/// How many random inputs a test tries; more of them in a longer search.
int rounds(int usual) {
  const char* more = std::getenv("TIP2BDL_CHECKS");
  return more == nullptr ? usual : std::max(1, static_cast<int>(usual * std::atof(more) / 100));
}

/// Spoils texts at random: bytes, words, numbers and whole lines.
class Spoiler {
 public:
  explicit Spoiler(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) {
    return limit == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

  /// The typology twice as often as the others together.
  void spoil(Inputs& inputs) {
    const std::array<std::string*, 6> texts = {&inputs.typology, &inputs.typology, &inputs.typology,
                                               &inputs.typology, &inputs.building, &inputs.table};
    for (std::size_t n = 1 + below(3); n > 0; --n) {
      spoil(below(40) == 0 ? inputs.defaults : *texts[below(texts.size())]);
    }
  }

 private:
  void spoil(std::string& text) {
    static constexpr std::array<std::string_view, 34> kPieces = {"..",
                                                                 "=",
                                                                 "\"",
                                                                 "(",
                                                                 ")",
                                                                 ",",
                                                                 ";",
                                                                 "$",
                                                                 "\n",
                                                                 "\r\n",
                                                                 "\t",
                                                                 " ",
                                                                 "nan",
                                                                 "inf",
                                                                 "1e39",
                                                                 "-1",
                                                                 "0",
                                                                 "24",
                                                                 "25",
                                                                 "26",
                                                                 "999999999",
                                                                 "99999999999999",
                                                                 "2,5",
                                                                 "3 m",
                                                                 "TIPO",
                                                                 "ALTURA",
                                                                 "Med",
                                                                 "WINDOW",
                                                                 "POLYGON",
                                                                 "BUILD-PARAMETERS",
                                                                 "\xEF\xBB\xBF",
                                                                 "\xC3\xB1",
                                                                 "VIVIENDA",
                                                                 "BUILDING-SHADE"};
    const std::size_t at = below(text.size() + 1);
    const std::size_t lineBegin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
    const std::size_t lineEnd = std::min(text.find('\n', at), text.size());
    switch (below(9)) {
      case 0:
        text.erase(at, 1 + below(4));
        break;
      case 1:
        text.insert(at, kPieces[below(kPieces.size())]);
        break;
      case 2:
        text.erase(lineBegin, lineEnd + 1 - lineBegin);
        break;
      case 3:
        text.insert(lineBegin, text.substr(lineBegin, lineEnd + 1 - lineBegin));
        break;
      case 4:
        if (at < text.size()) text[at] = static_cast<char>(below(256));
        break;
      case 5:
      case 6:
        changeNumber(text, at);
        break;
      case 7:
        text.insert(at, std::string(below(2) == 0 ? 260 : 3100, 'x'));
        break;
      default:
        if (below(4) == 0) text.erase(at);
    }
  }

  /// The next number of the text becomes another.
  void changeNumber(std::string& text, std::size_t at) {
    static constexpr std::array<std::string_view, 14> kNumbers = {
        "0", "-5", "1", "2", "3", "14", "22", "27", "1000", "5000", "nan", "1e38", "7.5", "x"};
    const std::size_t begin = text.find_first_of("0123456789", at);
    if (begin == std::string::npos) return;
    const std::size_t end = std::min(text.find_first_not_of("0123456789.", begin), text.size());
    text.replace(begin, end - begin, kNumbers[below(kNumbers.size())]);
  }

  std::mt19937 random_;
};

}  // namespace

TEST(FirstError, ThereIsNoneInASample) {
  const std::vector<Sample> samples = allSamples();
  ASSERT_LT(23U, samples.size());
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.folder + "/" + sample.typology);
    const TemporaryFolder folder;
    Inputs::ofSample(sample.folder, sample.typology).writeInto(folder);
    EXPECT_EQ("", contradiction(folder));
  }
}

TEST(FirstError, IsTheMessageOfTheRunOfSpoiltMinimalInputs) {
  const TemporaryFolder folder;
  int ended = 0;
  const int count = rounds(2000);
  for (int round = 0; round < count && !testing::Test::HasFailure(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    Inputs inputs = Inputs::minimal();
    Spoiler(static_cast<unsigned>(round)).spoil(inputs);
    inputs.writeInto(folder);
    EXPECT_EQ("", contradiction(folder)) << inputs.typology << "\n%%\n" << inputs.table;
    ended += faultOfRun(folder).has_value() ? 1 : 0;
  }
  // Otherwise half of what is asked for would not be tried.
  EXPECT_LT(count / 10, ended);
  EXPECT_GT(count * 9 / 10, ended);
}

TEST(FirstError, IsTheMessageOfTheRunOfSpoiltSamples) {
  const TemporaryFolder folder;
  const std::vector<Sample> samples = allSamples();
  const int count = rounds(150);
  for (int round = 0; round < count && !testing::Test::HasFailure(); ++round) {
    Spoiler spoiler(static_cast<unsigned>(1'000'000 + round));
    const Sample& sample = samples[spoiler.below(samples.size())];
    SCOPED_TRACE("round " + std::to_string(round) + " " + sample.folder + "/" + sample.typology);
    Inputs inputs = Inputs::ofSample(sample.folder, sample.typology);
    spoiler.spoil(inputs);
    inputs.writeInto(folder);
    EXPECT_EQ("", contradiction(folder)) << inputs.typology;
  }
}

TEST(FirstError, OfAPathThatIsTooLongIsTheRuns) {
  const TemporaryFolder folder;
  Inputs::minimal().writeInto(folder);
  const std::string slashes(3000, '/');
  EXPECT_THAT(messagesOf(Checker(folder / ("." + slashes + "casa.bdl")).check(folder / "casa.tip"),
                         Severity::kError),
              ElementsAre(testing::EndsWith("casa.bdl")));
  const std::string typology = folder / ("." + slashes + "casa.tip");
  const auto tooLong = ElementsAre(testing::StartsWith("La ruta es demasiado larga"));
  EXPECT_THAT(messagesOf(Checker().check(typology), Severity::kError), tooLong);
  EXPECT_THAT(messagesOf(Checker(folder / "casa.bdl").check(typology), Severity::kError), tooLong);
}
