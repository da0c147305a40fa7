#include "BoardPicture.h"

#include "StrokeFont.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"

#include <algorithm>
#include <cmath>

// From the model to shapes. Everything that the picture shows passes through here, and only here is it decided how a
// board item is told in shapes; the painter knows shapes and no boards.

namespace viewer {

namespace {

constexpr double kDegree = M_PI / 180;
constexpr int kCounterClockwise = -1; // the library's direction codes
constexpr int kClockwise = 1;

/// Length of the way between two points.
double Distance(KPointD a, KPointD b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// An oval hole as the centre line and width of the cutter's way.
struct Slot
{
    KPointD from;
    KPointD to;
    double across;
};

/// The cutter runs along the longer side, wherever that points.
Slot SlotOf(const Hole& hole)
{
    const double across = std::min(hole.width, hole.height);
    const double half = (std::max(hole.width, hole.height) - across) / 2;
    const double angle = (hole.width >= hole.height ? hole.angle : hole.angle + 90) * kDegree;
    const KPointD along = {half * std::cos(angle), half * std::sin(angle)};
    return {
        {hole.centre.x - along.x, hole.centre.y - along.y}, {hole.centre.x + along.x, hole.centre.y + along.y}, across};
}

/// Appends shapes to one layer.
class LayerWriter
{
public:
    explicit LayerWriter(PictureLayer& target) : layer(target) {}

    /// The shapes that show a figure; a figure without ink makes none.
    void AddFigure(const Figure& figure)
    {
        switch (figure.kind) {
        case Figure::Kind::Line:
            AddLine(layer.shapes, figure.start, figure.end, figure.width);
            break;
        case Figure::Kind::Arc:
            AddArc(figure.start, figure.end, figure.centre, figure.width,
                   figure.counterClockwise ? kCounterClockwise : kClockwise);
            break;
        case Figure::Kind::Circle:
            AddCircle(figure);
            break;
        case Figure::Kind::Polygon:
            if (figure.filled)
                AddPolygon(figure);
            else
                AddEdges(layer.shapes, figure.points, figure.width, true);
            break;
        case Figure::Kind::Polyline:
            AddEdges(layer.shapes, figure.points, figure.width, false);
            break;
        }
    }

    void AddDisc(KPointD centre, double diameter) { AddLine(layer.shapes, centre, centre, diameter); }

    /// A whole circle is an arc with equal ends: circle shapes do not survive an archive.
    void AddRing(KPointD centre, double radius, double width)
    {
        const KPointD start = {centre.x + radius, centre.y};
        AddArc(start, start, centre, width, kCounterClockwise);
    }

    void AddSlot(const Slot& slot) { AddLine(layer.shapes, slot.from, slot.to, slot.across); }

    /// The outline of a slot, counter-clockwise: a side, an end, the other side, the other end.
    void AddSlotRim(const Slot& slot, double width)
    {
        const double length = Distance(slot.from, slot.to);
        const double reach = slot.across / 2 / length;
        const KPointD aside = {-(slot.to.y - slot.from.y) * reach, (slot.to.x - slot.from.x) * reach};
        const KPointD corners[4] = {{slot.from.x - aside.x, slot.from.y - aside.y},
                                    {slot.to.x - aside.x, slot.to.y - aside.y},
                                    {slot.to.x + aside.x, slot.to.y + aside.y},
                                    {slot.from.x + aside.x, slot.from.y + aside.y}};
        AddLine(layer.shapes, corners[0], corners[1], width);
        AddArc(corners[1], corners[2], slot.to, width, kCounterClockwise);
        AddLine(layer.shapes, corners[2], corners[3], width);
        AddArc(corners[3], corners[0], slot.from, width, kCounterClockwise);
    }

    /// Lines are stacked downward in the text's own frame and then turned with it, one shape for each.
    void AddText(const Text& text)
    {
        size_t lines = size_t(std::count(text.text.begin(), text.text.end(), '\n')) + 1;
        const double spacing = kLineSpacing * text.height;
        const double blockHeight = text.height + double(lines - 1) * spacing;
        // The first baseline above the anchor: a block below its anchor, around it or above it.
        double baseline = -text.height + blockHeight * (text.vertical == Text::Side::High  ? 0.0
                                                        : text.vertical == Text::Side::Low ? 1.0
                                                                                           : 0.5);
        for (size_t begin = 0; lines-- > 0; baseline -= spacing) {
            const size_t end = std::min(text.text.find('\n', begin), text.text.size());
            AddTextLine(text, text.text.substr(begin, end - begin), baseline);
            begin = end + 1;
        }
    }

private:
    /// `baseline` is how far above the anchor the line stands, before the text is turned.
    void AddTextLine(const Text& text, const std::string& line, double baseline)
    {
        if (line.empty())
            return;
        TextStyle style;
        style.width = text.mirrored ? -text.width : text.width;
        style.height = text.height;
        style.thickness = text.thickness;
        style.slant = text.italic ? kItalicSlant : 0;

        // A mirrored text is mirrored about its anchor before it is turned.
        const double share = text.horizontal == Text::Side::Low ? 0.0 : text.horizontal == Text::Side::High ? 1.0 : 0.5;
        const double x = -share * WidthOfText(line) * style.width;
        const double c = std::cos(text.angle * kDegree);
        const double s = std::sin(text.angle * kDegree);
        auto shape = std::make_unique<CKGeomText>(CString(line.c_str()), text.anchor.x + c * x - s * baseline,
                                                  text.anchor.y + s * x + c * baseline, float(text.angle));
        style.Put(*shape);
        Add(layer.shapes, std::move(shape));
    }

    /// A filled circle or one whose border leaves nothing open is a disc, any other a ring.
    void AddCircle(const Figure& figure)
    {
        const double radius = Distance(figure.centre, figure.start);
        if (figure.filled || figure.width >= 2 * radius)
            AddDisc(figure.centre, 2 * radius + figure.width);
        else
            AddRing(figure.centre, radius, figure.width);
    }

    /// The cut-outs of a filled area are part of its one outline, so the polygon's hole stays empty.
    void AddPolygon(const Figure& figure)
    {
        auto polygon = std::make_unique<CKGeomPolygon>();
        AddEdges(*polygon->getOutline(), figure.points, figure.width, true);
        Add(layer.shapes, std::move(polygon));
    }

    /// A chain of lines from point to point.
    void AddEdges(CKGeomContainer& target, const std::vector<KPointD>& points, double width, bool closed)
    {
        for (size_t i = 1; i < points.size(); ++i)
            AddLine(target, points[i - 1], points[i], width);
        if (closed && points.size() > 1)
            AddLine(target, points.back(), points.front(), width);
    }

    void AddLine(CKGeomContainer& target, KPointD from, KPointD to, double width)
    {
        Add(target, std::make_unique<CKGeomLine>(from.x, from.y, to.x, to.y, width));
    }

    void AddArc(KPointD from, KPointD to, KPointD centre, double width, int direction)
    {
        auto arc = std::make_unique<CKGeomArc>(from.x, from.y, to.x, to.y, centre.x, centre.y, width);
        arc->setDirection(direction);
        Add(layer.shapes, std::move(arc));
    }

    /// Colours are not archived; the painter takes them from the layer. A host that draws the shapes by DrawGeoms finds
    /// them in the shapes.
    void Add(CKGeomContainer& target, std::unique_ptr<CKGeom> shape)
    {
        shape->SetColor(layer.colour);
        target.Add(shape.get());
        (void)shape.release(); // the container owns it from here, unless it had no memory for it
    }

    PictureLayer& layer;
};

/// The layers of the board, to be filled by index and then put into their drawing order.
class PictureMaker
{
public:
    explicit PictureMaker(const Board& source) : board(source)
    {
        for (int i = 0; i < board.layers.Count(); ++i)
            MakeLayer(board.layers.Name(i));
        MakeLayer(kHolesName);
        MakeLayer(kBareHolesName);
    }

    BoardPicture Make()
    {
        AddCopper();
        for (const Graphic& graphic : board.graphics) {
            for (const Figure& figure : graphic.figures)
                On(graphic.layer).AddFigure(figure);
        }
        for (const Text& text : board.texts)
            On(text.layer).AddText(text);
        for (const Via& via : board.vias)
            AddHole(via.hole);
        for (const Pad& pad : board.pads)
            AddHole(pad.hole);

        const auto isBelow = [](const auto& a, const auto& b) { return LayerRank(a->name) < LayerRank(b->name); };
        std::stable_sort(picture.layers.begin(), picture.layers.end(), isBelow);
        for (const auto& layer : picture.layers)
            SetAreas(*layer);
        return std::move(picture);
    }

private:
    /// Also for layers without shapes, which a user can ask for as well.
    void MakeLayer(std::string_view name)
    {
        auto layer = std::make_unique<PictureLayer>();
        layer->name = name;
        layer->colour = LayerColour(name);
        picture.layers.push_back(std::move(layer));
    }

    LayerWriter On(int layer) { return LayerWriter(*picture.layers[size_t(layer)]); }

    /// Calls `draw` with the writer of each layer in the set.
    template <class Draw>
    void OnEach(LayerSet layers, Draw draw)
    {
        for (int i = 0; i < board.layers.Count(); ++i) {
            if ((layers >> i & 1) != 0)
                draw(On(i));
        }
    }

    /// Areas first, so that a track or pad drawn over its own area looks the same whatever the area's border does.
    void AddCopper()
    {
        for (const FilledPolygon& area : board.filledPolygons)
            On(area.layer).AddFigure(area.figure);
        for (const Track& track : board.tracks)
            On(track.layer).AddFigure(track.figure);
        for (const Pad& pad : board.pads) {
            OnEach(pad.layers, [&](LayerWriter layer) {
                for (const Figure& figure : pad.copper)
                    layer.AddFigure(figure);
            });
        }
        for (const Via& via : board.vias)
            OnEach(via.layers, [&](LayerWriter layer) { layer.AddDisc(via.centre, via.diameter); });
    }

    /// Holes go through everything and have a group of their own above all layers.
    void AddHole(const Hole& hole)
    {
        constexpr double kRim = 0.1; // millimetres
        if (!(hole.width > 0) || !(hole.height > 0))
            return;
        LayerWriter holes = On(board.layers.Count());
        LayerWriter rims = On(board.layers.Count() + 1);
        if (hole.width == hole.height) {
            holes.AddDisc(hole.centre, hole.width);
            if (hole.bare)
                rims.AddRing(hole.centre, hole.width / 2, kRim);
        } else {
            holes.AddSlot(SlotOf(hole));
            if (hole.bare)
                rims.AddSlotRim(SlotOf(hole), kRim);
        }
    }

    const Board& board;
    BoardPicture picture;
};

} // namespace

const PictureLayer* BoardPicture::Find(std::string_view name) const
{
    for (const auto& layer : layers) {
        if (layer->name == name)
            return layer.get();
    }
    return nullptr;
}

TextStyle TextStyle::Of(CKGeomText& text)
{
    CKTwoPointD packed = text.GetMinMax();
    TextStyle style;
    style.width = packed.GetX1();
    style.height = packed.GetY1();
    style.thickness = packed.GetX2();
    style.slant = packed.GetY2();
    return style;
}

std::vector<Stroke> PlacedStrokes(CKGeomText& text)
{
    const TextStyle style = TextStyle::Of(text);
    const double x = text.GetX() + text.GetOffsetX(), y = text.GetY() + text.GetOffsetY();
    const double c = std::cos(double(text.GetAngle()) * kDegree), s = std::sin(double(text.GetAngle()) * kDegree);
    std::vector<Stroke> strokes = StrokesOfText(static_cast<const char*>(text.GetText()));
    for (Stroke& stroke : strokes) {
        for (KPointD& point : stroke) {
            const double u = (point.x + style.slant * point.y) * style.width;
            const double v = point.y * style.height;
            point = {x + c * u - s * v, y + s * u + c * v};
        }
    }
    return strokes;
}

void AppendShapes(const Figure& figure, PictureLayer& layer)
{
    LayerWriter(layer).AddFigure(figure);
}

BoardPicture MakePicture(const Board& board)
{
    return PictureMaker(board).Make();
}

} // namespace viewer
