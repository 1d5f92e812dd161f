#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

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

/// The lines of a file in which `phrase` stands, and the number in its brackets.
std::vector<std::pair<std::size_t, int>> numbersIn(const fs::path& file, const std::regex& phrase) {
  std::vector<std::pair<std::size_t, int>> found;
  const std::vector<std::string> lines = linesOf(readFile(file.string()));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (std::sregex_iterator at(lines[i].begin(), lines[i].end(), phrase), end; at != end; ++at) {
      found.emplace_back(i + 1, std::stoi((*at)[1]));
    }
  }
  return found;
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

TEST(TipoTable, DocumentsSayHowManyNumbersThereAre) {
  const struct {
    const char* file;
    const char* phrase;  // with the last number in brackets
  } cases[] = {
      {"docs/comprobar.md", R"(tipologías van de la 1 a la (\d+))"},
      {"docs/manual/parque.md", R"(^TIPO;;1 a (\d+);)"},
      {"docs/manual/plantillas.md", R"(#los-(\d+)-edificios)"},
      {"docs/manual/primer-edificio.md", R"(Un número, de 1 a (\d+),)"},
      {"docs/manual/primer-edificio.md", R"(#los-(\d+)-edificios)"},
      {"docs/manual/tipologia.md", R"(Qué edificio es: de 1 a (\d+);)"},
      {"docs/manual/tipologia.md", R"(^## Los (\d+) edificios$)"},
      {"docs/manual/tipologia.md", R"(\| qué edificio es \|.*de 1 a (\d+) \|)"},
      {"samples/README.md", R"(inputs for all (\d+) typology numbers)"},
      {"samples/README.md", R"(#los-(\d+)-edificios)"},
      {"tools/sample_buildings/readme.py", R"(inputs for all (\d+) typology numbers)"},
      {"tools/sample_buildings/readme.py", R"(#los-(\d+)-edificios)"},
  };
  for (const auto& c : cases) {
    const auto said = numbersIn(fs::path(SOURCE_FOLDER) / c.file, std::regex(c.phrase));
    EXPECT_FALSE(said.empty()) << c.file << " no longer says " << c.phrase;
    for (const auto& [line, number] : said) {
      EXPECT_EQ(kLastTipo, number) << c.file << ":" << line << " says how many numbers there are";
    }
  }
}

// What is written later stands in no list, but in words like these.
TEST(TipoTable, EveryPageEndsTheNumbersWithTheLastOne) {
  std::vector<fs::path> pages;
  for (const char* folder : {"docs", "examples", "samples"}) {
    for (const auto& file : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / folder)) {
      if (file.path().extension() == ".md") pages.push_back(file.path());
    }
  }
  for (const char* file : {"CONTRIBUTING.md", "LEEME.md", "README.md"}) {
    pages.push_back(fs::path(SOURCE_FOLDER) / file);
  }
  for (const char* words : {R"(#los-(\d+)-)", R"(## Los (\d+) )", R"(\bde 1 a (\d+))",
                            R"(\bde la 1 a la (\d+))", R"(;1 a (\d+))"}) {
    const std::regex phrase(words);
    std::size_t found = 0;
    for (const fs::path& page : pages) {
      for (const auto& [line, number] : numbersIn(page, phrase)) {
        ++found;
        EXPECT_EQ(kLastTipo, number)
            << page.string() << ":" << line << " ends the typology numbers in " << number
            << "; a range of something else is said in other words";
      }
    }
    EXPECT_LT(0U, found) << "no page says " << words;
  }
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
