/// The records that functions of CKMath pack their coordinate lists into. Inside of math/ only.
///
/// Each record says once which order of arguments, and so which rounding, stands behind a short name.
#pragma once

#include "math/CKMath.h"
#include "math/Sector.h"
#include "math/Vectors.h"

#include <algorithm>
#include <optional>

namespace geo {

inline double SquaredDistance(KPointD a, KPointD b)
{
    const KPointD between = Difference(a, b);
    return Dot(between, between);
}

/// CKMath::GetDistance() of two points. A scaled hypot would be safe from overflow but differ in last bits.
inline double Distance(KPointD a, KPointD b)
{
    return std::sqrt(SquaredDistance(a, b));
}

/// `through` moved by the distance along from -> through, backward when it is negative.
inline KPointD Moved(KPointD from, KPointD through, double distance)
{
    return CKMath::GetDistancedLinePoint(from.x, from.y, through.x, through.y, distance);
}

struct Segment
{
    KPointD start, end;

    double DistanceTo(KPointD p) const { return CKMath::GetDistance(start.x, start.y, end.x, end.y, p.x, p.y); }
    KPointD NearestTo(KPointD p) const
    {
        return CKMath::GetDistanceLinePoint(start.x, start.y, end.x, end.y, p.x, p.y);
    }
    /// Whether P is so clearly behind the start or beyond the end that NearestTo() is that end.
    bool IsBeside(KPointD p) const
    {
        constexpr double kRounding = 1.0 + 1e-12;
        const KPointD whole = Difference(end, start);
        const double along = Dot(Difference(p, start), whole);
        return (int(along < 0.0) | int(along > Dot(whole, whole) * kRounding)) != 0;
    }
};

/// The angles that an arc covers, its ends included, at float precision. Equal ends are a full circle. The ends are
/// normalised once, however many angles are asked.
class ArcRange
{
public:
    ArcRange(float startAngle, float endAngle, int counterClockwise)
        : m_start(CKMath::GetPositiveAngle(startAngle)), m_end(CKMath::GetPositiveAngle(endAngle)),
          m_counterClockwise(counterClockwise)
    {}
    bool Holds(float angle) const
    {
        if (m_start == m_end)
            return true;
        const float a = CKMath::GetPositiveAngle(angle);
        if (a == m_start || a == m_end)
            return true; // an end belongs to both ways round
        // The counter-clockwise range, which runs through 0 when its end is the smaller; the other way is the rest.
        const bool inside =
            m_end > m_start ? m_start <= a && a <= m_end : m_end < m_start && (a >= m_start || a <= m_end);
        return m_counterClockwise ? inside : !inside;
    }

private:
    float m_start;
    float m_end;
    int m_counterClockwise;
};

/// The radius is what the caller says; whether the ends lie at it is not looked at. The angles of the ends are taken
/// when a question first needs them.
class Arc
{
public:
    Arc(KPointD centreOfArc, KPointD startOfArc, KPointD endOfArc, double radiusOfArc, int counterClockwise)
        : centre(centreOfArc), start(startOfArc), end(endOfArc), radius(radiusOfArc),
          m_counterClockwise(counterClockwise), m_sector(FromCentre(startOfArc), FromCentre(endOfArc), counterClockwise)
    {}
    float AngleOf(KPointD p) const { return CKMath::GetLineAngle(centre.x, centre.y, p.x, p.y); }
    KPointD FromCentre(KPointD p) const { return Difference(p, centre); }
    /// Whether the polar angle of P about the centre lies on the arc, at any distance from it.
    bool Faces(KPointD p) const
    {
        const Facing facing = m_sector.Look(FromCentre(p));
        return facing == Facing::Unclear ? HoldsAngleOf(p) : facing == Facing::Yes;
    }
    /// Whether points in a direction from the centre lie on the arc, for points that are only known roughly, to 1e-4 of
    /// their distance from the centre.
    Facing Look(KPointD direction) const { return m_sector.Look(direction); }
    Facings LookBothWays(KPointD direction) const { return m_sector.LookBothWays(direction); }

    const KPointD centre, start, end;
    const double radius;

private:
    bool HoldsAngleOf(KPointD p) const
    {
        if (!m_range)
            m_range.emplace(AngleOf(start), AngleOf(end), m_counterClockwise);
        return m_range->Holds(AngleOf(p));
    }

    int m_counterClockwise;
    Sector m_sector;
    mutable std::optional<ArcRange> m_range;
};

/// A closed rectangle; one whose edges are the wrong way round holds nothing.
struct Rectangle
{
    double left, right, bottom, top;

    /// Without branches: on which side a point lies is anybody's guess.
    bool Holds(KPointD p) const
    {
        return (int(left <= p.x) & int(p.x <= right) & int(bottom <= p.y) & int(p.y <= top)) != 0;
    }
    /// Whether no turn about the origin can bring P into the rectangle, as far as squares tell.
    bool IsOutOfReach(KPointD p) const
    {
        constexpr double kSafe = 1e-290; // squares above it have lost nothing by being small
        constexpr double kRounding = 1.0 + 1e-12;
        const double width = std::max(left * left, right * right);
        const double height = std::max(bottom * bottom, top * top);
        const double squared = p.x * p.x + p.y * p.y;
        return (int(squared > (width + height) * kRounding) & int(squared > kSafe)) != 0;
    }
    /// The sides in clockwise order from the left one: 0 left, 1 top, 2 right, 3 bottom.
    Segment Side(int number) const
    {
        const KPointD corners[] = {{left, bottom}, {left, top}, {right, top}, {right, bottom}};
        return {corners[number], corners[(number + 1) % 4]};
    }
};

} // namespace geo
