#include "math/CKMath.h"

#include "foundation/CKRectD.h"
#include "foundation/CKRectF.h"
#include "math/Elements.h"

namespace {

using geo::Rectangle;

Rectangle EdgesOf(const CKRectD& rect)
{
    return {rect.GetLeft(), rect.GetRight(), rect.GetBottom(), rect.GetTop()};
}

// Widened first: a margin is added in double also to float edges.
Rectangle EdgesOf(const CKRectF& rect)
{
    return {static_cast<double>(rect.GetLeft()), static_cast<double>(rect.GetRight()),
            static_cast<double>(rect.GetBottom()), static_cast<double>(rect.GetTop())};
}

Rectangle Grown(const Rectangle& r, double margin)
{
    return {r.left - margin, r.right + margin, r.bottom - margin, r.top + margin};
}

/// By what keeps them apart, so a NaN edge keeps nothing apart.
template <typename Real>
bool Meet(Real left1, Real right1, Real bottom1, Real top1, Real left2, Real right2, Real bottom2, Real top2)
{
    return !(left1 > right2 || left2 > right1 || bottom2 > top1 || bottom1 > top2);
}

bool Meet(const Rectangle& a, const Rectangle& b)
{
    return Meet(a.left, a.right, a.bottom, a.top, b.left, b.right, b.bottom, b.top);
}

} // namespace

int CKMath::IsInRectangle(double px, double py, double left, double right, double bottom, double top)
{
    return Rectangle{left, right, bottom, top}.Holds({px, py});
}

// Turned back and then mirrored: the inverse of a placement by one of the two, not of one by both.
int CKMath::IsInRectangle(double px, double py, double left, double right, double bottom, double top, float angle,
                          int mirror)
{
    const Rectangle rectangle = {left, right, bottom, top};
    if (rectangle.IsOutOfReach({px, py}))
        return 0; // without a sine and a cosine
    TranslatePoint(px, py, -angle, mirror);
    return rectangle.Holds({px, py});
}

int CKMath::IsInRectangle(double px, double py, CKRectD* rect, double margin)
{
    return rect && Grown(EdgesOf(*rect), margin).Holds({px, py});
}

int CKMath::IsInRectangle(double px, double py, CKRectF* rect, double margin)
{
    return rect && Grown(EdgesOf(*rect), margin).Holds({px, py});
}

int CKMath::IsIntersectRectangle(double left1, double right1, double bottom1, double top1, double left2, double right2,
                                 double bottom2, double top2)
{
    return Meet(left1, right1, bottom1, top1, left2, right2, bottom2, top2);
}

int CKMath::IsIntersectRectangle(float left1, float right1, float bottom1, float top1, float left2, float right2,
                                 float bottom2, float top2)
{
    return Meet(left1, right1, bottom1, top1, left2, right2, bottom2, top2);
}

int CKMath::IsToCheck(CKRectF& a, CKRectF& b, double margin)
{
    return Meet(EdgesOf(a), Grown(EdgesOf(b), margin));
}

int CKMath::IsToCheck(CKRectD& a, CKRectD& b, double margin)
{
    return Meet(EdgesOf(a), Grown(EdgesOf(b), margin));
}

int CKMath::IsIntersectLineToRectangle(double x1, double y1, double x2, double y2, double tolerance, double left,
                                       double right, double bottom, double top)
{
    const Rectangle rectangle = {left, right, bottom, top};
    if (rectangle.Holds({x2, y2}) || rectangle.Holds({x1, y1}))
        return 1;
    double nearest = 0.0;
    for (int side = 0; side < 4; ++side) {
        const geo::Segment s = rectangle.Side(side);
        const double distance = GetDistance(x1, y1, x2, y2, s.start.x, s.start.y, s.end.x, s.end.y);
        if (side == 0 || distance < nearest)
            nearest = distance;
    }
    return tolerance >= nearest;
}

int CKMath::IsIntersectCircleToRectangle(double cx, double cy, double radius, double left, double right, double bottom,
                                         double top)
{
    const Rectangle rectangle = {left, right, bottom, top};
    if (rectangle.Holds({cx, cy}))
        return 1;
    for (int side = 0; side < 4; ++side) {
        if (radius >= rectangle.Side(side).DistanceTo({cx, cy}))
            return 1;
    }
    return 0;
}
