#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/line_reader.h"
#include "core/output_lines.h"
#include "core/report_error.h"
#include "generator/name_list.h"
#include "generator/template.h"
#include "typology/typology_record.h"

/// The generator's state: a stream editor over the template. It reads the template strictly
/// forward, one line at a time, copies every line to the output and, at the lines that matter,
/// writes computed ones instead. An operation that stops on a line leaves it in the current line,
/// unwritten, for its caller to replace or write.
///
/// One run, one context. What it is made of must outlive it, and the template the output too.
class GeneratorContext {
 public:
  /// Bytes of the longest template line.
  static constexpr std::size_t kLongestLine = 3000;

  GeneratorContext(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
                   FaultSink faults = endRunWith);
  virtual ~GeneratorContext() = default;

  const Template& plantilla() const { return template_; }
  const TypologyRecord& typology() const { return typology_; }

  /// The template line last read; a view into the template.
  std::string_view currentLine() const { return currentLine_; }
  /// Its number, from 1, and where it stands.
  long currentLineNumber() const { return reader_.lineNumber(); }
  Span currentSpan() const { return reader_.span(); }
  /// Reports a fault at `span` of the template. Who calls it goes on, for a sink that comes back.
  void report(std::string message, Span span) const;
  /// The same with a message that names the file and the line `number`.
  void reportAtLine(long number, Span span, std::string_view what) const;

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
  /// Reports a real that was to be written and is not finite. Asked at the very end, so that the
  /// checks on the plan, which such a number fails too, speak first.
  void requireFiniteOutput() const;

  /// The main loop: copies template lines, schedules rewritten, until one matches a name of
  /// `names`, which stays in the current line. False at the end of the template, with `match` as
  /// it was.
  bool findNextKey(const NameList& names, LineMatch& match);
  /// The same until the line ".." that ends a command: what matches before it is dropped. `names`
  /// holds the keywords to drop and, at the index `end`, "..". `seen` is shown each dropped line.
  template <typename Seen>
  void dropKeysUntil(int end, const NameList& names, const Seen& seen);
  void dropKeysUntil(int end, const NameList& names) {
    dropKeysUntil(end, names, [](const LineMatch&) {});
  }
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

 private:
  bool readTemplateLine();
  void writeSchedule();

  const Template& template_;
  const TypologyRecord& typology_;
  OutputLines& output_;
  FaultSink faults_;
  LineReader reader_;
  std::string_view currentLine_;
  std::string notFiniteKeyword_;  // the first keyword with a NaN or an infinity, and its value
  float notFiniteValue_ = 0;
};

template <typename Seen>
void GeneratorContext::dropKeysUntil(int end, const NameList& names, const Seen& seen) {
  LineMatch match;
  while (findNextKey(names, match) && match.index != end) seen(match);
}
