#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/output_lines.h"
#include "core/report_error.h"
#include "generator/keyword_lines.h"
#include "generator/line_meanings.h"
#include "generator/own_pieces.h"
#include "generator/template.h"
#include "generator/template_walk.h"
#include "typology/typology_record.h"

/// A piece of an output, and the place in front of it.
struct BegunPiece {
  OwnPiece piece;
  OutputLines::Mark at;
};

/// The generator's state: a stream editor over the template. It reads the template strictly
/// forward, copies every line to the output and, at the lines that matter, writes computed ones
/// instead; lines between those are copied on end (see template_walk.h). An operation that stops on
/// a line leaves it in the current line, unwritten, for its caller to replace or write.
///
/// One run, one context. What it is made of must outlive it, and the template the output too.
class GeneratorContext {
 public:
  GeneratorContext(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
                   FaultSink faults = endRunWith);
  /// The same for one who wants to know where in the output each piece begins.
  GeneratorContext(const Template& plantilla, const TypologyRecord& typology, OutputLines& output,
                   std::vector<BegunPiece>* pieces);
  virtual ~GeneratorContext() = default;

  const Template& plantilla() const { return template_; }
  const TypologyRecord& typology() const { return typology_; }

  /// The template line last read; a view into `plantilla().copiedText()`.
  std::string_view currentLine() const { return walk_.line(); }
  /// See line_meanings.h.
  bool isSurfaceCommand() const { return walk_.isSurfaceCommand(); }
  /// Its number, from 1: where to look, in a fault about it.
  long currentLineNumber() const { return walk_.number(); }
  /// Reports a fault at line `number` of the template. Who calls it goes on, for a sink that comes
  /// back.
  void report(std::string message, long number);
  /// The same with a message that names the file and the line.
  void reportAtLine(long number, std::string_view what);

  /// Writes a piece that follows from the typology alone; or from its plan, too.
  void write(const OwnPiece& piece) {
    begin(piece);
    writePiece(piece, typology_, lines_);
  }
  void write(const OwnPiece& piece, const Plan& plan) {
    begin(piece);
    writePiece(piece, typology_, plan, lines_);
  }
  /// Says that the lines which follow are a piece.
  void begin(const OwnPiece& piece) {
    if (pieces_ != nullptr) pieces_->push_back({piece, mark()});
  }
  KeywordLines& lines() { return lines_; }
  /// The place behind the last line written.
  OutputLines::Mark mark() const { return output_.mark(); }
  /// Writes what stands between two such places once more; false where it no longer fits.
  bool writeAgain(const OutputLines::Mark& from, const OutputLines::Mark& to) {
    return output_.WriteAgain(from, to);
  }
  /// Writes the current line, whose bytes are taken from the template at the end.
  void writeCurrentLine();
  /// Reports a real that was to be written and is not finite. Asked at the very end, so that the
  /// checks on the plan, which such a number fails too, speak first.
  void requireFiniteOutput() const;

  /// The main loop: copies template lines, schedules rewritten, until one matches a name of
  /// `names`, which stays in the current line. False at the end of the template, with `match` as
  /// it was.
  bool findNextKey(EmitterNames names, LineMatch& match);
  /// The same for the names of the rewritten commands.
  bool findNextCommand(LineMatch& match);
  /// The same until the line ".." that ends a command: what matches before it is dropped. `names`
  /// holds the keywords to drop and, at the index `end`, "..". Returns the last height above 0 that
  /// a dropped line gave; 0 when none did.
  float dropKeysUntil(int end, EmitterNames names);
  /// The same for the vertices V1 to Vn of a polygon; those with a higher number are copied.
  void dropVerticesUntilEnd(int n);
  /// Copies template lines up to the header of the next command of `type`, one of kSoughtTypes,
  /// which stays in the current line. The run ends when there is none.
  void copyUntilCommand(std::string_view type);
  /// Drops template lines until one matches a name or contains "----------"; that line stays in
  /// the current line and is lost unless the caller writes it.
  void skipUntilKey(EmitterNames names);
  void copyRest();

  /// Emitters of the FLOOR and SPACE commands, called with the header in the current line.
  void rewriteFloor();
  void rewriteSpace();

 private:
  enum class Passed { kCopied, kDropped };
  bool readTemplateLine(Passed passed) { return take(walk_.next(), passed); }
  bool take(bool read, Passed passed);
  bool readCommandLine() { return take(walk_.nextCommand(), Passed::kCopied); }
  template <typename Read, typename Stops>
  bool copyUntil(const Read& read, const Stops& stops);
  template <typename Stops>
  bool copyUntil(const Stops& stops);
  const Template& template_;
  const TypologyRecord& typology_;
  OutputLines& output_;
  FaultSink faults_;
  TemplatePlaces places_;
  TemplateWalk walk_;
  KeywordLines lines_;
  std::vector<BegunPiece>* pieces_ = nullptr;  // null: nobody asks
};
