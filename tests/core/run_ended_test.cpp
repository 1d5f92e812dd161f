#include "core/run_ended.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "core/global2.h"
#include "core/path_table.h"
#include "core/report_error.h"
#include "support/recording_application.h"
#include "support/temporary_folder.h"

namespace {

std::string messageOf(const std::optional<Fault>& fault) {
  return fault ? fault->message : std::string(kNotStopped);
}

/// Where two threads wait for each other. (The library's barrier of GCC 12 loses a thread now and
/// then on Windows.)
class Meeting {
 public:
  void arriveAndWait() {
    std::unique_lock lock(mutex_);
    if (++arrived_ % 2 == 0) {
      met_.notify_all();
      return;
    }
    met_.wait(lock, [this, mine = arrived_] { return arrived_ > mine; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable met_;
  long arrived_ = 0;
};

/// Has `body` carried out by two threads that take every step together; it gets 0 or 1 and what
/// ends a step.
void inTwoThreads(const std::function<void(int, const std::function<void()>&)>& body) {
  Meeting together;
  const auto step = [&] { together.arriveAndWait(); };
  std::vector<std::thread> threads;
  for (int i = 0; i < 2; ++i) threads.emplace_back([&, i] { body(i, step); });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace

TEST(FaultOf, IsNothingForABodyThatComesToItsEnd) {
  bool ran = false;
  EXPECT_FALSE(faultOf([&] { ran = true; }));
  EXPECT_TRUE(ran);
}

TEST(FaultOf, IsTheFaultWithItsPlace) {
  const Place place{.file = "casa.tip", .line = 5, .column = 1, .length = 1, .text = "A = 1"};
  const std::optional<Fault> fault = faultOf([&] {
    ReportFailure(ErrorLog, Fault{"No vale", place});
  });
  ASSERT_TRUE(fault);
  EXPECT_EQ("No vale", fault->message);
  EXPECT_EQ("casa.tip:5: [A] = 1", marked(fault->place));
}

TEST(FaultOf, IsTheMessageAloneWhereThereIsNoPlace) {
  const std::optional<Fault> fault = faultOf([] { ReportError(ErrorLog, false, "No vale"); });
  ASSERT_TRUE(fault);
  EXPECT_EQ("No vale", fault->message);
  EXPECT_FALSE(fault->place);
}

TEST(FaultOf, IsAFaultWhereARunEndsBadlyWithoutAWord) {
  EXPECT_EQ("Error inesperado: 3", faultOf([] { Application->Terminate(3); })->message);
  EXPECT_FALSE(faultOf([] { Application->Terminate(0); }));
}

TEST(FaultOf, ShowsNothing) {
  const std::size_t boxes = recordingApplication().boxes.size();
  faultOf([] { ReportFailure(ErrorLog, "No vale"); });
  EXPECT_EQ(boxes, recordingApplication().boxes.size());
}

TEST(FaultOf, GoesOnBehindTheCheckOnlyWhenItHolds) {
  bool passed = false;
  bool wentOn = false;
  faultOf([&] {
    ReportError(ErrorLog, true, "No vale");
    passed = true;
    ReportError(ErrorLog, false, "No vale");
    wentOn = true;
  });
  EXPECT_TRUE(passed);
  EXPECT_FALSE(wentOn);
}

TEST(FaultOf, UnwindsWhatTheBodyHolds) {
  struct SetsAtItsEnd {
    bool& ended;
    ~SetsAtItsEnd() { ended = true; }
  };
  bool ended = false;
  faultOf([&] {
    const SetsAtItsEnd held{ended};
    ReportFailure(ErrorLog, "No vale");
  });
  EXPECT_TRUE(ended);
}

TEST(FaultOf, GivesTheBodyAnApplicationAndNoLog) {
  const TemporaryFolder folder;
  Global2 log(folder / "Error.log");
  ErrorLog = &log;
  faultOf([&] {
    EXPECT_NE(&recordingApplication(), Application);
    EXPECT_EQ(nullptr, ErrorLog);
  });
  ErrorLog = nullptr;
}

TEST(FaultOf, RestoresWhatWasThereBefore) {
  const TemporaryFolder folder;
  const struct {
    const char* why;
    std::function<void()> body;
  } cases[] = {
      {"a body that comes to its end", [] {}},
      {"a fault", [] { ReportFailure(ErrorLog, "No vale"); }},
      {"an exception", [] { throw std::runtime_error("inesperado"); }},
      {"a body that changes both",
       [] {
         ErrorLog = nullptr;
         Application = nullptr;
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    Global2 log(folder / "Error.log");
    ErrorLog = &log;
    try {
      faultOf(c.body);
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(&recordingApplication(), Application);
    EXPECT_EQ(&log, ErrorLog);
    EXPECT_NE(nullptr, log.log) << "still open: it is not the body's";
    ErrorLog = nullptr;
  }
}

TEST(FaultOf, ARunWithinARunReleasesItsOwnAlone) {
  PathTable& folders = PathTable::Instance();
  ErrorObject& error = ErrorObject::Instance();
  folders.Set("Dat", "/de fuera/");
  for (const bool releases : {true, false}) {
    SCOPED_TRACE(releases);
    faultOf([&] {
      EXPECT_EQ("", PathTable::Instance().Get("Dat")) << "begins without any";
      EXPECT_NE(&error, &ErrorObject::Instance());
      if (releases) {
        PathTable::Release();
        ErrorObject::Release();
      }
      ReportFailure(ErrorLog, "de dentro");
    });
    EXPECT_EQ(&folders, &PathTable::Instance());
    EXPECT_EQ("/de fuera/", folders.Get("Dat"));
    EXPECT_EQ(&error, &ErrorObject::Instance());
  }
  PathTable::Release();
  ErrorObject::Release();
}

TEST(FaultOf, Nests) {
  std::optional<Fault> inner;
  const std::optional<Fault> outer = faultOf([&] {
    const TApplication* const own = Application;
    inner = faultOf([] { ReportFailure(ErrorLog, "de dentro"); });
    EXPECT_EQ(own, Application);
    ReportFailure(ErrorLog, "de fuera");
  });
  EXPECT_EQ("de dentro", messageOf(inner));
  EXPECT_EQ("de fuera", messageOf(outer));
}

TEST(FaultOf, AFaultOfAnInnerRunIsNoneOfTheOuter) {
  EXPECT_EQ(kNotStopped,
            messageOf(faultOf([] { faultOf([] { ReportFailure(ErrorLog, "de dentro"); }); })));
}

TEST(FaultOf, WhatElseIsThrownGoesThrough) {
  EXPECT_THROW(faultOf([] { throw std::bad_alloc(); }), std::bad_alloc);
  EXPECT_THROW(faultOf([] { throw std::runtime_error("inesperado"); }), std::runtime_error);
  EXPECT_THROW(faultOf([] { throw 7; }), int);
}

TEST(FaultOf, NoStandardCatchBetweenTakesTheEndOfTheRunForAnException) {
  EXPECT_EQ("No vale", messageOf(faultOf([] {
              try {
                ReportFailure(ErrorLog, "No vale");
              } catch (const std::exception&) {
              }
            })));
}

TEST(RunEnded, CarriesTheStatus) {
  SilentApplication application;
  try {
    application.Terminate(3);
  } catch (const RunEnded& ended) {
    EXPECT_EQ(3, ended.status);
  }
}

TEST(Threads, BeginWithoutApplicationAndLog) {
  const TemporaryFolder folder;
  Global2 log(folder / "Error.log");
  ErrorLog = &log;
  std::thread([] {
    EXPECT_EQ(nullptr, Application);
    EXPECT_EQ(nullptr, ErrorLog);
  }).join();
  EXPECT_EQ(&recordingApplication(), Application);
  EXPECT_EQ(&log, ErrorLog);
  ErrorLog = nullptr;
}

TEST(Threads, TwoRunsDoNotMeet) {
  const TemporaryFolder folder;
  std::optional<Fault> faults[2];
  inTwoThreads([&](int i, const std::function<void()>& step) {
    const std::string own = std::to_string(i);
    faults[i] = faultOf([&] {
      const TApplication* const application = Application;
      Global2 log(folder / ("Error" + own));
      ErrorLog = &log;
      PathTable::Instance().Set("Dat", own);
      ErrorObject::Instance().value = i + 1;
      const PathTable* const table = &PathTable::Instance();
      step();  // both have set theirs
      EXPECT_EQ(application, Application);
      EXPECT_EQ(&log, ErrorLog);
      EXPECT_EQ(table, &PathTable::Instance());
      EXPECT_EQ(own, PathTable::Instance().Get("Dat"));
      EXPECT_EQ(i + 1, ErrorObject::Instance().value);
      step();
      if (i == 0) {
        PathTable::Release();
        ErrorObject::Release();
      }
      step();  // one has released its own
      EXPECT_EQ(i == 0 ? "" : own, PathTable::Instance().Get("Dat"));
      EXPECT_EQ(i == 0 ? 0 : i + 1, ErrorObject::Instance().value);
      PathTable::Release();
      ErrorObject::Release();
      step();
      ReportFailure(ErrorLog, "de " + own);
    });
    EXPECT_EQ(nullptr, Application) << "as the thread began";
    EXPECT_EQ(nullptr, ErrorLog);
  });
  EXPECT_EQ("de 0", messageOf(faults[0]));
  EXPECT_EQ("de 1", messageOf(faults[1]));
}

TEST(Threads, AFaultOfOneLeavesTheOtherGoing) {
  std::optional<Fault> faults[2];
  bool wentOn = false;  // only the second one comes so far
  inTwoThreads([&](int i, const std::function<void()>& step) {
    faults[i] = faultOf([&] {
      step();
      if (i == 0) ReportFailure(ErrorLog, "No vale");
      wentOn = true;
    });
    step();
  });
  EXPECT_TRUE(wentOn);
  EXPECT_EQ("No vale", messageOf(faults[0]));
  EXPECT_EQ(kNotStopped, messageOf(faults[1]));
}
