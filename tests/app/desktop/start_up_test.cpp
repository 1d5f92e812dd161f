#include "app/desktop/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

/// Starts up and gives the status with which the process would have ended.
int statusOf(
    const std::string& commandLine,
    const std::function<void(const RunPaths&)>& runForms = [](const RunPaths&) {}) {
  try {
    startUp(commandLine, runForms);
  } catch (const RunEnded& ended) {
    return ended.status;
  }
}

}  // namespace

TEST(StartUp, TheFormsGetThePathsAndTheMarkerComesAfterThem) {
  const TemporaryFolder folder;
  const std::string marker = folder / "fin.txt";
  RunPaths given;
  EXPECT_EQ(0, statusOf("programa#a.bdl, b.tip,c.bdl," + marker, [&](const RunPaths& paths) {
              given = paths;
              EXPECT_FALSE(folder.has("fin.txt"));
            }));
  EXPECT_EQ("a.bdl", given.dataFile);
  EXPECT_EQ("b.tip", given.typologyFile);
  EXPECT_EQ("c.bdl", given.outputFile);
  EXPECT_EQ(marker, given.markerFile);
  EXPECT_EQ("", folder.read("fin.txt"));
}

TEST(StartUp, AWrongCommandLineShowsNoForm) {
  bool shown = false;
  EXPECT_EQ(
      "El elemento 1 de la línea de órdenes es demasiado largo: " + std::string(250, 'a'),
      stopMessage([&] { startUp(std::string(250, 'a'), [&](const RunPaths&) { shown = true; }); }));
  EXPECT_FALSE(shown);
}

TEST(StartUp, AMarkerThatCannotBeCreatedIsAnError) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "fin.txt");
  EXPECT_EQ("Error al abrir fichero de escritura: " + folder / "fin.txt",
            stopMessage([&] { startUp("a,b,c," + folder / "fin.txt", [](const RunPaths&) {}); }));
}
