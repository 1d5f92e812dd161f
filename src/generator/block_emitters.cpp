#include "generator/generator_context.h"

// The FLOOR and SPACE commands. Their keyword lines are rewritten in place; a template that ends
// inside the command ends it.

void GeneratorContext::rewriteFloor() {
  writeCurrentLine();
  LineMatch match;
  while (findNextKey(EmitterNames::kFloor, match)) {
    switch (match.index) {
      case kFloorHeight:
        write({.kind = OwnPiece::Kind::kFloorHeight});
        break;
      case kFloorSpaceHeight:
        write({.kind = OwnPiece::Kind::kFloorSpaceHeight});
        break;
      case kFloorMultiplier: {
        // A floor that exists once, ground or top, has the multiplier 1; any other is the repeated
        // middle floor and stands for all storeys but two.
        const int repeated = repeatedStoreys(typology());
        if (splitAssignment(currentLine()).value != "1" && repeated > 1) {
          write({.kind = OwnPiece::Kind::kFloorMultiplier});
        } else {
          writeCurrentLine();
        }
        // Kept on purpose: the count takes the place of the matched name's index, so that in a
        // building of five storeys (a count of 3, the index of "..") the command ends here and its
        // remaining lines are copied as they are.
        if (repeated == kFloorEnd) return;
        break;
      }
      default:
        writeCurrentLine();
        return;
    }
  }
}

void GeneratorContext::rewriteSpace() {
  writeCurrentLine();
  LineMatch match;
  while (findNextKey(EmitterNames::kSpace, match)) {
    switch (match.index) {
      case kSpaceHeight:
        write({.kind = OwnPiece::Kind::kSpaceHeight});
        break;
      case kSpaceMultiplier:
        write({.kind = OwnPiece::Kind::kSpaceMultiplier});
        break;
      case kSpaceAirChanges:
        write({.kind = OwnPiece::Kind::kSpaceAirChanges});
        break;
      default:
        writeCurrentLine();
        return;
    }
  }
}
