// Any bytes in a text: the lines handed out are those that the C library's fgets would give with a
// buffer of 20000 bytes, the normalised text is what its description says and leads back to the
// text, and what is written comes back. Of files only what is theirs is asked: their bytes.
#include <algorithm>

#include "bdl/normalised_text.h"
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
std::string plainlyNormalised(std::string_view bytes) {
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

void checkLines(std::string_view bytes) {
  const Model model = modelOf(bytes);
  LineReader reader(bytes);
  expect(reader.lineCount() == model.realLines, "another number of lines");
  std::string_view line;
  for (const std::string& expected : model.lines) {
    expect(reader.ReadLine(line), "a line is missing");
    expect(line == expected && reader.line() == expected, "another line");
    const Span span = reader.span();
    expect(bytes.substr(span.begin, span.end - span.begin) == expected, "a line's other place");
  }
  expect(!reader.ReadLine(line), "one line too many");
  expect(reader.lineNumber() == static_cast<long>(model.lines.size()), "another line number");
}

void checkNormalising(std::string_view bytes) {
  const std::string text = normalised(bytes);
  expect(text == plainlyNormalised(bytes), "another normalised text");
  expect(offsetBeforeNormalising(bytes, text.size()) == bytes.size(), "the end leads elsewhere");
  // All of a short text; of a long one some, since each walks from the start.
  const std::size_t step = text.size() / 16 + 1;
  for (std::size_t at = 0; at < text.size(); at += step) {
    const std::size_t origin = offsetBeforeNormalising(bytes, at);
    expect(origin < bytes.size(), "a character from behind the end");
    const bool besideLineEnd = text[at] == ' ' && (bytes[origin] == '\n' || bytes[origin] == '\r');
    expect(bytes[origin] == text[at] || besideLineEnd, "leads back to another character");
  }
}

/// Adds each line of the bytes, and then an empty one, to `output`.
std::string writeLines(OutputLines& output, std::string_view bytes) {
  std::string expected;
  for (std::size_t at = 0; at <= bytes.size();) {
    const std::string_view line = bytes.substr(at, bytes.find('\n', at) - at);
    expect(output.WriteLine(line), "a line was not taken");
    expected.append(line).append("\n");
    at += line.size() + 1;
  }
  return expected;
}

/// All lines handed on, every third with one of the copy's own behind it.
void checkCopying(std::string_view bytes) {
  LineReader source(bytes);
  OutputLines output;
  std::string expected;
  for (const std::string& line : modelOf(bytes).lines) {
    std::string_view ignored;
    source.ReadLine(ignored);
    expect(output.CopyLine(source), "a line was not taken");
    expected.append(line).append("\n");
    if (source.lineNumber() % 3 != 0) continue;
    output.WriteLine("own");
    expected.append("own\n");
  }
  expect(output.text() == expected, "the copy differs from what was handed out");
}

/// A file's text is its bytes; one with a NUL is not read.
void checkReadingFiles(std::string_view bytes) {
  const std::string path = writeScratch("fichero", bytes);
  const Ending ending = endingOf([&] {
    fichero file(path, "lectura");
    const SourceText text = file.takeText();
    expect(text.bytes() == bytes && text.name() == path, "another text than the file's");
  });
  expectOneLine(ending);
  expect(ending.stopped != isText(bytes), "stopped without a NUL, or not stopped by one");
  if (!ending.stopped) return;
  expect(ending.place.has_value(), "a NUL without its place");
  // All that is known of the text is what comes before.
  const std::string_view before = bytes.substr(0, bytes.find('\0'));
  expectWithin(*ending.place, SourceText(path, before));
  expect(ending.place->line == std::ranges::count(before, '\n') + 1, "the NUL's line is another");
}

void checkWritingFiles(std::string_view bytes) {
  const std::string path = scratchFolder() + "escrito";
  std::string expected;
  const Ending ending = endingOf([&] {
    fichero file(path, "escritura");
    expected = writeLines(file.lines(), bytes);
    file.save();
  });
  expect(!ending.stopped, "writing was stopped");
  expect(readFile(path) == expected, "the file differs from what was written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = textOf(data, size);
  checkReadingFiles(bytes);
  if (!isText(bytes)) return 0;
  checkLines(bytes);
  checkNormalising(bytes);
  checkCopying(bytes);
  OutputLines output;
  const std::string expected = writeLines(output, bytes);
  expect(output.text() == expected, "the lines differ from what was written");
  checkWritingFiles(bytes);
  return 0;
}
