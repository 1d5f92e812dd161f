#include "report/form_reader.h"

#include <algorithm>
#include <utility>

#include "report/building_reader.h"

namespace report {

namespace {

using Line = OriginalBuilding::Line;

/// Whether two lines are the same to whoever puts commands together, whatever their values.
bool areAlike(const Line& a, const Line& b) {
  using Kind = BuildingLine::Kind;
  if (a.line.kind != b.line.kind || a.line.kind == Kind::kHeader) return false;
  return a.line.kind == Kind::kEnd || a.line.keyword == b.line.keyword;
}

}  // namespace

FormReader::FormReader(std::shared_ptr<const BuildingForm> form, const OriginalBuilding& original)
    : form_(std::move(form)), original_(original), pieces_(form_->pieces().size()) {}

GeneratedBuilding FormReader::read(const WrittenPieces& pieces, const Plan& plan) {
  bool known = known_;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    // The typology's own text is none of the building's.
    const bool ofBuilding = form_->pieces()[i].kind != OwnPiece::Kind::kTypology;
    if (ofBuilding && pieces.at(i) != pieces_[i].text) known &= readPiece(pieces.at(i), pieces_[i]);
  }
  if (!known) findCommands();
  BuildingReader reader(original_, plan, baysOf(plan), Names::kLeftOut);
  for (const ReadCommand& command : commands_) reader.take(command);
  return reader.finish(windowsSeen_);
}

/// False where its lines are others than before, so that commands are no longer what they were.
bool FormReader::readPiece(std::string_view text, Piece& piece) const {
  piece.text = text;
  std::vector<Line> lines = original_.linesOf(piece.text);
  const bool alike = std::ranges::equal(lines, piece.lines, areAlike);
  if (alike) {
    std::ranges::copy(lines, piece.lines.begin());  // to where commands point
  } else {
    piece.lines = std::move(lines);
  }
  return alike;
}

void FormReader::findCommands() {
  commands_.clear();
  CommandReader reader(original_, [this](const ReadCommand& c) { commands_.push_back(c); });
  for (const BuildingForm::Part& part : form_->parts()) {
    if (part.piece != BuildingForm::kNoPiece) {
      for (const Line& line : pieces_[part.piece].lines) reader.take(line);
    }
    if (!part.copied.empty()) reader.takeCopied(part.copied);
  }
  reader.finish();
  windowsSeen_ = reader.windowsSeen();
  known_ = true;
}

/// Those of the last plan, where it is the same: only the position of its edges matters to them.
const std::vector<Bay>& FormReader::baysOf(const Plan& plan) {
  const bool same = plan.outlines == plan_.outlines &&
                    plan.edgeCourtyards == plan_.edgeCourtyards &&
                    plan.numHuecosPatio == plan_.numHuecosPatio;
  if (!same) {
    bays_ = bays(PlanCells(plan));
    plan_ = plan;
  }
  return bays_;
}

}  // namespace report
