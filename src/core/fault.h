#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// The caption of every message that ends a run.
inline constexpr std::string_view kErrorCaption = "Se ha producido un error";

/// The messages of what no check foresees: the second is followed by what was thrown.
inline constexpr std::string_view kNoMemory = "No hay memoria suficiente";
inline constexpr std::string_view kUnexpected = "Error inesperado: ";

/// Where in an input something is wrong: a file, and in it a span of one line.
struct Place {
  std::string file;        // its path as given
  long line = 0;           // from 1; 0: the file as a whole
  long column = 0;         // from 1, in bytes
  std::size_t length = 0;  // bytes of the span; 0: a point
  std::string text;        // the whole line, without its line end
};

/// The place that is the file `name` as a whole.
inline Place wholeFile(std::string name) { return {.file = std::move(name), .text = {}}; }

/// What ends a run: a message, the words alone, and where its cause stands, if it stands anywhere.
struct Fault {
  std::string message;
  std::optional<Place> place;
};

/// "casa.tip:5:18: AREA-PLANTA = 72,9": the place and its line, without leading blanks and cut to
/// what a terminal shows well. Empty where there is no line to show.
std::string asOneLine(const Place& place);
