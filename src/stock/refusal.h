#pragma once

#include <optional>
#include <string>

#include "core/fault.h"

namespace stock {

/// Thrown where a row turns out not to give a dwelling. Caught where the row's outcome is made.
struct Refusal {
  std::string code;     // a word people filter by
  std::string message;  // bytes as cp1252::toUtf8 reads them
  std::optional<Place> place;
};

/// Codes of what can be wrong with a row itself; those of a run's messages are check's.
inline constexpr const char* kBadId = "id-no-valido";
inline constexpr const char* kRepeatedId = "id-repetido";
inline constexpr const char* kBadRow = "fila-mal-formada";
inline constexpr const char* kBadNumber = "numero-no-valido";
inline constexpr const char* kBadText = "texto-no-valido";
inline constexpr const char* kMissingCell = "falta-celda";
inline constexpr const char* kMissingTexts = "falta-fichero";

}  // namespace stock
