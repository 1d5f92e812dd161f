#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/source_text.h"
#include "typology/facade.h"

/// The dwelling block that a typology file (*.tip) describes: the checked values of its VIVIENDA
/// command (see vivienda_keywords.h), and the texts that are written into the generated building as
/// they are. A record that is made for a run has passed every check: the first one that fails ends
/// the run. One that is made with a list of faults holds what could be read.
///
/// Names of constructions and glass keep the double quotes of the file, since they are written back
/// with them. Lengths in m, areas in m2, angles in degrees.
struct TypologyRecord {
  /// Reads and checks the text of a typology file.
  explicit TypologyRecord(SourceText tip);
  /// The same for a check, which wants to know all that is wrong: `faults` receives what a run
  /// would end with, and behind it what the next ones would; the record holds what could be read.
  TypologyRecord(SourceText tip, std::vector<Fault>& faults);
  /// What `alike` holds, as read from `tip`: for whoever knows that the two texts differ in values
  /// alone, and sets these.
  TypologyRecord(const TypologyRecord& alike, SourceText tip);
  virtual ~TypologyRecord() = default;

  int tipo = 0;
  int numeroPlantas = 0;
  float alturaPlanta = 3.0F;      // m
  float areaPlanta = 0;           // m2
  float areaPatio = 0;            // m2
  float areaEscalera = 0;         // m2
  float longitudFachada = 0;      // m
  float profundidadPatio = 0;     // m
  float profundidadEscalera = 0;  // m

  // Whatever the file says, every generated building has a flat roof, no attic and no basement.
  std::string cubierta = "PLANA";
  std::string atico = "NO";
  std::string sotano = "NO";

  PerFacade<float> porcentajeFachada{};  // glazing, percent of the wall
  PerFacade<float> porcentajePatio{};
  float orientacion = 0;  // degrees

  std::string murosFachada;
  std::string particionInteriorVertical;
  std::string medianera;
  std::string suelos;
  std::string particionInteriorHorizontal;
  std::string cubiertas;
  std::string ventanaVidrio;
  std::string ventanaMarco;   // empty: none
  std::string ventanaSombra;  // empty: none

  std::string textoMarco;          // the NAME-FRAME command that ventanaMarco names, or empty
  std::string textoSombra;         // the VENTANA-SOMBRA command that ventanaSombra names, or empty
  std::string textoPosicionSolar;  // the SOLAR-POSITION command, or empty

  float airChangesHr = 1.0F;  // air changes per hour

  /// The file, byte for byte.
  std::string_view textoTipologia() const { return fuente_->bytes(); }
  const SourceText& fuente() const { return *fuente_; }
  /// Where the value of a keyword of VIVIENDA stands, searched for as it was read; the command's
  /// type word where the file does not give the keyword. Nothing is kept for it: nearly all runs
  /// end without asking.
  Place placeOf(std::string_view keyword) const;

 private:
  /// One thing that is read after the other, each of which may end the run.
  using Step = std::function<void()>;
  void read(const std::function<void(const Step&)>& carryOut);

  std::shared_ptr<const SourceText> fuente_;
};

/// A record of no file: every field holds what the absence of its keyword means.
TypologyRecord defaultTypology();
