#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/platform.h"

/// Thrown where a program would have ended.
struct ProcessEnded {
  int status;
};

/// The desktop of the tests: keeps the messages and throws ProcessEnded instead of exiting. Every
/// test program has one as its `Application` (see test_main.cpp).
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

  std::vector<Box> boxes;
  int processed = 0;

 private:
  void endProcess(int status) override { throw ProcessEnded{status}; }
};

RecordingApplication& recordingApplication();

/// What `stopMessage` gives for a body that ran to its end.
inline constexpr std::string_view kNotStopped = "(the run was not stopped)";

/// Runs `body`, which is expected to end the run with exit code 3, and returns its message,
/// decoded to UTF-8. The caption is checked on the way.
template <typename Body>
std::string stopMessage(Body&& body);

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

std::string messageOfStop(int status, std::size_t boxesBefore);

template <typename Body>
std::string stopMessage(Body&& body) {
  const std::size_t boxesBefore = recordingApplication().boxes.size();
  try {
    body();
  } catch (const ProcessEnded& ended) {
    return messageOfStop(ended.status, boxesBefore);
  }
  return std::string(kNotStopped);
}
