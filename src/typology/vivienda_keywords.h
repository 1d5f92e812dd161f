#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "typology/typology_record.h"

/// The keywords of the VIVIENDA command, one row each: what reading the file, its messages and its
/// documentation go by.

/// A keyword that is read, so that a malformed value is met, and then forgotten: every building has
/// what the record holds from the start.
struct IgnoredText {
  std::string TypologyRecord::*kept;
  friend bool operator==(const IgnoredText&, const IgnoredText&) = default;
};

struct ViviendaKeyword {
  std::string_view name;
  /// As it is searched for: with blanks where the bare word would be met inside another one.
  std::string_view pattern;
  /// Where its value goes; what the record holds before is the default.
  using Field =
      std::variant<int TypologyRecord::*, float TypologyRecord::*,
                   PerFacade<float> TypologyRecord::*, std::string TypologyRecord::*, IgnoredText>;
  Field field;
  bool required;
  // For people, UTF-8: what it is, and which values it may have where they do not follow from the
  // typology number and the other measures.
  std::string_view meaning;
  std::string_view values = "";
  std::string_view unit = "";
  /// The message of a value that the record may not have; empty for one that it may. Asked right
  /// after reading it, also for a default.
  std::string_view (*fault)(const TypologyRecord&) = nullptr;
};

/// In reading order, which decides the message that a file with several faults shows.
std::span<const ViviendaKeyword> viviendaKeywords();

/// The row of a keyword of that name; null when there is none.
const ViviendaKeyword* findViviendaKeyword(std::string_view name);
