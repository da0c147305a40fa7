/// The clearance between two elements of any form.
#pragma once

#include "BoardElement.h"
#include "CopperElement.h"

namespace viewer {

/// Clearance edge to edge and the nearest points, in Kolm's frame.
using ElementGap = MeasuredGap;

/// Measures in the plane, whatever layers the elements are on. Round ends, arcs and discs are exact; of other pads the
/// outline is measured as it is drawn. 0 where they touch or overlap, with both points in a place that they share.
ElementGap MeasureElements(const BoardElement& first, const BoardElement& second);

} // namespace viewer
