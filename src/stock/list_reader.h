#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace stock {

/// One cell of a list, and where it begins there.
struct Field {
  std::string text;  // UTF-8, without the quotes that it stood in
  long line = 0;     // from 1
  long column = 0;   // from 1, in bytes
};

/// One row of a list. Keeps its memory from one use to the next.
class Record {
 public:
  std::span<const Field> fields() const { return {fields_.data(), count_}; }
  std::size_t size() const { return count_; }
  /// The row's first line in the list.
  long line() const { return line_; }
  /// The field behind whose closing quote something else stands; -1: there is none.
  int badQuotes() const { return badQuotes_; }

 private:
  friend class ListReader;
  void begin(long line);
  Field& addField();

  std::vector<Field> fields_;  // the first count_ of them
  std::size_t count_ = 0;
  long line_ = 0;
  int badQuotes_ = -1;
};

/// Hands out the rows of a table in text (CSV), in order, once, with bounded memory. Cells are
/// separated by ";", "," or tabs, whichever the first line has most of or a line "sep=;" before it
/// says; quotes as in RFC 4180, so
/// that a cell may hold separators, doubled quotes and line ends; a line ends in LF or CR LF. UTF-8
/// with or without mark; bytes that are none are taken as Windows-1252. Rows without any content
/// are passed over.
///
/// Errors end the run, with the place: a NUL byte or UTF-16, quotes that are not closed, a row
/// above kLargestRow. One thread at a time.
class ListReader {
 public:
  /// Bytes of a row. More are quotes that nobody closed.
  static constexpr std::size_t kLargestRow = std::size_t{1} << 20;
  /// Fills the buffer with the bytes that come next and says how many; 0 at the end.
  using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

  /// That of a file. One that cannot be opened ends the run, as one that cannot be read will.
  static Source sourceOf(const std::string& path);

  /// `name`: what messages call the list.
  ListReader(std::string name, Source source);
  static ListReader open(const std::string& path) { return {path, sourceOf(path)}; }

  /// False, with `record` without fields, at the end.
  bool next(Record& record);

  const std::string& name() const { return name_; }
  char separator() const { return separator_; }

 private:
  /// Whether `count` more bytes are there, fetched if need be.
  bool has(std::size_t count) { return buffer_.size() - position_ >= count || fetch(count); }
  bool fetch(std::size_t count);
  char at(std::size_t ahead) const { return buffer_[position_ + ahead]; }
  bool atLineEnd();
  void take();
  std::size_t takePlain(std::string& text);
  void takeLineEnd();
  void findSeparator();
  bool takeSeparatorLine();
  void setSeparator(char separator);
  bool readRecord(Record& record);
  void readField(Record& record);
  void readQuoted(Record& record, Field& field);
  [[noreturn]] void fail(std::string_view what, long line, long column) const;

  std::string name_;
  Source source_;
  std::string buffer_;  // bytes read; those before position_ are done with
  std::size_t position_ = 0;
  bool sourceEnded_ = false;
  bool begun_ = false;
  char separator_ = ';';
  std::array<bool, 256> isPlain_{};  // of each byte, whether it stands for nothing but itself
  long line_ = 1;
  long column_ = 1;
  std::size_t rowBytes_ = 0;
};

}  // namespace stock
