#pragma once

#include <string>

#include "core/report_error.h"
#include "core/source_text.h"

/// The input files of a run. A run, a check and a list of dwellings look for them and read them in
/// the same order, so that they end with the same message.

struct InputPaths {
  std::string building;  // template, *.bdl
  std::string table;     // the same path with the extension "tbl"
  std::string typology;  // *.tip
  std::string defaults;  // defectos.inp in the template's folder
};

/// A path of `folder` and `name`; one that is too long ends the run.
std::string composedPath(const std::string& folder, const std::string& name);

/// The text of the file `path`; one that cannot be read ends the run.
SourceText readText(const std::string& path);

/// Where the inputs of a template and a typology lie. One that is missing is a fault.
InputPaths requireInputs(const std::string& templateFile, const std::string& typologyFile,
                         const FaultSink& faults = endRunWith);

/// The same for one who has a typology alone.
void requireTypology(const std::string& typologyFile, const FaultSink& faults = endRunWith);

struct TemplateTexts {
  SourceText building;
  SourceText table;
};

/// Reads what does not depend on the typology: the defaults library, which is checked and then
/// forgotten, the template and its table.
TemplateTexts readTemplateTexts(const InputPaths& paths);
