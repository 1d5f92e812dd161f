#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/open_file.h"

namespace stock {

/// The results of a list while they come in: a heading and a line a row, in the order in which the
/// rows were done, each written in one piece and handed to the system before `append` comes back.
/// So a process that is killed leaves whole lines and at most a piece of one behind them; a machine
/// that loses its power may lose more, and rows that are lost are done again. The last line of an
/// ID counts. Lines of earlier works stay in front until `arrange` puts the file in the list's
/// order, beside its place and renamed: they tell of outputs that are still there.
///
/// Any number of threads. Errors of writing are thrown as DiskFault; the file ends in a whole line
/// then, too.
class ResultsFile {
 public:
  /// Goes on behind what is there (nothing, when it is none of ours). `search`: it can be found.
  ResultsFile(std::string path, bool search);
  /// Lines that were there.
  long earlierLines() const { return earlierLines_; }

  /// The cells of the last line of an ID that was there when the file was opened, and where it is.
  struct Known {
    std::vector<std::string> cells;
    std::uint64_t offset = 0;
  };
  /// Of those that `counts`, where it is given.
  using Counts = std::function<bool(const std::vector<std::string>& cells)>;
  std::optional<Known> find(std::string_view id, const Counts& counts = {});

  /// Adds a line, and gives its offset.
  std::uint64_t append(std::string_view line);

  /// Replaces the file with the heading and the lines at these offsets. The last thing to do.
  /// `dropped` is called before that where lines are left out, with the file that has them and the
  /// one that has not.
  using Dropped = std::function<void(const std::string& before, const std::string& now)>;
  void arrange(std::span<const std::uint64_t> offsets, const Dropped& dropped = {});

  /// Hands out the whole lines of a file that nobody writes, its heading first, without their line
  /// ends. False when it is none of ours.
  static bool readLines(const std::string& path,
                        const std::function<void(const std::string& line)>& take);
  /// Lines behind the heading; -1 when the file is none of ours.
  static long countRows(const std::string& path);

 private:
  struct Line {
    std::uint64_t id;  // its hash
    std::uint64_t offset;
    std::pair<std::uint64_t, std::uint64_t> key() const { return {id, offset}; }
  };

  void load(bool search);
  void openToAppend();
  [[noreturn]] void fail() const;
  std::string lineAt(std::uint64_t offset);
  bool isInWindow(std::uint64_t offset) const;
  void moveWindowTo(std::uint64_t offset);

  std::string path_;
  std::mutex mutex_;
  OpenedFile file_;
  std::ifstream reader_;
  std::string window_;  // a piece of the file, from windowBegin_ on
  std::uint64_t windowBegin_ = 0;
  std::uint64_t size_ = 0;
  long earlierLines_ = 0;
  std::size_t lineCount_ = 0;  // with those that were appended
  std::vector<Line> lines_;    // of them, by hash; of one hash the last comes last
};

}  // namespace stock
