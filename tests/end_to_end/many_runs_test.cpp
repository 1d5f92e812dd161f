#include <gtest/gtest.h>

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
// Over all samples, by all threads together. A race shows when two threads meet for the first time,
// and what watches for it takes its time.
#if defined(__SANITIZE_THREAD__)
constexpr std::size_t kRounds = 20;
#else
constexpr std::size_t kRounds = 100;
#endif
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
      plantilla =
          std::make_shared<Template>(textOf(sample.templateFile()), textOf(sample.tableFile()));
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
      const TypologyRecord typology(textOf(work.sample.typologyFile()));
      OutputLines lines;
      Bar bar;
      generate(*work.plantilla, typology, lines, bar);
      output = lines.text();
    });
    expectGolden(work, fault, output);
  }

  /// A run of the program's kind, with an error log and singletons of its own.
  void generateInFiles(const Work& work) {
    const RunPaths paths{work.sample.templateFile(), work.sample.typologyFile(),
                         folder_ / "salida.bdl", folder_ / "fin.txt"};
    const std::optional<Fault> fault = faultOf([&] {
      Bar bar;
      RunGeneration(bar, paths);
    });
    expectGolden(work, fault, folder_.has("salida.bdl") ? folder_.read("salida.bdl") : "");
  }

  /// A run that ends in the fault number `kind`, whatever the number.
  void endInAFault(const Work& work, std::size_t kind) {
    switch (kind % 5) {
      case 0:
        expectFault(work, "En el fichero *.tip debe existir un COMMAND VIVIENDA", "vacía.tip", 0,
                    [] { TypologyRecord(SourceText("vacía.tip", "$ nada")); });
        break;
      case 1: {
        // A fault in the middle of the generation, with a place in the typology file.
        const std::string path = work.sample.typologyFile();
        expectFault(work, "", path, lineOf(path, "AREA-PLANTA"), [&] {
          TypologyRecord typology(textOf(path));
          typology.areaPlanta = 1;
          OutputLines lines;
          Bar bar;
          generate(*work.plantilla, typology, lines, bar);
        });
        break;
      }
      case 2:
        expectFault(work, "Error al escribir fichero: /dev/full", "/dev/full", 0, [&] {
          const TypologyRecord typology(textOf(work.sample.typologyFile()));
          fichero output("/dev/full", "escritura");
          Bar bar;
          generate(*work.plantilla, typology, output.lines(), bar);
          output.save();
        });
        break;
      case 3: {
        const std::string missing = folder_ / "no-existe.tip";
        expectFault(work, "Error al abrir fichero de lectura: " + missing, missing, 0,
                    [&] { textOf(missing); });
        break;
      }
      default: {
        const std::string missing = folder_ / "no-existe.tip";
        expectFault(work, "No existe el fichero de datos *.tip", missing, 0, [&] {
          Bar bar;
          RunGeneration(bar, {work.sample.templateFile(), missing, folder_ / "salida.bdl",
                              folder_ / "fin.txt"});
        });
      }
    }
  }

 private:
  static long lineOf(const std::string& path, const std::string& word) {
    const std::string text = readFile(path);
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(word));
    return std::count(text.begin(), end, '\n') + 1;
  }

  void expectGolden(const Work& work, const std::optional<Fault>& fault,
                    const std::string& output) {
    if (fault) findings_.add(work.sample, "ended in " + cp1252::toUtf8(fault->message));
    if (!fault && output != work.golden) {
      findings_.add(work.sample, firstDifference(work.golden, output));
    }
    expectAsBefore(work);
  }

  /// An empty `message` stands for any.
  template <typename Body>
  void expectFault(const Work& work, const std::string& message, const std::string& file, long line,
                   const Body& body) {
    const std::optional<Fault> fault = faultOf(body);
    if (!fault) {
      findings_.add(work.sample, "no fault: " + message);
    } else if (!message.empty() && cp1252::toUtf8(fault->message) != message) {
      findings_.add(work.sample, "another fault: " + cp1252::toUtf8(fault->message));
    } else if (!fault->place || fault->place->file != file || fault->place->line != line) {
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
      // Neighbours in the list, and so threads at the same time, share a template.
      for (std::size_t run = next++; run < total; run = next++) {
        const Work& mine = work[run % work.size()];
        worker.generateInMemory(mine);
        if (run % kFilesEvery == 0) worker.generateInFiles(mine);
        if (run % kFaultEvery == 0) worker.endInAFault(mine, faults++);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(0, findings.found()) << findings.shown();
  EXPECT_EQ(total / kFaultEvery, faults.load());
}
