/// The rare case of the crossing test. Inside of math/ only.
#pragma once

namespace geo {

/// CKMath::IsIntersectLineToLine() by the codes of all four ends, for segments of which an end may lie on the line of
/// the other. In a file of its own, so that the common case is not compiled with the registers that this one needs.
int IsCrossingByCodes(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);

} // namespace geo
