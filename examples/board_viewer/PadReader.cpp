#include "PadReader.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

/// Width and height along the pad's own axes, in millimetres.
struct PadSize
{
    double width;
    double height;
};

/// A filled area from corners in the pad's frame, y down as in the file.
Figure FilledPolygonOf(const Placement& frame, const std::vector<KPointD>& corners, double border = 0)
{
    Figure figure;
    figure.kind = Figure::Kind::Polygon;
    figure.filled = true;
    figure.width = border;
    for (const KPointD& corner : corners)
        figure.points.push_back(frame.Place(corner.x, corner.y));
    return figure;
}

/// A full circle of copper around the pad's middle. Which of its points tells the radius does not matter.
Figure Disc(const Placement& frame, double diameter)
{
    Figure figure;
    figure.kind = Figure::Kind::Circle;
    figure.filled = true;
    figure.centre = frame.Place(0, 0);
    figure.start = frame.Place(diameter / 2, 0);
    return figure;
}

/// Corners of an upright rectangle around the pad's middle.
std::vector<KPointD> Rectangle(double halfWidth, double halfHeight)
{
    return {{-halfWidth, -halfHeight}, {halfWidth, -halfHeight}, {halfWidth, halfHeight}, {-halfWidth, halfHeight}};
}

/// A thick segment along the longer side.
Figure Oval(const Placement& frame, PadSize size)
{
    if (size.width == size.height)
        return Disc(frame, size.width);
    const double across = std::min(size.width, size.height);
    const double halfX = (size.width - across) / 2;
    const double halfY = (size.height - across) / 2;
    Figure line;
    line.start = frame.Place(-halfX, -halfY);
    line.end = frame.Place(halfX, halfY);
    line.width = across;
    return line;
}

/// The rectangle of the corners' centres with a border as wide as the corner circles.
Figure RoundedRectangle(const Placement& frame, PadSize size, double ratio)
{
    const double shorter = std::min(size.width, size.height);
    const double radius = std::clamp(ratio, 0.0, 0.5) * shorter;
    if (2 * radius >= shorter)
        return Oval(frame, size);
    return FilledPolygonOf(frame, Rectangle(size.width / 2 - radius, size.height / 2 - radius), 2 * radius);
}

/// Corners named in (chamfer ...) are cut, the others rounded. Positions are the file's, y down.
Figure ChamferedRectangle(const Placement& frame, PadSize size, double ratio, double cutRatio, const SExpr& chamfer)
{
    struct Corner
    {
        std::string_view name;
        double x, y;
        double startAngle; ///< where the corner's arc begins, degrees clockwise as seen from the positive x axis
    };
    constexpr Corner kCorners[] = {
        {"bottom_right", 1, 1, 0}, {"bottom_left", -1, 1, 90}, {"top_left", -1, -1, 180}, {"top_right", 1, -1, 270}};
    constexpr int kChords = 6;

    const double shorter = std::min(size.width, size.height);
    const double cut = std::clamp(cutRatio, 0.0, 0.5) * shorter;
    const double radius = std::clamp(ratio, 0.0, 0.5) * shorter;
    std::vector<KPointD> points;
    for (const Corner& corner : kCorners) {
        const bool isCut = chamfer.Has(corner.name);
        const double inset = isCut ? cut : radius;
        const double x = corner.x * (size.width / 2 - inset);
        const double y = corner.y * (size.height / 2 - inset);
        const int chords = isCut ? 1 : kChords;
        for (int i = 0; i <= chords; ++i) {
            const double angle = (corner.startAngle + 90.0 * i / chords) * M_PI / 180;
            points.push_back({x + inset * std::cos(angle), y + inset * std::sin(angle)});
        }
    }
    return FilledPolygonOf(frame, points);
}

/// A y delta widens the lower edge and narrows the upper one; an x delta does so with the left and the right edge.
Figure Trapezoid(const Placement& frame, PadSize size, const SExpr& delta)
{
    const double dx = delta.Number(0) / 2;
    const double dy = delta.Number(1) / 2;
    const double w = size.width / 2;
    const double h = size.height / 2;
    return FilledPolygonOf(frame, {{-w - dy, h + dx}, {w + dy, h - dx}, {w - dy, -h + dx}, {-w + dy, -h - dx}});
}

