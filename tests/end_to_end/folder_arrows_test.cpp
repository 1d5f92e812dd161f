#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// core <- bdl <- typology <- plan <- generator <- check <- report <- stock <- app: a folder
// includes from itself and from those to its left, and only app/qt knows Qt. Within app: what all
// programs share <- desktop <- a folder each front end, which knows no other.

namespace {

const std::vector<std::string> kOrder = {"core",  "bdl",    "typology", "plan", "generator",
                                         "check", "report", "stock",    "app"};

/// The files of src/, each with the texts that it includes.
std::map<std::string, std::vector<std::string>> includesOfSources() {
  std::map<std::string, std::vector<std::string>> found;
  const fs::path root = fs::path(SOURCE_FOLDER) / "src";
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    std::vector<std::string>& includes = found[entry.path().lexically_relative(root).string()];
    for (const std::string& line : linesOf(readFile(entry.path().string()))) {
      if (line.starts_with("#include ")) includes.push_back(line.substr(9));
    }
  }
  return found;
}

/// The folder of app that a file is in ("qt"), empty for app's own; nothing for other folders'.
std::optional<std::string> folderOfApp(const std::string& file) {
  constexpr std::string_view kApp = "app/";
  if (!file.starts_with(kApp)) return std::nullopt;
  const std::string rest = file.substr(kApp.size());
  const std::size_t slash = rest.find('/');
  return slash == std::string::npos ? "" : rest.substr(0, slash);
}

}  // namespace

TEST(FolderArrows, NoFileIncludesFromAFolderAboveItsOwn) {
  int checked = 0;
  for (const auto& [file, includes] : includesOfSources()) {
    const auto own = std::find(kOrder.begin(), kOrder.end(), file.substr(0, file.find('/')));
    ASSERT_NE(kOrder.end(), own) << file;
    for (const std::string& include : includes) {
      if (!include.starts_with('"')) continue;
      const std::string folder = include.substr(1, include.find('/') - 1);
      const auto included = std::find(kOrder.begin(), kOrder.end(), folder);
      ASSERT_NE(kOrder.end(), included) << file << " includes " << include << ", not from the root";
      EXPECT_LE(included, own) << file << " includes " << include;
      ++checked;
    }
  }
  EXPECT_GT(checked, 50);
}

TEST(FolderArrows, AFrontEndStandsOnAppAndDesktopAlone) {
  const std::vector<std::string> shared = {"", "desktop"};  // everything else is a front end's
  std::set<std::string> frontEnds;
  for (const auto& [file, includes] : includesOfSources()) {
    const std::optional<std::string> own = folderOfApp(file);
    if (!own) continue;
    const auto standsOn = std::find(shared.begin(), shared.end(), *own);
    if (standsOn == shared.end()) frontEnds.insert(*own);
    for (const std::string& include : includes) {
      const auto folder = folderOfApp(include.substr(1));
      if (!folder || *folder == *own) continue;
      EXPECT_LT(std::find(shared.begin(), standsOn, *folder), standsOn)
          << file << " includes " << include;
    }
  }
  EXPECT_EQ(std::set<std::string>({"console", "qt", "win32"}), frontEnds);
}

TEST(FolderArrows, OnlyTheWindowKnowsQt) {
  for (const auto& [file, includes] : includesOfSources()) {
    if (file.starts_with("app/qt/")) continue;
    for (const std::string& include : includes) {
      EXPECT_FALSE(include.starts_with("<Q")) << file << " includes " << include;
    }
  }
}

TEST(FolderArrows, OnlyFilesThatAreChosenForWindowsKnowIt) {
  const fs::path root = fs::path(SOURCE_FOLDER) / "src";
  for (const auto& [file, includes] : includesOfSources()) {
    EXPECT_EQ(std::string::npos, readFile((root / file).string()).find("_WIN32")) << file;
    if (file.starts_with("app/win32/") || file.ends_with("_win32.cpp")) continue;
    for (const std::string& include : includes) EXPECT_NE("<windows.h>", include) << file;
  }
}
