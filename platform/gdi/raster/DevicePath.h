/// A path in device pixels: what lies between BeginPath and EndPath, after the transform.
#pragma once

#include "gdi/raster/Surface.h"

#include <vector>

namespace gdi {

/// Part of an axis-parallel ellipse, in device pixels. Centre and radii are kept doubled so that they stay integers.
/// The radials are directions from the centre; their length does not matter. Equal radials mean the whole ellipse.
struct EllipseArc
{
    int64_t centerX2;
    int64_t centerY2;
    int64_t radiusX2;
    int64_t radiusY2;
    double startX, startY; ///< direction of the first radial
    double endX, endY;     ///< direction of the second radial
    bool clockwise;        ///< as seen, with y downward
    DevicePoint start;     ///< where the first radial meets the ellipse, rounded to a pixel
    DevicePoint end;       ///< where the second radial meets the ellipse, rounded to a pixel
    bool whole;            ///< the radials are equal
};

/// Figures of lines and arcs. Cleared and refilled without giving its memory back.
class DevicePath
{
public:
    enum class Verb : uint8_t
    {
        Move, ///< one point
        Line, ///< one point
        Arc,  ///< one entry of Arcs(); begins where the path stands (the line to its start is a Line of its own)
        Close ///< back to the figure's first point
    };

    void Clear();
    void MoveTo(DevicePoint point);
    void LineTo(DevicePoint point);
    void ArcTo(const EllipseArc& arc);
    void Close();

    bool IsEmpty() const { return m_verbs.empty(); }
    const std::vector<Verb>& Verbs() const { return m_verbs; }
    const std::vector<DevicePoint>& Points() const { return m_points; }
    const std::vector<EllipseArc>& Arcs() const { return m_arcs; }
    const Box& Bounds() const { return m_bounds; } ///< closed bounds of all points and ellipses: right and bottom inside

private:
    std::vector<Verb> m_verbs;
    std::vector<DevicePoint> m_points;
    std::vector<EllipseArc> m_arcs;
    Box m_bounds;
};

} // namespace gdi
