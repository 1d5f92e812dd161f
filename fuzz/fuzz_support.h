#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fault.h"
#include "core/source_text.h"

/// What the fuzz targets share. A target takes any bytes and either comes back or aborts with a
/// finding; the library's own way to end a run, a message and an exit, is a result like any other.

/// The entry of a target. libFuzzer calls it, or corpus_main.cpp in a build without libFuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// A finding unless `ok`: says `what` and aborts.
void expect(bool ok, std::string_view what);

/// How a piece of work ended.
struct Ending {
  bool stopped = false;
  std::string message;  // the one that was shown, when stopped
  std::optional<Place> place;
};

/// Runs `body` with an application that throws where a program would exit, and checks what every
/// ending promises: no message and no exit, or one message with the usual caption and then exit
/// code 3. Anything else that `body` throws is a finding.
Ending endingOf(const std::function<void()>& body);

/// Checks that a message is one line, as people and callers read it.
void expectOneLine(const Ending& ending);
/// Checks that a place is one of `source`: the line is its line, and the span lies within it.
void expectWithin(const Place& place, const SourceText& source);

/// Whether the bytes reach the readers of text at all: `fichero` lets none with a NUL through.
inline bool isText(std::string_view bytes) { return bytes.find('\0') == std::string_view::npos; }

/// A folder of this process, ending in "/", for what is about files: in TMPDIR when that is set,
/// else in memory. Removed at the end, but not after a crash.
const std::string& scratchFolder();

/// Writes `bytes` into the file `name` of the scratch folder and returns its path.
std::string writeScratch(std::string_view name, std::string_view bytes);
std::string readFile(const std::string& path);

/// The parts of an input between lines that hold "%%" and nothing else: exactly `count` of them,
/// empty ones where the input has fewer; the last one takes the rest.
std::vector<std::string_view> splitInput(std::string_view input, std::size_t count);
