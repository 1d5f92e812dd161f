#include "generator/polygon_emitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "generator/generator_context.h"
#include "generator/generator_fixture.h"
#include "support/recording_application.h"

namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

/// Of one outline.
Plan planOf(const Vertices& vertices) {
  Plan plan;
  plan.outlines = {{Role::kBlock, vertices}};
  return plan;
}

Lines polygonOutput(const Lines& lines, const Vertices& vertices) {
  GeneratorRun run(lines);
  emitPolygon(run.context(), planOf(vertices), 0);
  run.context().copyRest();
  return run.finish();
}

const Vertices kTriangle = {{0, 0}, {1, 0}, {0, 1}};
constexpr auto kV1 = "V1 = ( 0.000000 , 0.000000 )";
constexpr auto kV2 = "V2 = ( 1.000000 , 0.000000 )";
constexpr auto kV3 = "V3 = ( 0.000000 , 1.000000 )";

}  // namespace

TEST(EmitPolygon, WritesItsVerticesInOrderWithSixDecimalsAndCloses) {
  EXPECT_THAT(polygonOutput({"\"P\" = POLYGON", ".."}, {{0, 0}, {10, 0}, {10, 8}, {0, 8}}),
              ElementsAre("\"P\" = POLYGON", "V1 = ( 0.000000 , 0.000000 )",
                          "V2 = ( 10.000000 , 0.000000 )", "V3 = ( 10.000000 , 8.000000 )",
                          "V4 = ( 0.000000 , 8.000000 )", ".."));
}

TEST(EmitPolygon, ReplacesTheTemplatesVertices) {
  EXPECT_THAT(polygonOutput({"\"P\" = POLYGON", "   V1 = ( 9, 9 )", "V2=(9,9)",
                             "         V3 = ( 9 , 9 )  ", "   ..", "resto"},
                            kTriangle),
              ElementsAre("\"P\" = POLYGON", kV1, kV2, kV3, "..", "resto"));
}

TEST(EmitPolygon, KeepsATemplateVertexWithAHigherNumber) {
  EXPECT_THAT(polygonOutput({"\"P\" = POLYGON", "V5 = ( 1, 2 )", "V4 = ( 9, 9 )", ".."},
                            {{0, 0}, {1, 0}, {1, 1}, {0, 1}}),
              ElementsAre("\"P\" = POLYGON", "V5 = ( 1, 2 )", kV1, kV2,
                          "V3 = ( 1.000000 , 1.000000 )", "V4 = ( 0.000000 , 1.000000 )", ".."));
}

TEST(EmitPolygon, TenthVertexIsNotTheFirst) {
  const Vertices ten(10, Vertex{2, 3});
  const Lines output =
      polygonOutput({"\"P\" = POLYGON", "V10 = ( 9, 9 )", "V11 = ( 9, 9 )", ".."}, ten);
  ASSERT_EQ(13U, output.size());
  EXPECT_EQ("V11 = ( 9, 9 )", output[1]);
  EXPECT_EQ("V10 = ( 2.000000 , 3.000000 )", output[11]);
}

TEST(EmitPolygon, CopiesOtherLinesOfTheCommandBeforeTheVertices) {
  EXPECT_THAT(polygonOutput({"\"P\" = POLYGON", "V1 = ( 9, 9 )", "$ nota", "v2 = ( 9, 9 )", ".."},
                            kTriangle),
              ElementsAre("\"P\" = POLYGON", "$ nota", "v2 = ( 9, 9 )", kV1, kV2, kV3, ".."));
}

TEST(EmitPolygon, CopiesTheTemplateUpToTheNextPolygon) {
  EXPECT_THAT(polygonOutput({"a", "\"S\" = SPACE", "V1 = ( 9, 9 )", "..", "\"P\" = POLYGON", ".."},
                            kTriangle),
              ElementsAre("a", "\"S\" = SPACE", "V1 = ( 9, 9 )", "..", "\"P\" = POLYGON", kV1, kV2,
                          kV3, ".."));
}

TEST(EmitPolygon, EndsWithTheTemplateAndClosesTheCommand) {
  EXPECT_THAT(polygonOutput({"\"P\" = POLYGON", "V1 = ( 9, 9 )", "resto"}, kTriangle),
              ElementsAre("\"P\" = POLYGON", "resto", kV1, kV2, kV3, ".."));
}

TEST(EmitPolygon, WithoutAPolygonEndsTheRun) {
  GeneratorRun run({"a", "\"P\" = FLOOR"});
  EXPECT_EQ("Error al generar el edificio. No se ha encontrado la clave: POLYGON",
            stopMessage([&] { emitPolygon(run.context(), planOf(kTriangle), 0); }));
}

TEST(EmitPolygon, VertexThatIsNotFiniteIsNamedByItsKey) {
  GeneratorRun run({"\"P\" = POLYGON", ".."});
  const Vertices vertices = {{0, 0}, {1, std::numeric_limits<float>::infinity()}};
  emitPolygon(run.context(), planOf(vertices), 0);
  EXPECT_EQ("Error en el fichero casa.tip: el valor de V2 en la salida no es un número finito: inf",
            stopMessage([&] { run.context().requireFiniteOutput(); }));
}
