#include "generator/template_stops.h"

#include <algorithm>

#include "core/line_reader.h"

namespace {

std::int32_t soughtTypeOf(std::string_view value) {
  const auto found = std::ranges::find(kSoughtTypes, value);
  return static_cast<std::int32_t>(found == kSoughtTypes.end() ? -1 : found - kSoughtTypes.begin());
}

/// What a line is, but for its place.
TemplateStop stopAt(std::string_view line, const NameList& commands) {
  TemplateStop stop;
  stop.size = static_cast<std::uint32_t>(line.size());
  const Assignment assignment = splitAssignment(line);
  const LineMatch sizes = sizesIn(assignment);
  stop.width = sizes.width;
  stop.height = sizes.height;
  stop.command = commands.matchKey(assignment);
  std::ranges::transform(emitterNames(), stop.indexes.begin(), [&](const NameList& names) {
    return static_cast<std::int8_t>(names.matchKey(assignment));
  });
  stop.soughtType = soughtTypeOf(assignment.value);
  stop.vertex = vertexIn(assignment);
  stop.schedule = isAirChangeSchedule(line);
  stop.rule = isRule(line);
  stop.surface = stop.command >= 0 && isSurfaceCommand(line);
  return stop;
}

bool stopsNobody(const TemplateStop& stop) {
  return stop.command < 0 && std::ranges::max(stop.indexes) < 0 && stop.soughtType < 0 &&
         stop.vertex == 0 && !stop.schedule && !stop.rule && stop.size <= kLongestLine;
}

/// Whether a line is anything to whoever copies up to the next command.
bool stopsBetweenCommands(const TemplateStop& stop) {
  return stop.command >= 0 || stop.schedule || (stop.lines == 1 && stop.size > kLongestLine);
}

/// Whether a line is nothing but a keyword that windows drop, and not their height, which counts.
bool isOnlyDropped(const TemplateStop& stop) {
  constexpr auto kWindow = static_cast<std::size_t>(EmitterNames::kWindow);
  if (stop.indexes[kWindow] < 0 || stop.indexes[kWindow] == kWindowEnd || stop.height != 0) {
    return false;
  }
  TemplateStop otherwise = stop;
  otherwise.indexes[kWindow] = -1;
  return stopsNobody(otherwise);
}

}  // namespace

TemplateStops::TemplateStops(std::string_view building, const NameList& commands) {
  LineReader reader(building);
  std::string_view line;
  bool joins = false;  // what is only dropped joins the last stop
  while (reader.ReadLine(line)) {
    ++lines_;
    TemplateStop stop = stopAt(line, commands);
    stop.begin = text_.size();
    stop.number = static_cast<std::int32_t>(lines_);
    text_.append(line) += '\n';
    const bool dropped = isOnlyDropped(stop);
    if (dropped && joins) {
      TemplateStop& first = stops_.back();
      first.size = static_cast<std::uint32_t>(stop.begin + stop.size - first.begin);
      ++first.lines;
    } else if (!stopsNobody(stop)) {
      stops_.push_back(stop);
    }
    joins = dropped;
  }
  auto next = static_cast<std::int32_t>(stops_.size());
  for (auto i = next; i-- > 0;) {
    TemplateStop& stop = stops_[static_cast<std::size_t>(i)];
    if (stopsBetweenCommands(stop)) next = i;
    stop.commandFrom = next;
  }
}
