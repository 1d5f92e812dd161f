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
  constexpr std::size_t kContados = 3;  // characters that the rule takes the old extension to have
  const bool sinPunto = extension.size() == kContados;  // "tbl"; any other brings its own: ".dat"
  const std::size_t punto = ruta.rfind('.');
  if (punto == std::string::npos) {
    if (sinPunto) ruta += '.';
    ruta += extension;
    return;
  }
  // The new characters go over the old ones, of which those behind the counted ones stay.
  const std::size_t largo = ruta.size();
  ruta.replace(sinPunto ? punto + 1 : punto, extension.size(), extension);
  const std::size_t cubiertos = sinPunto ? kContados : kContados + 1;
  const std::size_t fin = std::max(largo + extension.size(), cubiertos) - cubiertos;
  ruta.resize(std::min(ruta.size(), fin));
}

void Global2::traza(std::string_view /*cadena*/) {}
