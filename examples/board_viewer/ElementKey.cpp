#include "ElementKey.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace viewer {

namespace {

/// Appends values to a key. Every value has a fixed length or is preceded by it, so that no two lists of values make
/// one key.
class KeyWriter
{
public:
    KeyWriter(char kind, ElementPlace place)
    {
        key += kind;
        Add(place.layer);
        Add(place.net);
    }

    /// Negative zero is zero; every other difference of bits counts.
    void Add(double value)
    {
        const double plain = value + 0.0;
        char bytes[sizeof plain];
        std::memcpy(bytes, &plain, sizeof plain);
        key.append(bytes, sizeof bytes);
    }
    void Add(KPointD point)
    {
        Add(point.x);
        Add(point.y);
    }
    void Add(std::string_view text)
    {
        Add(double(text.size()));
        key += text;
    }
    void AddFlag(bool flag) { key += flag ? '1' : '0'; }

    void AddLine(KPointD a, KPointD b, double width)
    {
        if (std::pair(b.x, b.y) < std::pair(a.x, a.y))
            std::swap(a, b);
        Add(a);
        Add(b);
        Add(width);
    }
    /// As a counter-clockwise one.
    void AddArc(KPointD start, KPointD end, KPointD centre, double width, bool counterClockwise)
    {
        if (!counterClockwise)
            std::swap(start, end);
        Add(start);
        Add(end);
        Add(centre);
        Add(width);
    }

    void Add(const Figure& figure)
    {
        key += char('a' + int(figure.kind));
        AddFlag(figure.filled);
        switch (figure.kind) {
        case Figure::Kind::Line:
            AddLine(figure.start, figure.end, figure.width);
            break;
        case Figure::Kind::Arc:
            AddArc(figure.start, figure.end, figure.centre, figure.width, figure.counterClockwise);
            break;
        case Figure::Kind::Circle:
            Add(figure.centre);
            Add(std::hypot(figure.start.x - figure.centre.x, figure.start.y - figure.centre.y));
            Add(figure.width);
            break;
        case Figure::Kind::Polygon:
        case Figure::Kind::Polyline:
            Add(figure.width);
            Add(double(figure.points.size()));
            for (const KPointD& point : figure.points)
                Add(point);
            break;
        }
    }
    void Add(const std::vector<Figure>& figures)
    {
        Add(double(figures.size()));
        for (const Figure& figure : figures)
            Add(figure);
    }

    /// A line, arc or text. False for every other kind.
    bool AddSimple(CKGeom& shape)
    {
        key += char('0' + shape.GetType());
        Add(KPointD{shape.GetOffsetX(), shape.GetOffsetY()});
        if (shape.GetType() == 1) {
            AddText(static_cast<CKGeomText&>(shape));
        } else if (shape.GetType() == 2) {
            auto& line = static_cast<CKGeomLine&>(shape);
            AddLine({line.GetStartX(), line.GetStartY()}, {line.GetEndX(), line.GetEndY()}, line.GetThickness());
        } else if (shape.GetType() == 3) {
            auto& arc = static_cast<CKGeomArc&>(shape);
            AddArc({arc.GetStartX(), arc.GetStartY()}, {arc.GetEndX(), arc.GetEndY()},
                   {arc.GetCenterX(), arc.GetCenterY()}, arc.GetThickness(), arc.IsCCW() != 0);
        } else {
            return false;
        }
        return true;
    }

    /// The chain of edges as it stands. What is not drawn as part of an area adds its type alone.
    void Add(const CKGeomContainer& edges)
    {
        Add(double(edges.GetCount()));
        for (int i = 0; i < edges.GetCount(); ++i) {
            if (CKGeom* edge = edges.GetAt(i))
                AddSimple(*edge);
        }
    }

    std::string Take() { return std::move(key); }

private:
    /// With what its style holds, which is in the pair of corners.
    void AddText(CKGeomText& text)
    {
        CKTwoPointD style = text.GetMinMax();
        Add(std::string_view(static_cast<const char*>(text.GetText())));
        Add(KPointD{text.GetX(), text.GetY()});
        Add(double(text.GetAngle()));
        Add(KPointD{style.GetX1(), style.GetY1()});
        Add(KPointD{style.GetX2(), style.GetY2()});
    }

    std::string key;
};

} // namespace

std::string KeyOf(const Track& track, ElementPlace place)
{
    KeyWriter writer('t', place);
    writer.Add(track.figure);
    return writer.Take();
}

std::string KeyOf(const FilledPolygon& area, ElementPlace place)
{
    KeyWriter writer('f', place);
    writer.Add(area.figure);
    return writer.Take();
}

std::string KeyOf(const Via& via, ElementPlace place)
{
    KeyWriter writer('v', place);
    writer.Add(via.centre);
    writer.Add(via.diameter);
    return writer.Take();
}

std::string KeyOf(const Pad& pad, ElementPlace place)
{
    KeyWriter writer('p', place);
    writer.Add(pad.copper);
    return writer.Take();
}

std::string KeyOf(const Hole& hole, ElementPlace place)
{
    KeyWriter writer('h', place);
    writer.Add(hole.centre);
    writer.Add(hole.width);
    writer.Add(hole.height);
    writer.Add(hole.width == hole.height ? 0 : hole.angle); // a round hole has no direction
    writer.AddFlag(hole.bare);
    return writer.Take();
}

std::string KeyOf(const Graphic& graphic, ElementPlace place)
{
    KeyWriter writer('g', place);
    writer.Add(std::string_view(graphic.kind));
    writer.Add(graphic.figures);
    return writer.Take();
}

std::string KeyOf(const Text& text, ElementPlace place)
{
    KeyWriter writer('x', place);
    writer.Add(std::string_view(text.text));
    writer.Add(text.anchor);
    for (const double value :
         {text.angle, text.height, text.width, text.thickness, double(text.horizontal), double(text.vertical)})
        writer.Add(value);
    writer.AddFlag(text.mirrored);
    writer.AddFlag(text.italic);
    return writer.Take();
}

std::string KeyOf(CKGeom& shape, std::string_view layer)
{
    if (shape.IsHidden())
        return {};
    KeyWriter writer('s', {layer, {}});
    if (shape.GetType() == 6) {
        auto& polygon = static_cast<CKGeomPolygon&>(shape);
        writer.Add(*polygon.getOutline());
        writer.Add(*polygon.getHole());
    } else if (!writer.AddSimple(shape)) {
        return {};
    }
    return writer.Take();
}

} // namespace viewer
