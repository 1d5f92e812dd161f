#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/checker.h"
#include "support/temporary_folder.h"

/// The four inputs of a run as texts, and what a run and a check make of the same files.
struct Inputs {
  std::string building;
  std::string table;
  std::string typology;
  std::string defaults;

  /// A sample's folder under samples/ and one of its typologies, without its extension.
  static Inputs ofSample(const std::string& folder, const std::string& typology);
  static Inputs minimal();

  /// As casa.bdl, casa.tbl, casa.tip and defectos.inp.
  void writeInto(const TemporaryFolder& folder) const;
};

/// Carries the run of casa.* in `folder` out in this process and gives the fault that ends it.
std::optional<Fault> faultOfRun(const TemporaryFolder& folder);
/// The check of the same files.
Findings findingsOfCheck(const TemporaryFolder& folder);

/// Names, sizes and times of everything in a folder: equal when nothing was written.
std::vector<std::string> stateOf(const TemporaryFolder& folder);

std::vector<std::string> messagesOf(const Findings& findings, Severity severity);

/// How run and check contradict each other; empty when they do not. The first error must be the
/// run's fault, word for word and at its place, where the run succeeds there must be none, errors
/// stand in front, and the check may not write.
std::string contradiction(const TemporaryFolder& folder);
