#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Whether a building of the number cannot be without the measure of that keyword (AREA-PATIO,
/// PROFUNDIDAD-ESCALERA ...): left out it is 0, which is not within its limits. False for every
/// keyword that is no such measure.
bool needsMeasure(int tipo, std::string_view keyword);

/// "1 a 9, 13": the typology numbers for which `holds`, for people.
std::string tiposWhere(const std::function<bool(int)>& holds);
