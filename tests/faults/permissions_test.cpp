#include <gtest/gtest.h>

#include <filesystem>

#include "faults/surroundings.h"

// Permissions, which stop everybody but root.

namespace fs = std::filesystem;

namespace {

class Permissions : public SurroundingsOfNobody {
 protected:
  void deny(const std::string& name) const { fs::permissions(path(name), fs::perms::none); }
};

}  // namespace

TEST_P(Permissions, AllowARun) { expectComplete(run(asNobody())); }

TEST_P(Permissions, AnInputThatMayNotBeReadIsAnError) {
  for (const char* name : {"casa.bdl", "casa.tbl", "casa.tip", "defectos.inp"}) {
    SCOPED_TRACE(name);
    deny(name);
    const FaultedRun result = run(asNobody());
    fs::permissions(path(name), fs::perms::all);
    expectMessage(error("Error al abrir fichero de lectura: " + path(name)), result);
  }
}

TEST_P(Permissions, AFolderThatMayNotBeEnteredHasNoInputs) {
  fs::create_directory(path("cerrada"));
  place_.folder().write("cerrada/casa.tip", place_.input("casa.tip"));
  deny("cerrada");
  const FaultedRun result = runWith(kTypology, path("cerrada/casa.tip"), asNobody());
  fs::permissions(path("cerrada"), fs::perms::all);
  expectMessage(error("No existe el fichero de datos *.tip"), result);
}

TEST_P(Permissions, AFolderThatMayNotBeWrittenTakesNeitherOutputNorMarker) {
  fs::create_directory(path("solo-lectura"));
  fs::permissions(path("solo-lectura"), fs::perms::owner_read | fs::perms::owner_exec |
                                            fs::perms::others_read | fs::perms::others_exec);
  const std::string output = path("solo-lectura/salida.bdl");
  expectMessage(cannotWrite(output), runWith(kOutput, output, asNobody()));

  const std::string marker = path("solo-lectura/fin.txt");
  const FaultedRun result = runWith(kMarker, marker, asNobody());
  EXPECT_EQ(3, result.status);
  EXPECT_EQ(cannotWrite(marker), result.err);
  EXPECT_TRUE(place_.outputIsComplete());
}

TEST_P(Permissions, AnOutputThatMayNotBeWrittenStaysAsItWas) {
  deny("salida.bdl");
  const FaultedRun result = run(asNobody());
  fs::permissions(path("salida.bdl"), fs::perms::all);
  expectMessage(cannotWrite(path("salida.bdl")), result);
  EXPECT_EQ(Workplace::kOldOutput, place_.folder().read("salida.bdl"));
}

TEST_P(Permissions, ALogThatMayNotBeWrittenIsNobodysError) {
  place_.folder().write("Error.log", "de antes");
  deny("Error.log");
  expectComplete(run(asNobody()));
}

INSTANTIATE_TEST_SUITE_P(Of, Permissions, testing::ValuesIn(kPrograms), programName);
