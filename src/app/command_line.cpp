#include "app/command_line.h"

#include <algorithm>
#include <iterator>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/report_error.h"

RunPaths splitCommandLine(std::string_view commandLine) {
  RunPaths paths;
  std::string* const items[] = {&paths.dataFile, &paths.typologyFile, &paths.outputFile,
                                &paths.markerFile};

  std::string_view rest = commandLine.substr(commandLine.rfind('#') + 1);  // npos + 1 is 0
  for (std::size_t i = 0;; ++i) {
    if (i == kMaxItems) {
      ReportFailure(ErrorLog, concat("La línea de órdenes tiene más de "_cp1252,
                                     std::to_string(kMaxItems), " elementos"));
    }
    const std::size_t comma = rest.find(',');
    std::string_view item = rest.substr(0, comma);
    item.remove_prefix(std::min(item.find_first_not_of(' '), item.size()));
    if (item.size() >= kItemCapacity) {
      ReportFailure(ErrorLog, concat("El elemento ", std::to_string(i + 1),
                                     " de la línea de órdenes es demasiado largo: "_cp1252, item));
    }
    if (i < std::size(items)) *items[i] = item;
    if (comma == std::string_view::npos) return paths;
    rest.remove_prefix(comma + 1);
  }
}
