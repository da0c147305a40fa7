#include "BoardOutlines.h"

#include "PixelChain.h"
#include "StrokeFont.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"
#include "painter/CKPainter.h"

#include <cmath>
#include <cstdlib>

namespace viewer {

namespace {

constexpr int kThinLine = 4;     ///< pixels; up to here the two sides of a line can't be told apart while it moves
constexpr int kSmallestText = 8; ///< pixels of a capital letter

/// Adds outlines to the device context's open path.
class OutlinePath
{
public:
    OutlinePath(CKPainter& owner, CDC* target) : painter(owner), dc(target), chain(target) {}

    void Add(CKGeom& shape)
    {
        switch (shape.GetType()) {
        case 1:
            AddText(static_cast<CKGeomText&>(shape));
            break;
        case 2:
            AddLine(static_cast<CKGeomLine&>(shape));
            break;
        case 3:
            AddArc(static_cast<CKGeomArc&>(shape));
            break;
        case 6:
            AddPolygon(static_cast<CKGeomPolygon&>(shape));
            break;
        default:
            break;
        }
    }

private:
    void AddLine(CKGeomLine& line)
    {
        const double x1 = line.GetStartX() + line.GetOffsetX(), y1 = line.GetStartY() + line.GetOffsetY();
        const double x2 = line.GetEndX() + line.GetOffsetX(), y2 = line.GetEndY() + line.GetOffsetY();
        const int width = painter.TranslateRate(line.GetThickness());
        const KPoint from = painter.TranslateCoord(x1, y1);
        const KPoint to = painter.TranslateCoord(x2, y2);
        if (from.x == to.x && from.y == to.y)
            AddDisc(x1, y1, line.GetThickness(), width);
        else if (width > kThinLine)
            painter.AddLineOutlinePath(dc, x1, y1, x2, y2, float(line.GetThickness()), 1);
        else
            painter.AddLinePath(dc, x1, y1, x2, y2, 1);
    }

    void AddDisc(double x, double y, double diameter, int pixels)
    {
        if (pixels > kThinLine)
            painter.AddCirclePath(dc, x, y, diameter / 2, 1);
        else if (pixels > 0)
            painter.AddRectanglePath(dc, x, y, diameter, diameter, 0, 0, 1);
    }

    /// A figure of its own; edges of a polygon begin anew after it.
    void AddArc(CKGeomArc& arc)
    {
        chain.Begin();
        painter.AddArcPath(dc, arc.GetStartX(), arc.GetStartY(), arc.GetEndX(), arc.GetEndY(), arc.GetCenterX(),
                           arc.GetCenterY(), arc.IsCCW(), arc.GetOffsetX(), arc.GetOffsetY(), 0, 0, 0, 1);
    }

    void AddPolygon(CKGeomPolygon& polygon)
    {
        for (CKGeomContainer* edges : {polygon.getOutline(), polygon.getHole()}) {
            chain.Begin();
            for (int i = 0; i < edges->GetCount(); ++i) {
                CKGeom* const edge = edges->GetAt(i);
                if (edge && edge->GetType() == 2)
                    AddEdge(static_cast<CKGeomLine&>(*edge));
                else if (edge && edge->GetType() == 3)
                    AddArc(static_cast<CKGeomArc&>(*edge));
            }
        }
    }

    /// Edges of a chain share their ends, which are then converted once.
    void AddEdge(CKGeomLine& line)
    {
        const KPointD from = {line.GetStartX() + line.GetOffsetX(), line.GetStartY() + line.GetOffsetY()};
        const KPointD to = {line.GetEndX() + line.GetOffsetX(), line.GetEndY() + line.GetOffsetY()};
        if (!chain.HasBegun() || from.x != chainEnd.x || from.y != chainEnd.y)
            chain.Reach(painter.TranslateCoord(from.x, from.y));
        chain.Reach(painter.TranslateCoord(to.x, to.y));
        chainEnd = to;
    }

    void AddText(CKGeomText& text)
    {
        if (painter.TranslateRate(TextStyle::Of(text).height) < kSmallestText)
            return;
        for (const Stroke& stroke : PlacedStrokes(text)) {
            chain.Begin();
            for (const KPointD& point : stroke)
                chain.Reach(painter.TranslateCoord(point.x, point.y));
        }
    }

    CKPainter& painter;
    CDC* dc;
    PixelChain chain;
    KPointD chainEnd{}; ///< of the edge added last
};

} // namespace

bool IsInView(CKPainter& painter, CKGeom& shape)
{
    CKRectD area = shape.GetRectangleArea();
    if (!area.IsInitialized())
        return true;
    // Pens are at least a pixel wide, and frames of an odd width show half a pixel more on one side.
    const double margin = painter.GetLogicalRateFromPhysicalRate(2);
    return painter.IsScreenOverlapped(area.GetLeft() - margin, area.GetRight() + margin, area.GetBottom() - margin,
                                      area.GetTop() + margin) != 0;
}

void DrawOutlines(CKPainter& painter, CDC* dc, const PictureLayer& layer, COLORREF colour)
{
    OutlinePath path(painter, dc);
    dc->BeginPath();
    for (int i = 0; i < layer.shapes.GetCount(); ++i) {
        CKGeom* const shape = layer.shapes.GetAt(i);
        if (shape && !shape->IsHidden() && IsInView(painter, *shape))
            path.Add(*shape);
    }
    dc->EndPath();
    painter.StrokePath(dc, 0, colour);
}

} // namespace viewer
