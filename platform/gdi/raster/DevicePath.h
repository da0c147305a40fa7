/// A path in device pixels: what lies between BeginPath and EndPath, after the transform.
#pragma once

#include "gdi/raster/Surface.h"
#include "KolmApi.h"

#include <cstring>
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

/// Figures of lines and arcs. Cleared and refilled without giving its memory back. A figure begins with MoveTo; lines
/// and arcs before the first MoveTo are the caller's mistake and are taken to begin at (0, 0).
class KOLM_API DevicePath
{
public:
    enum class Verb : uint8_t
    {
        Move, ///< one point
        Line, ///< one point
        Arc,  ///< one entry of Arcs(); begins where the path stands (the line to its start is a Line of its own)
        Close ///< back to the figure's first point
    };

    void Clear()
    {
        m_isSegment = false;
        if (!m_verbs.empty()) {
            m_verbs.clear();
            m_points.clear();
            m_arcs.clear();
        }
    }
    void MoveTo(DevicePoint point) { Add(Verb::Move, point); }
    void LineTo(DevicePoint point) { Add(Verb::Line, point); }
    /// MoveTo and LineTo in one. As a path's beginning it costs next to nothing.
    void Segment(DevicePoint from, DevicePoint to)
    {
        if (m_verbs.empty() && !m_isSegment) {
            m_isSegment = true;
            m_from = from;
            m_to = to;
            return;
        }
        AddFurtherSegment(from, to);
    }
    void ArcTo(const EllipseArc& arc)
    {
        SpellOut();
        m_arcs.push_back(arc);
        AddVerb(Verb::Arc, m_arcs);
    }
    void Close()
    {
        SpellOut();
        m_verbs.push_back(Verb::Close);
    }

    /// The path is what one call of Segment() left: a line from From() to To() and nothing else.
    bool IsSegment() const { return m_isSegment; }
    DevicePoint From() const { return m_from; }
    DevicePoint To() const { return m_to; }

    bool IsEmpty() const { return m_verbs.empty() && !m_isSegment; }
    const std::vector<Verb>& Verbs() const
    {
        SpellOut();
        return m_verbs;
    }
    const std::vector<DevicePoint>& Points() const
    {
        SpellOut();
        return m_points;
    }
    const std::vector<EllipseArc>& Arcs() const { return m_arcs; }
    /// Closed bounds of all points and ellipses: right and bottom inside. Left is above right while there are none.
    /// Worked out when asked for: a path of one segment has hardly any.
    Box Bounds() const;

private:
    void Add(Verb verb, DevicePoint point)
    {
        // Vectors take elements from memory. A copy made in one piece can be read in one load at once; read behind two
        // stores of a coordinate each, it would have to wait for every pixel on its way to the cache.
        DevicePoint whole;
        std::memcpy(&whole, &point, sizeof whole);
        SpellOut();
        m_points.push_back(whole);
        AddVerb(verb, m_points);
    }
    /// A verb and what it needs come both or, when memory runs out, not at all.
    template <class Operand>
    void AddVerb(Verb verb, std::vector<Operand>& operands)
    {
        try {
            m_verbs.push_back(verb);
        } catch (...) {
            operands.pop_back();
            throw;
        }
    }

    void SpellOut() const
    {
        if (m_isSegment)
            AddSegment();
    }
    void AddSegment() const;
    void AddFurtherSegment(DevicePoint from, DevicePoint to);

    // A path of one segment, which most are, stays out of the vectors until someone asks for them.
    mutable bool m_isSegment = false;
    DevicePoint m_from = {};
    DevicePoint m_to = {};
    mutable std::vector<Verb> m_verbs;
    mutable std::vector<DevicePoint> m_points;
    std::vector<EllipseArc> m_arcs;
};

} // namespace gdi
