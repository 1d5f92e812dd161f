#pragma once

#include <string>
#include <string_view>

#include "report/drawing.h"

/// Writes drawings as SVG: two decimals at most, no "-0", no locale, and every text of an input
/// through one escape.
namespace report {

/// `text` as the content of an element or the value of an attribute, in XML as in HTML. Takes
/// anything: bytes that are no UTF-8 are read as Windows-1252, and characters that XML forbids
/// become the replacement character.
std::string escaped(std::string_view text);

/// A length in mm: "12.5", "0", "-3.25".
std::string coordinate(double value);

enum class SvgPlace {
  kFile,   // a document of its own, with its style sheet; sizes in mm, true to scale in print
  kInPage  // inside an HTML page that has `drawingStyle` once
};

/// `id` tells the drawings of a page apart; letters and digits.
std::string svg(const Drawing& drawing, SvgPlace place, std::string_view id = "plano");

/// The style sheet of all drawings. In a page the colours are its variables (--tinta, --papel,
/// --tono1, --tono2, --tono3, --hueco), which change with light and dark.
std::string drawingStyle(SvgPlace place);

}  // namespace report
