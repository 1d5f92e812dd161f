#include "app/console/works/lote.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "app/console/works/interrupts.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/message_lines.h"
#include "app/standard_streams.h"
#include "app/version.h"
#include "core/concat.h"
#include "core/counted.h"
#include "core/report_error.h"
#include "stock/list_columns.h"
#include "stock/summary.h"

namespace {

using stock::Shard;
using stock::StockOptions;

constexpr int kExitSignal = 128;  // and its number

/// A whole number from 1; wrong arguments otherwise.
long countOf(const WorkArguments& arguments, std::string_view option, long missing, long most) {
  const auto text = arguments.given(option);
  if (!text) return missing;
  long count = 0;
  const char* const last = text->data() + text->size();
  const auto [end, error] = std::from_chars(text->data(), last, count);
  if (error != std::errc() || end != last || count < 1 || count > most) {
    throw WrongWorkArguments{concat(option, " debe ser un número de 1 a ", std::to_string(most),
                                    ", y no \"", *text, "\"")};
  }
  return count;
}

Shard shardFor(const WorkArguments& arguments) {
  if (const auto text = arguments.given("--fragmento")) {
    const auto shard = stock::parseShard(*text);
    if (!shard) {
      throw WrongWorkArguments{
          concat("--fragmento debe ser K/N, con K de 1 a N, y no \"", *text, "\"")};
    }
    return *shard;
  }
  std::string problem;
  const auto shard =
      stock::shardOfArray([](const char* name) { return std::getenv(name); }, problem);
  if (!problem.empty()) throw WrongWorkArguments{problem};
  if (!shard) return {};
  sayText(concat("Serie de Slurm: se trabaja en la parte ", std::to_string(shard->number), "/",
                 std::to_string(shard->count), "\n"));
  return *shard;
}

StockOptions optionsOf(const WorkArguments& arguments, const std::string& folder) {
  constexpr long kMostWorkers = 1024;
  if (arguments.operands.empty()) throw WrongWorkArguments{"falta la lista"};
  if (arguments.operands.size() > 1) {
    throw WrongWorkArguments{concat("sobra un argumento: ", arguments.operands[1])};
  }
  if (arguments.has("--reanudar") && arguments.has("--reintentar")) {
    throw WrongWorkArguments{"--reanudar y --reintentar no van juntas"};
  }
  StockOptions options;
  options.list = arguments.operands.front();
  options.folder = folder;
  options.plantilla = arguments.given("--plantilla");
  const long cores = std::max(1L, static_cast<long>(std::thread::hardware_concurrency()));
  options.workers = static_cast<unsigned>(countOf(arguments, "--trabajos", cores, kMostWorkers));
  options.shard = shardFor(arguments);
  if (arguments.has("--reanudar")) options.mode = StockOptions::Mode::kResume;
  if (arguments.has("--reintentar")) options.mode = StockOptions::Mode::kRetry;
  options.maxFaults = countOf(arguments, "--max-errores", 0, 1'000'000'000);
  options.keepTypologies = arguments.has("--guardar-tip");
  options.summaryPage = arguments.has("--informe");
  options.version = kVersion;
  return options;
}

/// How far the work is: one line that is rewritten on a terminal, a line every ten seconds
/// elsewhere.
class ProgressLine {
 public:
  explicit ProgressLine(bool quiet) : quiet_(quiet), terminal_(standardErrorIsTerminal()) {}

  void show(const stock::StockCounts& counts, double seconds) {
    constexpr double kPlainEvery = 10;  // s
    if (quiet_) return;
    if (terminal_) {
      sayText(concat("\r\x1B[K", stock::progressText(counts, seconds)));
      shown_ = true;
    } else if (seconds >= last_ + kPlainEvery) {
      last_ = seconds;
      sayText(concat(stock::progressText(counts, seconds), "\n"));
    }
  }
  void clear() {
    if (shown_) sayText("\r\x1B[K");
    shown_ = false;
  }

 private:
  bool quiet_;
  bool terminal_;
  bool shown_ = false;
  double last_ = 0;
};

/// Makes sure that nothing was given that says nothing to a kind of work.
void requireOnly(const WorkArguments& arguments, std::string_view kind,
                 std::initializer_list<std::string_view> options) {
  if (!arguments.operands.empty()) throw WrongWorkArguments{concat(kind, " no lleva lista")};
  for (const auto& [option, value] : arguments.values) {
    if (option == kind || std::ranges::count(options, option) > 0) continue;
    throw WrongWorkArguments{concat(option, " no dice nada a ", kind)};
  }
}

int work(const WorkArguments& arguments, const std::string& folder) {
  const StockOptions options = optionsOf(arguments, folder);
  ProgressLine line(arguments.has("--quiet"));
  stock::StockWatch watch;
  watch.begin = [](const std::vector<Fault>& warnings) {
    for (const Fault& warning : warnings) sayText(stock::warningText(warning));
  };
  watch.beginAgain = [](long rows) {
    sayText(concat("La carpeta ya tiene resultados de ", counted(rows, "vivienda", "viviendas"),
                   ": se hacen todas de nuevo. Con --reanudar se hace solo lo que falta.\n"));
  };
  watch.progress = [&](const stock::StockCounts& counts, double seconds) {
    line.show(counts, seconds);
  };
  const Interrupts interrupts;
  watch.interrupted = &Interrupts::requested();
  const stock::StockEnd end = stock::runStock(options, watch);
  line.clear();
  sayText(stock::summaryText(end));
  if (end.fault) ReportFailure(ErrorLog, *end.fault);
  if (end.interrupted) return kExitSignal + Interrupts::signal();
  const bool good = end.complete() && end.counts.refused == 0 && end.counts.failed == 0;
  return good ? kExitDone : kExitFaultsFound;
}

}  // namespace

int lote(const WorkArguments& arguments) {
  if (arguments.has("--esquema")) {
    requireOnly(arguments, "--esquema", {});
    writeText({}, stock::columnsForPeople());
    return 0;
  }
  const auto folder = arguments.given("--salida");
  if (!folder || folder->empty()) throw WrongWorkArguments{"falta --salida CARPETA"};
  if (!arguments.has("--unir")) return work(arguments, *folder);
  requireOnly(arguments, "--unir", {"--salida", "--informe", "--quiet"});
  const stock::JoinedShards joined = stock::joinShards(*folder, arguments.has("--informe"));
  sayText(concat(numbered(joined.shards, "Unida ", "Unidas "),
                 counted(joined.shards, "parte", "partes"), ": ",
                 counted(joined.rows, "vivienda", "viviendas"), "\n"));
  return 0;
}
