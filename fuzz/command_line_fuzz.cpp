// Any command line gives its first four items, or a message about a limit.
#include "app/command_line.h"

#include "fuzz_support.h"

namespace {

/// The items behind the last "#", blanks in front of each left out.
std::vector<std::string> itemsOf(std::string_view line) {
  std::vector<std::string> items(1);
  for (const char c : line) {
    if (c == '#') {
      items.assign(1, "");
    } else if (c == ',') {
      items.emplace_back();
    } else if (c != ' ' || !items.back().empty()) {
      items.back() += c;
    }
  }
  return items;
}

bool withinLimits(const std::vector<std::string>& items) {
  for (const std::string& item : items) {
    if (item.size() >= 250) return false;
  }
  return items.size() <= 250;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view line = textOf(data, size);
  std::vector<std::string> items = itemsOf(line);
  const Ending ending = endingOf([&] {
    const RunPaths paths = splitCommandLine(line);
    expect(withinLimits(items), "a limit was passed over");
    items.resize(std::max<std::size_t>(items.size(), 4));
    expect(paths.dataFile == items[0] && paths.typologyFile == items[1] &&
               paths.outputFile == items[2] && paths.markerFile == items[3],
           "other items");
  });
  expect(ending.stopped != withinLimits(items), "stopped within the limits");
  return 0;
}
