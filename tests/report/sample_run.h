#pragma once

#include <functional>
#include <memory>
#include <random>
#include <string>

#include "generator/template.h"
#include "report/building_report.h"
#include "typology/typology_record.h"

/// A run of a random typology on the sample template of its family, and the report of it.
struct SampleRun {
  std::string typologyText;
  std::string output;
  std::shared_ptr<Template> plantilla;
  std::unique_ptr<TypologyRecord> typology;
  report::Report report;

  const Plan& plan() const { return report.sheet->plan; }
  const report::Measures& measures() const { return *report.measures; }
  const report::GeneratedBuilding& building() const { return *report.building; }
};

/// `storeys`: of families that may have any number of them. `other`: whose template is taken.
SampleRun sampleRun(const PlanData& plan, std::mt19937& random, int storeys = 0,
                    const SampleRun* other = nullptr);

/// Calls `body` with five random runs of each kind of building.
void forRandomRuns(const std::function<void(const SampleRun&)>& body);
