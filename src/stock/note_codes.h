#pragma once

#include <set>
#include <span>
#include <string>

#include "check/finding.h"

/// The column AVISOS of the results: what `comprobar` says of a dwelling besides errors, one word
/// for each kind, so that a spreadsheet can be filtered by it (no word of a warning or a note is
/// part of another).
namespace stock {

using NoteCodes = std::set<Code>;

NoteCodes codesOf(const Findings& remarks);

/// The words, separated by blanks: the list's own notes, then warnings, then notes, each in the
/// order of the check's table.
std::string notesCell(std::span<const std::string> ownNotes, const NoteCodes& codes);

}  // namespace stock
