#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/written_typology.h"

/// A typology file without anything to say about it: a block with courtyards in its façades. Each
/// keyword of VIVIENDA is one line, which a test changes: lineOf("TIPO") is where it stands.
class WrittenFile14 {
 public:
  WrittenFile14();

  /// Gives the line of `keyword` another text; "" takes it out.
  WrittenFile14& with(std::string_view keyword, std::string_view line);
  /// A line before that of `keyword`.
  WrittenFile14& before(std::string_view keyword, std::string_view line);
  /// Behind the last command.
  WrittenFile14& behind(std::string_view text);
  WrittenFile14& lineEnd(std::string_view text);

  std::string text() const;
  /// From 1; of the first line that was put in the keyword's place.
  long lineOf(std::string_view keyword) const;

 private:
  using Lines = std::vector<std::pair<std::string, std::string>>;  // keyword or command, line
  /// The line of `keyword`; the test fails where there is none.
  Lines::iterator find(std::string_view keyword);

  Lines lines_;
  std::string behind_;
  std::string lineEnd_ = "\n";
};

/// What both readings of a text give; errors of the run are let be.
Findings findingsOf(std::string_view text, std::span<const std::string> framesOfTemplate = {});
/// Without the notes.
Findings warningsOf(std::string_view text);

/// One line a finding: "5:18+4 coma-decimal [72,9] -> [72] (72.9) El valor ...", in UTF-8.
std::string asLines(const Findings& findings);

/// One planted fault. `line` replaces that of `keyword`; column and length are of the span in it,
/// which may stand `below` lines further down.
struct Planted {
  const char* why;
  std::string_view keyword, line;
  Code code;
  long column;
  std::size_t length;
  std::string_view found, used, suggestion;
  long below = 0;
};
/// That a finding is exactly this one; and that no other warning is given, but of `besides`.
void expectPlanted(const Planted& planted, std::vector<Code> besides = {});
