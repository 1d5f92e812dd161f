#include "generator/template_walk.h"

#include <algorithm>
#include <cassert>

TemplateWalk::TemplateWalk(const Template& plantilla)
    : template_(plantilla), stops_(plantilla.stops()), reader_(plantilla.building().bytes()) {}

bool TemplateWalk::passTheRest() {
  passed_ = std::string_view(stops_->text()).substr(position_);
  // Once: behind the end nothing is passed over.
  passedLines_ = passed_.empty() ? 0 : stops_->lines() - lastNumber();
  position_ = stops_->text().size();
  return false;
}

void TemplateWalk::copyLine(OutputLines& output) const {
  if (stop_ == nullptr) {
    output.CopyLine(reader_);
  } else {
    output.CopyLines({line_.data(), line_.size() + 1}, stop_->lines);
  }
}

bool TemplateWalk::isOf(std::string_view type) const {
  if (stop_ == nullptr) return splitAssignment(line_).value == type;
  assert(std::ranges::count(kSoughtTypes, type) == 1);
  return stop_->soughtType >= 0 &&
         kSoughtTypes[static_cast<std::size_t>(stop_->soughtType)] == type;
}
