#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "generator/table_file.h"
#include "report/building_lines.h"
#include "typology/facade.h"

/// What reading a building back needs of its template. It is found out once, however many buildings
/// of that template are read.
namespace report {

/// What a template and its table know under a name.
struct Named {
  const Surface* surface = nullptr;
  const Zone* zone = nullptr;
  int window = -1;  // index into the template's windows
};

/// A window of the template.
struct OriginalWindow {
  bool storeyHigh = false;  // takes the courtyard's data
  // Where it is missed, should a run remove it. The table says which way it looks.
  bool looksOut = false;
  bool courtyard = false;
  Facade side = kSouth;
};

class OriginalBuilding {
 public:
  /// A line of the template that says something.
  struct Line {
    std::size_t begin = 0;  // in the text
    BuildingLine line;
    const Named* named = nullptr;  // of a header
  };

  /// `text`: the template's; it and the table must outlive this object.
  OriginalBuilding(std::string_view text, const TableFile& table);
  OriginalBuilding(const OriginalBuilding&) = delete;
  OriginalBuilding& operator=(const OriginalBuilding&) = delete;

  const Named& named(std::string_view name) const;
  const std::vector<OriginalWindow>& windows() const { return windows_; }
  std::string_view text() const { return text_; }
  /// In the order of the text.
  const std::vector<Line>& lines() const { return lines_; }

 private:
  void addWindows();

  std::string_view text_;
  std::unordered_map<std::string_view, Named> names_;
  std::vector<OriginalWindow> windows_;
  std::vector<Line> lines_;
};

/// Gives `take` each line of `text`, with where it begins.
template <typename Take>
void forEachLine(std::string_view text, const Take& take) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    take(begin, text.substr(begin, end - begin));
    begin = end + 1;
  }
}

}  // namespace report
