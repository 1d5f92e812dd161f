// Any bytes in a text file: the lines handed out are those that the C library's fgets would give
// with a buffer of 20000 bytes, the normalised text is what its description says, and what is
// written comes back.
#include <algorithm>

#include "core/fichero.h"
#include "fuzz_support.h"

namespace {

struct Model {
  std::vector<std::string> lines;
  long realLines = 0;
};

/// Reads until a read meets the end of the file; a read that gets nothing leaves the line before.
Model modelOf(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool lineEnd = bytes.substr(i, 2) == "\r\n";
    if (!lineEnd) text += bytes[i];
  }
  Model model;
  std::string line;
  std::size_t at = 0;
  for (bool metTheEnd = false; !metTheEnd;) {
    std::string got;
    while (at < text.size() && got.size() < 19999 && !got.ends_with('\n')) got += text[at++];
    metTheEnd = got.size() < 19999 && !got.ends_with('\n');
    if (!got.empty()) {
      ++model.realLines;
      if (got.ends_with('\n')) got.pop_back();
      line = got;
    }
    model.lines.push_back(line);
  }
  return model;
}

/// Runs of blanks become one blank, each line end stands between two blanks of its own, and the one
/// behind it makes one run with the blanks that follow.
std::string normalised(std::string_view bytes) {
  std::string text;
  for (std::size_t at = 0; at <= bytes.size();) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n", at), bytes.size());
    std::string piece(bytes.substr(at, end - at));
    if (at > 0) piece.insert(0, " ");
    const auto twoBlanks = [](char a, char b) { return a == ' ' && b == ' '; };
    piece.erase(std::unique(piece.begin(), piece.end(), twoBlanks), piece.end());
    text += piece;
    if (end < bytes.size()) text += {' ', bytes[end]};
    at = end + 1;
  }
  return text;
}

void checkReading(const std::string& path, std::string_view bytes) {
  fichero file(path, "lectura");
  expect(file.bytes() == bytes, "other bytes than the file's");
  expect(file.normalisedText() == normalised(bytes), "another normalised text");

  const Model model = modelOf(bytes);
  expect(file.lineCount() == model.realLines, "another number of lines");
  std::string_view line;
  for (const std::string& expected : model.lines) {
    expect(file.ReadLine(line), "a line is missing");
    expect(line == expected, "another line");
  }
  expect(!file.ReadLine(line), "one line too many");
  expect(file.lineNumber() == static_cast<long>(model.lines.size()), "another line number");
}

void checkWriting(std::string_view bytes) {
  const std::string path = scratchFolder() + "escrito";
  std::string expected;
  {
    fichero file(path, "escritura");
    for (std::size_t at = 0; at <= bytes.size();) {
      const std::string_view line = bytes.substr(at, bytes.find('\n', at) - at);
      expect(file.WriteLine(line), "a line was not taken");
      expected.append(line).append("\n");
      at += line.size() + 1;
    }
  }
  expect(readFile(path) == expected, "the file differs from what was written");
}

/// All lines of the file at `path` handed on, every third with one of the copy's own behind it.
void checkCopying(const std::string& path, std::string_view bytes) {
  const std::string copy = scratchFolder() + "copiado";
  std::string expected;
  {
    fichero source(path, "lectura");
    fichero output(copy, "escritura");
    for (const std::string& line : modelOf(bytes).lines) {
      std::string_view ignored;
      source.ReadLine(ignored);
      expect(output.CopyLine(source), "a line was not taken");
      expected.append(line).append("\n");
      if (source.lineNumber() % 3 != 0) continue;
      output.WriteLine("own");
      expected.append("own\n");
    }
  }
  expect(readFile(copy) == expected, "the copy differs from what was handed out");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  const std::string path = writeScratch("fichero", bytes);
  const Ending ending = endingOf([&] { checkReading(path, bytes); });
  expectOneLine(ending);
  const bool hasNul = bytes.find('\0') != std::string_view::npos;
  expect(ending.stopped == hasNul, "stopped without a NUL, or not stopped by one");
  if (hasNul) return 0;
  expect(!endingOf([&] { checkWriting(bytes); }).stopped, "writing was stopped");
  expect(!endingOf([&] { checkCopying(path, bytes); }).stopped, "copying was stopped");
  return 0;
}
