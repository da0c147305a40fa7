#include "BoardPicture.h"
#include "StrokeFont.h"
#include "Turning.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"

#include <cmath>

namespace viewer {

namespace {

/// Millimetres. Shapes of a damaged archive can hold any number: what lies beyond a kilometre has no place in a view.
constexpr double kFarthest = 1e6;

/// Gathers bounds.
class Bounds
{
public:
    explicit Bounds(bool countThickness) : withThickness(countThickness) {}

    /// Texts and shapes of other kinds have no bounds here: how far a text reaches depends on the font.
    void Add(CKGeom& shape)
    {
        if (shape.GetType() == 2)
            AddLine(static_cast<CKGeomLine&>(shape));
        else if (shape.GetType() == 3)
            AddArc(static_cast<CKGeomArc&>(shape));
        else if (shape.GetType() == 6)
            AddAll(*static_cast<CKGeomPolygon&>(shape).getOutline());
    }

    /// Outlines of areas are chains of lines and arcs. A polygon inside a polygon is not drawn and does not count; it
    /// could only come from a damaged archive, nested to any depth.
    void AddAll(const CKGeomContainer& shapes)
    {
        for (int i = 0; i < shapes.GetCount(); ++i) {
            if (CKGeom* shape = shapes.GetAt(i); shape && shape->GetType() != 6)
                Add(*shape);
        }
    }

    CKRectD box;
    bool complete = true; ///< no point had to be left out

private:
    void AddLine(CKGeomLine& line)
    {
        AddPoint(line.GetStartX(), line.GetStartY(), line.GetThickness());
        AddPoint(line.GetEndX(), line.GetEndY(), line.GetThickness());
    }

    /// An arc reaches beyond its ends where it passes one of its circle's outermost points.
    void AddArc(CKGeomArc& arc)
    {
        const double cx = arc.GetCenterX(), cy = arc.GetCenterY();
        const double radius = std::hypot(arc.GetStartX() - cx, arc.GetStartY() - cy);
        AddPoint(arc.GetStartX(), arc.GetStartY(), arc.GetThickness());
        AddPoint(arc.GetEndX(), arc.GetEndY(), arc.GetThickness());

        const KPointD start = {arc.GetStartX(), arc.GetStartY()};
        const double from = DirectionFrom({cx, cy}, start);
        const double sweep = SweepOfArc({cx, cy}, start, {arc.GetEndX(), arc.GetEndY()}, arc.IsCCW());
        // The four outermost points of the circle, as far as the arc passes them.
        constexpr double kOutermost[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
        for (int quarter = 0; quarter < 4; ++quarter) {
            const double direction = quarter * M_PI / 2;
            const double way = arc.IsCCW() ? TurnBetween(from, direction) : TurnBetween(direction, from);
            if (way <= sweep)
                AddPoint(cx + radius * kOutermost[quarter][0], cy + radius * kOutermost[quarter][1],
                         arc.GetThickness());
        }
    }

    void AddPoint(double x, double y, double thickness)
    {
        const double reach = withThickness ? thickness / 2 : 0;
        if (!(std::fabs(x) <= kFarthest) || !(std::fabs(y) <= kFarthest) || !(std::fabs(reach) <= kFarthest)) {
            complete = false;
            return;
        }
        box.MergePoint(x - reach, y - reach);
        box.MergePoint(x + reach, y + reach);
    }

    bool withThickness;
};

/// A box that covers a text at any angle: how far its strokes reach from its anchor.
CKRectD TextArea(CKGeomText& text)
{
    constexpr double kTallest = 2; ///< no stroke is further from the baseline, in heights of a capital letter
    const TextStyle style = TextStyle::Of(text);
    const double width = (WidthOfText(static_cast<const char*>(text.GetText())) + kTallest) * std::fabs(style.width);
    const double reach = std::hypot(width, kTallest * std::fabs(style.height)) + std::fabs(style.thickness);
    CKRectD box;
    if (reach <= kFarthest) {
        box.MergePoint(text.GetX() - reach, text.GetY() - reach);
        box.MergePoint(text.GetX() + reach, text.GetY() + reach);
    }
    return box;
}

} // namespace

void SetAreas(PictureLayer& layer)
{
    for (int i = 0; i < layer.shapes.GetCount(); ++i) {
        CKGeom* const shape = layer.shapes.GetAt(i);
        if (!shape || shape->GetOffsetX() != 0 || shape->GetOffsetY() != 0)
            continue; // moved shapes come from foreign archives only
        Bounds bounds(true);
        bounds.Add(*shape);
        CKRectD box = shape->GetType() == 1 ? TextArea(static_cast<CKGeomText&>(*shape)) : bounds.box;
        if (bounds.complete && box.IsInitialized())
            shape->SetRectangleArea(box.GetLeft(), box.GetRight(), box.GetBottom(), box.GetTop());
    }
}

CKRectD BoundsOf(const PictureLayer& layer, bool withThickness)
{
    Bounds bounds(withThickness);
    for (int i = 0; i < layer.shapes.GetCount(); ++i) {
        if (CKGeom* shape = layer.shapes.GetAt(i))
            bounds.Add(*shape);
    }
    return bounds.box;
}

CKRectD BoundsOf(const BoardPicture& picture, bool withThickness)
{
    const PictureLayer* outline = picture.Find(kOutlineName);
    CKRectD box = outline ? BoundsOf(*outline, withThickness) : CKRectD();
    if (box.IsInitialized())
        return box;

    CKRectD all;
    for (const auto& layer : picture.layers) {
        CKRectD part = BoundsOf(*layer, true);
        if (part.IsInitialized())
            all.Merge(part);
    }
    return all;
}

} // namespace viewer
