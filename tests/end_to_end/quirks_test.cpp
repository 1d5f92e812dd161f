#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// docs/rarezas.md says of every quirk that is kept which tests guard it. Those tests exist.

namespace {

/// Enters the tests of a script: "Class.test_name".
void enterTestsOfScript(const std::string& text, std::set<std::string>& tests) {
  static const std::regex kClassOrTest(R"(\n(?:class (\w+)|    def (test_\w+))\()");
  std::string suite;
  for (std::sregex_iterator found(text.begin(), text.end(), kClassOrTest), end; found != end;
       ++found) {
    if ((*found)[1].matched) suite = (*found)[1].str();
    if ((*found)[2].matched) tests.insert(suite + "." + (*found)[2].str());
  }
}

/// "Suite.Name" of every test in the sources.
std::set<std::string> testsOfSources() {
  static const std::regex kTest(R"(\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\))");
  std::set<std::string> tests;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "tests")) {
    const bool isScript = entry.path().extension() == ".py";
    if (!isScript && entry.path().extension() != ".cpp") continue;
    const std::string text = readFile(entry.path().string());
    if (isScript) enterTestsOfScript(text, tests);
    for (std::sregex_iterator found(text.begin(), text.end(), kTest), end; found != end; ++found) {
      tests.insert((*found)[1].str() + "." + (*found)[2].str());
    }
  }
  return tests;
}

/// The last cell of a table's row.
std::string guardsOf(const std::string& row) {
  const std::size_t end = row.rfind('|');
  const std::size_t begin = row.rfind('|', end - 1);
  return row.substr(begin + 1, end - begin - 1);
}

}  // namespace

TEST(Quirks, EachIsGuardedByTestsThatExist) {
  static const std::regex kGuard(R"(`(\w+\.\w+)`)");
  const std::set<std::string> tests = testsOfSources();
  int rows = 0;
  for (const std::string& line : linesOf(readFile(SOURCE_FOLDER "/docs/rarezas.md"))) {
    if (!line.starts_with("| ") || line.starts_with("| rareza |")) continue;
    ++rows;
    const std::string guards = guardsOf(line);
    std::sregex_iterator guard(guards.begin(), guards.end(), kGuard);
    EXPECT_NE(std::sregex_iterator(), guard) << "no test guards: " << line;
    for (; guard != std::sregex_iterator(); ++guard) {
      EXPECT_TRUE(tests.contains((*guard)[1].str())) << (*guard)[1] << " does not exist";
    }
  }
  EXPECT_GT(rows, 50);
}
