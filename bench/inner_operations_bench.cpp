#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "app/run_generation.h"
#include "core/fichero.h"
#include "core/line_reader.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "generator/generation_sequence.h"
#include "generator/name_list.h"
#include "generator/template.h"
#include "typology/typology_record.h"

namespace fs = std::filesystem;

namespace {

/// No benchmark fails; one that does says so and ends.
class BenchApplication : public TApplication {
 public:
  void ProcessMessages() override {}
  void MessageBox(std::string_view text, std::string_view) override {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  }

 private:
  void endProcess(int status) override { std::exit(status); }
};

class BenchBar : public TProgressBar {
 public:
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override { position_ = position; }

 private:
  int position_ = 0;
};

/// A folder in memory, so that the disk is not what is measured.
fs::path memoryFolder() {
  static const fs::path folder = [] {
    const char* shared = "/dev/shm";
    const fs::path root = access(shared, W_OK | X_OK) == 0 ? shared : fs::temp_directory_path();
    fs::path own = root / ("tip2bdl-bench-" + std::to_string(getpid()));
    fs::create_directories(own);
    return own;
  }();
  return folder;
}

std::string wallName(std::int64_t i) {
  return "\"P01_E01_Muro" + std::to_string(100000 + i) + "\"";
}

std::string templateText(std::int64_t lines) {
  std::string text;
  for (std::int64_t i = 0; i < lines; i += 4) {
    text += wallName(i) + " = EXTERIOR-WALL\n   CONSTRUCTION = \"Muro_Fachada\"\n" +
            "   LOCATION = EDGE-1\n   ..\n";
  }
  return text;
}

// The template line by line: the generator's outer loop without its work.
void BM_HandOutLines(benchmark::State& state) {
  const std::string text = templateText(state.range(0));
  std::string_view line;
  for (auto _ : state) {
    LineReader reader(text);
    while (reader.ReadLine(line)) benchmark::DoNotOptimize(line.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_HandOutLines)->RangeMultiplier(8)->Range(1 << 10, 1 << 16);

// One template line looked up among so many names: the time must not depend on their number.
void BM_FindKey(benchmark::State& state) {
  std::vector<std::string> names;
  for (std::int64_t i = 0; i < state.range(0); ++i) names.push_back(wallName(i));
  const std::vector<std::string_view> views(names.begin(), names.end());
  const NameList list(views);
  LineMatch match;
  for (auto _ : state) {
    benchmark::DoNotOptimize(findKey("   CONSTRUCTION = \"Muro_Fachada\"", list, match));
    benchmark::DoNotOptimize(findKey("\"P01_E01_Muro100007\" = EXTERIOR-WALL", list, match));
  }
  state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(BM_FindKey)->RangeMultiplier(10)->Range(10, 10000);

void BM_FormatReal(benchmark::State& state) {
  float value = 12.345678F;
  for (auto _ : state) {
    benchmark::DoNotOptimize(value);
    benchmark::DoNotOptimize(formatReal(value));
  }
}
BENCHMARK(BM_FormatReal);

void BM_ScanReal(benchmark::State& state) {
  for (auto _ : state) {
    std::string_view text = "  18.125 ";
    float value = 0;
    benchmark::DoNotOptimize(scanReal(text, value));
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BM_ScanReal);

fs::path sampleBlock() { return fs::path(SOURCE_FOLDER) / "samples" / "bloque-patio"; }

SourceText textOf(const fs::path& path) { return fichero(path.string(), "lectura").takeText(); }

// One more dwelling of a template that has been read: the typology and the generation.
void BM_GenerationWithTheTemplateRead(benchmark::State& state) {
  const Template plantilla(textOf(sampleBlock() / "bloque-patio.bdl"),
                           textOf(sampleBlock() / "bloque-patio.tbl"));
  const SourceText tip = textOf(sampleBlock() / "tipo-13.tip");
  for (auto _ : state) {
    const TypologyRecord typology(SourceText(tip.name(), tip.bytes()));
    OutputLines output;
    BenchBar bar;
    generate(plantilla, typology, output, bar);
    benchmark::DoNotOptimize(output.count());
  }
}
BENCHMARK(BM_GenerationWithTheTemplateRead)->Unit(benchmark::kMicrosecond);

// A whole run on a sample block, its files in memory.
void BM_WholeGeneration(benchmark::State& state) {
  const RunPaths paths = {sampleBlock() / "bloque-patio.bdl", sampleBlock() / "tipo-13.tip",
                          memoryFolder() / "salida.bdl", memoryFolder() / "fin.txt"};
  for (auto _ : state) {
    BenchBar bar;
    RunGeneration(bar, paths);
  }
}
BENCHMARK(BM_WholeGeneration)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char* argv[]) {
  static BenchApplication application;
  Application = &application;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  fs::remove_all(memoryFolder());
}
