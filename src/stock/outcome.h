#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fault.h"
#include "report/measures.h"

namespace stock {

enum class State {
  kCorrecta,   // its output is in place
  kRechazada,  // the run, or the row itself, refuses the inputs
  kFallida     // disk or memory: nothing is said about the inputs
};

std::string_view wordOf(State state);

/// What a results row says of a building.
struct BuildingMeasures {
  int tipo = 0;
  report::Measures measures;
};

/// What became of one row of a list.
struct Outcome {
  std::string id;
  State state = State::kFallida;
  std::string code;     // why it is not correct
  std::string message;  // bytes as cp1252::toUtf8 reads them
  std::optional<Place> place;
  std::string notes;   // codes, separated by blanks
  std::string output;  // from the folder of the results; empty: none
  std::optional<BuildingMeasures> measures;
  std::string fingerprint;  // of all that the outcome depends on; empty: never to be relied on
};

/// The columns that a results file is known and resumed by.
enum ResultColumn {
  kResultId,
  kResultState,
  kResultCode,
  kResultMessage,
  kResultPlace,
  kResultNotes,
  kResultOutput
};

/// The heading and the rows of a results file: UTF-8, ";", decimal comma, CR LF. A cell holds no
/// line end, so that a row is a line.
std::string resultsHeading();
std::string resultsRow(const Outcome& outcome, std::string_view version);

/// The cells of such a line, its CR LF left out; nothing when it is none of ours.
std::optional<std::vector<std::string>> cellsOf(std::string_view line);
/// The index of a column among the cells, by its heading.
std::size_t resultColumn(std::string_view heading);
/// That of the fingerprint.
std::size_t fingerprintColumn();

}  // namespace stock
