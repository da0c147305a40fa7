/// Moving points along a line by the way of its angle. Inside of math/ only.
#pragma once

#include "math/CKMath.h"
#include "math/Turn.h"

/// The line from -> through, its angle and turns taken once for any number of moves.
class LineMover
{
public:
    LineMover(KPointD from, KPointD through)
        : m_from(from), m_through(through), m_angle(CKMath::GetLineAngle(from.x, from.y, through.x, through.y)),
          m_ontoAxis(-m_angle)
    {}
    /// `through` moved by the distance along the line, backward when it is negative.
    KPointD By(double distance) const
    {
        if (distance == 0.0)
            return m_through;
        if (m_angle == 0.0f) // the only whole turn from -180 to 180
            return {m_through.x + distance, m_through.y};
        // Turned about the first point onto the x axis, lengthened there, turned back. Adding and taking away the first
        // point rounds, and is part of the result.
        const double dx = m_through.x - m_from.x;
        const double dy = m_through.y - m_from.y;
        const double u = (m_ontoAxis.X(dx, dy) + m_from.x + distance) - m_from.x;
        const double w = (m_ontoAxis.Y(dx, dy) + m_from.y) - m_from.y;
        const Turn<double> back = m_ontoAxis.Reversed();
        return {back.X(u, w) + m_from.x, back.Y(u, w) + m_from.y};
    }

private:
    KPointD m_from;
    KPointD m_through;
    float m_angle;
    Turn<double> m_ontoAxis;
};
