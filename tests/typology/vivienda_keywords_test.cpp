#include "typology/vivienda_keywords.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "core/concat.h"

TEST(ViviendaKeywords, NoneStandsTwice) {
  std::set<std::string_view> names;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    EXPECT_TRUE(names.insert(keyword.name).second) << keyword.name;
  }
  EXPECT_LE(25U, names.size()) << "a keyword has been lost";
}

TEST(ViviendaKeywords, EachIsFoundByItsNameAlone) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    EXPECT_EQ(&keyword, findViviendaKeyword(keyword.name)) << keyword.name;
  }
  for (const std::string_view name : {"", "AREA", "area-planta", " CUBIERTAS ", "AREA-PLANTA "}) {
    EXPECT_EQ(nullptr, findViviendaKeyword(name)) << name;
  }
}

TEST(ViviendaKeywords, EachIsSearchedForAsItsNameWithOrWithoutBlanks) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    const std::string bare(keyword.name);
    EXPECT_TRUE(keyword.pattern == bare || keyword.pattern == " " + bare + " ") << bare;
  }
}

// A search that meets another keyword reads that one's value where it comes first in the file.
// Blanks in the pattern keep it from that.
TEST(ViviendaKeywords, NoSearchMeetsAnotherKeywordButThoseThatAreKnown) {
  const std::set<std::string> known = {
      "CUBIERTA is met in CUBIERTAS",
  };
  std::set<std::string> met;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    for (const ViviendaKeyword& other : viviendaKeywords()) {
      const std::string line = concat("   ", other.name, " = ");
      if (&keyword == &other || line.find(keyword.pattern) == std::string::npos) continue;
      const std::string meeting = concat(keyword.name, " is met in ", other.name);
      EXPECT_TRUE(known.contains(meeting))
          << meeting << ": search for it with blanks, \" " << keyword.name << " \"";
      met.insert(meeting);
    }
  }
  for (const std::string& meeting : known) {
    EXPECT_TRUE(met.contains(meeting)) << "known, but no longer true: " << meeting;
  }
}

TEST(ViviendaKeywords, OnlyNumbersHaveUnits) {
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    const bool isReal = std::holds_alternative<float TypologyRecord::*>(keyword.field) ||
                        std::holds_alternative<PerFacade<float> TypologyRecord::*>(keyword.field);
    EXPECT_EQ(isReal, !keyword.unit.empty()) << keyword.name;
  }
}

TEST(ViviendaKeywords, EachSaysWhatItIsAndNamesNoKeyword) {
  // A meaning may stand in a comment of a file that is read by search.
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    EXPECT_FALSE(keyword.meaning.empty()) << keyword.name;
    for (const ViviendaKeyword& other : viviendaKeywords()) {
      EXPECT_EQ(std::string_view::npos, keyword.meaning.find(other.name)) << keyword.name;
      EXPECT_EQ(std::string_view::npos, keyword.values.find(other.name)) << keyword.name;
    }
  }
}

TEST(DefaultTypology, IsWhatAFileOfNothingButWhatItMustHoldGives) {
  const TypologyRecord record = defaultTypology();
  EXPECT_EQ(3.0F, record.alturaPlanta);
  EXPECT_EQ(1.0F, record.airChangesHr);
  EXPECT_EQ("PLANA", record.cubierta);
  EXPECT_EQ("", record.ventanaMarco);
}
