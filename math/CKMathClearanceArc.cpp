#include "math/CKMath.h"

#include "math/Contact.h"
#include "math/LineMover.h"
#include "math/Nearest.h"

#include <algorithm>
#include <limits>

namespace {

using geo::Arc;
using geo::Facing;
using geo::NearestPair;

/// A point of an arc's circle on the line of two centres. The arc is asked at most once whether it has the point.
class AxisPoint
{
public:
    AxisPoint(const Arc& arc, KPointD point) : m_arc(arc), m_point(point) {}
    KPointD Get() const { return m_point; }
    bool IsOnArc()
    {
        if (m_answer == kUnasked)
            m_answer = m_arc.Faces(m_point);
        return m_answer;
    }

private:
    static constexpr int kUnasked = -1;
    const Arc& m_arc;
    KPointD m_point;
    int m_answer = kUnasked;
};

/// Tries the pairs of points where the line of the centres cuts the circles: those that face each other are nearest
/// when the circles lie apart, a far one and a facing one when a circle lies inside the other.
void TakeAxisPoints(NearestPair& best, const Arc& arc1, const Arc& arc2)
{
    const LineMover beyond1(arc2.centre, arc1.centre), beyond2(arc1.centre, arc2.centre);
    AxisPoint facing1(arc1, beyond1.By(-arc1.radius));
    AxisPoint far1(arc1, beyond1.By(arc1.radius));
    AxisPoint facing2(arc2, beyond2.By(-arc2.radius));
    AxisPoint far2(arc2, beyond2.By(arc2.radius));
    const auto take = [&best](AxisPoint& on1, AxisPoint& on2) {
        const NearestPair pair = geo::PairOf(on1.Get(), on2.Get());
        if (pair.distance < best.distance && on1.IsOnArc() && on2.IsOnArc())
            best = pair;
    };
    take(facing1, facing2);
    take(far1, facing2);
    take(far1, far2);
    take(facing1, far2);
}

/// The four pairs on the line of the centres before their points are computed: how near they are and on the arcs.
class AxisGlance
{
public:
    AxisGlance(const geo::Bounds& bounds, const Arc& arc1, const Arc& arc2) : m_bounds(bounds)
    {
        const KPointD from1To2 = geo::Difference(arc2.centre, arc1.centre);
        const double apart = std::sqrt(geo::Dot(from1To2, from1To2));
        const geo::Facings of1 = arc1.LookBothWays(from1To2);
        const geo::Facings of2 = arc2.LookBothWays(from1To2);
        Add(apart - arc1.radius - arc2.radius, of1.ahead, of2.behind);
        Add(apart + arc1.radius - arc2.radius, of1.behind, of2.behind);
        Add(apart + arc1.radius + arc2.radius, of1.behind, of2.ahead);
        Add(apart - arc1.radius + arc2.radius, of1.ahead, of2.ahead);
    }
    /// A pair on both arcs is not further apart.
    double Most() const { return m_most + m_bounds.PointSlack(); }
    /// No pair on both arcs is nearer.
    double Least() const { return m_least - m_bounds.Slack(); }

private:
    void Add(double signedDistance, Facing first, Facing second)
    {
        constexpr double kNever = std::numeric_limits<double>::infinity();
        const double distance = std::fabs(signedDistance);
        const bool isPossible = (int(first != Facing::No) & int(second != Facing::No)) != 0;
        const bool isSure = (int(first == Facing::Yes) & int(second == Facing::Yes)) != 0;
        m_least = std::min(m_least, isPossible ? distance : kNever);
        m_most = std::min(m_most, isSure ? distance : kNever);
    }

