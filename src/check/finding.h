#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/codes.h"
#include "core/fault.h"

/// One thing that a check has to say about the inputs of a run.
struct Finding {
  Code code;            // a row of kCodes: its word and how grave it is
  std::string message;  // one sentence; of an error, the run's own words
  std::optional<Place> place = {};
  std::string found = {};       // what is written there, byte for byte
  std::string used = {};        // what the run takes for it
  std::string allowed = {};     // what it may be
  std::string suggestion = {};  // what to write instead, in the file's own form, or what to do
};

using Findings = std::vector<Finding>;

/// Whoever wants the codes alone need not wait for words and places, which may then be empty.
enum class Wanted { kFindings, kCodes };

inline Severity severityOf(const Finding& finding) { return rowOf(finding.code).severity; }
