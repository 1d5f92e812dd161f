#pragma once

#include <string_view>
#include <vector>

#include "core/output_lines.h"
#include "generator/own_pieces.h"

class GeneratorContext;
struct Plan;

/// Whether a window looks into the courtyard and not into the street. Templates say so with "Med",
/// anywhere in its name.
inline bool looksIntoCourtyard(std::string_view name) {
  return name.find("Med") != std::string_view::npos;
}

/// Height of a window that is lower than a storey in the template, m, unless it would be too wide.
inline constexpr float kWindowHeight = 1.2F;

/// Size and place of a window in its bay, m.
struct WindowSize {
  float x = 0;
  float y = 0;
  float width = 0;
  float height = 0;
};

/// Sizes a window of `percentage` % of a bay of `bayArea` m2 and one storey's height. A window
/// keeps `templateHeight` from 3 m on and else takes 1.2 m; one too wide for its bay is as wide as
/// the bay and grows in height, up to the storey, where it loses area. Computed in 32-bit reals
/// throughout.
WindowSize sizeWindow(float percentage, float bayArea, float templateHeight);

/// Writes the windows of a building, sized for the bays of `plan`; both must outlive it.
class WindowEmitter {
 public:
  WindowEmitter(GeneratorContext& context, const Plan& plan) : context_(context), plan_(plan) {}

  /// Rewrites a WINDOW command, or removes it where its façade has no glazing. Called with the
  /// header in the current line. `surfaceIndex` is its row in the table; `courtyard` says that the
  /// window looks into the courtyard. Errors: a window in a roof or floor; a façade without bays,
  /// with the number of the header's line.
  void emit(int orientationClass, int surfaceIndex, bool courtyard);

 private:
  /// What windows of one size are given; the next of them gets the same lines.
  struct Written {
    OwnPiece piece;
    OutputLines::Mark from, to;
  };

  bool writeAgain(const OwnPiece& piece);

  GeneratorContext& context_;
  const Plan& plan_;
  std::vector<Written> written_;
};
