/// Reading of footprints (called modules in older files): their pads, graphics and texts, put in place on the board.
#pragma once

#include "FigureReader.h"

namespace viewer {

/// Appends all that the footprint draws, and its reference. Footprints of the back are stored as they lie there, seen
/// from the front: nothing is mirrored, only their layers are those of the back.
void ReadFootprintInto(Board& board, const SExpr& item);

/// Appends the graphic of a gr_... or fp_... item. False when it is none, and then the board is unchanged.
bool ReadGraphicInto(Board& board, const SExpr& item, const Placement& placement);

/// Appends the filled areas of a zone. The zone's own outline is what the designer drew, not copper, and is passed
/// over.
void ReadZoneInto(Board& board, const SExpr& item);

} // namespace viewer
