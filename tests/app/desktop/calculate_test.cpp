#include "app/desktop/calculate.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/cp1252.h"
#include "support/recording_application.h"

namespace {

/// The paths of the run that the button has started, if any.
std::optional<RunPaths> runOf(const std::string& typed) {
  std::optional<RunPaths> run;
  calculate(typed, [&](const RunPaths& paths) { run = paths; });
  return run;
}

}  // namespace

TEST(Calculate, RunsWhatWasTypedAsTheTemplateAlone) {
  const std::size_t boxesBefore = recordingApplication().boxes.size();
  const std::optional<RunPaths> run = runOf("mis casas/#casa,1.bdl ");
  ASSERT_TRUE(run);
  EXPECT_EQ("mis casas/#casa,1.bdl ", run->dataFile) << "as typed: it is no command line";
  EXPECT_EQ("", run->typologyFile);
  EXPECT_EQ("", run->outputFile);
  EXPECT_EQ("", run->markerFile);
  EXPECT_EQ(boxesBefore, recordingApplication().boxes.size());
}

TEST(Calculate, AsksForAFileWhereNoneWasTyped) {
  const std::size_t boxesBefore = recordingApplication().boxes.size();
  EXPECT_FALSE(runOf(""));
  ASSERT_EQ(boxesBefore + 1, recordingApplication().boxes.size());
  const RecordingApplication::Box& box = recordingApplication().boxes.back();
  EXPECT_EQ("No ha introducido algunos de los ficheros.", box.text);
  EXPECT_EQ("Información", cp1252::toUtf8(box.caption));
}
