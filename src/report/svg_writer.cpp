#include "report/svg_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/concat.h"
#include "core/cp1252.h"

namespace report {

namespace {

enum class Ink { kNone, kInk, kPaper, kTone1, kTone2, kTone3, kGlass };

struct InkRow {
  std::string_view colour;    // of a file, which is printed
  std::string_view variable;  // of a page
};

constexpr std::array<InkRow, 7> kInks = {{
    {"none", "none"},
    {"#000", "var(--tinta)"},
    {"#fff", "var(--papel)"},
    {"#f4f1ea", "var(--tono1)"},
    {"#d9d4c8", "var(--tono2)"},
    {"#b4aea0", "var(--tono3)"},
    {"#4a6c8c", "var(--hueco)"},
}};

/// How a sign looks. Widths in mm: each is about twice the next.
struct Looks {
  std::string_view name;
  Ink stroke;
  double width;
  Ink fill;
  std::string_view more;
};

constexpr std::array<Looks, static_cast<std::size_t>(Sign::kLast)> kLooks = {{
    {"trama", Ink::kInk, 0.18, Ink::kNone, ""},
    {"particion", Ink::kInk, 0.35, Ink::kNone, "stroke-linecap:square"},
    {"fachada", Ink::kInk, 0.7, Ink::kNone, "stroke-linecap:square"},
    {"medianera", Ink::kInk, 0.7, Ink::kNone, "stroke-dasharray:3 1.4"},
    {"corte", Ink::kPaper, 1.1, Ink::kNone, ""},
    {"ventana", Ink::kInk, 0.18, Ink::kNone, ""},
    {"pano", Ink::kInk, 0.18, Ink::kNone, ""},
    {"cota", Ink::kInk, 0.18, Ink::kNone, ""},
    {"tope", Ink::kInk, 0.35, Ink::kNone, ""},
    {"guia", Ink::kInk, 0.18, Ink::kNone, ""},
    {"norte", Ink::kInk, 0.35, Ink::kNone, "stroke-linejoin:miter"},
    {"escala", Ink::kInk, 0.18, Ink::kInk, ""},
    {"escala0", Ink::kInk, 0.18, Ink::kPaper, ""},
    {"linea", Ink::kInk, 0.18, Ink::kNone, ""},
    {"terreno", Ink::kInk, 1.0, Ink::kNone, ""},
    {"muro", Ink::kInk, 0.5, Ink::kTone1, ""},
    {"contorno", Ink::kInk, 0.5, Ink::kNone, "stroke-linecap:square"},
    {"forjado", Ink::kInk, 0.18, Ink::kNone, ""},
    {"hueco", Ink::kInk, 0.18, Ink::kGlass, ""},
    {"cubierta", Ink::kTone1, 0.18, Ink::kTone1, ""},
    {"luz", Ink::kTone2, 0.18, Ink::kTone2, ""},
    {"sombra", Ink::kTone3, 0.18, Ink::kTone3, ""},
    {"vidrio", Ink::kGlass, 0.1, Ink::kGlass, ""},
}};

constexpr double kFontOfCapitals = 1 / 0.716;

std::string_view inkName(Ink ink, SvgPlace place) {
  const InkRow& row = kInks[static_cast<std::size_t>(ink)];
  return place == SvgPlace::kFile ? row.colour : row.variable;
}

const Looks& looksOf(Sign sign) { return kLooks[static_cast<std::size_t>(sign)]; }

void writePath(std::string& out, const Shape& shape) {
  out += "<path class=\"";
  out += looksOf(shape.sign).name;
  out += "\" d=\"";
  for (const std::vector<Point>& points : shape.lines) {
    std::string lastX, lastY;
    for (const Point& point : points) {
      const std::string x = coordinate(point.x), y = coordinate(point.y);
      if (&point == &points.front()) {
        out += concat("M", x, " ", y);
      } else if (y == lastY) {
        out += concat("H", x);
      } else if (x == lastX) {
        out += concat("V", y);
      } else {
        out += concat("L", x, " ", y);
      }
      lastX = x;
      lastY = y;
    }
    if (shape.closed) out += "Z";
  }
  out += "\"/>\n";
}

/// The heights in use have a class each.
std::string_view heightClass(double capHeight) {
  if (capHeight >= kLarge) return "g";
  return capHeight >= kMedium ? "m" : "p";
}

void writeLabel(std::string& out, const Label& label) {
  constexpr std::array<std::string_view, 3> kAnchors = {"", " c", " f"};
  const std::string x = coordinate(label.at.x);
  const std::string y = coordinate(label.at.y);
  out += "<text class=\"";
  out += heightClass(label.capHeight);
  out += kAnchors[static_cast<std::size_t>(label.anchor)];
  if (label.strong) out += " n";
  out += "\" x=\"" + x + "\" y=\"" + y + "\"";
  if (label.turned) out += " transform=\"rotate(-90 " + x + " " + y + ")\"";
  out += ">" + escaped(label.text) + "</text>\n";
}

/// Whether XML allows the character whose first byte is `lead`, below 0x80.
bool isForbidden(unsigned char lead) {
  return lead < 0x20 ? lead != '\t' && lead != '\n' && lead != '\r' : lead == 0x7F;
}

/// U+FFFE and U+FFFF.
bool isNoCharacter(unsigned char first, unsigned char second, unsigned char third) {
  return first == 0xEF && second == 0xBF && third >= 0xBE;
}

/// Marks that turn the direction of writing beyond the text that holds them, which would make a
/// name rearrange what stands beside it: U+202A to U+202E, U+2066 to U+2069.
bool turnsDirection(unsigned char lead, unsigned char second, unsigned char third) {
  if (lead != 0xE2) return false;
  return second == 0x80 ? third >= 0xAA && third <= 0xAE
                        : second == 0x81 && third >= 0xA6 && third <= 0xA9;
}

}  // namespace

std::string escaped(std::string_view text) {
  constexpr std::string_view kReplacement = "\uFFFD";
  const std::string utf8 = cp1252::toUtf8(text);
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const auto next = static_cast<unsigned char>(i + 1 < utf8.size() ? utf8[i + 1] : 0);
    const auto third = static_cast<unsigned char>(i + 2 < utf8.size() ? utf8[i + 2] : 0);
    if (byte == '&') {
      out += "&amp;";
    } else if (byte == '<') {
      out += "&lt;";
    } else if (byte == '>') {
      out += "&gt;";
    } else if (byte == '"') {
      out += "&quot;";
    } else if (byte == '\'') {
      out += "&#39;";
    } else if (isForbidden(byte)) {
      out += kReplacement;
    } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {  // controls, which HTML forbids
      out += kReplacement;
      ++i;
    } else if (isNoCharacter(byte, next, third) || turnsDirection(byte, next, third)) {
      out += kReplacement;
      i += 2;
    } else {
      out += utf8[i];
    }
  }
  return out;
}

