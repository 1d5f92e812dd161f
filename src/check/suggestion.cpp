#include "check/suggestion.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace {

/// The distance that GCC's spell checker allows: a third, rounded down where the lengths are close,
/// and up where letters were left out or put in.
std::size_t mostChanges(std::size_t longer, std::size_t shorter) {
  if (longer <= 1) return 0;
  if (longer - shorter <= 1) return std::max<std::size_t>(longer / 3, 1);
  return (longer + 2) / 3;
}

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
  // Row by row of the table of all distances between beginnings of the two words; a swap of
  // neighbours looks two rows back.
  std::array<std::vector<std::size_t>, 3> rows;
  for (auto& row : rows) row.resize(b.size() + 1);
  std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    const auto& beforeLast = rows[(i + 1) % 3];
    const auto& last = rows[(i + 2) % 3];
    auto& row = rows[i % 3];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, change});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return rows[a.size() % 3][b.size()];
}

std::string_view nearestWord(std::string_view word, std::span<const std::string_view> candidates) {
  std::string_view nearest;
  std::size_t least = 0;
  for (const std::string_view candidate : candidates) {
    const std::size_t longer = std::max(word.size(), candidate.size());
    const std::size_t shorter = std::min(word.size(), candidate.size());
    const std::size_t most = mostChanges(longer, shorter);
    // Lengths first: they say enough of a word that goes on for pages.
    if (word.size() <= 1 || longer - shorter > most) continue;
    const std::size_t distance = editDistance(word, candidate);
    if (distance > most || (!nearest.empty() && distance >= least)) continue;
    nearest = candidate;
    least = distance;
  }
  return nearest;
}
