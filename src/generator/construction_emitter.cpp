#include "generator/construction_emitter.h"

#include "generator/generator_context.h"
#include "generator/orientation.h"

namespace {

/// The kinds of surface that a table file tells apart below 1. Any other is a wall, roof or floor
/// by its orientation, as are kinds 0 and -3.
enum { kRoof = -1, kPartyWall = -2, kVerticalPartition = -4, kHorizontalPartition = -5 };

std::string TypologyRecord::*constructionFor(int orientationClass, int kind) {
  switch (kind) {
    case kHorizontalPartition:
      return &TypologyRecord::particionInteriorHorizontal;
    case kVerticalPartition:
      return &TypologyRecord::particionInteriorVertical;
    case kPartyWall:
      return orientationClass == kFacesUp ? &TypologyRecord::particionInteriorHorizontal
                                          : &TypologyRecord::medianera;
    case kRoof:
      return &TypologyRecord::cubiertas;
    default:
      if (orientationClass == kFacesDown) return &TypologyRecord::suelos;
      if (orientationClass == kFacesUp) return &TypologyRecord::cubiertas;
      return &TypologyRecord::murosFachada;
  }
}

}  // namespace

void emitConstruction(GeneratorContext& context, int orientationClass,
                      std::string_view /*surfaceName*/, int kind) {
  context.writeCurrentLine();
  context.write({.kind = OwnPiece::Kind::kConstruction,
                 .construction = constructionFor(orientationClass, kind)});
  context.dropKeysUntil(kConstructionEnd, EmitterNames::kConstruction);
  context.write({.kind = OwnPiece::Kind::kCommandEnd});
}
