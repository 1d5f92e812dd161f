#pragma once

#include <cstddef>
#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

/// A line-oriented text file, opened for its whole life in one of two modes, named by their words:
/// "lectura" reads the file whole at construction and hands it out line by line; "escritura"
/// collects lines and writes them all when the object is destroyed.
///
/// Errors end the run: a file that cannot be opened, a wrong mode, a NUL byte in an input, a write
/// that fails. A run that ends while the object lives leaves its output file empty.
class fichero {
 public:
  /// Lines an output holds; those beyond are lost without a message.
  static constexpr int kCapacity = 100000;
  /// Longest piece that one read takes, line end included; a longer line comes in several pieces.
  static constexpr std::size_t kLongestRead = 19999;

  fichero(std::string name, std::string_view mode);
  virtual ~fichero();
  fichero(const fichero&) = delete;
  fichero& operator=(const fichero&) = delete;

  /// Puts the next line, without its LF or CR LF, into `dest`: a view that lives as long as this
  /// object. False, with `dest` as it was, when no line is left. A file that ends in a line end
  /// hands out its last line twice, and an empty file one empty line: the templates and tables of
  /// the chain have always been read so, and generated files show it.
  bool ReadLine(std::string_view& dest);

  /// Appends one line, put together from its parts; its line end is added. False when the capacity
  /// is used up.
  template <typename... Parts>
  bool WriteLine(const Parts&... parts) {
    if (!beginsLine()) return false;
    (own_.append(std::string_view(parts)), ...);
    own_ += '\n';
    runEnd_ = nullptr;
    return true;
  }
  /// Makes room for so many bytes of such lines; a hint that saves time.
  void expectBytes(std::size_t bytes) { own_.reserve(bytes); }
  /// The same as WriteLine for the line that `source` last handed out. Its bytes stay there until
  /// they are written: `source` must outlive this object.
  bool CopyLine(const fichero& source);

  /// The whole text with every line end between blanks and every run of blanks as one blank:
  /// "x  y\r\nz" gives "x y \r  \n z". Up to three times as long as the file.
  std::string normalisedText() const;

  /// The file's bytes (mode "lectura").
  std::string_view bytes() const { return text_; }
  const std::string& name() const { return name_; }
  /// Number, from 1, of the line last handed out; a repeated last line has a number of its own.
  long lineNumber() const { return cursor_; }
  /// Lines that the file really has, the repeat not counted.
  long lineCount() const;

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  /// A part of the output: bytes of `own_`, and then lines of the file that is copied from.
  struct Part {
    std::size_t ownEnd;  // in own_
    const char* copied;
    const char* copiedEnd;
  };

  bool beginsLine();
  void readWhole();
  void rejectNul(std::size_t from) const;
  bool metTheEnd() const;
  void writeAll();
  bool writeParts();

  std::string name_;
  bool reading_ = false;
  int exceptionsAtBirth_;
  std::unique_ptr<std::FILE, CloseFile> stream_;
  long cursor_ = 0;  // lines handed out or collected

  // Reading.
  std::unique_ptr<char[]> buffer_;
  std::string_view text_;     // the whole file, in buffer_
  std::size_t position_ = 0;  // where the next line begins
  std::string_view last_;     // the line last handed out
  bool repeatsLast_ = true;   // it has not yet gone out once more

  // Writing.
  std::string own_;               // the output's own lines, each with its line feed
  std::deque<Part> parts_;        // all lines, but for those at the end of own_
  const char* runEnd_ = nullptr;  // end of the line copied last; null behind one of its own
};
