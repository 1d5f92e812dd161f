#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "generator/line_meanings.h"
#include "generator/name_list.h"

/// A template line at which a generation may stop, and what it is to it; or several lines on end
/// that only windows know, and drop. Small, since the walk over them is most of what a building
/// takes.
struct TemplateStop {
  std::size_t begin = 0;   // in the text of the stops
  std::uint32_t size = 0;  // bytes, without the last line feed
  std::int32_t lines = 1;
  std::int32_t number = 0;    // of the first line, from 1
  std::int32_t command = -1;  // index among the names of the rewritten commands; -1: none of them
  std::int32_t vertex = 0;    // see vertexIn
  std::int32_t soughtType = -1;  // index of the type that the line's value is; -1: none
  std::int32_t commandFrom = 0;  // index of the next stop that findNextCommand knows, or of this
  float width = 0;               // see LineMatch
  float height = 0;
  std::array<std::int8_t, kEmitterNameLists> indexes{};  // in the emitters' lists; -1: in none
  bool schedule : 1 = false;
  bool rule : 1 = false;
  bool surface : 1 = false;  // see isSurfaceCommand
};
static_assert(sizeof(TemplateStop) <= 56);

/// The lines of a template at which a generation may stop, whatever the typology; all between them
/// are copied or dropped as they are. Found once where a template has many buildings. A template
/// that has one is walked line by line instead, which takes less time and memory.
class TemplateStops {
 public:
  /// Bytes of a template that is not too large for them.
  static constexpr std::size_t kLargestTemplate = std::size_t{1} << 30;

  /// `building`: the template's text; `commands`: what the rewritten commands are known by.
  TemplateStops(std::string_view building, const NameList& commands);

  /// All lines as a reader hands them out, each with a line feed.
  const std::string& text() const { return text_; }
  const std::vector<TemplateStop>& stops() const { return stops_; }
  long lines() const { return lines_; }

 private:
  std::string text_;
  std::vector<TemplateStop> stops_;
  long lines_ = 0;
};
