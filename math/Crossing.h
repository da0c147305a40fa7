/// The rare cases of two segments. In a file of their own, so that the common cases are not compiled with the registers
/// that these need. Inside of math/ only.
#pragma once

namespace geo {

/// CKMath::IsIntersectLineToLine() by the codes of all four ends, for segments of which an end may lie on the line of
/// the other.
int IsCrossingByCodes(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);

/// CKMath::GetDistance() for any segments, those of no length and those that touch among them.
double DistanceOfAny(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);

} // namespace geo
