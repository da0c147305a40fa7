/// The records that functions of CKMath pack their coordinate lists into. Inside of math/ only.
///
/// Each record says once which order of arguments, and so which rounding, stands behind a short name.
#pragma once

#include "math/CKMath.h"

namespace geo {

inline double Distance(KPointD a, KPointD b)
{
    return CKMath::GetDistance(a.x, a.y, b.x, b.y);
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

/// The radius is what the caller says; whether the ends lie at it is not looked at.
struct Arc
{
    Arc(KPointD centreOfArc, KPointD startOfArc, KPointD endOfArc, double radiusOfArc, int counterClockwise)
        : centre(centreOfArc), start(startOfArc), end(endOfArc), radius(radiusOfArc),
          range(AngleOf(startOfArc), AngleOf(endOfArc), counterClockwise)
    {}
    float AngleOf(KPointD p) const { return CKMath::GetLineAngle(centre.x, centre.y, p.x, p.y); }
    /// Whether the polar angle of P about the centre lies on the arc, at any distance from it.
    bool Faces(KPointD p) const { return range.Holds(AngleOf(p)); }

    KPointD centre, start, end;
    double radius;
    ArcRange range;
};

/// A closed rectangle; one whose edges are the wrong way round holds nothing.
struct Rectangle
{
    double left, right, bottom, top;

    bool Holds(KPointD p) const { return left <= p.x && p.x <= right && bottom <= p.y && p.y <= top; }
    /// The sides in clockwise order from the left one: 0 left, 1 top, 2 right, 3 bottom.
    Segment Side(int number) const
    {
        const KPointD corners[] = {{left, bottom}, {left, top}, {right, top}, {right, bottom}};
        return {corners[number], corners[(number + 1) % 4]};
    }
};

} // namespace geo
