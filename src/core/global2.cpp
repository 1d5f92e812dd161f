#include "core/global2.h"

#include <algorithm>

#include "core/open_file.h"

Global2::Global2(const std::string& ruta) : log(openFile(ruta, "w")) {}

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
  // Each is written, replaced or not: that goes in blocks.
  for (char& c : cadena) c = c == de ? por : c;
}

void Global2::cambiarExtension(std::string& ruta, std::string_view extension) {
  constexpr std::size_t kCounted = 3;  // characters that the rule takes the old extension to have
  const std::size_t dot = ruta.rfind('.');
  const bool withoutDot = extension.size() == kCounted;  // "tbl"; any other brings its own: ".dat"
  if (dot == std::string::npos) {
    if (withoutDot) ruta += '.';
    ruta += extension;
    return;
  }
  // The new characters go over the old ones; then the path is cut where it would end if the old
  // extension had had its three.
  const std::size_t length = ruta.size();
  ruta.replace(withoutDot ? dot + 1 : dot, extension.size(), extension);
  const std::size_t grown = length + extension.size();
  const std::size_t end = grown > kCounted + 1 ? grown - (kCounted + 1) : 0;
  ruta.resize(std::min(ruta.size(), withoutDot ? length : end));
}

void Global2::traza(std::string_view /*cadena*/) {}
