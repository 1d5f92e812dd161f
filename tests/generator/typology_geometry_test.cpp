#include "generator/typology_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "plan/plan_fixture.h"
#include "support/recording_application.h"
#include "typology/kinds_of_buildings.h"

namespace {

using testing::ElementsAre;

void setPlanNumbers(TypologyRecord& typology, const PlanData& data) {
  typology.tipo = data.tipo;
  typology.areaPlanta = data.areaPlanta;
  typology.areaPatio = data.areaPatio;
  typology.areaEscalera = data.areaEscalera;
  typology.longitudFachada = data.longitudFachada;
  typology.profundidadPatio = data.profundidadPatio;
  typology.profundidadEscalera = data.profundidadEscalera;
}

/// A template of `count` POLYGON commands, P1 and so on.
std::vector<std::string> polygons(int count) {
  std::vector<std::string> lines;
  for (int i = 1; i <= count; ++i) {
    lines.push_back("P" + std::to_string(i) + " = POLYGON");
    lines.emplace_back("..");
  }
  return lines;
}

}  // namespace

TEST(GeometriaTipologia, HouseOfTipo1HasItsArraysAndWritesOneSquare) {
  GeneratorRun run({"antes", "\"P\" = POLYGON", "V1 = ( 9, 9 )", "..", "resto"});
  const Plan plan = geometriaTipologia(run.context());
  EXPECT_EQ((PerFacade<int>{1, 1, 1, 1}), plan.numHuecosFachada);
  EXPECT_EQ((PerFacade<float>{30, 30, 30, 30}), plan.superficieFachada);
  run.context().copyRest();
  EXPECT_THAT(run.finish(),
              ElementsAre("antes", "\"P\" = POLYGON", "V1 = ( 0.000000 , 0.000000 )",
                          "V2 = ( 10.000000 , 0.000000 )", "V3 = ( 10.000000 , 10.000000 )",
                          "V4 = ( 0.000000 , 10.000000 )", "..", "resto"));
}

TEST(GeometriaTipologia, GivesThePlanWithItsFourArrays) {
  for (const int tipo : oneTipoAKind()) {
    SCOPED_TRACE(tipo);
    GeneratorRun run(polygons(6));
    setPlanNumbers(run.typology(), anyFamily(tipo));
    const Plan expected = drawn(planTipologia(anyFamily(tipo)));
    const Plan plan = geometriaTipologia(run.context());
    EXPECT_EQ(expected.outlines, plan.outlines);
    EXPECT_EQ(expected.numHuecosFachada, plan.numHuecosFachada);
    EXPECT_EQ(expected.numHuecosPatio, plan.numHuecosPatio);
    EXPECT_EQ(expected.superficieFachada, plan.superficieFachada);
    EXPECT_EQ(expected.superficiePatio, plan.superficiePatio);
  }
}

TEST(GeometriaTipologia, WritesSixOutlinesInOrder) {
  GeneratorRun run(polygons(7));
  setPlanNumbers(run.typology(), anyFamily(10));
  geometriaTipologia(run.context());
  run.context().copyRest();
  // Six outlines of four vertices, and the seventh command as it was.
  const std::vector<std::string> output = run.finish();
  ASSERT_EQ(38U, output.size());
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ("P" + std::to_string(i + 1) + " = POLYGON", output[6 * i]);
    EXPECT_TRUE(output[6 * i + 4].starts_with("V4 = ( ")) << output[6 * i + 4];
  }
  EXPECT_EQ("P7 = POLYGON", output[36]);
}

TEST(GeometriaTipologia, FailingPlanEndsTheRunBeforeAnyPolygon) {
  GeneratorRun run(polygons(1));
  run.typology().areaPlanta = 30;
  EXPECT_EQ("Área de planta no válida. Debe ser >30 y <1000",
            stopMessage([&] { geometriaTipologia(run.context()); }));
  EXPECT_THAT(run.finish(), ElementsAre());
}

TEST(GeometriaTipologia, UnknownNumberEndsTheRunWithWhatIsLeftOfItsMessage) {
  const struct {
    int tipo;
    const char* message;
  } cases[] = {{24, ": "}, {25, " "}, {26, ""}, {27, ""}, {1000000, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tipo);
    GeneratorRun run(polygons(1));
    run.typology().tipo = c.tipo;
    EXPECT_EQ(c.message, stopMessage([&] { geometriaTipologia(run.context()); }));
  }
}

TEST(GeometriaTipologia, TemplateWithTooFewPolygonsEndsTheRun) {
  GeneratorRun run(polygons(5));
  setPlanNumbers(run.typology(), anyFamily(23));
  EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: POLYGON",
            stopMessage([&] { geometriaTipologia(run.context()); }));
}

TEST(GeometriaTipologia, BlockHasTheBaysOfThreeStoreysHoweverManyItHas) {
  for (const int tipo : oneBlockAKind()) {
    const Plan ofThree = drawn(planTipologia(anyFamily(tipo)));
    for (const int storeys : {3, 4, 40}) {
      SCOPED_TRACE(testing::Message() << tipo << ", " << storeys << " storeys");
      GeneratorRun run(polygons(6));
      setPlanNumbers(run.typology(), anyFamily(tipo));
      run.typology().numeroPlantas = storeys;
      const Plan plan = geometriaTipologia(run.context());
      EXPECT_EQ(ofThree.numHuecosFachada, plan.numHuecosFachada);
      EXPECT_EQ(ofThree.numHuecosPatio, plan.numHuecosPatio);
      EXPECT_EQ(ofThree.superficieFachada, plan.superficieFachada);
      EXPECT_EQ(ofThree.superficiePatio, plan.superficiePatio);
    }
  }
}

TEST(GeometriaTipologia, StoreysAndTheirHeightAreNoMatter) {
  GeneratorRun run(polygons(1));
  run.typology().alturaPlanta = 5;
  run.typology().numeroPlantas = 40;
  EXPECT_EQ((PerFacade<float>{30, 30, 30, 30}),
            geometriaTipologia(run.context()).superficieFachada);
}
