/// The copper of a board as the lines and arcs between which clearances are measured.
#pragma once

#include "Board.h"

namespace viewer {

/// A piece of copper with round ends, the same on each of its layers.
struct CopperElement
{
    Figure figure;       ///< a line or an arc with its width; a disc is a line of no length
    LayerSet layers = 0; ///< copper layers only, never empty
    int net = 0;         ///< 0 for none
};

/// Tracks, arc tracks, vias, and pads of the shapes "circle" and "oval". Where a via or such a pad has lost its ring,
/// its bare hole is an element of its own: the plating is still there. Other pads, areas and graphics are left out.
std::vector<CopperElement> CopperElements(const Board& board);

/// A drilled hole as a line with round ends along its longer side; a round one is a disc.
Figure HoleFigure(const Hole& hole);

/// What the library measures between two elements, on whichever layer they share.
struct MeasuredGap
{
    double clearance = 0; ///< 0 where they touch or overlap
    KPointD first{};      ///< the nearest point on the first element's edge
    KPointD second{};     ///< and on the second's
};

MeasuredGap MeasureGap(const CopperElement& first, const CopperElement& second);

} // namespace viewer
