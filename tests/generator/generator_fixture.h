#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/output_lines.h"
#include "core/platform.h"
#include "generator/generator_context.h"
#include "support/minimal_building.h"

/// The lines of a text without a line end after the last one, so that none is handed out twice.
std::string joined(const std::vector<std::string>& lines);

/// A table without surfaces and zones.
inline constexpr std::string_view kEmptyTable = "Tabla\nvacía\n0 0";

/// A table with these surface names and data lines, two a surface.
std::string tableOf(const std::vector<std::string>& namesAndData);

/// One generator on texts of its own, "casa.bdl", "casa.tbl" and "casa.tip" in messages. The
/// typology is a house of 100 m2 (10 m x 10 m), unless a test brings another; it may change the
/// record before it uses the context.
class GeneratorRun {
 public:
  explicit GeneratorRun(const std::vector<std::string>& templateLines,
                        std::string_view table = kEmptyTable,
                        std::string_view typology = MinimalBuilding::kTypology);

  const Template& plantilla() const { return template_; }
  TypologyRecord& typology() { return typology_; }
  GeneratorContext& context() { return context_; }

  /// The whole generation, which makes a context of its own.
  void generate(TProgressBar& bar);

  /// The lines of the output: after a stop that a test has caught, those so far.
  std::vector<std::string> finish() const;
  /// The same without the typology text, with which the output of a whole generation ends.
  std::vector<std::string> finishWithoutTypology() const;

 private:
  Template template_;
  TypologyRecord typology_;
  OutputLines output_;
  GeneratorContext context_;
};

/// Where the fault that ends `body` stands, and in brackets the characters that it is about:
/// "casa.tip:4:18 [30]". Bytes as they are. "(no fault)" and "(no place)" where there is none.
std::string placeOfFault(const std::function<void()>& body);

/// A progress bar without an end that remembers its positions.
class RecordingBar : public TProgressBar {
 public:
  explicit RecordingBar(int start = 0) : position_(start) {}
  int GetPosition() const override { return position_; }
  void SetPosition(int position) override {
    position_ = position;
    positions.push_back(position);
  }
  std::vector<int> positions;

 private:
  int position_;
};
