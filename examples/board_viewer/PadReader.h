/// Reading of a footprint's pads.
#pragma once

#include "FigureReader.h"

namespace viewer {

/// The pad in place. Its position belongs to the footprint's frame; its angle is absolute already.
Pad ReadPad(const SExpr& item, const Placement& footprint, LayerTable& layers);

/// The layers on which a pad or via keeps its ring only where copper meets it: none, or the inner ones of its set.
LayerSet ReadUnlessUnused(const SExpr& item, LayerSet layers, const LayerTable& table);

} // namespace viewer
