#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include "app/console/arguments.h"
#include "app/console/pages/bash_completion.h"
#include "app/console/pages/english.h"
#include "app/console/pages/manual_page.h"
#include "core/concat.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"
#include "typology/tipo.h"

// The manual pages and the completion against the table of works and options.

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using testing::UnorderedElementsAre;

constexpr Language kLanguages[] = {Language::kSpanish, Language::kEnglish};

/// The options that a page explains.
std::set<std::string> optionsIn(std::string page) {
  page = std::regex_replace(page, std::regex("\\\\-"), "-");
  std::set<std::string> options;
  const std::regex option("\\.TP\n\\\\fB(--[a-z-]*)\\\\fR");
  for (std::sregex_iterator found(page.begin(), page.end(), option), end; found != end; ++found) {
    options.insert((*found)[1]);
  }
  return options;
}

std::set<std::string> namesOf(std::span<const Option* const> options) {
  std::set<std::string> names;
  for (const Option* option : options) names.emplace(option->name);
  return names;
}

/// What bash offers for the last word of a command line, in a folder with some files.
std::vector<std::string> completions(const std::string& line) {
  TemporaryFolder folder;
  folder.write("completion", bashCompletion());
  for (const char* name : {"casa.bdl", "casa.tip", "mi casa.tip", "parque.csv", "casa.tbl"}) {
    folder.write(name, "");
  }
  // As the shell does: the words before, the one that is being written, its place.
  const std::string script =
      concat("source ./completion; COMP_WORDS=(", line, "); [[ '", line,
             "' == *' ' ]] && COMP_WORDS+=(''); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); ",
             "_tip2bdl_cli 2>/dev/null; printf '%s\\n' \"${COMPREPLY[@]}\"");
  ProgramOptions options;
  options.folder = folder.path();
  const ProgramResult result = runProgram("/bin/bash", {"-c", script}, options);
  EXPECT_EQ("", result.err);
  std::vector<std::string> words = linesOf(result.out);
  std::erase(words, "");
  return words;
}

}  // namespace

TEST(English, EveryWorkAndEveryOptionHasItsWords) {
  ASSERT_NE(nullptr, englishOf(""));
  for (const Option* option : runOptions()) {
    EXPECT_NE(nullptr, englishOf("", option->name)) << option->name;
  }
  for (const Work& work : works()) {
    EXPECT_NE(nullptr, englishOf(work.name)) << work.name;
    for (const Option* option : work.options) {
      const EnglishOption* const english = englishOf(work.name, option->name);
      ASSERT_NE(nullptr, english) << work.name << " " << option->name;
      EXPECT_EQ(option->value.empty(), english->value.empty()) << work.name << " " << option->name;
      EXPECT_EQ(option->detail.empty(), english->detail.empty()) << option->name;
    }
  }
}

TEST(English, HasNoWordsForWhatIsNotThere) {
  for (const EnglishWork& english : englishWorks()) {
    EXPECT_TRUE(english.name.empty() || findWork(english.name) != nullptr) << english.name;
  }
  for (const EnglishOption& english : englishOptions()) {
    bool used = english.work.empty() && namesOf(runOptions()).contains(std::string(english.name));
    for (const Work& work : works()) {
      for (const Option* option : work.options) {
        used = used || englishOf(work.name, option->name) == &english;
      }
    }
    EXPECT_TRUE(used) << english.work << " " << english.name;
  }
}

TEST(ManualPages, ExplainTheOptionsThatTheHelpExplains) {
  for (const Language language : kLanguages) {
    EXPECT_EQ(namesOf(runOptions()), optionsIn(pageOfRun(language)));
    for (const Work& work : works()) {
      EXPECT_EQ(namesOf(work.options), optionsIn(pageOf(work, language))) << work.name;
    }
  }
  for (const Option* option : runOptions()) {
    EXPECT_THAT(helpOfRun(), HasSubstr("  " + asWritten(*option) + " "));
  }
}

TEST(ManualPages, EveryWorkStandsOnThePageOfTheProgram) {
  for (const Language language : kLanguages) {
    for (const Work& work : works()) {
      EXPECT_THAT(pageOfRun(language), HasSubstr(concat(".B tip2bdl\\-cli ", work.name, " [")));
      EXPECT_THAT(pageOf(work, language), HasSubstr(".BR tip2bdl\\-cli (1)"));
    }
  }
}

