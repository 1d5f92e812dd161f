#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/output_lines.h"
#include "generator/generator_context.h"
#include "generator/own_pieces.h"
#include "generator/template.h"
#include "plan/plan.h"

/// The own pieces of one building, in the order of its form.
class WrittenPieces {
 public:
  WrittenPieces() = default;
  WrittenPieces(const WrittenPieces&) = delete;
  WrittenPieces& operator=(const WrittenPieces&) = delete;

  void clear();
  KeywordLines& lines() { return keywords_; }
  /// What has been written since the last one is a piece.
  void endPiece() { ends_.push_back(lines_.mark()); }
  std::string_view at(std::size_t piece) const {
    return lines_.written(piece == 0 ? OutputLines::Mark{} : ends_[piece - 1], ends_[piece]);
  }

 private:
  OutputLines lines_;
  KeywordLines keywords_{lines_};
  std::vector<OutputLines::Mark> ends_;
};

/// What buildings of a template have in common that differ in nothing but what their own pieces
/// say: which of the template's lines are copied, and what stands between them.
class BuildingForm {
 public:
  static constexpr std::size_t kNoPiece = static_cast<std::size_t>(-1);
  /// A piece, or none, and lines of the template behind it, or none.
  struct Part {
    std::size_t piece = kNoPiece;  // index
    std::string_view copied = {};
  };

  /// `output`: of one of them; `pieces`: where in it each begins.
  BuildingForm(const OutputLines& output, std::span<const BegunPiece> pieces);

  /// Each once, however often it is there.
  const std::vector<OwnPiece>& pieces() const { return pieces_; }
  /// The whole building.
  const std::vector<Part>& parts() const { return parts_; }

  /// Writes the pieces of another one of them. False where its generation would end with a fault.
  bool write(const TypologyRecord& typology, const Plan& plan, WrittenPieces& written) const;
  /// Puts the whole building together, in a text that may have the room from before.
  void copyTo(const WrittenPieces& written, std::string& text) const;

 private:
  std::size_t indexOf(const OwnPiece& piece);

  std::vector<OwnPiece> pieces_;
  std::vector<std::size_t> times_;  // that each piece is there
  std::vector<Part> parts_;
  std::size_t copiedBytes_ = 0;
};

/// Generates buildings of one template, and finds out only once for those of a form what they are
/// put together of. One thread.
class BuildingForms {
 public:
  /// Forms that are kept, and parts that they have, of which each takes some ten bytes; above it
  /// all are forgotten.
  static constexpr std::size_t kMost = 32;
  static constexpr std::size_t kMostParts = 500'000;

  /// `plantilla` must outlive this object, all forms and the outputs.
  explicit BuildingForms(const Template& plantilla) : template_(plantilla) {}

  /// The same as ::generate, which see. Gives the form of the building, whose pieces are then
  /// `written`; null where it has none: then it is in `output`.
  std::shared_ptr<const BuildingForm> generate(const TypologyRecord& typology,
                                               WrittenPieces& written, OutputLines& output);
  /// Whether it is one of those that are kept.
  bool keeps(const BuildingForm& form) const;
  /// That of the typology generated last; null where its numbers have none.
  const Plan* plan() const { return std::get_if<Plan>(&plan_); }

 private:
  /// All that a typology's form follows from.
  using Key = std::vector<int>;
  static Key keyOf(const TypologyRecord& typology, const Plan& plan);

  const Template& template_;
  PlanResult plan_;
  std::map<Key, std::shared_ptr<const BuildingForm>> forms_;
  std::size_t parts_ = 0;  // of all of them
};
