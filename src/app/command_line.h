#pragma once

#include <string>
#include <string_view>

/// The four paths of a run, in the order of the command line.
struct RunPaths {
  std::string dataFile;      // template, *.bdl
  std::string typologyFile;  // *.tip
  std::string outputFile;
  std::string markerFile;  // created empty after a successful run
};

/// Limits of a command line in the callers' form: items, and bytes of an item with a closing NUL.
inline constexpr std::size_t kMaxItems = 250;
inline constexpr std::size_t kItemCapacity = 250;

/// Splits a command line as the calling programs write it: everything up to and including the last
/// "#" is ignored, "," ends an item, blanks (only blanks) at the start of an item are skipped and
/// all others kept. Missing items are empty; items behind the fourth are ignored.
/// Errors: more than 250 items, or an item of 250 bytes or more, end the run.
RunPaths splitCommandLine(std::string_view commandLine);
