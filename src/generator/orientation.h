#pragma once

#include <array>
#include <string_view>

#include "typology/typology_record.h"

/// Which way a surface looks. Walls have the class 0 to 7, an index into kOrientationNames.
inline constexpr int kFacesUp = -1;    // roof
inline constexpr int kFacesDown = -2;  // floor

inline constexpr std::array<std::string_view, 8> kOrientationNames = {
    "NORTE", "NORESTE", "ESTE", "SURESTE", "SUR", "SUROESTE", "OESTE", "NOROESTE"};

/// Class of a surface from its azimuth (clockwise from north) and tilt (0 up, 90 a wall, 180
/// down), in degrees. The sectors are uneven on purpose: north is 120 degrees wide, so NORESTE and
/// NOROESTE never occur, south 36, the others 51.
int classifyOrientation(float azimuth, float tilt);

/// Façade that a wall of this class belongs to: SURESTE, SUR and SUROESTE to the south, ESTE to
/// the east, NORTE to the north, any other to the west.
Facade facadeIndex(int orientationClass);
