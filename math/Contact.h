/// The steps of contact that the clearance of arcs shares, so that an arc's angles are taken once. Inside of math/
/// only.
#pragma once

#include "math/Elements.h"

namespace geo {

/// Keeps of the crossings of a circle those that the arc faces: both, one of them twice, or none, and then `points`
/// stays as it is. 1 when there is one.
int KeepFacedByArc(KTwoPointD& points, const Arc& arc);

/// Whether a segment meets an arc, roughly: what the exact steps might not say as well is unclear. For
/// elements within Bounds.
Facing GlanceAtContact(const Segment& line, const Arc& arc);

/// The first crossing of the two circles that both arcs face; seen from centre 1 toward centre 2 the right one comes
/// first. Without one the result is 0 and `point` stays as it is.
int IsContact(KPointD& point, const Arc& arc1, const Arc& arc2);

} // namespace geo
