#pragma once

#include <ostream>
#include <string>

#include "faults/promise.h"

/// The runs that are walked: a good one, and two that end in a message of their own, one before
/// anything is generated and one in the middle of it.
struct Scenario {
  const char* name;
  const char* ownMessage;  // empty: a good run
  void (*spoil)(Workplace&);
  const char* locale = "es_ES.UTF-8";  // one of those built with the tests
};

inline void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

inline void replaceInInput(Workplace& place, const std::string& name, const std::string& from,
                           const std::string& to) {
  std::string text = place.input(name);
  text.replace(text.find(from), from.size(), to);  // throws when the sample has changed
  place.writeInput(name, text);
}

inline const Scenario kScenarios[] = {
    {"GoodRun", "", [](Workplace&) {}},
    {"TypologyError", "En el fichero *.tip debe existir un COMMAND VIVIENDA",
     [](Workplace& place) { replaceInInput(place, "casa.tip", "VIVIENDA", "VIVENDA"); }},
    {"TemplateError",
     "Error al generar el edificio. No se ha encontrado la clave: BUILD-PARAMETERS",
     [](Workplace& place) {
       replaceInInput(place, "casa.bdl", "BUILD-PARAMETERS", "OTHER-PARAMETERS");
     }},
    // The message is converted for the terminal, which takes calls of its own.
    {"PlanErrorInLatin1", "\xC1rea de planta no v\xE1lida. Debe ser >30 y <1000",
     [](Workplace& place) {
       replaceInInput(place, "casa.tip", "AREA-PLANTA", "AREA-PLANTA = 3 $");
     },
     "es_ES.ISO-8859-1"},
};

/// The user's locale: a Spanish one, so that its files are read too.
inline std::vector<std::string> environmentOf(const Scenario& scenario) {
  return {std::string("LOCPATH=") + LOCALE_FOLDER, std::string("LC_ALL=") + scenario.locale};
}

/// Whether a run with a fault went as if there had been none. (What the terminal's encoding lacks,
/// or cannot be converted, would be a question mark.)
inline bool wentItsWay(const Scenario& scenario, const Verdict& verdict, const FaultedRun& run) {
  if (*scenario.ownMessage == '\0') return verdict.ending == Ending::kComplete;
  return verdict.ending == Ending::kMessage &&
         messageLine(run.err) == kErrorCaption + std::string(scenario.ownMessage) + "\n" &&
         run.err.find('?') == std::string::npos;
}
