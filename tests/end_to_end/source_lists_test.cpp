#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>

#include "support/temporary_folder.h"

namespace fs = std::filesystem;

// Lists kept by hand lose tests in silence: whatever is called a test is built.

namespace {

std::string listOf(const fs::path& folder) { return (folder / "CMakeLists.txt").string(); }

/// A list or a script without its comments.
std::string withoutComments(const std::string& path) {
  std::string text;
  for (const std::string& line : linesOf(readFile(path))) {
    text += line.substr(0, line.find('#')) + "\n";
  }
  return text;
}

std::set<std::string> wordsIn(std::string text) {
  std::set<std::string> words;
  std::replace(text.begin(), text.end(), '(', ' ');
  std::replace(text.begin(), text.end(), ')', ' ');
  std::istringstream stream(text);
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
  return words;
}

std::vector<fs::path> filesEndingIn(const std::string& end, const fs::path& root) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().string().ends_with(end)) found.push_back(entry.path());
  }
  return found;
}

/// The folder of the nearest list above `file`, at most `root`.
fs::path folderOfList(const fs::path& file, const fs::path& root) {
  fs::path folder = file.parent_path();
  while (folder != root && !fs::exists(listOf(folder))) folder = folder.parent_path();
  return folder;
}

/// Whether the nearest list above `file` has it, and the next has that one's folder, up to `root`.
bool isListed(const fs::path& file, const fs::path& root) {
  for (fs::path entry = file; entry != root;) {
    const fs::path folder = folderOfList(entry, root);
    if (!wordsIn(withoutComments(listOf(folder)))
             .contains(entry.lexically_relative(folder).generic_string()))
      return false;
    entry = folder;
  }
  return true;
}

/// The program that the nearest list above a test builds of it; empty: none.
std::string programOf(const fs::path& test, const fs::path& root) {
  static const std::regex kCall(R"((folder_tests|add_executable|target_sources)\((\w+)([^)]*)\))");
  const fs::path folder = folderOfList(test, root);
  const std::string name = test.lexically_relative(folder).generic_string();
  const std::string list = withoutComments(listOf(folder));
  for (std::sregex_iterator call(list.begin(), list.end(), kCall), end; call != end; ++call) {
    if (!wordsIn((*call)[3]).contains(name)) continue;
    return (*call)[2].str() + ((*call)[1] == "folder_tests" ? "_test" : "");
  }
  return "";
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

/// What the preset of the thread sanitizer asks of a test's name.
std::regex takenByTheThreadSanitizer() {
  const std::string presets = readFile(SOURCE_FOLDER "/CMakePresets.json");
  std::smatch names;
  EXPECT_TRUE(
      std::regex_search(presets, names, std::regex("\"include\": *\\{ *\"name\": \"(.*)\"")));
  return std::regex(names[1].str());
}

/// Whether the source of tests has one with such a name.
bool hasTestCalled(const std::regex& name, const std::string& source) {
  static const std::regex kTest(R"(\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\))");
  for (std::sregex_iterator test(source.begin(), source.end(), kTest), end; test != end; ++test) {
    if (std::regex_search((*test)[1].str() + "." + (*test)[2].str(), name)) return true;
  }
  return false;
}

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

// The preset of the thread sanitizer takes tests by their names, since all others would take it an
// hour. Those of tests/faults have threads of their own around programs that have none.
TEST(SourceLists, TestsWithThreadsAreTakenByTheThreadSanitizer) {
  const std::regex taken = takenByTheThreadSanitizer();
  int files = 0;
  for (const fs::path& file : filesEndingIn("_test.cpp", fs::path(SOURCE_FOLDER) / "tests")) {
    const std::string text = readFile(file.string());
    if (text.find("\n#include <thread>\n") == std::string::npos ||
        file.parent_path().filename() == "faults" || file.string().ends_with("_win32_test.cpp")) {
      continue;
    }
    ++files;
    EXPECT_TRUE(hasTestCalled(taken, text)) << file << ": no name that the preset tsan takes";
  }
  EXPECT_GE(files, 5);
}

// The group builds these programs alone, and the tests of another would be lost in silence.
TEST(SourceLists, TestsOfTheThreadSanitizerAreBuiltForIt) {
  const std::string group = withoutComments(SOURCE_FOLDER "/scripts/groups/threads");
  std::smatch build;
  ASSERT_TRUE(std::regex_search(group, build, std::regex("\nbuild tsan ([^\n]+)\n")));
  const std::set<std::string> built = wordsIn(build[1]);
  const std::regex taken = takenByTheThreadSanitizer();
  const fs::path root = fs::path(SOURCE_FOLDER) / "tests";
  std::set<std::string> programs;
  for (const fs::path& file : filesEndingIn("_test.cpp", root)) {
    if (!hasTestCalled(taken, readFile(file.string()))) continue;
    const std::string program = programOf(file, root);
    EXPECT_TRUE(built.contains(program))
        << "scripts/groups/threads lacks '" << program << "', in which is " << file;
    programs.insert(program);
  }
  EXPECT_GE(programs.size(), 4U);
}

TEST(SourceLists, ATestIsInTheProgramThatListsIt) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "inner");
  folder.write("CMakeLists.txt",
               "folder_tests(good\n  a_test.cpp # own_test.cpp\n  inner/b_test.cpp)\n"
               "add_executable(own own_test.cpp)\n"
               "target_sources(good_test PRIVATE\n  c_${PLATFORM}_test.cpp)\n");
  const struct {
    const char* test;
    const char* program;
  } cases[] = {
      {"a_test.cpp", "good_test"},
      {"inner/b_test.cpp", "good_test"},
      {"c_posix_test.cpp", "good_test"},
      {"own_test.cpp", "own"},
      {"lost_test.cpp", ""},
      {"b_test.cpp", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.program, programOf(folder / c.test, folder.path())) << c.test;
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
