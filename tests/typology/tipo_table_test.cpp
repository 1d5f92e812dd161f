#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "support/temporary_folder.h"
#include "typology/tipo.h"

namespace fs = std::filesystem;

// The table of typology numbers is one place; README and samples follow it.

namespace {

/// The numbers that a cell such as "1", "2 to 9" or "10, 11, 12" names.
std::set<int> numbersOf(const std::string& cell) {
  static const std::regex kRange(R"((\d+) to (\d+))");
  static const std::regex kNumber(R"(\d+)");
  std::set<int> numbers;
  std::smatch range;
  if (std::regex_search(cell, range, kRange)) {
    for (int tipo = std::stoi(range[1]); tipo <= std::stoi(range[2]); ++tipo) numbers.insert(tipo);
    return numbers;
  }
  for (std::sregex_iterator found(cell.begin(), cell.end(), kNumber), end; found != end; ++found) {
    numbers.insert(std::stoi(found->str()));
  }
  return numbers;
}

/// What a row of the README tells apart.
std::pair<PlanFamily, int> kindOf(int tipo) {
  return {tipoRow(tipo).family, tipoRow(tipo).planStoreys};
}

std::set<int> allNumbers() {
  std::set<int> numbers;
  for (int tipo = 1; tipo <= kLastTipo; ++tipo) numbers.insert(tipo);
  return numbers;
}

}  // namespace

TEST(TipoTable, ReadmeHasOneRowAKindOfBuilding) {
  std::set<int> seen;
  std::set<std::pair<PlanFamily, int>> kinds;
  for (const std::string& line : linesOf(readFile(SOURCE_FOLDER "/README.md"))) {
    static const std::regex kRow(R"(^\| ([\d, to]+) \|.*\|.*\|$)");
    std::smatch row;
    if (!std::regex_match(line, row, kRow)) continue;
    const std::set<int> numbers = numbersOf(row[1]);
    for (const int tipo : numbers) {
      EXPECT_EQ(kindOf(*numbers.begin()), kindOf(tipo)) << line;
      EXPECT_TRUE(seen.insert(tipo).second) << tipo << " stands twice";
    }
    EXPECT_TRUE(kinds.insert(kindOf(*numbers.begin())).second) << "two rows of a kind: " << line;
    if (seen == allNumbers()) break;
  }
  EXPECT_EQ(allNumbers(), seen);
}

TEST(TipoTable, EveryNumberHasASampleInTheFolderOfItsKind) {
  static const std::regex kTypology(R"(tipo-(\d+).*\.tip)");
  std::set<int> seen;
  std::map<std::string, std::set<std::pair<PlanFamily, int>>> kindsOfFolders;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    std::smatch name;
    const std::string file = entry.path().filename().string();
    if (!std::regex_match(file, name, kTypology)) continue;
    const int tipo = std::stoi(name[1]);
    seen.insert(tipo);
    kindsOfFolders[entry.path().parent_path().filename().string()].insert(kindOf(tipo));
  }
  EXPECT_EQ(allNumbers(), seen);
  for (const auto& [folder, kinds] : kindsOfFolders) EXPECT_EQ(1U, kinds.size()) << folder;
}
