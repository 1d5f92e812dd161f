#include "end_to_end/samples.h"

#include <algorithm>
#include <tuple>

#include "support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

const char* const kSamples = SOURCE_FOLDER "/samples";
const char* const kGoldens = SOURCE_FOLDER "/tests/golden";

}  // namespace

std::string Sample::file(const std::string& name) const {
  return fs::path(kSamples) / building / name;
}

std::string Sample::goldenFile() const {
  return fs::path(kGoldens) / building / (typology + ".bdl");
}

void PrintTo(const Sample& sample, std::ostream* out) {
  *out << sample.building << "/" << sample.typology;
}

std::vector<Sample> allSamples() {
  std::vector<Sample> samples;
  for (const auto& folder : fs::directory_iterator(kSamples)) {
    if (!folder.is_directory()) continue;
    for (const auto& file : fs::directory_iterator(folder)) {
      if (file.path().extension() != ".tip") continue;
      samples.push_back({folder.path().filename().string(), file.path().stem().string()});
    }
  }
  std::sort(samples.begin(), samples.end(), [](const Sample& a, const Sample& b) {
    return std::tie(a.building, a.typology) < std::tie(b.building, b.typology);
  });
  return samples;
}

std::string firstDifference(const std::string& golden, const std::string& output) {
  const std::vector<std::string> a = linesOf(golden);
  const std::vector<std::string> b = linesOf(output);
  for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const std::string left = i < a.size() ? a[i] : "(end)";
    const std::string right = i < b.size() ? b[i] : "(end)";
    if (left != right) {
      return "line " + std::to_string(i + 1) + "\n  golden: " + left + "\n  output: " + right;
    }
  }
  return "in the line ends";
}
