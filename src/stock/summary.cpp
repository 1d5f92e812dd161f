#include "stock/summary.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "core/concat.h"
#include "core/counted.h"
#include "stock/code_titles.h"

namespace stock {

namespace {

std::string number(double value, int decimals) {
  std::array<char, 64> digits{};
  std::snprintf(digits.data(), digits.size(), "%.*f", decimals, value);
  std::string text(digits.data());
  std::ranges::replace(text, '.', ',');
  return text;
}

std::string duration(double seconds) {
  constexpr long kMinute = 60;
  constexpr long kHour = 3600;
  const auto whole = static_cast<long>(seconds);
  if (whole < kMinute) return concat(std::to_string(whole), " s");
  if (whole < kHour) {
    return concat(std::to_string(whole / kMinute), " min ", std::to_string(whole % kMinute), " s");
  }
  return concat(std::to_string(whole / kHour), " h ", std::to_string(whole % kHour / kMinute),
                " min");
}

std::string byCode(std::string_view heading, const std::map<std::string, long>& counts) {
  if (counts.empty()) return {};
  std::vector<std::pair<std::string, long>> rows(counts.begin(), counts.end());
  std::ranges::stable_sort(rows, std::ranges::greater(), &std::pair<std::string, long>::second);
  std::string text = concat(heading, "\n");
  for (const auto& [code, count] : rows) {
    const std::string_view title = titleOfCode(code);
    text += concat("  ", std::to_string(count), "  ", code, title.empty() ? "" : ": ", title, "\n");
  }
  return text;
}

}  // namespace

std::string progressText(const StockCounts& counts, double seconds) {
  constexpr long kPercent = 100;
  const long done = counts.done();
  const long worked = done - counts.skipped;
  const double rate = seconds > 0 ? static_cast<double>(worked) / seconds : 0;
  std::string text =
      concat(std::to_string(done), " de ", counted(counts.rows, "vivienda", "viviendas"), " (",
             std::to_string(counts.rows > 0 ? done * kPercent / counts.rows : kPercent), " %), ",
             number(rate, 0), " por segundo");
  if (rate > 0)
    text += concat(", quedan ", duration(static_cast<double>(counts.rows - done) / rate));
  return text;
}

std::string warningText(const Fault& warning) {
  std::string text = concat("aviso: ", warning.message, "\n");
  if (!warning.place) return text;
  return concat(warning.place->file, ":", std::to_string(warning.place->line), ":",
                std::to_string(warning.place->column), ": ", text);
}

std::string summaryText(const StockEnd& end) {
  const StockCounts& counts = end.counts;
  const long worked = counts.done() - counts.skipped;
  std::string text = concat(counted(counts.done(), "vivienda", "viviendas"), ": ",
                            counted(counts.correct, "correcta", "correctas"), ", ",
                            counted(counts.refused, "rechazada", "rechazadas"), ", ",
                            counted(counts.failed, "fallida", "fallidas"));
  if (counts.skipped > 0) {
    text += concat("; ", counted(counts.skipped, "ya estaba hecha", "ya estaban hechas"));
  }
  text += concat("\n", number(end.seconds, 1), " s");
  if (end.seconds > 0 && worked > 0) {
    text += concat(", ", number(static_cast<double>(worked) / end.seconds, 0), " por segundo");
  }
  text += "\n";
  text += byCode("Rechazadas o fallidas en esta ejecución, por código:", end.faultsByCode);
  text += byCode("Avisos y notas en esta ejecución, por código:", end.notesByCode);
  if (end.tooManyFaults) text += "Se ha alcanzado el número de errores de --max-errores.\n";
  if (!end.complete()) {
    const long left = counts.rows - counts.done();
    text += concat(numbered(left, "Queda ", "Quedan "), counted(left, "vivienda", "viviendas"),
                   " por hacer: repita la orden con --reanudar para seguir.\n");
  } else if (end.fault) {
    text += "Los resultados no están acabados: repita la orden con --reanudar para acabarlos.\n";
  }
  return text;
}

}  // namespace stock
