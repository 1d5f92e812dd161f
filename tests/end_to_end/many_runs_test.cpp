#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "app/run_generation.h"
#include "core/cp1252.h"
#include "core/fichero.h"
#include "core/report_error.h"
#include "core/run_ended.h"
#include "end_to_end/samples.h"
#include "generator/generation_sequence.h"
#include "generator/template.h"
#include "support/skip_for_lack_of.h"
#include "support/temporary_folder.h"
#include "typology/typology_record.h"

// Many runs in one process, side by side: they share templates and nothing else. The thread
// sanitizer watches over them in the preset tsan.

namespace {

constexpr int kThreads = 8;
constexpr std::size_t kRounds = 100;     // over all samples, by all threads together
constexpr std::size_t kFaultEvery = 5;   // so many runs, one more that ends in a fault
constexpr std::size_t kFilesEvery = 25;  // and one that reads and writes all its files

SourceText textOf(const std::string& path) { return fichero(path, "lectura").takeText(); }

/// A sample with what its runs share, and the bytes that each must give.
struct Work {
  Sample sample;
  std::shared_ptr<const Template> plantilla;
  std::string golden;
};

std::vector<Work> allWork() {
  std::vector<Work> work;
  std::map<std::string, std::shared_ptr<const Template>> templates;
  for (const Sample& sample : allSamples()) {
    auto& plantilla = templates[sample.building];
    if (!plantilla) {
      // Of both kinds: walked line by line, and with its stops found once.
      const auto use = templates.size() % 2 == 0 ? Template::Use::kOnce : Template::Use::kOften;
      plantilla = std::make_shared<Template>(textOf(sample.templateFile()),
                                             textOf(sample.tableFile()), use);
    }
    work.push_back({sample, plantilla, readFile(sample.goldenFile())});
  }
  return work;
}

class Bar : public TProgressBar {
 public:
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override { position_ = position; }

 private:
  int position_ = 0;
};

/// What the threads have found wrong. Only some of it is shown: a fault that is there at all may
/// come thousands of times.
class Findings {
 public:
  void add(const Sample& sample, const std::string& what) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (found_++ < 5) shown_ += testing::PrintToString(sample) + ": " + what + "\n";
  }
  int found() const { return found_; }
  const std::string& shown() const { return shown_; }

 private:
  std::mutex mutex_;
  int found_ = 0;
  std::string shown_;
};

/// One thread's runs.
class Worker {
 public:
  explicit Worker(Findings& findings) : findings_(findings) {}

  void generateInMemory(const Work& work) {
    std::string output;
    const std::optional<Fault> fault = faultOf([&] {
      OutputLines lines;
      generateOver(work, textOf(work.sample.typologyFile()), lines);
      output = lines.text();
    });
    expectGolden(work, fault, output);
  }

  /// A run of the program's kind, with an error log and singletons of its own.
  void generateInFiles(const Work& work) {
    const std::optional<Fault> fault = faultOf([&] { runFiles(pathsOf(work)); });
    expectGolden(work, fault, folder_.has("salida.bdl") ? folder_.read("salida.bdl") : "");
  }

  /// A run that ends in the fault number `kind`, whatever the number.
  void endInAFault(const Work& work, std::size_t kind) {
    RunPaths paths = pathsOf(work);
    const std::string good = readFile(paths.typologyFile);
    switch (kind % 6) {
      case 0:
        paths.typologyFile = folder_.write("nada.tip", "$ nada");
        expectFault(work, "En el fichero *.tip debe existir un COMMAND VIVIENDA",
                    wholeFile(paths.typologyFile), [&] { runFiles(paths); });
        break;
      case 1:
        paths.typologyFile = folder_.write("casa.tip", with(good, "AREA-PLANTA = 1"));
        expectFault(work, "Área de planta no válida. Debe ser >",
                    lineOf(paths.typologyFile, with(good, "AREA-PLANTA = 1"), "AREA-PLANTA"),
                    [&] { runFiles(paths); });
        break;
      case 2:
        paths.outputFile = "/dev/full";
        expectFault(work, "Error al escribir fichero: /dev/full", wholeFile("/dev/full"),
                    [&] { runFiles(paths); });
        break;
      case 3:
        paths.typologyFile = folder_ / "no-existe.tip";
        expectFault(work, "No existe el fichero de datos *.tip", wholeFile(paths.typologyFile),
                    [&] { runFiles(paths); });
        break;
      case 4:
        // At a place in the template: others read it, and may be asking it for a place, too.
        if (!hasShades(work)) {
          expectFault(work,
                      "Error al generar el edificio. No se ha encontrado la clave: BUILDING-SHADE",
                      lastLineOf(work.sample.templateFile()), [&] {
                        OutputLines lines;
                        generateOver(work, textOf(ofCourtyardsInSides().typologyFile()), lines);
                      });
          break;
        }
        [[fallthrough]];
      default: {
        // At the very end, over a template that others are reading.
        const std::string turned = with(good, "ORIENTACION = nan");
        expectFault(work,
                    "Error en el fichero casa.tip: el valor de AZIMUTH en la salida no es un número"
                    " finito: nan",
                    lineOf("casa.tip", turned, "ORIENTACION"), [&] {
                      OutputLines lines;
                      generateOver(work, SourceText("casa.tip", turned), lines);
                    });
      }
    }
  }

