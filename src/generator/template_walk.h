#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "core/line_reader.h"
#include "core/output_lines.h"
#include "generator/line_meanings.h"
#include "generator/name_list.h"
#include "generator/template.h"

/// A walk over the lines of a template, strictly forward: from one at which somebody may stop to
/// the next where the template has found them out, else from line to line.
class TemplateWalk {
 public:
  /// `plantilla` must outlive the walk, and whatever takes lines from it.
  explicit TemplateWalk(const Template& plantilla);

  /// Goes to the next line. At the end of the template it is false, and the line stays.
  bool next();
  /// The same up to a line that is a rewritten command's, a schedule, or too long.
  bool nextCommand();
  /// Copies the lines that the last `next` passed over; they are nothing to anybody.
  void copyPassed(OutputLines& output) const {
    if (passedLines_ > 0) output.CopyLines(passed_, passedLines_);
  }

  // The line; or several, where nobody wants more than to drop or copy them.
  std::string_view line() const { return line_; }
  /// As a LineReader counts.
  long number() const { return stop_ != nullptr ? stop_->number : reader_.lineNumber(); }
  void copyLine(OutputLines& output) const;
  bool isTooLong() const { return line_.size() > kLongestLine && lineCount() == 1; }
  /// False, with `match` as it was, when it matches no name.
  bool find(EmitterNames names, LineMatch& match) const;
  bool findCommand(LineMatch& match) const;
  int vertex() const { return stop_ != nullptr ? stop_->vertex : vertexIn(splitAssignment(line_)); }
  /// Whether it is the header of a command of `type`, one of kSoughtTypes.
  bool isOf(std::string_view type) const;
  bool isSchedule() const {
    return stop_ != nullptr ? stop_->schedule : isAirChangeSchedule(line_);
  }
  bool isSurfaceCommand() const {
    return stop_ != nullptr ? stop_->surface : ::isSurfaceCommand(line_);
  }
  bool isRule() const { return stop_ != nullptr ? stop_->rule : ::isRule(line_); }

 private:
  bool passTheRest();
  long lineCount() const { return stop_ != nullptr ? stop_->lines : 1; }
  /// The number of the last line read.
  long lastNumber() const { return stop_ != nullptr ? stop_->number + stop_->lines - 1 : 0; }

  const Template& template_;
  const std::array<NameList, kEmitterNameLists>& emitterNames_ = emitterNames();
  const TemplateStops* stops_;          // null: line by line
  LineReader reader_;                   // of them
  const TemplateStop* stop_ = nullptr;  // of the line
  std::size_t nextStop_ = 0;
  std::size_t position_ = 0;  // of the text of the stops, behind the line
  std::string_view passed_;
  long passedLines_ = 0;
  std::string_view line_;
};

// What every line costs.

inline bool TemplateWalk::next() {
  if (stops_ == nullptr) return reader_.ReadLine(line_);
  if (nextStop_ == stops_->stops().size()) return passTheRest();
  const TemplateStop& stop = stops_->stops()[nextStop_++];
  const char* const text = stops_->text().data();
  passed_ = {text + position_, stop.begin - position_};
  passedLines_ = stop.number - lastNumber() - 1;
  line_ = {text + stop.begin, stop.size};
  position_ = stop.begin + stop.size + 1;
  stop_ = &stop;
  return true;
}

inline bool TemplateWalk::nextCommand() {
  if (stops_ != nullptr && nextStop_ < stops_->stops().size()) {
    nextStop_ = static_cast<std::size_t>(stops_->stops()[nextStop_].commandFrom);
  }
  return next();
}

inline bool TemplateWalk::find(EmitterNames names, LineMatch& match) const {
  const auto list = static_cast<std::size_t>(names);
  if (stop_ == nullptr) return findKey(line_, emitterNames_[list], match);
  // NOLINTNEXTLINE(bugprone-signed-char-misuse,cert-str34-c): an index, no character
  const int index = stop_->indexes[list];
  if (index >= 0) match = {index, stop_->width, stop_->height};
  return index >= 0;
}

inline bool TemplateWalk::findCommand(LineMatch& match) const {
  if (stop_ == nullptr) return findKey(line_, template_.commandNames(), match);
  if (stop_->command >= 0) match = {stop_->command, stop_->width, stop_->height};
  return stop_->command >= 0;
}
