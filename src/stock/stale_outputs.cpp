#include "stock/stale_outputs.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "stock/file_names.h"
#include "stock/hash.h"
#include "stock/outcome.h"
#include "stock/outputs.h"
#include "stock/result_files.h"
#include "stock/results_file.h"
#include "stock/row_typology.h"

namespace stock {

namespace {

/// The outputs that a results file names.
void forEachOutput(const std::string& results,
                   const std::function<void(const std::string& output)>& take) {
  ResultsFile::readLines(results, [&](const std::string& line) {
    const auto cells = cellsOf(line);
    if (cells && !(*cells)[kResultOutput].empty()) take((*cells)[kResultOutput]);
  });
}

/// Whether it is the name of an output and not of anything else that somebody wrote into the file.
bool isOutputName(std::string_view output) {
  constexpr std::string_view kExtension = ".bdl";
  const std::size_t slash = output.find('/');
  if (slash == std::string_view::npos || !isOutputFolder(output.substr(0, slash))) return false;
  std::string_view id = output.substr(slash + 1);
  if (!id.ends_with(kExtension)) return false;
  id.remove_suffix(kExtension.size());
  return isGoodId(id);
}

}  // namespace

void removeStaleOutputs(const std::string& folder, const std::string& before,
                        const std::string& now) {
  std::vector<std::uint64_t> kept;
  kept.reserve(static_cast<std::size_t>(std::max(ResultsFile::countRows(now), 0L)));
  forEachOutput(now,
                [&](const std::string& output) { kept.push_back(hashOf(asFileName(output))); });
  std::ranges::sort(kept);
  const Outputs outputs(folder, {});
  forEachOutput(before, [&](const std::string& output) {
    const bool stays = std::ranges::binary_search(kept, hashOf(asFileName(output)));
    if (!stays && isOutputName(output)) outputs.remove(output);
  });
}

}  // namespace stock