    const geo::Bounds& m_bounds;
    double m_least = std::numeric_limits<double>::infinity();
    double m_most = std::numeric_limits<double>::infinity();
};

/// The candidates of NearestOf() in the same order.
NearestPair NearestWithin(const geo::Bounds& bounds, const Arc& arc1, const Arc& arc2)
{
    const AxisGlance axis(bounds, arc1, arc2);
    geo::NearestSearch search(bounds.Slack());
    search.Limit(axis.Most());
    search.OfferOnArc(arc1.start, arc2, false);
    search.OfferOnArc(arc1.end, arc2, false);
    // The pairs of ends have been offered; a later one as near would not win.
    search.OfferFaced(arc2.start, arc1, true);
    search.OfferFaced(arc2.end, arc1, true);
    NearestPair best = search.Nearest();
    if (axis.Least() < best.distance)
        TakeAxisPoints(best, arc1, arc2);
    return best;
}

/// Every candidate in full, for arcs of any size.
NearestPair NearestOf(const Arc& arc1, const Arc& arc2)
{
    NearestPair best = geo::NearestOnArc(arc1.start, arc2);
    best.Take(geo::NearestOnArc(arc1.end, arc2));
    best.Take(geo::NearestOnArc(arc2.start, arc1).Swapped());
    best.Take(geo::NearestOnArc(arc2.end, arc1).Swapped());
    TakeAxisPoints(best, arc1, arc2);
    return best;
}

} // namespace

double CKMath::GetDistancePointToArc(double px, double py, int counterClockwise, double cx, double cy, double sx,
                                     double sy, double ex, double ey)
{
    const double ends = std::min(GetDistance(px, py, sx, sy), GetDistance(px, py, ex, ey));
    const double radial = std::fabs(GetDistance(px, py, cx, cy) - GetDistance(sx, sy, cx, cy));
    // An arc that P does not face is nearest at an end. The distances come first, being cheaper than the angles.
    if (radial < ends && IsPointInteriorAngleOfArc(cx, cy, sx, sy, ex, ey, counterClockwise, px, py))
        return radial;
    return ends;
}

double CKMath::GetDistancePointToArc(KPointD* nearest, double px, double py, int counterClockwise, double cx, double cy,
                                     double sx, double sy, double ex, double ey, double radius)
{
    const Arc arc({cx, cy}, {sx, sy}, {ex, ey}, radius, counterClockwise);
    const NearestPair pair = geo::NearestOnArc({px, py}, arc);
    if (nearest)
        *nearest = pair.second;
    return pair.distance;
}

int CKMath::GetRelativeDirection(double sx, double sy, double ex, double ey, double cx, double cy, double radius,
                                 int direction, double px, double py)
{
    if (GetDistance(px, py, cx, cy) <= radius)
        return direction;
    KPointD nearest;
    GetDistancePointToArc(&nearest, px, py, direction == -1 ? 1 : 0, cx, cy, sx, sy, ex, ey, radius);
    // The tangent of travel is the outward radius of length 1 after a quarter turn to the side of the direction.
    const KPointD outward = GetDistancedLinePoint(cx, cy, nearest.x, nearest.y, 1.0);
    const KPointD tip = GetRotatedPoint(nearest.x, nearest.y, outward.x, outward.y, direction == -1 ? 90.0f : -90.0f);
    return GetRelativeDirection(nearest.x, nearest.y, tip.x, tip.y, px, py);
}

double CKMath::GetDistancePointsOfArcToArc(KTwoPointD* points, double c1x, double c1y, double s1x, double s1y,
                                           double e1x, double e1y, double r1, double width1, int counterClockwise1,
                                           double c2x, double c2y, double s2x, double s2y, double e2x, double e2y,
                                           double r2, double width2, int counterClockwise2)
{
    const Arc arc1({c1x, c1y}, {s1x, s1y}, {e1x, e1y}, r1, counterClockwise1);
    const Arc arc2({c2x, c2y}, {s2x, s2y}, {e2x, e2y}, r2, counterClockwise2);
    KPointD contact;
    if (geo::IsContact(contact, arc1, arc2))
        return geo::Report(points, {contact, contact, 0.0});
    const geo::Bounds bounds(geo::Magnitude(arc1.centre) + geo::Magnitude(arc1.start) + geo::Magnitude(arc1.end) +
                             geo::Magnitude(arc2.centre) + geo::Magnitude(arc2.start) + geo::Magnitude(arc2.end) + r1 +
                             r2);
    // Centres that nearly coincide have no line between them that tells anything.
    const bool isBounded =
        bounds.Suits(r1) && bounds.Suits(r2) && bounds.Suits(geo::Distance(arc1.centre, arc2.centre));
    const NearestPair pair = isBounded ? NearestWithin(bounds, arc1, arc2) : NearestOf(arc1, arc2);
    return geo::ReportEdges(points, pair, width1, width2, geo::Overlap::OnSecond);
}
