#include "support/recording_application.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <tuple>

#include "core/cp1252.h"

RecordingApplication& recordingApplication() {
  static RecordingApplication application;
  return application;
}

Fault faultOfStop(int status, std::size_t boxesBefore) {
  EXPECT_EQ(3, status);
  const RecordingApplication& application = recordingApplication();
  EXPECT_EQ(boxesBefore + 1, application.boxes.size()) << "one message for one stop";
  EXPECT_TRUE(application.lastFault.has_value()) << "every stop has its fault";
  if (application.boxes.size() == boxesBefore || !application.lastFault) {
    return {"(no message)", {}};
  }
  EXPECT_EQ("Se ha producido un error", application.boxes.back().caption);
  EXPECT_EQ(application.lastFault->message, application.boxes.back().text);
  return {cp1252::toUtf8(application.lastFault->message), application.lastFault->place};
}

std::string marked(const std::optional<Place>& place) {
  if (!place) return "(no place)";
  if (place->line == 0) {
    EXPECT_EQ(std::tuple(0L, std::size_t{0}, std::string()),
              std::tuple(place->column, place->length, place->text))
        << "a file as a whole has no line";
    return place->file;
  }
  std::string line = place->text;
  const auto begin = static_cast<std::size_t>(place->column - 1);
  if (place->column < 1 || begin > line.size() || place->length > line.size() - begin) {
    ADD_FAILURE() << "the span " << place->column << "+" << place->length
                  << " is not in its line: " << line;
    return place->file;
  }
  line.insert(begin + place->length, "]").insert(begin, "[");
  return place->file + ":" + std::to_string(place->line) + ": " + cp1252::toUtf8(line);
}

void ExitingApplication::MessageBox(std::string_view text, std::string_view caption) {
  std::fprintf(stderr, "%s: %s\n", std::string(caption).c_str(), cp1252::toUtf8(text).c_str());
}

void ExitingApplication::endProcess(int status) { std::exit(status); }
