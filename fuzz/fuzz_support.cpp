#include "fuzz_support.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "core/platform.h"

namespace fs = std::filesystem;

namespace {

constexpr int kExitCodeOfAnError = 3;
constexpr std::string_view kCaption = "Se ha producido un error";

/// Thrown where a program would have ended.
struct Stopped {
  int status;
};

class StoppingApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view caption) override {
    expect(caption == kCaption, "an error has another caption");
    messages.emplace_back(text);
  }
  void ShowFault(const Fault& fault) override {
    TApplication::ShowFault(fault);
    place = fault.place;
  }
  std::vector<std::string> messages;
  std::optional<Place> place;

 private:
  void endProcess(int status) override { throw Stopped{status}; }
};

/// In memory where the machine has such a folder and lets us write there: a disk takes milliseconds
/// to empty a file.
fs::path parentOfScratch() {
  const char* inMemory = "/dev/shm";
  const bool usable = std::getenv("TMPDIR") == nullptr && access(inMemory, W_OK | X_OK) == 0;
  return usable ? fs::path(inMemory) : fs::temp_directory_path();
}

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string pattern = (parentOfScratch() / "tip2bdl-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch folder");
    path = pattern + "/";
  }
  ~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  std::string path;
};

}  // namespace

void expect(bool ok, std::string_view what) {
  if (ok) return;
  std::fprintf(stderr, "FINDING: %.*s\n", static_cast<int>(what.size()), what.data());
  abort();
}

Ending endingOf(const std::function<void()>& body) {
  StoppingApplication application;
  Application = &application;
  Ending ending;
  try {
    body();
    expect(application.messages.empty(), "a message, and the run went on");
  } catch (const Stopped& stop) {
    expect(stop.status == kExitCodeOfAnError, "stopped with another status");
    expect(application.messages.size() == 1, "stopped without exactly one message");
    ending = {true, application.messages.front(), application.place};
  }
  Application = nullptr;
  return ending;
}

void expectOneLine(const Ending& ending) {
  expect(ending.message.find_first_of(std::string_view("\n\0", 2)) == std::string::npos,
         "a message of more than one line");
}

void expectWithin(const Place& place, const SourceText& source) {
  expect(place.file == source.name(), "a place in another file");
  if (place.line == 0) {
    expect(place.column == 0 && place.length == 0 && place.text.empty(), "a part of no line");
    return;
  }
  // Lines counted in the plainest way.
  std::string_view rest = source.bytes();
  for (long line = 1; line < place.line; ++line) {
    const std::size_t end = rest.find('\n');
    expect(end != std::string_view::npos, "a line behind the last one");
    rest.remove_prefix(end + 1);
  }
  const bool endsInLineFeed = rest.find('\n') != std::string_view::npos;
  std::string_view line = rest.substr(0, rest.find('\n'));
  if (endsInLineFeed && line.ends_with('\r')) line.remove_suffix(1);
  expect(place.text == line, "the text of another line");
  const std::size_t from = static_cast<std::size_t>(place.column) - 1;
  // The line end is a place too; of CR LF the second byte as well.
  const std::size_t last = line.size() + (endsInLineFeed ? 1 : 0);
  expect(place.column >= 1 && from <= last, "a column behind the line");
  expect(from + place.length <= std::max(line.size(), from), "a span beyond its line");
}

const std::string& scratchFolder() {
  static const ScratchFolder folder;
  return folder.path;
}

std::string writeScratch(std::string_view name, std::string_view bytes) {
  std::string path = scratchFolder() + std::string(name);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file.good()) throw std::runtime_error("cannot write " + path);
  return path;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string_view> splitInput(std::string_view input, std::size_t count) {
  constexpr std::string_view kSeparator = "\n%%\n";
  std::vector<std::string_view> parts;
  while (parts.size() + 1 < count) {
    const std::size_t end = input.find(kSeparator);
    parts.push_back(input.substr(0, end));
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + kSeparator.size());
  }
  parts.push_back(input);
  return parts;
}
