#include "FigureReader.h"

#include "Turning.h"

#include <cmath>

namespace viewer {

namespace {

constexpr double kDegree = M_PI / 180;

/// Stroke width in millimetres, 0 without one: the thinnest line. Older items name it (width w), newer ones
/// (stroke (width w) ...).
double ReadWidth(const SExpr& item)
{
    const SExpr width = item.Find("width");
    return std::fabs(width ? width.Number(0) : item.Find("stroke").Find("width").Number(0));
}

/// (fill solid), (fill none), (fill yes) or, in newer items, (fill (type solid)). What an item without the word means
/// depends on its kind: polygons are filled, circles and rectangles are not.
bool ReadFilled(const SExpr& item, bool otherwise)
{
    const SExpr fill = item.Find("fill");
    if (!fill)
        return otherwise;
    const SExpr type = fill.Find("type");
    const std::string_view word = type ? type.At(0).Raw() : fill.At(0).Raw();
    return word != "none" && word != "no";
}

/// The point turned counter-clockwise about a centre.
KPointD Turned(KPointD point, KPointD centre, double radians)
{
    const double dx = point.x - centre.x;
    const double dy = point.y - centre.y;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return {centre.x + c * dx - s * dy, centre.y + s * dx + c * dy};
}

/// An arc of the older form: `start` is the centre, `end` the first point, and a positive angle turns clockwise as
/// seen.
Figure ArcByAngle(KPointD centre, KPointD first, double degrees)
{
    Figure arc;
    arc.kind = Figure::Kind::Arc;
    arc.start = arc.end = first;
    arc.centre = centre;
    arc.counterClockwise = degrees < 0;
    // Equal ends mean a whole circle, so an arc of no angle at all has to become a line.
    if (degrees == 0)
        arc.kind = Figure::Kind::Line;
    else if (std::fabs(degrees) < 360)
        arc.end = Turned(first, centre, -degrees * kDegree);
    return arc;
}

/// Both forms of an arc. They are told apart by what they hold and not by the file's version, so that a file that mixes
/// them after an edit by hand still reads as it was meant.
Figure ReadArc(const SExpr& item, const Placement& placement)
{
    if (item.Find("mid"))
        return FigureThroughPoints(placement.Place(item, "start"), placement.Place(item, "mid"),
                                   placement.Place(item, "end"));
    const SExpr angle = item.Find("angle");
    if (!angle)
        item.Fail("an arc has neither a middle point nor an angle");
    return ArcByAngle(placement.Place(item, "start"), placement.Place(item, "end"), angle.Number(0));
}

/// Corners of (start ...) (end ...), axis-parallel in the frame of the placement.
std::vector<KPointD> ReadRectangle(const SExpr& item, const Placement& placement)
{
    const SExpr start = item.Find("start");
    const SExpr end = item.Find("end");
    if (!start || !end)
        item.Fail("a rectangle lacks a corner");
    const double x1 = start.Number(0), y1 = start.Number(1);
    const double x2 = end.Number(0), y2 = end.Number(1);
    return {placement.Place(x1, y1), placement.Place(x2, y1), placement.Place(x2, y2), placement.Place(x1, y2)};
}

/// Points on a cubic Bezier curve. 32 chords keep a curve of 100 mm within a few hundredths of a millimetre.
std::vector<KPointD> FlattenCurve(const std::vector<KPointD>& p)
{
    constexpr int kChords = 32;
    if (p.size() != 4)
        return p;
    std::vector<KPointD> points;
    for (int i = 0; i <= kChords; ++i) {
        const double t = double(i) / kChords;
        const double u = 1 - t;
        const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
        points.push_back(
            {a * p[0].x + b * p[1].x + c * p[2].x + d * p[3].x, a * p[0].y + b * p[1].y + c * p[2].y + d * p[3].y});
    }
    return points;
}

/// An arc in the outline of a polygon, as chords of 5 degrees: they stray from a radius of 1 mm by a micrometre.
void AppendArcPoints(const SExpr& item, const Placement& placement, std::vector<KPointD>& points)
{
    constexpr double kStep = 5 * kDegree;
    const Figure arc = ReadArc(item, placement);
    points.push_back(arc.start);
    if (arc.kind == Figure::Kind::Arc) {
        const double sweep = SweepOfArc(arc.centre, arc.start, arc.end, arc.counterClockwise);
        const double step = arc.counterClockwise ? kStep : -kStep;
        for (int i = 1; i * kStep < sweep; ++i)
            points.push_back(Turned(arc.start, arc.centre, i * step));
    }
    points.push_back(arc.end);
}

/// Where the anchor lies along one axis; neither word means the middle.
Text::Side ReadSide(const SExpr& justify, std::string_view low, std::string_view high)
{
    return justify.Has(low) ? Text::Side::Low : justify.Has(high) ? Text::Side::High : Text::Side::Middle;
}

/// A line, ready for a list of figures.
Figure LineFigure(KPointD start, KPointD end, double width)
{
    Figure line;
    line.start = start;
    line.end = end;
    line.width = width;
    return line;
}

/// Dimensions of older files hold their lines ready made.
std::vector<Figure> ReadDrawnDimension(const SExpr& item, double width)
{
    std::vector<Figure> lines;
    for (std::string_view part : {"feature1", "feature2", "crossbar", "arrow1a", "arrow1b", "arrow2a", "arrow2b"}) {
        Figure line;
        line.kind = Figure::Kind::Polyline;
        line.width = width;
        line.points = ReadPoints(item.Find(part), Placement());
        if (line.points.size() >= 2)
            lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace

Placement::Placement(KPointD at, double degrees)
    : origin(at), angle(degrees), cosine(std::cos(degrees * kDegree)), sine(std::sin(degrees * kDegree))
{
    // Most footprints stand square; their children then keep exact coordinates.
    if (std::fmod(degrees, 90) == 0) {
        cosine = std::round(cosine);
        sine = std::round(sine);
    }
}

KPointD Placement::Place(double x, double y) const
{
    const double up = -y;
    return {origin.x + cosine * x - sine * up, origin.y + sine * x + cosine * up};
}

KPointD Placement::Place(const SExpr& parent, std::string_view head) const
{
    const SExpr item = parent.Find(head);
    if (!item)
        parent.Fail("(" + std::string(parent.Raw()) + " lacks (" + std::string(head));
    return Place(item.Number(0), item.Number(1));
}

std::vector<KPointD> ReadPoints(const SExpr& parent, const Placement& placement)
{
    std::vector<KPointD> points;
    for (SExpr item = parent.Find("pts").First(); item; item = item.Next()) {
        if (item.Is("xy"))
            points.push_back(placement.Place(item.Number(0), item.Number(1)));
        else if (item.Is("arc"))
            AppendArcPoints(item, placement, points);
    }
    return points;
}

Figure FigureThroughPoints(KPointD start, KPointD middle, KPointD end)
{
    Figure figure;
    figure.start = start;
    figure.end = end;

    if (start.x == end.x && start.y == end.y) { // a whole circle; the middle is the opposite point
        figure.kind = Figure::Kind::Arc;
        figure.centre = {(start.x + middle.x) / 2, (start.y + middle.y) / 2};
        return figure;
    }

    // Everything is taken relative to the start, where the numbers are small and subtracting them loses nothing.
    // The circle's centre relative to the start, from |c|^2 = |c - m|^2 = |c - e|^2.
    const double mx = middle.x - start.x, my = middle.y - start.y;
    const double ex = end.x - start.x, ey = end.y - start.y;
    const double cross = mx * ey - my * ex;
    // Points closer to one line than the file's resolution of a nanometre make no arc.
    if (std::fabs(cross) <= 1e-6 * std::hypot(ex, ey))
        return figure;

    const double m2 = mx * mx + my * my;
    const double e2 = ex * ex + ey * ey;
    figure.kind = Figure::Kind::Arc;
    figure.centre = {start.x + (m2 * ey - e2 * my) / (2 * cross), start.y + (e2 * mx - m2 * ex) / (2 * cross)};
    figure.counterClockwise = cross > 0; // the end lies to the left of the way from start to middle
    return figure;
}

bool ReadFigure(const SExpr& item, std::string_view kind, const Placement& placement, Figure& figure)
{
    Figure read;
    if (kind == "line") {
        read.start = placement.Place(item, "start");
        read.end = placement.Place(item, "end");
    } else if (kind == "arc") {
        read = ReadArc(item, placement);
    } else if (kind == "circle") {
        // The second point is any point of the circle; the figure keeps it instead of a radius, as the file does.
        read.kind = Figure::Kind::Circle;
        read.centre = placement.Place(item, "center");
        read.start = placement.Place(item, "end");
        read.filled = ReadFilled(item, false);
    } else if (kind == "rect") {
        read.kind = Figure::Kind::Polygon;
        read.points = ReadRectangle(item, placement);
        read.filled = ReadFilled(item, false);
    } else if (kind == "poly") {
        read.kind = Figure::Kind::Polygon;
        read.points = ReadPoints(item, placement);
        read.filled = ReadFilled(item, true);
    } else if (kind == "curve") {
        // Nothing of the library bends like a cubic curve, so it becomes chords.
        read.kind = Figure::Kind::Polyline;
        read.points = FlattenCurve(ReadPoints(item, placement));
    } else {
        return false;
    }
    read.width = ReadWidth(item);
    figure = std::move(read);
    return true;
}

Text ReadText(const SExpr& item, size_t textIndex, const Placement& placement, LayerTable& layers)
{
    const SExpr effects = item.Find("effects");
    const SExpr font = effects.Find("font");
    const SExpr size = font.Find("size");
    const SExpr justify = effects.Find("justify");

    // Sizes stand as height, then width; both can be negative in files of long ago and mean the same.
    Text text;
    text.text = item.At(textIndex).Text();
    text.anchor = placement.Place(item, "at");
    const SExpr angle = item.Find("at").At(2); // may be left out before the word "unlocked"
    text.angle = angle && angle.Raw() != "unlocked" ? item.Find("at").Number(2) : 0;
    text.height = std::fabs(size.Number(0, 1));
    text.width = std::fabs(size.Number(1, 1));
    // Without a pen of its own a text is drawn with an eighth of its size, a bold one with a fifth.
    const double pen = std::fmin(text.height, text.width) / (font.Has("bold") ? 5 : 8);
    const double thickness = font.Find("thickness").Number(0);
    text.thickness = thickness > 0 ? thickness : pen;
    text.horizontal = ReadSide(justify, "left", "right");
    text.vertical = ReadSide(justify, "bottom", "top");
    text.mirrored = justify.Has("mirror");
    text.italic = font.Has("italic");
    text.layer = ReadLayer(item, layers);
    return text;
}

/// The word stands beside the effects or, in newer files, among them.
bool IsHidden(const SExpr& text)
{
    return text.Has("hide") || text.Find("effects").Has("hide");
}

std::vector<Figure> ReadDimension(const SExpr& item)
{
    const SExpr style = item.Find("style");
    const double width = style ? style.Find("thickness").Number(0) : ReadWidth(item);
    const std::vector<KPointD> ends = ReadPoints(item, Placement());
    if (ends.size() < 2)
        return ReadDrawnDimension(item, width);

    const KPointD a = ends[0], b = ends[1];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0))
        return {};
    // A positive height puts the bar to the right of the way from the first point to the second.
    const KPointD along = {(b.x - a.x) / length, (b.y - a.y) / length};
    const KPointD aside = {along.y, -along.x};
    const double height = item.Find("height").Number(0);
    // The extension lines run from the gap beside the point to a little beyond the bar, whichever side that is.
    const double reach = height + std::copysign(style.Find("extension_height").Number(0), height);
    const double gap = std::copysign(style.Find("extension_offset").Number(0), height);
    const auto beside = [&](KPointD p, double by) { return KPointD{p.x + aside.x * by, p.y + aside.y * by}; };

    const KPointD bar[2] = {beside(a, height), beside(b, height)};
    std::vector<Figure> lines = {LineFigure(beside(a, gap), beside(a, reach), width),
                                 LineFigure(beside(b, gap), beside(b, reach), width),
                                 LineFigure(bar[0], bar[1], width)};
    // The wings of a head open by 27.5 degrees to either side of the bar.
    const double arrow = style.Find("arrow_length").Number(0);
    for (int end : {0, 1}) {
        const double inward = end == 0 ? arrow : -arrow;
        const KPointD tip = bar[end];
        const KPointD shaft = {tip.x + along.x * inward, tip.y + along.y * inward};
        for (double wing : {-27.5, 27.5})
            lines.push_back(LineFigure(tip, Turned(shaft, tip, wing * kDegree), width));
    }
    return lines;
}

int ReadLayer(const SExpr& item, LayerTable& layers)
{
    const SExpr layer = item.Find("layer").At(0);
    if (!layer)
        item.Fail("(" + std::string(item.Raw()) + " has no layer");
    const int index = layers.Add(layer.Text());
    if (index < 0)
        layer.Fail("the board has more than " + std::to_string(LayerTable::kMost) + " layers");
    return index;
}

LayerSet ReadLayers(const SExpr& item, LayerTable& layers)
{
    const SExpr list = item.Find("layers");
    LayerSet set = 0;
    for (SExpr name = (list ? list : item.Find("layer")).First(); name; name = name.Next()) {
        const LayerSet named = layers.Named(name.Text());
        if (named == 0)
            name.Fail("the board has more than " + std::to_string(LayerTable::kMost) + " layers");
        set |= named;
    }
    return set;
}

int ReadNet(const SExpr& item)
{
    return item.Find("net").Whole(0);
}

} // namespace viewer
