#pragma once

#include <string>
#include <string_view>

#include "typology/facade.h"

/// Numbers and directions as raters read them, UTF-8.
namespace report {

/// What every report says of itself.
inline constexpr std::string_view kModelOnly =
    "Describe el modelo generado, no el edificio real; las superficies son las del modelo, sin "
    "espesor de muros.";

/// `value` with a decimal comma; four digits stand together, from five on a narrow blank parts the
/// thousands. Never "-0".
std::string number(double value, int decimals);
/// `value` as short as `decimals` at most allow: 30, 12,5.
std::string shortNumber(double value, int decimals);
/// `number` with a unit behind a blank that does not break.
std::string quantity(double value, int decimals, std::string_view unit);

/// Where a side of the drawing really looks, degrees clockwise from geographic north, 0 to 360,
/// after the building has been turned clockwise by `giro`.
double realAzimuth(Facade side, double giro);
/// `degrees` folded into 0 to 360.
double foldedDegrees(double degrees);

/// The eight directions: "norte", "noreste", ... The sectors are those of the practice with the
/// regulation: the classes of the windows, with their wide north divided.
std::string_view directionName(double azimuth);
/// "N", "NE", "E", "SE", "S", "SO", "O", "NO".
std::string_view directionSymbol(double azimuth);
/// "135°", with a decimal where there is one.
std::string degrees(double azimuth);

/// "Fachada principal", "Fachada lateral", "Fachada posterior".
std::string_view facadeTitle(Facade side);

inline constexpr Facade kSides[] = {kSouth, kEast, kNorth, kWest};

}  // namespace report
