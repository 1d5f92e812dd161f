#include "generator/construction_emitter.h"

#include "generator/generator_context.h"
#include "generator/orientation.h"

namespace {

/// The kinds of surface that a table file tells apart below 1. Any other is a wall, roof or floor
/// by its orientation, as are kinds 0 and -3.
enum { kRoof = -1, kPartyWall = -2, kVerticalPartition = -4, kHorizontalPartition = -5 };

const std::string& constructionFor(const TypologyRecord& typology, int orientationClass, int kind) {
  switch (kind) {
    case kHorizontalPartition:
      return typology.particionInteriorHorizontal;
    case kVerticalPartition:
      return typology.particionInteriorVertical;
    case kPartyWall:
      return orientationClass == kFacesUp ? typology.particionInteriorHorizontal
                                          : typology.medianera;
    case kRoof:
      return typology.cubiertas;
    default:
      if (orientationClass == kFacesDown) return typology.suelos;
      if (orientationClass == kFacesUp) return typology.cubiertas;
      return typology.murosFachada;
  }
}

}  // namespace

void emitConstruction(GeneratorContext& context, int orientationClass,
                      std::string_view /*surfaceName*/, int kind) {
  context.writeCurrentLine();
  context.writeKeyword("CONSTRUCTION", constructionFor(context.typology(), orientationClass, kind));
  context.dropKeysUntil(kConstructionEnd, EmitterNames::kConstruction);
  context.writeLine("..");
}
