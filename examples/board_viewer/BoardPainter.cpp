#include "BoardPainter.h"

#include "BoardOutlines.h"
#include "PixelChain.h"
#include "StrokeFont.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

/// Outlines narrower than this many pixels can fall between the pixels' centres; a pen never does.
constexpr int kThinnestOutline = 2;

/// A thickness as the outline builders take it. Shapes of a damaged archive can hold any number.
float AsWidth(double thickness)
{
    constexpr double kWidest = 1e6; // millimetres
    return thickness > 0 ? float(std::min(thickness, kWidest)) : 0.0f;
}

/// Builds the outline of a polygon's area, edge by edge, and keeps the box of its points in pixels.
class AreaPath
{
public:
    AreaPath(CKPainter& owner, CDC* target) : painter(owner), dc(target), chain(target) {}

    /// Adds a closed chain of lines and arcs as one figure. Anything else in it is passed over.
    void Add(const CKGeomContainer& edges)
    {
        chain.Begin();
        for (int i = 0; i < edges.GetCount(); ++i) {
            CKGeom* edge = edges.GetAt(i);
            if (edge && edge->GetType() == 2)
                AddLine(static_cast<CKGeomLine&>(*edge));
            else if (edge && edge->GetType() == 3)
                AddArc(static_cast<CKGeomArc&>(*edge));
        }
    }

    /// Whether the area may fall between the pixels' centres.
    bool IsThin() const { return right - left < kThinnestOutline || top - bottom < kThinnestOutline; }
    /// Of the widest edge, in millimetres.
    double Border() const { return border; }

private:
    void AddLine(CKGeomLine& line)
    {
        Reach(line.GetStartX() + line.GetOffsetX(), line.GetStartY() + line.GetOffsetY());
        Reach(line.GetEndX() + line.GetOffsetX(), line.GetEndY() + line.GetOffsetY());
        border = std::max(border, line.GetThickness());
    }

    /// The painter's builder draws on from the current point; where it ends in pixels is the rounded end point.
    void AddArc(CKGeomArc& arc)
    {
        const double dx = arc.GetOffsetX(), dy = arc.GetOffsetY();
        Reach(arc.GetStartX() + dx, arc.GetStartY() + dy);
        painter.AddArcPath(dc, arc.GetStartX(), arc.GetStartY(), arc.GetEndX(), arc.GetEndY(), arc.GetCenterX(),
                           arc.GetCenterY(), arc.IsCCW(), dx, dy, 0, 0, 0, 0);
        const KPoint end = painter.TranslateCoord(arc.GetEndX() + dx, arc.GetEndY() + dy);
        chain.GoOnFrom(end);
        Grow(end);
        border = std::max(border, arc.GetThickness());
    }

    void Reach(double x, double y)
    {
        const KPoint point = painter.TranslateCoord(x, y);
        chain.Reach(point);
        Grow(point);
    }

    /// Doubles, since the distance between two ints of a damaged archive need not fit in one.
    void Grow(KPoint point)
    {
        left = std::min(left, double(point.x));
        right = std::max(right, double(point.x));
        bottom = std::min(bottom, double(point.y));
        top = std::max(top, double(point.y));
    }

    CKPainter& painter;
    CDC* dc;
    PixelChain chain;
    double left = HUGE_VAL, right = -HUGE_VAL, bottom = HUGE_VAL, top = -HUGE_VAL;
    double border = 0;
};

} // namespace

BoardPainter::BoardPainter(const BoardPicture& source) : picture(source)
{
    ShowAll();
    Init();
}

void BoardPainter::ShowAll()
{
    shown.clear();
    for (const auto& layer : picture.layers)
        shown.push_back({layer.get(), layer->colour});
}

void BoardPainter::ShowFromBack()
{
    SetBoardMirrorX(1);
    ShowAll();
    std::stable_sort(shown.begin(), shown.end(), [](const ShownLayer& a, const ShownLayer& b) {
        return LayerRankFromBack(a.layer->name) < LayerRankFromBack(b.layer->name);
    });
}

void BoardPainter::ShowLayers(const std::vector<const PictureLayer*>& layers)
{
    shown.clear();
    for (const PictureLayer* layer : layers)
        shown.push_back({layer, layer->colour});
    // What is drilled is drilled through all copper, so the holes belong to any view of it.
    const bool copper =
        std::any_of(layers.begin(), layers.end(), [](const PictureLayer* layer) { return IsCopper(layer->name); });
    for (std::string_view name : {kHolesName, kBareHolesName}) {
        const PictureLayer* holes = picture.Find(name);
        if (copper && holes && std::find(layers.begin(), layers.end(), holes) == layers.end())
            shown.push_back({holes, holes->colour});
    }
}

void BoardPainter::ShowLayers(std::vector<ShownLayer> layers)
{
    shown = std::move(layers);
}

int BoardPainter::IsExistData(CWnd*)
{
    return 1;
}

KRectangleD BoardPainter::GetTargetSize()
{
    return TargetFor(BoundsOf(picture, false));
}

KRectangleD BoardPainter::GetInkSize()
{
    return TargetFor(BoundsOf(picture, true));
}

KRectangleD BoardPainter::TargetFor(CKRectD box)
{
    if (!box.IsInitialized())
        return {1, 1, 0, 0}; // nothing to see; any area will do
    const KPointD centre = box.GetCenter();
    // The painter leaves its view as it is for an area without any extent.
    constexpr double kSmallest = 0.001; // a single point has no size to fit
    return {std::max(box.GetWidth(), kSmallest), std::max(box.GetHeight(), kSmallest), centre.x, centre.y};
}

