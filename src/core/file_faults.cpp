#include "core/file_faults.h"

#include "core/concat.h"

Fault cannotOpenForReading(const std::string& path) {
  return {concat("Error al abrir fichero de lectura: ", path), wholeFile(path)};
}

Fault cannotRead(const std::string& path) {
  return {concat("Error al leer fichero: ", path), wholeFile(path)};
}

Fault cannotOpenForWriting(const std::string& path) {
  return {concat("Error al abrir fichero de escritura: ", path), wholeFile(path)};
}

Fault cannotWrite(const std::string& path) {
  return {concat("Error al escribir fichero: ", path), wholeFile(path)};
}
