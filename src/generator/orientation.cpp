#include "generator/orientation.h"

namespace {
enum { kNorte = 0, kEste = 2, kSureste = 3, kSur = 4, kSuroeste = 5, kOeste = 6 };
}

int classifyOrientation(float azimuth, float tilt) {
  if (tilt < 0) tilt += 360;
  if (tilt < 60 || tilt > 300) return kFacesUp;
  if (tilt > 150 && tilt < 210) return kFacesDown;

  if (azimuth < 0) azimuth += 360;
  if (azimuth < 60 || azimuth > 300) return kNorte;
  if (azimuth < 111) return kEste;
  if (azimuth < 162) return kSureste;
  if (azimuth <= 198) return kSur;
  if (azimuth <= 249) return kSuroeste;
  return kOeste;
}

Facade facadeIndex(int orientationClass) {
  switch (orientationClass) {
    case kSureste:
    case kSur:
    case kSuroeste:
      return kSouth;
    case kEste:
      return kEast;
    case kNorte:
      return kNorth;
    default:
      return kWest;
  }
}