std::string coordinate(double value) {
  if (!std::isfinite(value)) return "0";
  std::array<char, 400> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, 2);
  std::string text(digits.data(), end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string drawingStyle(SvgPlace place) {
  const std::string ink(inkName(Ink::kInk, place));
  std::string css =
      "svg.dibujo text{font-family:Arial,\"Liberation Sans\",sans-serif;fill:" + ink + "}\n";
  for (const auto& [name, height] :
       {std::pair{"p", kSmall}, std::pair{"m", kMedium}, std::pair{"g", kLarge}}) {
    css += std::string("svg.dibujo .") + name +
           "{font-size:" + coordinate(height * kFontOfCapitals) + "px}\n";
  }
  css +=
      "svg.dibujo .c{text-anchor:middle}\nsvg.dibujo .f{text-anchor:end}\n"
      "svg.dibujo .n{font-weight:bold}\n";
  for (const Looks& looks : kLooks) {
    css += "svg.dibujo ." + std::string(looks.name) + "{stroke:";
    css += inkName(looks.stroke, place);
    if (looks.width > 0) css += ";stroke-width:" + coordinate(looks.width);
    css += ";fill:";
    css += inkName(looks.fill, place);
    if (!looks.more.empty()) css += ";" + std::string(looks.more);
    css += "}\n";
  }
  return css;
}

std::string svg(const Drawing& drawing, SvgPlace place, std::string_view id) {
  const std::string width = coordinate(drawing.width);
  const std::string height = coordinate(drawing.height);
  const std::string name(id);
  std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"dibujo\" width=\"" + width +
                    "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + " " + height +
                    "\" role=\"img\" aria-labelledby=\"" + name + "-t " + name + "-d\">\n";
  out += "<title id=\"" + name + "-t\">" + escaped(drawing.title) + "</title>\n";
  out += "<desc id=\"" + name + "-d\">" + escaped(drawing.description) + "</desc>\n";
  if (place == SvgPlace::kFile) {
    out += "<style>\n" + drawingStyle(place) + "</style>\n";
    out += "<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"#fff\"/>\n";
  }
  for (const Shape& shape : drawing.shapes) writePath(out, shape);
  for (const Label& label : drawing.labels) writeLabel(out, label);
  return out + "</svg>\n";
}

}  // namespace report
