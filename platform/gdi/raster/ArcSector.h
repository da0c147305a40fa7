/// Which directions an arc covers, for the shapes that are cut out of whole ellipses.
#pragma once

#include "gdi/raster/DevicePath.h"

#include <vector>

namespace gdi {

/// The angle between an arc's radials, closed on both sides, as two half planes through the centre. Directions are
/// those of device pixels: clockwise turns from right to down.
class ArcSector
{
public:
    explicit ArcSector(const EllipseArc& arc);

    bool IsWhole() const { return m_whole; }
    /// At most half a turn, so that the sector is where both half planes meet; a larger one is where either is.
    bool IsConvex() const { return m_convex; }
    /// Clockwise from the first of these to the second.
    double FromX() const { return m_fromX; }
    double FromY() const { return m_fromY; }
    double ToX() const { return m_toX; }
    double ToY() const { return m_toY; }

    bool Holds(double x, double y) const
    {
        const bool afterFirst = m_fromX * y - m_fromY * x >= 0;
        const bool beforeLast = x * m_toY - y * m_toX >= 0;
        return m_whole || (m_convex ? afterFirst && beforeLast : afterFirst || beforeLast);
    }

private:
    double m_fromX, m_fromY;
    double m_toX, m_toY;
    bool m_whole;
    bool m_convex;
};

/// Points along an arc, each rounded to a pixel, with chords that stay within an eighth of a pixel of the ellipse (up
/// to 65,536 of them). Any stretch of it can be asked for, so that what lies far away need not be walked.
class ArcChords
{
public:
    explicit ArcChords(const EllipseArc& arc);

    int Count() const { return m_count; } ///< of chords, at least 1
    /// End of the chord `index`, 1 to Count(); 0 is the arc's start. Both ends of the arc are its own rounded points.
    DevicePoint Point(int index) const;
    /// The same, not rounded and not held within int32.
    void RealPoint(int index, double& x, double& y) const;
    /// No point of a stretch of `steps` chords is further from the line between its ends.
    double Height(int steps) const;

private:
    const EllipseArc& m_arc;
    double m_radiusX, m_radiusY;
    double m_from, m_sweep; ///< angles of the circle that the ellipse is a scaled image of
    int m_count;
};

/// Appends all of these points but the first.
void FlattenArc(const EllipseArc& arc, std::vector<DevicePoint>& points);

} // namespace gdi
