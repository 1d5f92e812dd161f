#pragma once

#include <memory>
#include <string>
#include <vector>

#include "generator/building_forms.h"
#include "report/generated_building.h"
#include "report/original_building.h"
#include "report/read_command.h"

namespace report {

/// Reads buildings of one form back. Which commands there are, and in which lines their values
/// stand, is found out for the first of them; of the next ones the pieces are read that are not as
/// they were. One thread.
class FormReader {
 public:
  /// `original`: of the template of the form; it must outlive this object.
  FormReader(std::shared_ptr<const BuildingForm> form, const OriginalBuilding& original);
  FormReader(const FormReader&) = delete;
  FormReader& operator=(const FormReader&) = delete;

  /// See readBuilding. `pieces`: of a building of the form; `plan`: its typology's. Names are left
  /// out.
  GeneratedBuilding read(const WrittenPieces& pieces, const Plan& plan);

 private:
  using Line = OriginalBuilding::Line;
  struct Piece {
    std::string text;
    std::vector<Line> lines;  // of `text`; commands point to them
  };
  bool readPiece(std::string_view text, Piece& piece) const;
  void findCommands();
  const std::vector<Bay>& baysOf(const Plan& plan);

  std::shared_ptr<const BuildingForm> form_;
  const OriginalBuilding& original_;
  std::vector<Piece> pieces_;
  bool known_ = false;                 // what follows, up to the plan
  std::vector<ReadCommand> commands_;  // that a building is read from
  std::vector<bool> windowsSeen_;
  Plan plan_;  // of the last building
  std::vector<Bay> bays_;
};

}  // namespace report
