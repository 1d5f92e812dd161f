#include "check/alike_typologies.h"

#include <gtest/gtest.h>

#include "plan/plan_numbers.h"
#include "run_and_check.h"
#include "written_fixture.h"

namespace {

TypologyRecord recordOf(const std::string& text) {
  return TypologyRecord(SourceText("a.tip", text));
}

class AlikeTypologiesTest : public testing::Test {
 protected:
  const Inputs inputs_ = Inputs::ofSample("bloque-escalera-patios", "tipo-14");
  const Template template_{SourceText("a.bdl", inputs_.building),
                           SourceText("a.tbl", inputs_.table)};
  const CheckedTemplate checked_{template_};
};

std::set<Code> codesOf(AlikeTypologies& alike, const TypologyRecord& record) {
  const PlanResult plan = planTipologia(planDataOf(record));
  return alike.remarkCodesOf(record, std::get_if<Plan>(&plan));
}

}  // namespace

TEST_F(AlikeTypologiesTest, OneIsSaidWhatIsSaidOfItAlone) {
  AlikeTypologies alike(checked_, recordOf(WrittenFile14().text()));
  ASSERT_TRUE(alike.differInValues());
  const struct {
    const char* why;
    const char* keyword;
    const char* line;
  } cases[] = {
      {"as the first", "TIPO", "   TIPO = 14"},
      {"a building that uses other measures", "TIPO", "   TIPO = 20"},
      {"a number that is treated as a house", "TIPO", "   TIPO = 0"},
      {"an unusual number", "NUMERO-PLANTAS", "   NUMERO-PLANTAS = 40"},
      {"a storey lower than windows", "ALTURA-PLANTA", "   ALTURA-PLANTA = 2.10"},
      {"a storey as windows are sized for", "ALTURA-PLANTA", "   ALTURA-PLANTA = 3.00"},
      {"a plan that ends the run", "AREA-PLANTA", "   AREA-PLANTA = 8"},
      {"an unusual depth", "LONGITUD-FACHADA", "   LONGITUD-FACHADA = 44"},
      {"more than all", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 25, 150, 20, 16 )"},
      {"no openings", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 0, 0, 0, 0 )"},
      {"of courtyards", "PORCENTAJE-PATIO", "   PORCENTAJE-PATIO = ( 20, 101, 20, 16 )"},
      {"much air", "AIR-CHANGES/HR", "   AIR-CHANGES/HR = 9.63"},
      {"a fraction", "PORCENTAJE-FACHADA", "   PORCENTAJE-FACHADA = ( 0.5, 15, 20, 16 )"},
      {"below 0", "PORCENTAJE-PATIO", "   PORCENTAJE-PATIO = ( -5, 15, 20, 16 )"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    const TypologyRecord record = recordOf(WrittenFile14().with(c.keyword, c.line).text());
    EXPECT_EQ(remarkCodes(checked_, record), codesOf(alike, record));
  }
}

TEST_F(AlikeTypologiesTest, WhatIsSaidOfTheFirstIsForgotten) {
  const WrittenFile14 strange =
      WrittenFile14()
          .with("TIPO", "   TIPO = 0")
          .with("ALTURA-PLANTA", "   ALTURA-PLANTA = 9.80")
          .with("PORCENTAJE-PATIO", "   PORCENTAJE-PATIO = ( 120, 1, 2, 0 )")
          .with("SUELOS", "   SUELOS = \"Nadie\"");
  AlikeTypologies alike(checked_, recordOf(strange.text()));
  ASSERT_TRUE(alike.differInValues());
  const TypologyRecord record =
      recordOf(WrittenFile14().with("SUELOS", "   SUELOS = \"Nadie\"").text());
  EXPECT_EQ(remarkCodes(checked_, record), codesOf(alike, record));
}

TEST_F(AlikeTypologiesTest, NothingIsToldOfTextsThatAreReadOtherwiseThanWritten) {
  const struct {
    const char* why;
    const char* keyword;
    const char* line;
  } cases[] = {
      {"a value in a comment", "TIPO", "   $ AREA-PATIO = 12\n   TIPO = 14"},
      {"a value in a name", "PORCENTAJE-PATIO", "   SUELOS = \"ORIENTACION = 5\""},
      {"a value without its =", "ORIENTACION", "   ORIENTACION 15"},
      {"quotes that are none", "SUELOS", "   SUELOS = 'Solera'"},
      {"a name of two words", "SUELOS", "   SUELOS = Solera alta"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    std::vector<Fault> faults;
    const WrittenFile14 file = WrittenFile14().with(c.keyword, c.line);
    const TypologyRecord record(SourceText("a.tip", file.text()), faults);
    EXPECT_FALSE(AlikeTypologies(checked_, record).differInValues());
  }
}