/// The copper of a pad, or of a custom pad's anchor, before any primitives. Throws ReadError for an unknown shape: a
/// pad drawn wrongly would be worse than a board refused.
Figure BasicShape(const SExpr& item, const std::string& shape, const Placement& frame, PadSize size)
{
    if (shape == "circle")
        return Disc(frame, size.width);
    if (shape == "oval")
        return Oval(frame, size);
    if (shape == "trapezoid")
        return Trapezoid(frame, size, item.Find("rect_delta"));
    if (shape == "roundrect") {
        const double ratio = item.Find("roundrect_rratio").Number(0);
        const double cut = item.Find("chamfer_ratio").Number(0);
        const SExpr chamfer = item.Find("chamfer");
        return chamfer && cut > 0 ? ChamferedRectangle(frame, size, ratio, cut, chamfer)
                                  : RoundedRectangle(frame, size, ratio);
    }
    if (shape != "rect")
        item.Fail("a pad has the unknown shape '" + shape + "'");
    return FilledPolygonOf(frame, Rectangle(size.width / 2, size.height / 2));
}

/// The pieces of a custom pad beside its anchor. Their positions are relative to the copper's middle, so that they turn
/// and move with the pad. Kinds that are no geometry are passed over.
void AppendPrimitives(const SExpr& item, const Placement& frame, std::vector<Figure>& copper)
{
    for (SExpr primitive = item.Find("primitives").First(); primitive; primitive = primitive.Next()) {
        const std::string_view head = primitive.Raw();
        Figure figure;
        if (head.substr(0, 3) != "gr_" || !ReadFigure(primitive, head.substr(3), frame, figure))
            continue;
        // A closed primitive without a line would otherwise be no copper at all.
        figure.filled = figure.filled || figure.width == 0;
        copper.push_back(std::move(figure));
    }
}

/// (drill 1), (drill oval 2 1), with an (offset ...) anywhere behind; the offset alone drills nothing. The hole stays
/// at the pad's position, and only its copper moves by the offset.
Hole ReadHole(const SExpr& drill, KPointD centre, double angle)
{
    Hole hole;
    hole.centre = centre;
    hole.angle = angle;
    const size_t first = drill.At(0).Raw() == "oval" ? 1 : 0;
    const SExpr width = drill.At(first);
    if (width && !width.IsList()) {
        hole.width = hole.height = std::fabs(drill.Number(first));
        const SExpr height = drill.At(first + 1);
        if (first == 1 && height && !height.IsList())
            hole.height = std::fabs(drill.Number(first + 1));
    }
    return hole;
}

} // namespace

Pad ReadPad(const SExpr& item, const Placement& footprint, LayerTable& layers)
{
    Pad pad;
    pad.number = item.At(0).Text();
    const std::string_view type = item.At(1).Raw();
    pad.shape = item.At(2).Text();
    pad.net = ReadNet(item);
    pad.layers = ReadLayers(item, layers);
    pad.unlessUnused = ReadUnlessUnused(item, pad.layers, layers);

    const double angle = item.Find("at").Number(2);
    const KPointD position = footprint.Place(item, "at");
    const SExpr drill = item.Find("drill");
    const SExpr offset = drill.Find("offset");
    pad.hole = ReadHole(drill, position, angle);
    pad.centre = Placement(position, angle).Place(offset.Number(0), offset.Number(1));

    const SExpr sizes = item.Find("size");
    const PadSize size = {std::fabs(sizes.Number(0)), std::fabs(sizes.Number(1))};
    pad.width = size.width;
    pad.height = size.height;
    // Only a hole without plating counts: a plated one keeps its barrel, however thin the rim.
    // Nothing of the pad is left around such a hole.
    pad.hole.bare = type == "np_thru_hole" && pad.hole.width >= size.width && pad.hole.height >= size.height;
    if (pad.hole.bare)
        return pad;

    const Placement frame(pad.centre, angle);
    const bool custom = pad.shape == "custom";
    const std::string anchor = item.Find("options").Find("anchor").At(0).Text();
    pad.copper.push_back(BasicShape(item, !custom ? pad.shape : anchor == "rect" ? "rect" : "circle", frame, size));
    if (custom)
        AppendPrimitives(item, frame, pad.copper);
    return pad;
}

LayerSet ReadUnlessUnused(const SExpr& item, LayerSet layers, const LayerTable& table)
{
    if (!item.Has("remove_unused_layers") || item.Find("remove_unused_layers").Has("no"))
        return 0;
    // The outer layers keep their rings, which are what a part is soldered to.
    LayerSet inner = 0;
    for (int i = 0; i < table.Count(); ++i) {
        if (IsInnerCopper(table.Name(i)))
            inner |= LayerSet(1) << i;
    }
    return layers & inner;
}

} // namespace viewer
