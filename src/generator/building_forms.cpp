#include "generator/building_forms.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "generator/generation_sequence.h"
#include "plan/plan_numbers.h"

void WrittenPieces::clear() {
  lines_.clear();
  keywords_ = KeywordLines(lines_);
  ends_.clear();
}

BuildingForm::BuildingForm(const OutputLines& output, std::span<const BegunPiece> pieces) {
  std::size_t ownEnd = 0;
  auto next = pieces.begin();
  output.handOver([&](std::string_view lines, OutputLines::Origin origin) {
    if (origin == OutputLines::Origin::kCopied) {
      if (parts_.empty() || !parts_.back().copied.empty()) parts_.emplace_back();
      parts_.back().copied = lines;
      copiedBytes_ += lines.size();
    } else {
      ownEnd += lines.size();
      for (; next != pieces.end() && next->at.bytes < ownEnd; ++next) {
        parts_.push_back({.piece = indexOf(next->piece)});
        ++times_[parts_.back().piece];
      }
    }
    return true;
  });
}

std::size_t BuildingForm::indexOf(const OwnPiece& piece) {
  const auto known = std::ranges::find(pieces_, piece);
  const auto index = static_cast<std::size_t>(known - pieces_.begin());
  if (known == pieces_.end()) {
    pieces_.push_back(piece);
    times_.push_back(0);
  }
  return index;
}

bool BuildingForm::write(const TypologyRecord& typology, const Plan& plan,
                         WrittenPieces& written) const {
  written.clear();
  for (const OwnPiece& piece : pieces_) {
    const bool window = piece.kind == OwnPiece::Kind::kWindow;
    if (window && baysOf(piece, typology, plan).count == 0) return false;
    writePiece(piece, typology, plan, written.lines());
    written.endPiece();
  }
  return !written.lines().notFinite();
}

void BuildingForm::copyTo(const WrittenPieces& written, std::string& text) const {
  std::vector<std::string_view> pieces(pieces_.size());
  std::size_t size = copiedBytes_;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    pieces[i] = written.at(i);
    size += times_[i] * pieces[i].size();
  }
  text.resize(size);  // what was there is written over
  char* end = text.data();
  for (const Part& part : parts_) {
    if (part.piece != kNoPiece) end += pieces[part.piece].copy(end, std::string_view::npos);
    end += part.copied.copy(end, std::string_view::npos);
  }
}

BuildingForms::Key BuildingForms::keyOf(const TypologyRecord& typology, const Plan& plan) {
  // A floor's MULTIPLIER is written for more than one repeated storey. How many there are matters
  // to the lines only where the floor's command ends with it.
  const int repeated = std::clamp(repeatedStoreys(typology), 1, kFloorEnd + 1);
  Key key = {typology.tipo, repeated, typology.airChangesHr > 0 ? 1 : 0};
  key.reserve(32);
  for (const auto* percentages : {&typology.porcentajeFachada, &typology.porcentajePatio}) {
    for (const float percentage : *percentages) key.push_back(percentage > 0 ? 1 : 0);
  }
  for (const Outline& outline : plan.outlines) {
    key.push_back(static_cast<int>(outline.vertices.size()));
  }
  return key;
}

std::shared_ptr<const BuildingForm> BuildingForms::generate(const TypologyRecord& typology,
                                                            WrittenPieces& written,
                                                            OutputLines& output) {
  output.clear();
  plan_ = planTipologia(planDataOf(typology));
  const Plan* const plan = this->plan();
  if (plan == nullptr || template_.stops() == nullptr) {
    ::generate(template_, typology, output);
    return nullptr;
  }
  Key key = keyOf(typology, *plan);
  if (const auto known = forms_.find(key); known != forms_.end()) {
    if (known->second->write(typology, *plan, written)) return known->second;
  }
  std::vector<BegunPiece> pieces;
  ::generate(template_, typology, output, &pieces);
  if (output.count() >= OutputLines::kCapacity) return nullptr;
  auto form = std::make_shared<const BuildingForm>(output, pieces);
  if (!form->write(typology, *plan, written)) return nullptr;
  if (forms_.size() >= kMost || parts_ + form->parts().size() > kMostParts) {
    forms_.clear();
    parts_ = 0;
  }
  parts_ += form->parts().size();
  forms_.insert_or_assign(std::move(key), form);
  return form;
}

bool BuildingForms::keeps(const BuildingForm& form) const {
  return std::ranges::any_of(forms_, [&](const auto& kept) { return kept.second.get() == &form; });
}
