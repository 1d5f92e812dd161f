#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

/// The process-wide utility object: owns the Error.log stream, carries a few physical constants
/// and offers the small text operations of the readers and the run driver. One a run, created
/// before any input is read and reached through `ErrorLog`.
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

  char abierto = 1;
  std::FILE* log;
  std::string tipoEdificio;  // compared with "OBJETO" by ReportError; nothing fills it
  float tolerancia = 0.01F;
  std::array<char, 48> buffer1{};
  std::array<char, 48> buffer2{};
  float sigma = 5.67e-8F;  // Stefan-Boltzmann constant, W/(m2 K4)
  std::array<int, 3> reservados = {-1, -1, 0};
};
