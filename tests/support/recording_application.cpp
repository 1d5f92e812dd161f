#include "support/recording_application.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "core/cp1252.h"

RecordingApplication& recordingApplication() {
  static RecordingApplication application;
  return application;
}

std::string messageOfStop(int status, std::size_t boxesBefore) {
  EXPECT_EQ(3, status);
  const auto& boxes = recordingApplication().boxes;
  EXPECT_EQ(boxesBefore + 1, boxes.size()) << "one message for one stop";
  if (boxes.size() == boxesBefore) return "(no message)";
  EXPECT_EQ("Se ha producido un error", boxes.back().caption);
  return cp1252::toUtf8(boxes.back().text);
}

void ExitingApplication::MessageBox(std::string_view text, std::string_view caption) {
  std::fprintf(stderr, "%s: %s\n", std::string(caption).c_str(), cp1252::toUtf8(text).c_str());
}

void ExitingApplication::endProcess(int status) { std::exit(status); }
