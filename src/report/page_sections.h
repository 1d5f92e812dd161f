#pragma once

#include "report/building_report.h"
#include "report/html_writer.h"

/// The sections of a report's page that have most to say; the others are in report_html.cpp. Each
/// writes what the report has, and nothing where it has none.
namespace report {

/// The view of the block from the south-west, a figure.
void writeView(HtmlWriter& html, const Report& report);
/// Section 2: plan and elevations.
void writePictures(HtmlWriter& html, const Report& report);
/// Section 3: openings, asked and obtained.
void writeGlazing(HtmlWriter& html, const Report& report);
/// Section 4: areas, volume, envelope.
void writeMeasures(HtmlWriter& html, const Report& report);

}  // namespace report
