#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "check/formats.h"
#include "core/cp1252.h"
#include "run_and_check.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(PathFindings, EveryInputThatWouldBeLostIsTold) {
  const TemporaryFolder folder;
  Inputs::minimal().writeInto(folder);
  const std::string building = folder / "casa.bdl";
  const std::vector<std::string> typologies = {folder / "casa.tip", folder / "otra.tip"};
  const auto told = [&](const std::string& output, const std::string& marker) {
    std::vector<std::string> messages;
    for (const Finding& finding : pathFindings(building, typologies, output, marker)) {
      if (finding.code == Code::kRutasIguales) messages.push_back(cp1252::toUtf8(finding.message));
    }
    return messages;
  };
  const std::string marker = folder / "fin.txt";
  const std::string output = folder / "salida.bdl";
  EXPECT_THAT(told(output, marker), IsEmpty());
  const struct {
    std::string output, marker;
    const char* message;
  } cases[] = {
      {building, marker, "La ruta de la salida es la de la plantilla, que se perderá"},
      {folder / "casa.tbl", marker, "La ruta de la salida es la de la tabla, que se perderá"},
      {folder / "./defectos.inp", marker,
       "La ruta de la salida es la de la librería, que se perderá"},
      {folder / "otra.tip", marker, "La ruta de la salida es la de la tipología, que se perderá"},
      {output, output, "La ruta de la marca es la de la salida, que se perderá"},
      {output, folder / "casa.tbl", "La ruta de la marca es la de la tabla, que se perderá"},
      {folder / "Error.log", marker, "La ruta de Error.log es la de la salida, que se perderá"},
      {output, folder / "Error.log", "La ruta de Error.log es la de la marca, que se perderá"},
  };
  for (const auto& c : cases) EXPECT_THAT(told(c.output, c.marker), ElementsAre(c.message));
}

TEST(PathFindings, AFolderThatIsMissingEndsTheRun) {
  const Findings findings = pathFindings("", {}, "/no/esta/salida.bdl", "");
  ASSERT_EQ(1U, findings.size());
  EXPECT_EQ(Code::kFaltaCarpeta, findings.front().code);
  EXPECT_THAT(cp1252::toUtf8(findings.front().message), HasSubstr("la ejecución se detendrá"));
}

TEST(AsGccLine, AnEmptyPathIsNoFileToBlame) {
  Finding finding{.code = Code::kFaltaFichero, .message = "No existe", .place = wholeFile("")};
  EXPECT_EQ("tip2bdl-cli: error: No existe [falta-fichero]\n", asGccLine(finding));
  EXPECT_THAT(asJson({finding}), Not(HasSubstr("\"fichero\"")));
  EXPECT_THAT(asSarif({finding}), Not(HasSubstr("\"locations\"")));
}
