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
  int window = -1;   // index into the template's windows
  int polygon = -1;  // number among the template's polygons
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
  /// A line that says something, of the template or of a building made of it.
  struct Line {
    std::size_t begin = 0;  // in the text
    BuildingLine line;
    const Named* named = nullptr;  // what a header or a POLYGON keyword names
  };

  /// `text`: the template's; it and the table must outlive this object.
  OriginalBuilding(std::string_view text, const TableFile& table);
  OriginalBuilding(const OriginalBuilding&) = delete;
  OriginalBuilding& operator=(const OriginalBuilding&) = delete;

  const std::vector<OriginalWindow>& windows() const { return windows_; }
  std::size_t polygons() const { return polygons_; }
  std::size_t surfaces() const { return surfaces_; }
  std::string_view text() const { return text_; }
  /// In the order of the text.
  const std::vector<Line>& lines() const { return lines_; }
  /// The lines of a text that was made of the template.
  std::vector<Line> linesOf(std::string_view text) const;

 private:
  void addNames();
  void addWindows();
  const Named& named(std::string_view name) const;
  void findNamed(Line& line) const;

  std::string_view text_;
  std::unordered_map<std::string_view, Named> names_;
  std::vector<OriginalWindow> windows_;
  std::size_t polygons_ = 0;  // of different names
  std::size_t surfaces_ = 0;  // commands
  std::vector<Line> lines_;
};

}  // namespace report
