#include "app/desktop/progress_run.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "app/run_generation_fixture.h"
#include "support/minimal_building.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

class ProgressRunTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  MinimalBuilding building_{folder_};
  ProgressRun run_{building_.as<RunPaths>()};
  NoBar bar_;
};

/// A desktop that fails in the middle of a run, when the bar has moved for the second time.
template <typename Exception>
class FailingApplication : public RecordingApplication {
 public:
  explicit FailingApplication(Exception exception) : exception_(exception) { Application = this; }
  ~FailingApplication() override { Application = &recordingApplication(); }
  void ProcessMessages() override {
    if (++processed == 3) throw exception_;
  }
  void ShowFault(const Fault& fault) override { recordingApplication().ShowFault(fault); }

 private:
  Exception exception_;
};

}  // namespace

TEST_F(ProgressRunTest, IsDueOnTheThirdTick) {
  EXPECT_FALSE(run_.tick());
  EXPECT_FALSE(run_.tick());
  EXPECT_TRUE(run_.tick());
  EXPECT_FALSE(run_.tick()) << "one that was on its way when the timer was stopped";
  EXPECT_FALSE(folder_.has("Error.log")) << "a run has begun";
  EXPECT_FALSE(run_.isOver());
}

TEST_F(ProgressRunTest, LetsTheFormBePaintedAndGenerates) {
  class PaintedForm : public RecordingApplication {
   public:
    explicit PaintedForm(const TemporaryFolder& folder) : folder_(folder) { Application = this; }
    ~PaintedForm() override { Application = &recordingApplication(); }
    void ProcessMessages() override {
      if (processed++ == 0) begunBefore = folder_.has("Error.log");
    }
    bool begunBefore = true;

   private:
    const TemporaryFolder& folder_;
  } form(folder_);
  run_.run(bar_);
  EXPECT_FALSE(form.begunBefore);
  EXPECT_TRUE(run_.isOver());
  EXPECT_GT(bar_.GetPosition(), 0);
  EXPECT_TRUE(folder_.read("salida.bdl").starts_with("$\t***"));
  EXPECT_FALSE(folder_.has("fin.txt")) << "the marker comes after the form";
}

TEST_F(ProgressRunTest, AFaultEndsItInTheMiddle) {
  folder_.write("casa.tip", "");
  EXPECT_EQ("En el fichero *.tip debe existir un COMMAND VIVIENDA",
            stopMessage([&] { run_.run(bar_); }));
  EXPECT_FALSE(run_.isOver());
}

TEST_F(ProgressRunTest, WhatIsThrownInTheRunEndsItWithAMessage) {
  {
    const FailingApplication failing{std::bad_alloc()};
    EXPECT_EQ("No hay memoria suficiente", stopMessage([&] { run_.run(bar_); }));
  }
  {
    const FailingApplication failing{std::runtime_error("algo raro")};
    EXPECT_EQ("Error inesperado: algo raro", stopMessage([&] { run_.run(bar_); }));
  }
  EXPECT_FALSE(run_.isOver());
}
