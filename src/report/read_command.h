#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "report/building_lines.h"
#include "report/original_building.h"

namespace report {

/// A command while its lines are read, one after the other: its keywords are those that count, each
/// the first time. The lines must outlive it.
class ReadCommand {
 public:
  using Line = OriginalBuilding::Line;

  void begin(const Line& header) {
    header_ = &header;
    keywords_ = {};
    vertices_.clear();
    open_ = true;
  }
  /// Lines behind its end are none of its own.
  void add(const Line& line) {
    if (!open_) return;
    if (line.line.keyword == Keyword::kVertex) {
      vertices_.push_back(&line);
      return;
    }
    const Line*& first = keywords_[static_cast<std::size_t>(line.line.keyword)];
    if (first == nullptr) first = &line;
  }
  void end() { open_ = false; }

  /// Whether there is one; without, it has no name.
  CommandType type() const { return header_ == nullptr ? CommandType::kOther : header_->line.type; }
  std::string_view name() const { return header_->line.text; }
  const Named& named() const { return *header_->named; }

  /// Null where it has none.
  // cppcheck-suppress CastIntegerToAddressAtReturn ; it takes the pointers for numbers
  const Line* find(Keyword keyword) const { return keywords_[static_cast<std::size_t>(keyword)]; }
  std::string_view value(Keyword keyword) const {
    const Line* const line = find(keyword);
    return line == nullptr ? std::string_view() : line->line.text;
  }
  std::optional<double> real(Keyword keyword) const {
    const Line* const line = find(keyword);
    if (line == nullptr || !line->line.isNumber) return std::nullopt;
    return line->line.number;
  }
  /// Those that can be read.
  Vertices vertices() const {
    Vertices vertices;
    vertices.reserve(vertices_.size());
    for (const Line* const line : vertices_) {
      if (line->line.isNumber) vertices.push_back(line->line.vertex);
    }
    return vertices;
  }

 private:
  const Line* header_ = nullptr;
  std::array<const Line*, kSingleKeywords> keywords_{};
  std::vector<const Line*> vertices_;
  bool open_ = false;  // its ".." is still to come
};

}  // namespace report
