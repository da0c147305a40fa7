#include "math/CKMath.h"

#include "math/Contact.h"

#include <algorithm>

namespace {

/// Whether circles meet whose centres lie at this squared distance, as far as squares tell before any root is taken: a
/// clear answer is also that of the exact comparisons, whatever these round.
geo::Facing GlanceAtContact(double squared, double r1, double r2)
{
    constexpr double kRounding = 1e-12;
    constexpr double kSafe = 1e-290; // squares below it may have lost something by being small
    // Circles meet from (r1 - r2)^2 to (r1 + r2)^2.
    const double squares = r1 * r1 + r2 * r2;
    const double gap = std::fabs(squared - squares) - 2.0 * (r1 * r2);
    const double margin = kRounding * squares + kSafe;
    if (gap > margin)
        return geo::Facing::No;
    return gap < -margin && r1 > 0.0 ? geo::Facing::Yes : geo::Facing::Unclear; // negative radii never meet
}

} // namespace

int geo::IsContact(KPointD& point, const Arc& arc1, const Arc& arc2)
{
    // Arcs of one circle have only arc 1's start to offer.
    KTwoPointD crossings;
    if (!CKMath::IsContactCircleOutlineToCircleOutline(&crossings, arc1.centre.x, arc1.centre.y, arc1.radius,
                                                       arc2.centre.x, arc2.centre.y, arc2.radius, arc1.start.x,
                                                       arc1.start.y))
        return 0;
    const KPointD candidates[] = {{crossings.x1, crossings.y1}, {crossings.x2, crossings.y2}};
    for (const KPointD& candidate : candidates) {
        if (arc1.Faces(candidate) && arc2.Faces(candidate)) {
            point = candidate;
            return 1;
        }
    }
    return 0;
}

int CKMath::IsContactCircleOutlineToCircleOutline(KTwoPointD* points, double c1x, double c1y, double r1, double c2x,
                                                  double c2y, double r2, double refX, double refY)
{
    const double squared = geo::SquaredDistance({c1x, c1y}, {c2x, c2y});
    const geo::Facing contact = GlanceAtContact(squared, r1, r2);
    if (contact == geo::Facing::No)
        return 0;
    const double d = std::sqrt(squared);
    if (contact == geo::Facing::Unclear) {
        if (d > r1 + r2)
            return 0;
        if (std::max(r1, r2) > std::min(r1, r2) + d)
            return 0;
        if (points && d == 0.0 && r1 == r2) {
            *points = {refX, refY, refX, refY};
            return 1;
        }
    }
    if (!points)
        return 1;
    // The common chord crosses the line of the centres at `along` from centre 1 and reaches `half` to both sides. Of
    // touching circles rounding can take `along` beyond the radius; whatever has no root is 0.
    const double along = (r1 * r1 - r2 * r2 + d * d) / (2.0 * d);
    const double half = std::sqrt(std::max(0.0, r1 * r1 - along * along));
    const double dx = c2x - c1x;
    const double dy = c2y - c1y;
    const double middleX = c1x + dx * along / d;
    const double middleY = c1y + dy * along / d;
    const double sideX = dy * half / d;
    const double sideY = -dx * half / d;
    *points = {middleX + sideX, middleY + sideY, middleX - sideX, middleY - sideY};
    return 1;
}

int CKMath::IsContactArcToArc(KPointD* point, double c1x, double c1y, double s1x, double s1y, double e1x, double e1y,
                              double r1, int counterClockwise1, double c2x, double c2y, double s2x, double s2y,
                              double e2x, double e2y, double r2, int counterClockwise2)
{
    // Most pairs are told apart by their circles, before any angle is taken.
    if (!IsContactCircleOutlineToCircleOutline(nullptr, c1x, c1y, r1, c2x, c2y, r2, s1x, s1y))
        return 0;
    const geo::Arc arc1({c1x, c1y}, {s1x, s1y}, {e1x, e1y}, r1, counterClockwise1);
    const geo::Arc arc2({c2x, c2y}, {s2x, s2y}, {e2x, e2y}, r2, counterClockwise2);
    KPointD scratch;
    return geo::IsContact(point ? *point : scratch, arc1, arc2);
}

int CKMath::IsIntersectArcToRectangle(int counterClockwise, double cx, double cy, double sx, double sy, double ex,
                                      double ey, double radius, double left, double right, double bottom, double top)
{
    if (!IsIntersectCircleToRectangle(cx, cy, radius, left, right, bottom, top))
        return 0;
    const geo::Rectangle rectangle = {left, right, bottom, top};
    const geo::Arc arc({cx, cy}, {sx, sy}, {ex, ey}, radius, counterClockwise);
    for (int number = 0; number < 4; ++number) {
        const geo::Segment side = rectangle.Side(number);
        KTwoPointD crossings;
        if (IsContactLineToCircle(&crossings, 0, side.start.x, side.start.y, side.end.x, side.end.y, cx, cy, radius) &&
            geo::KeepFacedByArc(crossings, arc))
            return 1;
    }
    // An arc that crosses no side lies on one side of the border as a whole, so its ends tell. The chord between them
    // may still cross a corner, and counts.
    return IsIntersectLineToRectangle(sx, sy, ex, ey, 0.0, left, right, bottom, top);
}

int CKMath::IsRectangleIncludeCircle(double left, double right, double bottom, double top, double cx, double cy,
                                     double radius)
{
    // Counter-clockwise from the top side, so that the inside is on the left.
    const KPointD corners[] = {{right, top}, {left, top}, {left, bottom}, {right, bottom}, {right, top}};
    for (int i = 0; i < 4; ++i) {
        const KPointD a = corners[i], b = corners[i + 1];
        if (IsContactLineToCircle(nullptr, 1, a.x, a.y, b.x, b.y, cx, cy, radius))
            return 1;
    }
    for (int i = 0; i < 4; ++i) {
        const KPointD a = corners[i], b = corners[i + 1];
        if (GetRelativeDirection(a.x, a.y, b.x, b.y, cx, cy) != -1)
            return 0;
    }
    return 1;
}
