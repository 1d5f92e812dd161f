#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/source_text.h"
#include "typology/vivienda_keywords.h"

/// The run's reading of the VIVIENDA command told by offsets in the file: where the search for a
/// keyword ends and what it takes for its value. The rules are those of LeerBDL, whose blanked text
/// differs from the file in blanks alone; a test keeps the two together.
class RunReading {
 public:
  explicit RunReading(std::string_view bytes);

  /// From the first VIVIENDA up to the next ".."; without one, up to the end of the file.
  bool found() const { return found_; }
  bool closed() const { return closed_; }
  Span block() const { return block_; }

  /// Where a keyword is met.
  struct Hit {
    std::size_t at;      // its first letter, without the pattern's blanks
    std::size_t equals;  // the "=" that is taken for its own
  };
  /// None where the keyword is absent, or no "=" follows it.
  std::optional<Hit> find(const ViviendaKeyword& keyword) const;

  /// A number behind `at`, as far as one is there.
  template <typename T>
  struct Number {
    T value;
    Span span;  // what was taken
  };
  std::optional<Number<int>> integerAt(std::size_t at) const;
  std::optional<Number<float>> realAt(std::size_t at) const;
  /// A text behind `at`: quoted, or up to the next blank. None where the run would end.
  std::optional<Span> textAt(std::size_t at) const;

  /// The list of a keyword: behind the "(" up to the ")", as far as the commas count.
  struct List {
    std::size_t open;
    Span items;
    bool closed;
  };
  std::optional<List> listOf(const Hit& hit) const;

  std::string_view at(Span span) const { return bytes_.substr(span.begin, span.end - span.begin); }

 private:
  std::string_view bytes_;
  bool found_ = false;
  bool closed_ = false;
  Span block_;
};
