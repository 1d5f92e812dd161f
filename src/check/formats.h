#pragma once

#include <string>

#include "check/finding.h"

/// How findings look. Pure functions; all texts come out in UTF-8, lines end in a line feed.
/// Columns count from 1: characters for people and tools, bytes too where there is room for both.

/// For people: severity and message, the place, the line with the span underlined, what was read,
/// what will be used, the mend. `colours`: of a terminal.
std::string asText(const Finding& finding, bool colours = false);

/// For tools that read compilers' messages: "casa.tip:5:18: error: MENSAJE [codigo]".
std::string asGccLine(const Finding& finding);

/// "2 errores, 1 aviso, 3 notas".
std::string countLine(const Findings& findings);

/// An object with a list of all findings; see docs/comprobar.md for its keys.
std::string asJson(const Findings& findings);

/// SARIF 2.1.0.
std::string asSarif(const Findings& findings);

/// The message in UTF-8. An error has the run's own words; where these say nothing (of a typology
/// number that there is none of they are ": " or less) its code's title stands in their place.
std::string wordsOf(const Finding& finding);

/// The word for people: error, aviso, nota.
std::string_view wordOf(Severity severity);

/// Characters in front of a byte column, and 1: the column as a person counts it.
long characterColumn(std::string_view line, long byteColumn);
