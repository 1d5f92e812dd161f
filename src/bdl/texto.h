#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

/// A text that is searched over and over for the same patterns, mostly ever further on. It keeps
/// the last search of each pattern, so that many searches which end at the same place, or nowhere,
/// cost one walk: a library's thousands of commands may share one "..", or lack one keyword.
class Texto {
 public:
  explicit Texto(std::string bytes) : bytes_(std::move(bytes)) {}

  std::string_view bytes() const { return bytes_; }

  /// Position of the first `patron` at or after `desde`; npos when there is none.
  std::size_t buscar(std::string_view patron, std::size_t desde) {
    auto ultima = busquedas_.find(patron);
    if (ultima == busquedas_.end()) ultima = busquedas_.try_emplace(std::string(patron)).first;
    Busqueda& busqueda = ultima->second;
    if (desde < busqueda.desde || desde > busqueda.posicion) {
      busqueda = {desde, bytes().find(patron, desde)};
    }
    return busqueda.posicion;
  }

 private:
  struct Busqueda {
    std::size_t desde = 1;
    std::size_t posicion = 0;
  };

  std::string bytes_;
  std::map<std::string, Busqueda, std::less<>> busquedas_;
};
