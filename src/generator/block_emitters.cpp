#include "generator/generator_context.h"

// The FLOOR and SPACE commands. Their keyword lines are rewritten in place; a template that ends
// inside the command ends it.

void GeneratorContext::rewriteFloor() {
  enum { kFloorHeight, kSpaceHeight, kMultiplier, kEnd };
  static const NameList names({"FLOOR-HEIGHT", "SPACE-HEIGHT", "MULTIPLIER", ".."});

  writeCurrentLine();
  LineMatch match;
  while (findNextKey(names, match)) {
    switch (match.index) {
      case kFloorHeight:
        writeKeyword("FLOOR-HEIGHT", typology().alturaPlanta);
        break;
      case kSpaceHeight:
        writeKeyword("SPACE-HEIGHT", typology().alturaPlanta);
        break;
      case kMultiplier: {
        // A floor that exists once, ground or top, has the multiplier 1; any other is the repeated
        // middle floor and stands for all storeys but two.
        const int repeated = typology().numeroPlantas - 2;
        if (splitAssignment(currentLine_).value != "1" && repeated > 1) {
          writeKeyword("MULTIPLIER", repeated);
        } else {
          writeCurrentLine();
        }
        // Kept on purpose: the count takes the place of the matched name's index, so that in a
        // building of five storeys (a count of 3, the index of "..") the command ends here and its
        // remaining lines are copied as they are.
        if (repeated == kEnd) return;
        break;
      }
      default:
        writeCurrentLine();
        return;
    }
  }
}

void GeneratorContext::rewriteSpace() {
  enum { kHeight, kMultiplier, kAirChanges, kEnd };
  static const NameList names({"HEIGHT", "MULTIPLIER", "AIR-CHANGES/HR", ".."});

  writeCurrentLine();
  LineMatch match;
  while (findNextKey(names, match)) {
    switch (match.index) {
      case kHeight:
        writeKeyword("HEIGHT", typology().alturaPlanta);
        break;
      case kMultiplier:
        writeKeyword("MULTIPLIER", 1);  // repeated storeys are the FLOOR's business
        break;
      case kAirChanges:
        writeKeyword("AIR-CHANGES/HR", typology().airChangesHr);
        break;
      default:
        writeCurrentLine();
        return;
    }
  }
}
