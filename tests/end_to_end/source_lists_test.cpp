#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// Lists kept by hand lose tests in silence: whatever is called a test is built.

namespace {

std::string listOf(const fs::path& folder) { return (folder / "CMakeLists.txt").string(); }

/// The words of a list, without its comments.
std::set<std::string> wordsOf(const std::string& list) {
  std::set<std::string> words;
  for (std::string line : linesOf(readFile(list))) {
    line.resize(std::min(line.size(), line.find('#')));
    std::replace(line.begin(), line.end(), '(', ' ');
    std::replace(line.begin(), line.end(), ')', ' ');
    std::istringstream stream(line);
    for (std::string word; stream >> word;) {
      // What CMake picks by the system: all of them count as listed.
      constexpr std::string_view kPicked = "${PLATFORM}";
      const std::size_t picked = word.find(kPicked);
      words.insert(word);
      if (picked == std::string::npos) continue;
      for (const char* platform : {"posix", "win32"}) {
        words.insert(std::string(word).replace(picked, kPicked.size(), platform));
      }
    }
  }
  return words;
}

std::vector<fs::path> filesEndingIn(const std::string& end, const fs::path& root) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().string().ends_with(end)) found.push_back(entry.path());
  }
  return found;
}

/// Whether the nearest list above `file` has it, and the next has that one's folder, up to `root`.
bool isListed(const fs::path& file, const fs::path& root) {
  for (fs::path entry = file; entry != root;) {
    fs::path folder = entry.parent_path();
    while (folder != root && !fs::exists(listOf(folder))) folder = folder.parent_path();
    if (!wordsOf(listOf(folder)).contains(entry.lexically_relative(folder).generic_string()))
      return false;
    entry = folder;
  }
  return true;
}

std::vector<std::string> unlisted(const std::vector<fs::path>& files, const fs::path& root) {
  std::vector<std::string> found;
  for (const fs::path& file : files) {
    if (!isListed(file, root)) found.push_back(file.lexically_relative(root).generic_string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

using Names = std::vector<std::string>;

}  // namespace

TEST(SourceLists, EveryTestIsBuilt) {
  const fs::path root = fs::path(SOURCE_FOLDER) / "tests";
  const std::vector<fs::path> tests = filesEndingIn("_test.cpp", root);
  EXPECT_GT(tests.size(), 50U);
  EXPECT_EQ(Names{}, unlisted(tests, root));
}

TEST(SourceLists, EveryFuzzTargetIsBuilt) {
  const fs::path root = fs::path(SOURCE_FOLDER) / "fuzz";
  const std::vector<std::string> lines = linesOf(readFile(listOf(root)));
  const std::vector<fs::path> targets = filesEndingIn("_fuzz.cpp", root);
  EXPECT_GE(targets.size(), 10U);
  for (const fs::path& target : targets) {
    const std::string stem = target.stem().string();
    const std::string call = "fuzz_target(" + stem.substr(0, stem.rfind("_fuzz")) + " ";
    EXPECT_TRUE(std::ranges::any_of(lines, [&](const std::string& line) {
      return line.starts_with(call);
    })) << target;
  }
}

TEST(SourceLists, AFileOrAFolderThatIsNotListedIsFound) {
  const TemporaryFolder folder;
  for (const char* name : {"a", "a/inner", "lost"}) fs::create_directory(folder / name);
  folder.write("CMakeLists.txt", "add_subdirectory(a)\n# add_subdirectory(lost)\n");
  folder.write("a/CMakeLists.txt",
               "folder_tests(a\n  good_test.cpp # old_test.cpp\n  inner/good_test.cpp)\n");
  folder.write("lost/CMakeLists.txt", "folder_tests(lost good_test.cpp)\n");
  for (const char* name : {"a/good_test.cpp", "a/inner/good_test.cpp", "a/old_test.cpp",
                           "a/inner/bad_test.cpp", "lost/good_test.cpp", "root_test.cpp"}) {
    folder.write(name, "");
  }
  EXPECT_EQ(
      (Names{"a/inner/bad_test.cpp", "a/old_test.cpp", "lost/good_test.cpp", "root_test.cpp"}),
      unlisted(filesEndingIn("_test.cpp", folder.path()), folder.path()));
}