void BoardPainter::DrawBody(CWnd*, CDC* dc)
{
    for (const ShownLayer& layer : shown) {
        if (IsSimpleDraw())
            DrawOutlines(*this, dc, *layer.layer, layer.colour);
        else
            DrawLayer(dc, *layer.layer, layer.colour);
    }
}

/// Dispatches by type code, as the library's factory does. Kinds that the viewer never stores draw nothing.
void BoardPainter::DrawLayer(CDC* dc, const PictureLayer& layer, COLORREF colour)
{
    for (int i = 0; i < layer.shapes.GetCount(); ++i) {
        CKGeom* shape = layer.shapes.GetAt(i);
        if (!shape || shape->IsHidden() || !IsInView(*this, *shape))
            continue;
        switch (shape->GetType()) {
        case 1:
            DrawTextShape(dc, colour, static_cast<CKGeomText&>(*shape));
            break;
        case 2:
            DrawLineShape(dc, colour, static_cast<CKGeomLine&>(*shape));
            break;
        case 3:
            DrawArcShape(dc, colour, static_cast<CKGeomArc&>(*shape));
            break;
        case 6:
            DrawPolygonShape(dc, colour, static_cast<CKGeomPolygon&>(*shape));
            break;
        default:
            break;
        }
    }
}

/// A track is the outline of its copper, filled. A line of length 0 has no direction to build an outline along: it is a
/// disc.
void BoardPainter::DrawLineShape(CDC* dc, COLORREF colour, CKGeomLine& line)
{
    const double x1 = line.GetStartX() + line.GetOffsetX(), y1 = line.GetStartY() + line.GetOffsetY();
    const double x2 = line.GetEndX() + line.GetOffsetX(), y2 = line.GetEndY() + line.GetOffsetY();
    const float width = AsWidth(line.GetThickness());
    const int pixels = TranslateRate(width);
    const bool isDisc = x1 == x2 && y1 == y2;

    dc->BeginPath();
    if (isDisc && pixels <= kThinnestOutline)
        AddRectanglePath(dc, x1, y1, width, width, 0, 0, 1); // never thinner than two pixels
    else if (isDisc)
        AddCirclePath(dc, x1, y1, double(width) / 2, 1);
    else if (pixels < kThinnestOutline)
        AddLinePath(dc, x1, y1, x2, y2, 1);
    else
        AddLineOutlinePath(dc, x1, y1, x2, y2, width, 1);
    dc->EndPath();

    if (!isDisc && pixels < kThinnestOutline)
        StrokePath(dc, pixels, colour);
    else
        FillPath(dc, colour);
}

/// Like a line; with equal ends the outline is two circles, between which the alternate fill leaves a ring.
void BoardPainter::DrawArcShape(CDC* dc, COLORREF colour, CKGeomArc& arc)
{
    const double dx = arc.GetOffsetX(), dy = arc.GetOffsetY();
    const double sx = arc.GetStartX(), sy = arc.GetStartY(), ex = arc.GetEndX(), ey = arc.GetEndY();
    const double cx = arc.GetCenterX(), cy = arc.GetCenterY();
    const float width = AsWidth(arc.GetThickness());
    const int pixels = TranslateRate(width);
    // The inner edge of an outline turns inside out where the stroke is wider than the arc's circle; a pen is not
    // troubled by that.
    const bool byPen = pixels < kThinnestOutline || width >= 2 * std::hypot(sx - cx, sy - cy);

    dc->BeginPath();
    if (byPen)
        AddArcPath(dc, sx, sy, ex, ey, cx, cy, arc.IsCCW(), dx, dy, 0, 0, 0, 1);
    else
        AddArcOutlinePath(dc, sx, sy, ex, ey, cx, cy, width, arc.IsCCW(), dx, dy, 0, 0, 0);
    dc->EndPath();

    if (byPen)
        StrokePath(dc, pixels, colour);
    else
        FillPath(dc, colour);
}

/// The area and, where it has one, its border in one call. The alternate fill makes nothing of edges that run there and
/// back, and so opens the cut-outs that are reached along them.
void BoardPainter::DrawPolygonShape(CDC* dc, COLORREF colour, CKGeomPolygon& polygon)
{
    AreaPath area(*this, dc);
    dc->BeginPath();
    area.Add(*polygon.getOutline());
    area.Add(*polygon.getHole());
    dc->EndPath();

    const int border = TranslateRate(AsWidth(area.Border()));
    if (border > 0 || area.IsThin())
        StrokeAndFillPath(dc, border, colour);
    else
        FillPath(dc, colour);
}

/// All strokes of a text are one path, so that the pen touches each pixel once.
void BoardPainter::DrawTextShape(CDC* dc, COLORREF colour, CKGeomText& text)
{
    dc->BeginPath();
    for (const Stroke& stroke : PlacedStrokes(text)) {
        const KPoint first = TranslateCoord(stroke.front().x, stroke.front().y);
        dc->MoveTo(first.x, first.y);
        for (size_t i = 1; i < stroke.size(); ++i) {
            const KPoint point = TranslateCoord(stroke[i].x, stroke[i].y);
            dc->LineTo(point.x, point.y);
        }
    }
    dc->EndPath();
    StrokePath(dc, TranslateRate(AsWidth(TextStyle::Of(text).thickness)), colour);
}

} // namespace viewer
