#pragma once

#include <string>

#include "typology/facade.h"

/// The dwelling block that a typology file (*.tip) describes: the checked values of its VIVIENDA
/// command, and the texts that are written into the generated building as they are. A record that
/// exists has passed every check; the first one that fails ends the run.
///
/// Names of constructions and glass keep the double quotes of the file, since they are written back
/// with them. Lengths in m, areas in m2, angles in degrees.
struct TypologyRecord {
  /// Reads and checks the file `ruta`.
  explicit TypologyRecord(const std::string& ruta);
  virtual ~TypologyRecord() = default;

  std::string ruta;  // the file, for messages

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

  // Filled by the plan geometry, read by the window emitter.
  PerFacade<int> numHuecosFachada{};     // window bays, street side
  PerFacade<int> numHuecosPatio{};       // window bays, courtyard and stair-well side
  PerFacade<float> superficieFachada{};  // m2, wall that the street bays share, all storeys
  PerFacade<float> superficiePatio{};    // m2, wall that the courtyard bays share

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

  std::string textoTipologia;      // the file, byte for byte
  std::string textoMarco;          // the NAME-FRAME command that ventanaMarco names, or empty
  std::string textoSombra;         // the VENTANA-SOMBRA command that ventanaSombra names, or empty
  std::string textoPosicionSolar;  // the SOLAR-POSITION command, or empty

  float airChangesHr = 1.0F;  // air changes per hour
};
