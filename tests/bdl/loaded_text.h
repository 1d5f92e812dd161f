#pragma once

#include <string>
#include <string_view>

#include "bdl/leer_bdl.h"
#include "support/temporary_folder.h"

/// A building description text in a file of its own, loaded.
class LoadedText {
 public:
  explicit LoadedText(std::string_view text)
      : path(folder_.write("modelo.inp", text)), model(path) {}

  /// The message of a fault in this file.
  std::string message(std::string_view fault) const {
    return "Error en el fichero " + path + ": " + std::string(fault);
  }

 private:
  TemporaryFolder folder_;

 public:
  const std::string path;
  LeerBDL model;
};

/// A command or block's text, or what stands for a missing one.
inline std::string textOf(const LeerBDL& piece) {
  return std::string(piece.obtenerTexto().value_or("(not found)"));
}
