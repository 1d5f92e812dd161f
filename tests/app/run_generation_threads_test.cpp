#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "app/run_generation_fixture.h"
#include "core/run_ended.h"

TEST(RunGenerationThreads, RunsOfOneProcessDoNotMeet) {
  constexpr int kThreads = 4;
  constexpr int kRuns = 8;
  TemporaryFolder folders[kThreads];
  std::vector<std::string> expected;
  for (int i = 0; i < kThreads; ++i) {
    const MinimalBuilding building(folders[i]);
    std::string typology(MinimalBuilding::kTypology);
    const std::string area = "AREA-PLANTA = 1" + std::to_string(i) + "0";
    typology.replace(typology.find("AREA-PLANTA = 100"), area.size(), area);
    if (i == kThreads - 1) typology.clear();  // the last one's runs are all stopped
    folders[i].write("casa.tip", typology);
    stopMessage([&] { run(building.as<RunPaths>()); });
    expected.push_back(folders[i].read("salida.bdl"));
  }
  ASSERT_NE(expected[0], expected[1]);
  std::vector<std::thread> threads;
  std::vector<std::vector<std::string>> messages(kThreads);
  for (std::size_t i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      for (int left = kRuns; left > 0; --left) {
        const RunPaths paths = {folders[i] / "casa.bdl", folders[i] / "casa.tip",
                                folders[i] / "salida.bdl", folders[i] / "fin.txt"};
        const std::optional<Fault> fault = faultOf([&] { run(paths); });
        messages[i].push_back(fault ? fault->message : "");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < kThreads; ++i) {
    SCOPED_TRACE(i);
    const std::string message =
        i == kThreads - 1 ? "En el fichero *.tip debe existir un COMMAND VIVIENDA" : "";
    EXPECT_THAT(messages[i], testing::Each(message));
    EXPECT_EQ(kRuns, static_cast<int>(messages[i].size()));
    EXPECT_EQ(expected[i], folders[i].read("salida.bdl"));
  }
}
