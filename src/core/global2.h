#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

/// The utility object of a run: owns the Error.log stream and offers the small text operations of
/// the readers and the run driver. Created before any input is read and reached through `ErrorLog`.
class Global2 {
 public:
  /// Opens `ruta` for writing: created or emptied. A file that cannot be opened leaves `log` null
  /// and is nobody's error: the log only accompanies a run.
  explicit Global2(const std::string& ruta);
  virtual ~Global2();
  Global2(const Global2&) = delete;
  Global2& operator=(const Global2&) = delete;

  /// Writes `texto` to the log as it is: no line end, no time stamp.
  void escribir(std::string_view texto);
  /// Closes the log. A second call does nothing.
  void cerrar();

  /// Wraps `cadena` in double quotes.
  static void entrecomillar(std::string& cadena);
  /// Replaces every `de` of `cadena` by `por`.
  static void reemplazarCaracter(std::string& cadena, char de, char por);
  /// Replaces the extension of `ruta`: the characters behind its last "."; three characters go in
  /// without a dot ("tbl"), any other number brings its own (".dat"). The rule counts on an old
  /// extension of three characters: the path keeps its length with three new ones and grows by
  /// n - 4 with n others, whatever was there ("casa.bdlx" becomes "casa.tblx"). A path without
  /// any dot gets the extension appended.
  static void cambiarExtension(std::string& ruta, std::string_view extension);
  /// Takes a name and does nothing with it; the defaults library passes its names here.
  static void traza(std::string_view cadena);

  std::FILE* log;  // null where it could not be opened

  // State that nothing reads, or nothing fills: it belongs to the unit's life, and nothing depends
  // on it but what is said here.
  char abierto = 1;          // 1: the destructor closes the log
  std::string tipoEdificio;  // compared with "OBJETO" by ReportError; nothing fills it
  float tolerancia = 0.01F;
  std::array<char, 48> buffer1{};
  std::array<char, 48> buffer2{};
  float sigma = 5.67e-8F;  // Stefan-Boltzmann constant, W/(m2 K4)
  std::array<int, 3> reservados = {-1, -1, 0};
};
