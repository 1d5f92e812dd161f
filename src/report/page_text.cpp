#include "report/page_text.h"

#include "report/words.h"

namespace report {

std::string m2(double value, int decimals) { return quantity(value, decimals, "m²"); }
std::string percent(double value) { return quantity(value, 1, "%"); }
std::string counted(Count count) { return number(static_cast<double>(count), 0); }

std::string plural(Count count, std::string_view one, std::string_view many) {
  return counted(count) + "\u00A0" + std::string(count == 1 ? one : many);
}

std::string looksTo(double azimuth) {
  return std::string(directionName(azimuth)) + ", " + degrees(azimuth);
}

std::string facadeName(const FacadeMeasure& facade) {
  if (facade.courtyard) return "Patio, mira al " + std::string(directionName(facade.azimuth));
  return std::string(facadeTitle(facade.side)) + " «" + std::string(kFacadeNames[facade.side]) +
         "»";
}

}  // namespace report
