#pragma once

#include <string>
#include <string_view>

#include "bdl/leer_bdl.h"
#include "core/source_text.h"

/// A building description text, as if loaded from "modelo.inp".
class LoadedText {
 public:
  explicit LoadedText(std::string_view text) : source_("modelo.inp", text), model(source_) {}

  /// The message of a fault in this text.
  static std::string message(std::string_view fault) {
    return "Error en el fichero modelo.inp: " + std::string(fault);
  }

 private:
  SourceText source_;

 public:
  LeerBDL model;
};

/// A command or block's text, or what stands for a missing one.
inline std::string textOf(const LeerBDL& piece) {
  return std::string(piece.obtenerTexto().value_or("(not found)"));
}
