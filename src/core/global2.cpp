#include "core/global2.h"

#include <algorithm>

Global2::Global2(const std::string& ruta) : log(std::fopen(ruta.c_str(), "w")) {}

Global2::~Global2() {
  if (abierto == 1) cerrar();
}

void Global2::escribir(std::string_view texto) {
  if (log != nullptr) std::fwrite(texto.data(), 1, texto.size(), log);
}

void Global2::cerrar() {
  if (log != nullptr) std::fclose(log);
  log = nullptr;
}

void Global2::entrecomillar(std::string& cadena) { cadena = '"' + cadena + '"'; }

void Global2::reemplazarCaracter(std::string& cadena, char de, char por) {
  std::replace(cadena.begin(), cadena.end(), de, por);
}

void Global2::cambiarExtension(std::string& ruta, std::string_view extension) {
  constexpr std::size_t kOldExtension = 3;  // the length that the rule counts on
  const std::size_t length = ruta.size();
  const std::size_t dot = ruta.rfind('.');
  if (dot == std::string::npos) {
    if (extension.size() == kOldExtension) ruta += '.';
    ruta += extension;
    return;
  }
  const bool dotStays = extension.size() == kOldExtension;
  const std::size_t start = dotStays ? dot + 1 : dot;
  const std::size_t grown = length + extension.size();
  const std::size_t end = dotStays ? length : grown - std::min(grown, kOldExtension + 1);
  ruta.resize(std::max(length, start + extension.size()));
  ruta.replace(start, extension.size(), extension);
  ruta.resize(std::min(end, ruta.size()));
}

void Global2::traza(std::string_view /*cadena*/) {}
