#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/written_findings.h"
#include "check/written_lines.h"
#include "check/written_run.h"
#include "plan/plan.h"
#include "typology/typology_record.h"
#include "typology/vivienda_keywords.h"

/// A keyword of VIVIENDA in both readings.
struct KeywordInBoth {
  const ViviendaKeyword* row = nullptr;
  std::optional<RunReading::Hit> hit;       // of the run
  const WrittenKeyword* written = nullptr;  // the one that the run reads, or else the first
  bool same = false;                        // the run's value is the one that is written
};

/// What the comparisons share. `command` is the one that is meant, null where nobody sees one.
struct WrittenVivienda {
  const TypologyRecord& record;
  const WrittenFile& file;
  const RunReading& run;
  const WrittenCommand* command;
  WrittenFindings& findings;
  std::vector<KeywordInBoth> keywords = {};  // in the order of viviendaKeywords()

  const KeywordInBoth& keyword(std::string_view name) const;
};

// written_words.cpp: where keywords are met. Fills `keywords`.
void compareWords(WrittenVivienda& vivienda);
// written_numbers.cpp, written_lists.cpp, written_names.cpp: the value of a keyword that is `same`.
void compareNumber(WrittenVivienda& vivienda, const KeywordInBoth& keyword);
void compareList(WrittenVivienda& vivienda, const KeywordInBoth& keyword);
void compareName(WrittenVivienda& vivienda, const KeywordInBoth& keyword);
// written_usual.cpp: what is left out, has no effect, or is seldom met. `plan`: null where the
// numbers have none.
void compareUse(const WrittenVivienda& vivienda, const Plan* plan);

/// The value that a keyword has when it is left out, as a file would have it: "3", "( 0, 0, 0, 0
/// )". Empty for a text.
std::string defaultOf(const ViviendaKeyword& keyword);
/// What the run takes for a value at that "=", as a file would have it; empty where it takes none.
std::string takenBy(const RunReading& run, const ViviendaKeyword& keyword,
                    const RunReading::Hit& hit);

/// What follows from a value that counts as absent.
struct IfAbsent {
  std::string used;   // the default, or empty
  std::string words;  // "se usará 3 m" or "la ejecución se detendrá"
};
IfAbsent ifAbsent(const ViviendaKeyword& keyword);

/// What there is to say of a percentage of openings, but for how it is written.
std::optional<Code> codeOfPercentage(float value);
/// Whether it is one of its codes.
bool isOfPercentage(Code code);

/// "2.8" as a file has it, and as a sentence has it: "2,8".
std::string plainNumber(float value);
std::string numberInProse(float value);
/// "2,8 m"
std::string withUnit(const std::string& number, const ViviendaKeyword& keyword);

/// The number that a person reads in `text`, in the form of a file: "1.234,5 m2" gives "1234.5".
/// Empty where there is none.
std::string meantNumber(std::string_view text);
/// Whether `text` goes on with a decimal mark that is none, and digits behind it.
bool goesOnWithComma(std::string_view text);
