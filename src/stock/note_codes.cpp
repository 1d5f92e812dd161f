#include "stock/note_codes.h"

#include "core/concat.h"

namespace stock {

NoteCodes codesOf(const Findings& remarks) {
  NoteCodes codes;
  for (const Finding& remark : remarks) codes.insert(remark.code);
  return codes;
}

std::string notesCell(std::span<const std::string> ownNotes, const NoteCodes& codes) {
  std::string cell;
  const auto add = [&](std::string_view word) { cell += concat(cell.empty() ? "" : " ", word); };
  for (const std::string& note : ownNotes) add(note);
  for (const Severity severity : {Severity::kWarning, Severity::kNote}) {
    for (const Code code : codes) {
      if (rowOf(code).severity == severity) add(rowOf(code).word);
    }
  }
  return cell;
}

}  // namespace stock
