#include "report/generated_building.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "core/output_lines.h"
#include "report/building_reader.h"

namespace report {

namespace {

/// The first hourly value of the schedule that the run rewrote.
double nightFactorOf(const std::vector<WrittenCommand>& original,
                     const std::vector<WrittenCommand>& written) {
  std::unordered_map<std::string_view, std::string_view> before;
  for (const WrittenCommand& command : original) before.try_emplace(command.name, command.text);
  for (const WrittenCommand& command : written) {
    const auto found = before.find(command.name);
    if (command.type != "DAY-SCHEDULE" || found == before.end() || found->second == command.text) {
      continue;
    }
    const std::string_view values = command.value("VALUES");
    const std::size_t open = values.find('(');
    WrittenCommand first;
    if (open != values.npos) first.keywords = {{"first", trimmed(values.substr(open + 1))}};
    return first.real("first").value_or(0);
  }
  return 0;
}

/// A run puts the typology's text behind the building, and a line feed behind that.
std::string_view withoutTypology(std::string_view output, std::string_view typologyText) {
  if (output.ends_with('\n')) output.remove_suffix(1);
  if (output.ends_with(typologyText)) output.remove_suffix(typologyText.size());
  return output;
}

/// Reads lines that a run put together, and those of the template between them.
class OutputReader {
 public:
  OutputReader(const OriginalBuilding& original, const Plan& plan, Names names)
      : original_(original), building_(original, plan, bays(PlanCells(plan)), names) {}

  /// Lines that the run has put together. Many pieces are there again and again, and read once.
  void readText(std::string_view text) {
    if (text.empty()) return;
    const auto [known, isNew] = pieces_.try_emplace(text);
    if (isNew) known->second = original_.linesOf(text);
    for (const OriginalBuilding::Line& line : known->second) commands_.take(line);
  }
  void readCopied(std::string_view lines) { commands_.takeCopied(lines); }

  GeneratedBuilding finish() {
    commands_.finish();
    return building_.finish(commands_.windowsSeen());
  }

 private:
  const OriginalBuilding& original_;
  BuildingReader building_;
  CommandReader commands_{original_, [this](const ReadCommand& c) { building_.take(c); }};
  std::unordered_map<std::string_view, std::vector<OriginalBuilding::Line>, TextHash> pieces_;
};

}  // namespace

bool GeneratedBuilding::followsPlan() const {
  return std::ranges::all_of(spaces, [](const WrittenSpace& space) { return space.outline >= 0; });
}

Count GeneratedBuilding::storeys() const {
  return std::accumulate(
      floors.begin(), floors.end(), Count{0},
      [](Count sum, const WrittenFloor& floor) { return sum + floor.multiplier; });
}

double GeneratedBuilding::height() const {
  return std::accumulate(floors.begin(), floors.end(), 0.0,
                         [](double sum, const WrittenFloor& floor) {
                           return sum + floor.height * static_cast<double>(floor.multiplier);
                         });
}

GeneratedBuilding readBuilding(const OutputLines& output, std::string_view typologyText,
                               const OriginalBuilding& original, const Plan& plan, Names names) {
  OutputReader reader(original, plan, names);
  output.handOver([&](std::string_view lines, OutputLines::Origin origin) {
    switch (origin) {
      case OutputLines::Origin::kCopied:
        reader.readCopied(lines);
        break;
      case OutputLines::Origin::kOwn:
        reader.readText(lines);
        break;
      case OutputLines::Origin::kOwnEnd:
        reader.readText(withoutTypology(lines, typologyText));
        break;
    }
    return true;
  });
  return reader.finish();
}

GeneratedBuilding readBuilding(std::string_view output, std::string_view typologyText,
                               std::string_view original, const TableFile& table,
                               const Plan& plan) {
  output = withoutTypology(output, typologyText);
  const OriginalBuilding known(original, table);
  OutputReader reader(known, plan, Names::kKept);
  reader.readText(output);
  GeneratedBuilding building = reader.finish();
  const std::vector<WrittenCommand> before = readCommands(original);
  const std::vector<WrittenCommand> after = readCommands(output);
  building.commands = countCommands(before, after);
  building.nightFactor = nightFactorOf(before, after);
  return building;
}

}  // namespace report
