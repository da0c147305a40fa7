#include "OverlayShape.h"

#include "Turning.h"

#include "foundation/CKRectD.h"
#include "painter/CKPainter.h"

#include <algorithm>
#include <cmath>

// Everything is built from polygons that run counter-clockwise on the board: filled areas, and for strokes the outline
// of each straight piece with round ends. Where such polygons overlap they turn the same way, so the winding fill takes
// them as one area.

namespace viewer {

namespace {

using Polygon = std::vector<KPointD>;

constexpr double kChord = M_PI / 12; ///< of round ends and arcs

double TwiceArea(const Polygon& polygon)
{
    double sum = 0;
    for (size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++)
        sum += polygon[j].x * polygon[i].y - polygon[i].x * polygon[j].y;
    return sum;
}

/// The area within `radius` of a segment.
Polygon Capsule(KPointD from, KPointD to, double radius)
{
    const double along = DirectionFrom(from, to);
    constexpr int kHalf = 12; // chords of a round end
    Polygon outline;
    for (int i = 0; i <= kHalf; ++i) {
        const double angle = along - M_PI / 2 + i * (M_PI / kHalf);
        outline.push_back({to.x + radius * std::cos(angle), to.y + radius * std::sin(angle)});
    }
    for (int i = 0; i <= kHalf; ++i) {
        const double angle = along + M_PI / 2 + i * (M_PI / kHalf);
        outline.push_back({from.x + radius * std::cos(angle), from.y + radius * std::sin(angle)});
    }
    return outline;
}

/// Chords of an arc, its ends included.
Polygon PointsOfArc(const Figure& arc)
{
    const double radius = std::hypot(arc.start.x - arc.centre.x, arc.start.y - arc.centre.y);
    const double from = DirectionFrom(arc.centre, arc.start);
    const double sweep = SweepOfArc(arc.centre, arc.start, arc.end, arc.counterClockwise);
    const int count = std::max(1, int(std::ceil(sweep / kChord)));
    Polygon points;
    for (int i = 0; i <= count; ++i) {
        const double angle = from + (arc.counterClockwise ? i : -i) * sweep / count;
        points.push_back({arc.centre.x + radius * std::cos(angle), arc.centre.y + radius * std::sin(angle)});
    }
    return points;
}

CKRectD BoxOf(const Polygon& polygon)
{
    CKRectD box;
    for (const KPointD& point : polygon)
        box.MergePoint(point.x, point.y);
    return box;
}

bool IsThin(const Polygon& polygon, double thinnest)
{
    const CKRectD box = BoxOf(polygon);
    return box.GetWidth() < thinnest || box.GetHeight() < thinnest;
}

/// Adds the polygons that cover a figure's ink, strokes at least as wide as `thinnest`.
void AppendPolygons(const Figure& figure, double thinnest, std::vector<Polygon>& polygons)
{
    Polygon line = figure.points;
    if (figure.kind == Figure::Kind::Line) {
        line = {figure.start, figure.end};
    } else if (figure.kind == Figure::Kind::Arc) {
        line = PointsOfArc(figure);
    } else if (figure.kind == Figure::Kind::Circle) {
        Figure ring = figure;
        ring.end = ring.start;
        line = PointsOfArc(ring);
    }
    const bool closed = figure.kind == Figure::Kind::Polygon || figure.kind == Figure::Kind::Circle;
    const bool isArea = closed && figure.filled && line.size() > 2;
    if (isArea) {
        polygons.push_back(line);
        if (TwiceArea(line) < 0)
            std::reverse(polygons.back().begin(), polygons.back().end());
    }

    // An area that is large enough to be seen needs no wider border than its own.
    const double radius = std::max(figure.width, isArea && !IsThin(line, thinnest) ? 0 : thinnest) / 2;
    for (size_t i = 1; radius > 0 && i < line.size(); ++i)
        polygons.push_back(Capsule(line[i - 1], line[i], radius));
    if (radius > 0 && figure.kind == Figure::Kind::Polygon && line.size() > 2)
        polygons.push_back(Capsule(line.back(), line.front(), radius));
}

} // namespace

OverlayShape::OverlayShape(const std::vector<const Figure*>& shown, Colour colour)
{
    for (const Figure* figure : shown)
        figures.push_back(*figure);
    SetColor(colour);
}

void OverlayShape::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long colour)
{
    const double thinnest = painter->GetLogicalRateFromPhysicalRate(kThinnest);
    const CKRectD visible(painter->GetLogicalScreenLeft(), painter->GetLogicalScreenRight(),
                          painter->GetLogicalScreenBottom(), painter->GetLogicalScreenTop());
    std::vector<Polygon> polygons;
    for (const Figure& figure : figures)
        AppendPolygons(figure, thinnest, polygons);

    dc->BeginPath();
    for (const Polygon& polygon : polygons) {
        if (!BoxOf(polygon).IsIntersect(visible))
            continue;
        for (size_t i = 0; i < polygon.size(); ++i) {
            const KPoint pixel = painter->GetTranslatedPhysicalCoord(polygon[i].x, polygon[i].y);
            if (i == 0)
                dc->MoveTo(pixel.x, pixel.y);
            else
                dc->LineTo(pixel.x, pixel.y);
        }
        dc->CloseFigure();
    }
    dc->EndPath();
    const int former = dc->SetPolyFillMode(WINDING);
    painter->FillPath(dc, static_cast<COLORREF>(colour));
    dc->SetPolyFillMode(former);
}

} // namespace viewer