TEST(ManualPages, NoLineOfTextIsACommandOfRoff) {
  const std::set<std::string> known = {".TH", ".SH", ".PP", ".TP", ".B",
                                       ".BR", ".br", ".nf", ".fi"};
  for (const Work& work : works()) {
    for (const std::string& line : linesOf(pageOf(work, Language::kSpanish))) {
      EXPECT_FALSE(line.starts_with('\'')) << line;
      if (!line.starts_with('.')) continue;
      EXPECT_THAT(known, Contains(line.substr(0, line.find(' '))));
    }
  }
}

TEST(Help, OfEveryWorkOpensWithAnExample) {
  for (const Work& work : works()) {
    EXPECT_TRUE(helpOf(work).starts_with(concat("Ejemplo:\n  tip2bdl-cli ", work.name, " ")));
  }
}

TEST(BashCompletion, OffersWorksAndTemplates) {
  EXPECT_THAT(completions("tip2bdl-cli "), IsSupersetOf({"comprobar", "nueva", "casa.bdl"}));
  EXPECT_THAT(completions("tip2bdl-cli "), Not(Contains("casa.tbl")));
  EXPECT_THAT(completions("tip2bdl-cli comp"), ElementsAre("comprobar"));
}

TEST(BashCompletion, OffersTheOptionsOfAWork) {
  for (const Work& work : works()) {
    const std::vector<std::string> words = completions(concat("tip2bdl-cli ", work.name, " --"));
    EXPECT_EQ(namesOf(work.options), std::set(words.begin(), words.end())) << work.name;
  }
  EXPECT_THAT(completions("tip2bdl-cli --"), Contains("--version"));
}

TEST(BashCompletion, OffersFilesOfTheKindsThatAWorkTakes) {
  EXPECT_THAT(completions("tip2bdl-cli plano "), UnorderedElementsAre("casa.tip", "mi casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli comprobar c"), UnorderedElementsAre("casa.bdl", "casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli lote "), ElementsAre("parque.csv"));
}

TEST(BashCompletion, GoesByThePlaceOfAnOperand) {
  EXPECT_THAT(completions("tip2bdl-cli informe c"), ElementsAre("casa.bdl"));
  EXPECT_THAT(completions("tip2bdl-cli informe casa.bdl --formato json c"),
              ElementsAre("casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli informe --formato = json casa.bdl c"),
              ElementsAre("casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli informe casa.bdl casa.tip c"), ElementsAre());
  EXPECT_THAT(completions("tip2bdl-cli comprobar casa.bdl casa.tip c"), ElementsAre("casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli casa.bdl c"), ElementsAre("casa.tip"));
  EXPECT_THAT(completions("tip2bdl-cli casa.bdl casa.tip casa.t"),
              UnorderedElementsAre("casa.tip", "casa.tbl"));
}

TEST(BashCompletion, OffersTheNumbersOfNueva) {
  EXPECT_THAT(completions("tip2bdl-cli nueva "), testing::SizeIs(kLastTipo));
  EXPECT_THAT(completions("tip2bdl-cli nueva 2"), ElementsAre("2", "20", "21", "22", "23"));
  EXPECT_THAT(completions("tip2bdl-cli nueva 13 "), ElementsAre());
}

TEST(BashCompletion, OffersAnyFileBehindARedirection) {
  EXPECT_THAT(completions("tip2bdl-cli nueva 13 \\> casa.t"),
              UnorderedElementsAre("casa.tip", "casa.tbl"));
}

TEST(BashCompletion, OffersAnOptionOnceAndNoneBehindTheirEnd) {
  EXPECT_THAT(completions("tip2bdl-cli plano --salida x --"), Not(Contains("--salida")));
  EXPECT_THAT(completions("tip2bdl-cli plano --salida x --"), Contains("--planta"));
  EXPECT_THAT(completions("tip2bdl-cli --quiet --"), Not(Contains("--quiet")));
  EXPECT_THAT(completions("tip2bdl-cli plano -- --"), ElementsAre());
}

TEST(BashCompletion, OffersWhatAnOptionTakes) {
  EXPECT_THAT(completions("tip2bdl-cli informe --formato "), ElementsAre("html", "json"));
  EXPECT_THAT(completions("tip2bdl-cli informe --formato = j"), ElementsAre("json"));
  EXPECT_THAT(completions("tip2bdl-cli plano --salida casa.t"),
              UnorderedElementsAre("casa.tip", "casa.tbl"));
  EXPECT_THAT(completions("tip2bdl-cli lote --plantilla c"), ElementsAre("casa.bdl"));
  EXPECT_THAT(completions("tip2bdl-cli lote --salida "),
              ElementsAre());  // folders, and there is none
}
