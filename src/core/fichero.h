#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "core/line_reader.h"
#include "core/open_file.h"
#include "core/output_lines.h"
#include "core/source_text.h"

/// The thin layer between paths and texts: a line-oriented text file, opened for its whole life in
/// one of two modes, named by their words. "lectura" reads the file whole at construction and hands
/// it out line by line, or as the text that it is; "escritura" collects lines and writes them all
/// when asked to.
///
/// Errors end the run: a file that cannot be opened, a wrong mode, a NUL byte in an input, a write
/// that fails. An output that nobody asked to write stays as the opening left it, empty: so does
/// that of a run that ends before.
class fichero {
 public:
  fichero(std::string name, std::string_view mode);
  virtual ~fichero() = default;
  fichero(const fichero&) = delete;
  fichero& operator=(const fichero&) = delete;

  /// See LineReader.
  bool ReadLine(std::string_view& dest);
  /// See OutputLines.
  template <typename... Parts>
  bool WriteLine(const Parts&... parts) {
    return lines().WriteLine(parts...);
  }

  /// The text of a file that was read, moved out: once, and instead of reading lines.
  SourceText takeText();
  /// The lines that will be written.
  OutputLines& lines();
  /// Writes all lines and closes the file: the last thing that is done with it.
  void save();

 private:
  static SourceText readWhole(const std::string& name, std::FILE* stream);

  std::string name_;
  OpenedFile stream_;                 // of an output
  std::optional<SourceText> text_;    // of an input
  std::optional<LineReader> reader_;  // of its lines
  std::optional<OutputLines> lines_;  // of an output
};
