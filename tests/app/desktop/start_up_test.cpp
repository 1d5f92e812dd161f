#include "app/desktop/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

/// Forms that note what they are told, and what is there when the loop has ended.
class NotingForms : public DesktopForms {
 public:
  explicit NotingForms(const TemporaryFolder& folder) : folder_(folder) {}

  std::vector<std::string> told;
  RunPaths given;
  bool markerInLoop = false;

 private:
  void createMainForm(const RunPaths& paths) override {
    told.emplace_back("create the main form");
    given = paths;
  }
  void createInputForm() override { told.emplace_back("create the input form"); }
  void showMainForm() override { told.emplace_back("show the main form"); }
  void loop() override {
    told.emplace_back("loop");
    markerInLoop = folder_.has("fin.txt");
  }

  const TemporaryFolder& folder_;
};

class StartUp : public testing::Test {
 protected:
  /// The status with which the process would have ended.
  int statusOf(const std::string& commandLine) {
    try {
      startUp(commandLine, forms_);
    } catch (const RunEnded& ended) {
      return ended.status;
    }
  }

  TemporaryFolder folder_;
  NotingForms forms_{folder_};
};

}  // namespace

TEST_F(StartUp, TheFormsAreCreatedBeforeTheMainOneIsShown) {
  EXPECT_EQ(0, statusOf("#a,b,c," + folder_ / "fin.txt"));
  const std::vector<std::string> expected = {"create the main form", "create the input form",
                                             "show the main form", "loop"};
  EXPECT_EQ(expected, forms_.told);
}

TEST_F(StartUp, TheMainFormGetsThePathsAndTheMarkerComesAfterTheLoop) {
  const std::string marker = folder_ / "fin.txt";
  EXPECT_EQ(0, statusOf("programa#a.bdl, b.tip,c.bdl," + marker));
  EXPECT_EQ("a.bdl", forms_.given.dataFile);
  EXPECT_EQ("b.tip", forms_.given.typologyFile);
  EXPECT_EQ("c.bdl", forms_.given.outputFile);
  EXPECT_EQ(marker, forms_.given.markerFile);
  EXPECT_FALSE(forms_.markerInLoop);
  EXPECT_EQ("", folder_.read("fin.txt"));
}

TEST_F(StartUp, AWrongCommandLineCreatesNoForm) {
  EXPECT_EQ("El elemento 1 de la línea de órdenes es demasiado largo: " + std::string(250, 'a'),
            stopMessage([&] { startUp(std::string(250, 'a'), forms_); }));
  EXPECT_EQ(std::vector<std::string>(), forms_.told);
}

TEST_F(StartUp, AMarkerThatCannotBeCreatedIsAnError) {
  std::filesystem::create_directory(folder_ / "fin.txt");
  EXPECT_EQ("Error al abrir fichero de escritura: " + folder_ / "fin.txt",
            stopMessage([&] { startUp("a,b,c," + folder_ / "fin.txt", forms_); }));
}
