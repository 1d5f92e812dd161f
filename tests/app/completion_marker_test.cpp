#include "app/completion_marker.h"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_application.h"
#include "support/temporary_folder.h"

TEST(CompletionMarker, IsAnEmptyFile) {
  TemporaryFolder folder;
  folder.write("fin.txt", "de antes");
  createCompletionMarker(folder / "fin.txt");
  EXPECT_EQ("", folder.read("fin.txt"));
}

TEST(CompletionMarker, ThatCannotBeCreatedIsAnError) {
  const TemporaryFolder folder;
  const std::string path = folder / "no/existe/fin.txt";
  EXPECT_EQ("Error al abrir fichero de escritura: " + path,
            stopMessage([&] { createCompletionMarker(path); }));
  EXPECT_EQ("Error al abrir fichero de escritura: ",
            stopMessage([] { createCompletionMarker(""); }));
}

TEST(CompletionMarker, ThatCannotBeCreatedIsThePlaceOfItsFault) {
  const TemporaryFolder folder;
  const std::string path = folder / "no/existe/fin.txt";
  EXPECT_EQ(path, stopPlace([&] { createCompletionMarker(path); }));
}
