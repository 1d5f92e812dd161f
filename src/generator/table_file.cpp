#include "generator/table_file.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "core/cp1252.h"
#include "core/line_reader.h"
#include "core/numbers.h"
#include "core/report_error.h"
#include "core/source_text.h"

namespace {

/// The lines of a table, and the one way in which they are wrong.
class TableLines {
 public:
  TableLines(const SourceText& text, const FaultSink& faults)
      : text_(text), faults_(faults), reader_(text.bytes()) {}

  long count() const { return reader_.lineCount(); }
  std::string_view next() {
    std::string_view line;
    reader_.ReadLine(line);
    return line;
  }
  /// Unless `ok`, reports what is wrong with the line last handed out.
  bool require(bool ok, std::string_view what) {
    if (!ok) report(reader_.lineNumber(), reader_.span(), what);
    return ok;
  }
  /// The same with what is left of that line, whose first word is wrong.
  bool require(bool ok, std::string_view left, std::string_view what) {
    if (!ok) report(reader_.lineNumber(), firstWordOf(left), what);
    return ok;
  }
  /// The same for a file that does not have as many lines.
  bool requireLines(long long announced) const {
    const bool ok = announced <= count();
    constexpr auto kWhat = "el fichero tiene menos líneas de las anunciadas"_cp1252;
    if (!ok) faults_({errorInFile(text_.name(), count(), kWhat), text_.lastLine()});
    return ok;
  }

 private:
  void report(long line, Span span, std::string_view what) {
    if (!lines_) lines_.emplace(text_);  // each line of a table may be wrong
    faults_({errorInFile(text_.name(), line, what), lines_->placeOf(span)});
  }

  /// A point at the line's end where no word is left.
  Span firstWordOf(std::string_view left) const {
    constexpr std::string_view kBlanks = " \t\r\v\f";
    left.remove_prefix(std::min(left.find_first_not_of(kBlanks), left.size()));
    const auto begin = static_cast<std::size_t>(left.data() - text_.bytes().data());
    return {begin, begin + std::min(left.find_first_of(kBlanks), left.size())};
  }

  const SourceText& text_;
  const FaultSink& faults_;
  LineReader reader_;
  std::optional<LineIndex> lines_;
};

/// Reads a count from the start of `line`; one that is missing or negative stays there.
bool readCount(std::string_view& line, int& count) {
  std::string_view behind = line;
  if (!scanInteger(behind, count) || count < 0) return false;
  line = behind;
  return true;
}

std::string_view readName(TableLines& lines) {
  const std::string_view line = lines.next();
  lines.require(line.size() < kTableNameCapacity, "el nombre es demasiado largo");
  return line;
}

Surface readSurface(TableLines& lines) {
  Surface surface;
  surface.name = readName(lines);
  std::string_view line = lines.next();
  const bool complete = scanReal(line, surface.area) && scanReal(line, surface.column2) &&
                        scanReal(line, surface.value) && scanReal(line, surface.column4) &&
                        scanReal(line, surface.column5) && scanReal(line, surface.azimuth) &&
                        scanReal(line, surface.tilt) && scanInteger(line, surface.kind);
  lines.require(complete, line,
                "los datos de una superficie deben ser siete números reales y su clase"_cp1252);
  if (scanInteger(line, surface.pair[0])) scanInteger(line, surface.pair[1]);
  return surface;
}

Zone readZone(TableLines& lines) {
  Zone zone;
  zone.name = readName(lines);
  std::string_view line = lines.next();
  if (scanInteger(line, zone.number) && scanInteger(line, zone.flag) && scanReal(line, zone.area)) {
    scanReal(line, zone.value);
  }
  return zone;
}

}  // namespace

TableFile readTableFile(const SourceText& text, const FaultSink& faults) {
  TableLines lines(text, faults);
  if (!lines.requireLines(kTableHeaderLines)) return {};
  std::string_view line;
  for (int i = 0; i < kTableHeaderLines; ++i) line = lines.next();
  int surfaceCount = 0;
  int zoneCount = 0;
  const bool counted = readCount(line, surfaceCount) && readCount(line, zoneCount);
  if (!lines.require(counted, line,
                     "debe contener el número de superficies y el de zonas"_cp1252) ||
      !lines.requireLines(kTableHeaderLines + 2LL * surfaceCount + 2LL * zoneCount)) {
    return {};
  }

  TableFile table;
  table.surfaces.reserve(static_cast<std::size_t>(surfaceCount));
  for (int i = 0; i < surfaceCount; ++i) table.surfaces.push_back(readSurface(lines));
  table.zones.reserve(static_cast<std::size_t>(zoneCount));
  for (int i = 0; i < zoneCount; ++i) {
    const Zone& zone = table.zones.emplace_back(readZone(lines));
    if (zone.flag != 0) {
      table.zoneMean += zone.value * zone.area;
      table.zoneAreaSum += zone.area;
    } else {
      ++table.zonesWithoutFlag;
    }
  }
  table.zoneMean = table.zoneAreaSum != 0 ? table.zoneMean / table.zoneAreaSum : 0;
  return table;
}
