#include "report/words.h"

#include <array>
#include <charconv>
#include <cmath>

namespace report {

namespace {

struct Sector {
  double to;  // degrees, the last one inside
  std::string_view symbol;
  std::string_view name;
};

constexpr Sector kSectors[] = {
    {22.5, "N", "norte"},   {60, "NE", "noreste"},     {111, "E", "este"},
    {162, "SE", "sureste"}, {198, "S", "sur"},         {249, "SO", "suroeste"},
    {300, "O", "oeste"},    {337.5, "NO", "noroeste"}, {360, "N", "norte"},
};

const Sector& sectorOf(double azimuth) {
  // A thousandth of a degree: what a turn in 32-bit reals may add.
  for (const Sector& sector : kSectors) {
    if (azimuth <= sector.to + 1e-3) return sector;
  }
  return kSectors[0];
}

}  // namespace

std::string number(double value, int decimals) {
  if (!std::isfinite(value)) return "—";
  std::array<char, 400> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(value),
                                 std::chars_format::fixed, decimals);
  std::string text(digits.data(), end.ptr);
  const bool isZero = text.find_first_not_of("0.") == std::string::npos;
  const std::size_t point = std::min(text.find('.'), text.size());
  if (point < text.size()) text[point] = ',';
  if (point > 4) {
    for (std::size_t at = point; at > 3; at -= 3) {
      if (at - 3 > 0) text.insert(at - 3, "\u202F");
    }
  }
  return (value < 0 && !isZero ? "−" : "") + text;
}

std::string shortNumber(double value, int decimals) {
  std::string text = number(value, decimals);
  if (text.find(',') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == ',') text.pop_back();
  return text == "−0" ? "0" : text;
}

std::string quantity(double value, int decimals, std::string_view unit) {
  return number(value, decimals) + "\u00A0" + std::string(unit);
}

double foldedDegrees(double degrees) {
  const double folded = std::fmod(degrees, 360.0);
  return folded < 0 ? folded + 360 : folded;
}

double realAzimuth(Facade side, double giro) {
  constexpr std::array<double, 4> kDrawn = {180, 90, 0, 270};
  return foldedDegrees(kDrawn[static_cast<std::size_t>(side)] + giro);
}

std::string_view directionName(double azimuth) { return sectorOf(azimuth).name; }
std::string_view directionSymbol(double azimuth) { return sectorOf(azimuth).symbol; }
std::string degrees(double azimuth) { return shortNumber(azimuth, 1) + "°"; }

std::string_view facadeTitle(Facade side) {
  if (side == kSouth) return "Fachada principal";
  return side == kNorth ? "Fachada posterior" : "Fachada lateral";
}

}  // namespace report
