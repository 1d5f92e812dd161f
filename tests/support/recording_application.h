#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform.h"
#include "core/run_ended.h"

/// The desktop of the tests: keeps the messages and throws RunEnded instead of exiting. Every test
/// program has one as its main thread's `Application` (see test_main.cpp).
class RecordingApplication : public TApplication {
 public:
  struct Box {
    std::string text;  // bytes as they came
    std::string caption;
  };

  void ProcessMessages() override { ++processed; }
  void MessageBox(std::string_view text, std::string_view caption) override {
    boxes.push_back({std::string(text), std::string(caption)});
  }
  void ShowFault(const Fault& fault) override {
    lastFault = fault;
    TApplication::ShowFault(fault);
  }

  std::vector<Box> boxes;
  std::optional<Fault> lastFault;  // bytes as they came
  int processed = 0;

 private:
  void endProcess(int status) override { throw RunEnded{status}; }
};

RecordingApplication& recordingApplication();

/// The message that a body which ran to its end gets.
inline constexpr std::string_view kNotStopped = "(the run was not stopped)";

/// Runs `body`, which is expected to end the run with exit code 3, and returns its fault, the
/// message decoded to UTF-8. That it was shown once, and under which caption, is checked on the
/// way.
template <typename Body>
Fault stopFault(Body&& body);

/// The fault's message alone.
template <typename Body>
std::string stopMessage(Body&& body) {
  return stopFault(body).message;
}

/// A place in one line, its span in brackets: "casa.tip:5: AREA-PLANTA = [72,9]". The path alone
/// for a file as a whole, "(no place)" for none.
std::string marked(const std::optional<Place>& place);

/// Where the fault that `body` ends with stands.
template <typename Body>
std::string stopPlace(Body&& body) {
  return marked(stopFault(body).place);
}

/// The other way to leave: a process that writes its messages to standard error, decoded, and then
/// really exits. For EXPECT_EXIT, which asks what a stop leaves on disk:
///     EXPECT_EXIT({ ExitingApplication exiting; run(); }, testing::ExitedWithCode(3), "No
///     existe");
class ExitingApplication : public TApplication {
 public:
  ExitingApplication() { Application = this; }
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view caption) override;

 private:
  void endProcess(int status) override;
};

// Implementation.

Fault faultOfStop(int status, std::size_t boxesBefore);

template <typename Body>
Fault stopFault(Body&& body) {
  const std::size_t boxesBefore = recordingApplication().boxes.size();
  recordingApplication().lastFault.reset();
  try {
    body();
  } catch (const RunEnded& ended) {
    return faultOfStop(ended.status, boxesBefore);
  }
  return {std::string(kNotStopped), {}};
}
