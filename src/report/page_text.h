#pragma once

#include <string>
#include <string_view>

#include "report/generated_building.h"
#include "report/measures.h"

/// Figures and names as the page of a report writes them, UTF-8.
namespace report {

std::string m2(double value, int decimals = 2);
std::string percent(double value);
std::string counted(Count count);
std::string plural(Count count, std::string_view one, std::string_view many);
/// "sureste, 135°".
std::string looksTo(double azimuth);
/// "Fachada principal «sur»", "Patio, mira al sureste".
std::string facadeName(const FacadeMeasure& facade);

}  // namespace report
