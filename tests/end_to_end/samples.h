#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

/// A dwelling of samples/, and the output that is known to be right for it.
struct Sample {
  std::string building;  // folder and base name of the template
  std::string typology;  // typology file without its extension

  std::string templateFile() const { return file(building + ".bdl"); }
  std::string tableFile() const { return file(building + ".tbl"); }
  std::string typologyFile() const { return file(typology + ".tip"); }
  std::string goldenFile() const;

 private:
  std::string file(const std::string& name) const;
};

/// How a test's listing names its sample.
void PrintTo(const Sample& sample, std::ostream* out);

/// All of them, in a fixed order.
std::vector<Sample> allSamples();

/// The first line in which two texts differ, for a reader of the test's report.
std::string firstDifference(const std::string& golden, const std::string& output);
