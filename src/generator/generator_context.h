#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "core/fichero.h"
#include "generator/name_list.h"
#include "generator/table_file.h"
#include "typology/typology_record.h"

/// The generator's state: a stream editor over the template. It reads the template strictly
/// forward, one line at a time, copies every line to the output and, at the lines that matter,
/// writes computed ones instead. An operation that stops on a line leaves it in the current line,
/// unwritten, for its caller to replace or write.
///
/// One run, one context: construct, `prepare`, `generate`, destroy, which writes the output.
class GeneratorContext {
 public:
  /// Bytes of the longest template line.
  static constexpr std::size_t kLongestLine = 3000;

  /// Reads the template (*.bdl) and the table file (*.tbl) whole, opens the output, which empties
  /// it, and then interprets the table; an output that is the template itself is fine.
  GeneratorContext(const std::string& templatePath, const std::string& tablePath,
                   const std::string& outputPath);
  virtual ~GeneratorContext() = default;

  /// The template line last read; a view into the template.
  std::string_view currentLine() const { return currentLine_; }
  /// Its number, from 1.
  long currentLineNumber() const { return template_.lineNumber(); }
  /// Ends the run with a message about the template's line `number`.
  [[noreturn]] void failAtLine(long number, std::string_view what) const;

  void writeLine(std::string_view text);
  /// The same for the current line, whose bytes are taken from the template at the end.
  void writeCurrentLine();
  /// Writes "  KEYWORD = value " for a text, a number ("%d") or a real ("%f").
  void writeKeyword(std::string_view keyword, std::string_view value);
  void writeKeyword(std::string_view keyword, int value);
  void writeKeyword(std::string_view keyword, float value);
  /// `value` as "%f" writes it, for a line about `keyword`. NaN and infinities have no place in the
  /// output; the first one is remembered for `requireFiniteOutput`.
  std::string formatFinite(std::string_view keyword, float value);
  /// Ends the run when a real that was to be written is not finite. Asked at the very end, so that
  /// the checks on the plan, which such a number fails too, speak first.
  void requireFiniteOutput() const;

  /// The main loop: copies template lines, schedules rewritten, until one matches a name of
  /// `names`, which stays in the current line. False at the end of the template, with `match` as
  /// it was.
  bool findNextKey(const NameList& names, LineMatch& match);
  /// Copies template lines up to the header of the next command of `type`, which stays in the
  /// current line. The run ends when there is none.
  void copyUntilCommand(std::string_view type);
  /// Drops template lines until one matches a name or contains "----------"; that line stays in
  /// the current line and is lost unless the caller writes it.
  void skipUntilKey(const NameList& names);
  void copyRest();

  /// Emitters of the FLOOR and SPACE commands, called with the header in the current line.
  void rewriteFloor();
  void rewriteSpace();

  const TableFile& table() const { return table_; }
  const TypologyRecord& typology() const { return *typology_; }
  TypologyRecord& typology() { return *typology_; }
  void setTypology(std::unique_ptr<TypologyRecord> typology) { typology_ = std::move(typology); }

  // Sums over the table's surfaces, computed by `prepare`. No later step reads them.
  float meanSurfaceValue = 0;                    // per m2 of the flagged zones
  std::array<float, 8> wallAreaByOrientation{};  // m2, index as kOrientationNames
  std::array<float, 8> windowAreaByOrientation{};
  float kind2Area = 0;
  float kindMinus2Area = 0;

  /// The template's file name without folder and extension.
  const std::string& templateBaseName() const { return templateBaseName_; }

 private:
  bool readTemplateLine();
  void writeSchedule();

  fichero template_;
  fichero tableFile_;
  fichero output_;
  TableFile table_;
  std::string templateBaseName_;
  std::unique_ptr<TypologyRecord> typology_;
  std::string_view currentLine_;
  std::string notFiniteKeyword_;  // the first keyword with a NaN or an infinity, and its value
  float notFiniteValue_ = 0;
};
