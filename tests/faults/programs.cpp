#include "faults/programs.h"

namespace {

std::string commandLine(const std::vector<std::string>& paths) {
  std::string line;
  for (const std::string& path : paths) line += (line.empty() ? '#' : ',') + path;
  return line;
}

}  // namespace

FaultedRun runOn(const Program& program, const std::vector<std::string>& paths,
                 RunOptions options) {
  if (!program.hasForms) return runUnder(program.file, paths, options);
  for (const char* unset : {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM="}) {
    options.environment.emplace_back(unset);
  }
  options.preloaded.emplace_back(HURRIED_CLOCK);
  return runUnder(program.file, {commandLine(paths)}, options);
}