 private:
  RunPaths pathsOf(const Work& work) const {
    return {work.sample.templateFile(), work.sample.typologyFile(), folder_ / "salida.bdl",
            folder_ / "fin.txt"};
  }
  static void runFiles(const RunPaths& paths) {
    Bar bar;
    RunGeneration(bar, paths);
  }
  static void generateOver(const Work& work, SourceText tip, OutputLines& lines) {
    const TypologyRecord typology(std::move(tip));
    Bar bar;
    generate(*work.plantilla, typology, lines, bar);
  }

  /// A dwelling that looks for two courtyard shades in its template.
  static Sample ofCourtyardsInSides() { return {"bloque-escalera-patios-laterales", "tipo-15"}; }
  static bool hasShades(const Work& work) {
    return work.plantilla->building().bytes().find("BUILDING-SHADE") != std::string_view::npos;
  }

  /// A typology with a line that comes before its own of that keyword.
  static std::string with(const std::string& typology, const std::string& line) {
    const std::string command = "VIVIENDA";
    return std::string(typology).insert(typology.find(command) + command.size(),
                                        "\n   " + line + "\n");
  }
  /// The file and its last line, behind which there is a line end.
  static Place lastLineOf(const std::string& file) {
    const std::string text = readFile(file);
    Place place = wholeFile(file);
    place.line = std::count(text.begin(), text.end(), '\n');
    return place;
  }
  /// The file and the line in which `word` stands.
  static Place lineOf(const std::string& file, const std::string& text, const std::string& word) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(word));
    Place place = wholeFile(file);
    place.line = std::count(text.begin(), end, '\n') + 1;
    return place;
  }

  void expectGolden(const Work& work, const std::optional<Fault>& fault,
                    const std::string& output) {
    if (fault) findings_.add(work.sample, "ended in " + cp1252::toUtf8(fault->message));
    if (!fault && output != work.golden) {
      findings_.add(work.sample, firstDifference(work.golden, output));
    }
    expectAsBefore(work);
  }

  /// `message`: how it begins; `place`: its file and its line.
  template <typename Body>
  void expectFault(const Work& work, const std::string& message, const Place& place,
                   const Body& body) {
    const std::optional<Fault> fault = faultOf(body);
    if (!fault) {
      findings_.add(work.sample, "no fault: " + message);
    } else if (!cp1252::toUtf8(fault->message).starts_with(message)) {
      findings_.add(work.sample, "another fault: " + cp1252::toUtf8(fault->message));
    } else if (!fault->place || fault->place->file != place.file ||
               fault->place->line != place.line) {
      findings_.add(work.sample, "another place: " + message);
    }
    expectAsBefore(work);
  }

  void expectAsBefore(const Work& work) {
    if (Application != nullptr) findings_.add(work.sample, "an application outlives its run");
    if (ErrorLog != nullptr) findings_.add(work.sample, "an error log outlives its run");
  }

  Findings& findings_;
  TemporaryFolder folder_;
};

}  // namespace

TEST(ManyRuns, InThreadsGiveTheBytesThatEachGivesAlone) {
  if (!std::filesystem::exists("/dev/full")) SKIP_FOR_LACK_OF("/dev/full");
  const std::vector<Work> work = allWork();
  ASSERT_FALSE(work.empty());
  const std::size_t total = kRounds * work.size();
  Findings findings;
  std::atomic<std::size_t> next{0};
  std::atomic<std::size_t> faults{0};

  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      Worker worker(findings);
      // Neighbours in the list, and so threads at the same time, share a template. What counts them
      // orders nothing else: the thread sanitizer would take one run's end to be before another.
      const auto oneMore = [](std::atomic<std::size_t>& counter) {
        return counter.fetch_add(1, std::memory_order_relaxed);
      };
      for (std::size_t run = oneMore(next); run < total; run = oneMore(next)) {
        const Work& mine = work[run % work.size()];
        worker.generateInMemory(mine);
        if (run % kFilesEvery == 0) worker.generateInFiles(mine);
        if (run % kFaultEvery == 0) worker.endInAFault(mine, oneMore(faults));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(0, findings.found()) << findings.shown();
  EXPECT_EQ(total / kFaultEvery, faults.load());
}
