#include "app/console/arguments.h"

#include <gtest/gtest.h>

namespace {

template <typename Kind>
const Kind* as(const Request& request) {
  return std::get_if<Kind>(&request);
}

RunRequest runOf(const std::vector<std::string>& arguments) {
  const Request request = parseArguments(arguments);
  const auto* run = as<RunRequest>(request);
  EXPECT_NE(nullptr, run);
  return run != nullptr ? *run : RunRequest{};
}

}  // namespace

TEST(Arguments, FourPathsAreTheRun) {
  const RunRequest run = runOf({"a.bdl", "b.tip", "sal ida", "fin"});
  EXPECT_EQ("a.bdl", run.paths.dataFile);
  EXPECT_EQ("b.tip", run.paths.typologyFile);
  EXPECT_EQ("sal ida", run.paths.outputFile);
  EXPECT_EQ("fin", run.paths.markerFile);
  EXPECT_FALSE(run.quiet);
}

TEST(Arguments, OneArgumentMayHoldTheFourPathsOfTheDesktopForm) {
  const RunRequest run = runOf({"prog#a.bdl, b.tip,out.bdl,fin.txt"});
  EXPECT_EQ("a.bdl", run.paths.dataFile);
  EXPECT_EQ("b.tip", run.paths.typologyFile);
  EXPECT_EQ("out.bdl", run.paths.outputFile);
  EXPECT_EQ("fin.txt", run.paths.markerFile);
}

TEST(Arguments, QuietMayStandAnywhere) {
  EXPECT_TRUE(runOf({"--quiet", "a", "b", "c", "d"}).quiet);
  EXPECT_TRUE(runOf({"a", "b", "--quiet", "c", "d"}).quiet);
}

TEST(Arguments, BehindTwoDashesComeOnlyPaths) {
  EXPECT_EQ("--quiet", runOf({"--", "--quiet", "b", "c", "d"}).paths.dataFile);
}

TEST(Arguments, HelpAndVersionNeedNothingElse) {
  EXPECT_NE(nullptr, as<HelpRequest>(parseArguments({"--help"})));
  EXPECT_NE(nullptr, as<HelpRequest>(parseArguments({"a", "--help"})));
  EXPECT_NE(nullptr, as<VersionRequest>(parseArguments({"--version"})));
}

TEST(Arguments, EverythingElseIsWrong) {
  const struct {
    const char* why;
    std::vector<std::string> arguments;
    const char* problem;
  } cases[] = {
      {"nothing", {}, "se esperaban cuatro rutas y se han dado 0"},
      {"one path in no form", {"a.bdl"}, "se esperaban cuatro rutas y se ha dado 1"},
      {"three paths", {"a", "b", "c"}, "se esperaban cuatro rutas y se han dado 3"},
      {"five paths", {"a", "b", "c", "d", "e"}, "se esperaban cuatro rutas y se han dado 5"},
      {"unknown option", {"a", "b", "c", "d", "--rapido"}, "opción desconocida: --rapido"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const Request request = parseArguments(c.arguments);
    const auto* wrong = as<WrongArguments>(request);
    ASSERT_NE(nullptr, wrong);
    EXPECT_EQ(c.problem, wrong->problem);
  }
}

TEST(Arguments, HelpLeadsWithAnExample) { EXPECT_TRUE(helpOfRun().starts_with("Ejemplo:\n")); }
