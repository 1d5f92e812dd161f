#include "typology/vivienda_keywords.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

TEST(ViviendaKeywords, NoneStandsTwice) {
  std::set<std::string_view> names;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    EXPECT_TRUE(names.insert(keyword.name).second) << keyword.name;
  }
  EXPECT_EQ(25U, names.size());
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
