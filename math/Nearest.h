/// The nearest points of two elements while they are searched, and what drawn widths make of them. Inside of math/
/// only.
#pragma once

#include "math/Elements.h"

#include <algorithm>
#include <limits>

namespace geo {

/// A point on each of two elements and how far they are apart.
struct NearestPair
{
    KPointD first, second;
    double distance;

    /// Strictly nearer only: of equally near pairs the earlier stays.
    void Take(const NearestPair& other)
    {
        if (other.distance < distance)
            *this = other;
    }
    NearestPair Swapped() const { return {second, first, distance}; }
};

inline NearestPair PairOf(KPointD first, KPointD second)
{
    return {first, second, Distance(first, second)};
}

/// P and the point of the arc nearest to it: the start, the end, or the point that P faces.
inline NearestPair NearestOnArc(KPointD p, const Arc& arc)
{
    NearestPair best = PairOf(p, arc.start);
    best.Take(PairOf(p, arc.end));
    // The distance first: it is cheaper than an angle. A point in the centre faces -x.
    const NearestPair radial = PairOf(p, Moved(p, arc.centre, -arc.radius));
    if (radial.distance < best.distance && arc.Faces(radial.second))
        return radial;
    return best;
}

/// Where the points come to lie when the elements overlap: both on the first one or both on the second.
enum class Overlap
{
    OnFirst,
    OnSecond
};

/// Hands the points over, if anybody wants them, and returns the distance that belongs to them.
inline double Report(KTwoPointD* points, const NearestPair& pair)
{
    if (points)
        *points = {pair.first.x, pair.first.y, pair.second.x, pair.second.y};
    return pair.distance;
}

/// How far elements reach: a sum of the magnitudes of their coordinates. Within it lies what rounding can do.
class Bounds
{
public:
    explicit Bounds(double extent) : m_extent(extent) {}
    /// Whether a radius is so large that a point of the circle is known to 1e-4 of it, whatever was rounded on the way.
    /// Not for NaN, infinities and numbers whose squares are none.
    bool Suits(double length) const { return length >= 1e-6 * m_extent && m_extent < 1e100 && length > 1e-100; }
    /// More than a distance is off that was found without taking an angle of single precision: an angle off by 1e-6 rad
    /// makes a point on the line of a centre more distant by its square only.
    double Slack() const { return 1e-9 * m_extent; }
    /// More than a point is off by such an angle.
    double PointSlack() const { return 1e-5 * m_extent; }
    /// More than CKMath::GetDistanceLinePoint() is off the nearest point: it takes slopes below 1e-4 for flat.
    double FootSlack() const { return 2e-4 * m_extent; }

private:
    double m_extent;
};

inline double Magnitude(KPointD p)
{
    return std::fabs(p.x) + std::fabs(p.y);
}

/// The search for the nearest of many pairs, which takes the costly points of arcs that P faces only when they can win.
/// The result is that of taking all pairs in the order in which they are offered, each only when it is strictly nearer.
///
/// For elements within Bounds only: what is known about a point before it is computed holds for those.
class NearestSearch
{
public:
    explicit NearestSearch(double slack) : m_slack(slack) {}
    // Which pair is nearest cannot be predicted, so all are stored and only the number is chosen.
    void Offer(const NearestPair& pair)
    {
        m_pairs[m_offers] = pair;
        const bool isNearer = pair.distance < m_distance;
        m_distance = isNearer ? pair.distance : m_distance;
        m_nearest = isNearer ? m_offers : m_nearest;
        ++m_offers;
    }
    /// The pairs of NearestOnArc(). `swapped` when the arc is the first element.
    void OfferOnArc(KPointD p, const Arc& arc, bool swapped)
    {
        Offer(Ordered(PairOf(p, arc.start), swapped));
        Offer(Ordered(PairOf(p, arc.end), swapped));
        OfferFaced(p, arc, swapped);
    }
    /// The last of them only: P and the point that it faces.
    void OfferFaced(KPointD p, const Arc& arc, bool swapped)
    {
        const Facing facing = arc.Look(arc.FromCentre(p));
        m_waiting[m_waitingCount] = {
            std::fabs(Distance(p, arc.centre) - arc.radius) - m_slack, p, &arc, facing, swapped, m_offers++};
        m_waitingCount += int(facing != Facing::No);
    }
    /// Nobody is interested in a pair that is further apart.
    void Limit(double distance) { m_limit = std::min(m_limit, distance); }
    NearestPair Nearest()
    {
        while (m_waitingCount > 0) {
            Radial* const least = std::min_element(m_waiting, m_waiting + m_waitingCount);
            if (least->least > std::min(m_distance, m_limit))
                break;
            const NearestPair pair = PairOf(least->p, Moved(least->p, least->arc->centre, -least->arc->radius));
            if (least->facing == Facing::Yes || least->arc->Faces(pair.second))
                Take(Ordered(pair, least->swapped), least->number);
            *least = m_waiting[--m_waitingCount];
        }
        return m_pairs[m_nearest];
    }

private:
    /// P and the point of the arc that it faces, not computed yet.
    struct Radial
    {
        double least; ///< the distance is not less
        KPointD p;
        const Arc* arc;
        Facing facing;
        bool swapped;
        int number;

        bool operator<(const Radial& other) const { return least < other.least; }
    };

    static NearestPair Ordered(const NearestPair& pair, bool swapped) { return swapped ? pair.Swapped() : pair; }
    /// Of equally near pairs the one that was offered first stays.
    void Take(const NearestPair& pair, int number)
    {
        const bool isNearer = pair.distance < m_distance || (pair.distance == m_distance && number < m_nearest);
        if (!isNearer)
            return;
        m_pairs[number] = pair;
        m_distance = pair.distance;
        m_nearest = number;
    }

    double m_slack;
    double m_limit = std::numeric_limits<double>::infinity();
    double m_distance = std::numeric_limits<double>::infinity();
    int m_nearest = 0;
    int m_offers = 0;
    NearestPair m_pairs[9]; ///< three points with three pairs each at most; those still waiting are unset
    Radial m_waiting[4];
    int m_waitingCount = 0;
};

/// From centre lines to drawn edges: each point moves toward the other by half its own width, the second toward the
/// new first. Drawn elements that touch or overlap have the distance 0. A negative width counts in the sum as it is but
/// moves no point. The points go where `points` says, if anybody wants them; the distance is returned.
inline double ReportEdges(KTwoPointD* points, NearestPair pair, double firstWidth, double secondWidth, Overlap overlap)
{
    const double halves = firstWidth * 0.5 + secondWidth * 0.5;
    if (halves >= pair.distance) {
        const KPointD both = overlap == Overlap::OnFirst ? pair.first : pair.second;
        return Report(points, {both, both, 0.0});
    }
    pair.distance -= halves;
    if (!points)
        return pair.distance; // the moves cost several times as much as all else
    if (firstWidth > 0.0)
        pair.first = Moved(pair.second, pair.first, -firstWidth * 0.5);
    if (secondWidth > 0.0)
        pair.second = Moved(pair.first, pair.second, -secondWidth * 0.5);
    return Report(points, pair);
}

} // namespace geo
