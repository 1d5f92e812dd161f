#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform.h"
#include "generator/generator_context.h"
#include "support/temporary_folder.h"

/// The lines of a file without a line end after the last one, so that none is handed out twice.
std::string joined(const std::vector<std::string>& lines);

/// A table file without surfaces and zones.
inline constexpr std::string_view kEmptyTable = "Tabla\nvacía\n0 0";

/// A table file with these surface names and data lines, two a surface.
std::string tableOf(const std::vector<std::string>& namesAndData);

/// One generator on small files of its own, prepared with a house of 100 m2 (10 m x 10 m) whose
/// record a test then changes.
class GeneratorRun {
 public:
  explicit GeneratorRun(const std::vector<std::string>& templateLines,
                        std::string_view table = kEmptyTable);

  GeneratorContext& context() { return *context_; }
  TypologyRecord& typology() { return context_->typology(); }
  std::string path(std::string_view name) const { return folder_ / name; }

  /// Ends the generator, which writes its output, and gives the lines. After a stop that a test has
  /// caught these are the lines so far.
  std::vector<std::string> finish();

  static constexpr std::string_view kTemplateName = "casa.bdl";
  static constexpr std::string_view kTypologyName = "casa.tip";

 private:
  TemporaryFolder folder_;
  std::optional<GeneratorContext> context_;
};

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
