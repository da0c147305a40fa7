#include "PainterFixture.h"

#include <cmath>
#include <functional>

namespace {

/// The path calls of one builder, at 10 pixels to the millimetre.
std::string Built(const std::function<void(CKPainter&, CDC*)>& build)
{
    Canvas canvas;
    CKPainter painter;
    PlaceView(painter, 10.0, 11, 13); // no builder may look at the centres
    painter.SetBoardMirrorX(1);       // nor at the view's mirror
    canvas.Get()->BeginPath();
    canvas.TakeTrace();
    build(painter, canvas.Get());
    return canvas.TakeTrace();
}

std::string At(const char* call, double x, double y)
{
    return std::string(call) + " " + std::to_string(int(x)) + " " + std::to_string(int(y)) + "\n";
}

struct PathCase
{
    const char* why;
    std::function<void(CKPainter&, CDC*)> build;
    const char* trace;
};

const char* const kRing =
    "MoveTo 10 50\nArcTo 10 30 50 70 10 50 10 50\nMoveTo -10 50\nArcTo -10 10 70 90 -10 50 -10 50\n";

const PathCase kFigures[] = {
    {"segment", [](CKPainter& p, CDC* dc) { p.AddLinePath(dc, 1, 2, 3, -4, 1); }, "MoveTo 10 20\nLineTo 30 -39\n"},
    {"segment goes on", [](CKPainter& p, CDC* dc) { p.AddLinePath(dc, 1, 2, 3, 4, 0); },
     "LineTo 10 20\nLineTo 30 40\n"},
    {"turned (-2, 1), mirrored (2, 1), then moved",
     [](CKPainter& p, CDC* dc) { p.AddLinePath(dc, 1, 2, 0, 0, 5, 7, 90.0f, 1, 1); }, "MoveTo 70 80\nLineTo 50 70\n"},
    {"circle in pixels", [](CKPainter& p, CDC* dc) { p.AddCirclePath(dc, 50, 60, 7, 1); },
     "MoveTo 43 60\nArcTo 43 53 57 67 43 60 43 60\n"},
    {"circle in millimetres goes on", [](CKPainter& p, CDC* dc) { p.AddCirclePath(dc, 5.0, 6.0, 0.7, 0); },
     "LineTo 43 60\nArcTo 43 53 57 67 43 60 43 60\n"},
    {"rectangle from its upper left", [](CKPainter& p, CDC* dc) { p.AddRectanglePath(dc, 5, 5, 4, 2, 0, 0, 1); },
     "MoveTo 30 60\nLineTo 70 60\nLineTo 70 40\nLineTo 30 40\nLineTo 30 60\n"},
    {"a quarter turn: its upper left is now below left",
     [](CKPainter& p, CDC* dc) { p.AddRectanglePath(dc, 5, 5, 4, 2, 90.0f, 0, 1); },
     "MoveTo 40 30\nLineTo 40 70\nLineTo 60 70\nLineTo 60 30\nLineTo 40 30\n"},
    {"the mirror negates about the centre, after the turn",
     [](CKPainter& p, CDC* dc) { p.AddRectanglePath(dc, 5, 5, 4, 2, 90.0f, 1, 0); },
     "LineTo 60 30\nLineTo 60 70\nLineTo 40 70\nLineTo 40 30\nLineTo 60 30\n"},
    {"no width still makes two pixels", [](CKPainter& p, CDC* dc) { p.AddRectanglePath(dc, 5, 5, 0, 2, 0, 0, 1); },
     "MoveTo 49 60\nLineTo 51 60\nLineTo 51 40\nLineTo 49 40\nLineTo 49 60\n"},
    // (10, 0) to (0, 10) turned is (0, 10) to (-10, 0); mirrored (0, 10) to (10, 0), clockwise; then moved.
    {"an arc is placed before it is drawn",
     [](CKPainter& p, CDC* dc) { p.AddArcPath(dc, 10, 0, 0, 10, 0, 0, 1, 20, 30, 90.0f, 0.0f, 1, 1); },
     "MoveTo 200 400\nSetArcDirection 1\nArcTo 100 200 300 400 200 400 300 300\n"},
    {"an arc without width continues the figure",
     [](CKPainter& p, CDC* dc) { p.AddArcOutlinePath(dc, 10, 0, 0, 10, 0, 0, 0.0, 1, 0, 0, 0, 0, 0); },
     "LineTo 100 0\nSetArcDirection 2\nArcTo -100 -100 100 100 100 0 0 100\n"},
    {"a ring", [](CKPainter& p, CDC* dc) { p.AddArcOutlinePath(dc, 5, 3, 5, 3, 2, 3, 2.0, 1, 1, 2, 0, 0, 0); }, kRing},
    {"a ring is not turned",
     [](CKPainter& p, CDC* dc) { p.AddArcOutlinePath(dc, 5, 3, 5, 3, 2, 3, 2.0, 1, 1, 2, 90.0f, 0, 0); }, kRing},
    // Tracks from (0, 0) to (10, 0): corners and caps as they lie on the board, on pixel centres.
    {"a track of 2 mm", [](CKPainter& p, CDC* dc) { p.AddLineOutlinePath(dc, 0, 0, 10, 0, 2.0f, 0); },
     "MoveTo -9 10\nLineTo -9 -9\nLineTo 110 -9\nLineTo 110 10\nLineTo -9 10\n"},
    {"a track without width", [](CKPainter& p, CDC* dc) { p.AddLineOutlinePath(dc, 0, 0, 10, 0, 0.0f, 1); },
     "MoveTo 0 0\nLineTo 100 0\n"},
    // 40 pixels of cap radius are true arcs: clockwise on the board from (0, -4) over (-4, 0) to (0, 4).
    {"a round track of 8 mm", [](CKPainter& p, CDC* dc) { p.AddLineOutlinePath(dc, 0, 0, 40, 0, 8.0f, 1); },
     "MoveTo 0 -39\nSetArcDirection 1\nArcTo -40 -40 40 40 0 -39 0 40\n"
     "LineTo 400 40\nSetArcDirection 1\nArcTo 360 -40 440 40 400 40 400 -39\nLineTo 0 -39\n"},
};

TEST(CKPainterOutline, Figures)
{
    for (const PathCase& c : kFigures)
        EXPECT_EQ(Built(c.build), c.trace) << c.why;
}

/// An arc of the radius around (10, 0) mm from angle to angle in degrees, at 10 pixels to the millimetre.
std::string BuiltArc(double radius, double from, double to, int ccw, int first = 1)
{
    return Built([=](CKPainter& p, CDC* dc) {
        const double degree = std::acos(-1.0) / 180.0;
        p.AddArcPath(dc, 10 + radius * std::cos(from * degree), radius * std::sin(from * degree),
                     10 + radius * std::cos(to * degree), radius * std::sin(to * degree), 10, 0, ccw, 0, 0, 0, 123.0f,
                     0, first);
    });
}

/// Chords at every 15 degrees on the pixel circle of radius 30 around (100, 0).
std::string Chords(double first, double step, int count)
{
    std::string trace;
    for (int k = 0; k < count; ++k) {
        const double angle = (first + step * k) / 180.0 * std::acos(-1.0);
        trace += At("LineTo", std::trunc(30 * std::cos(angle) + 0.5) + 100, std::trunc(30 * std::sin(angle) + 0.5));
    }
    return trace;
}

TEST(CKPainterOutline, ArcsBySize)
{
    struct Case
    {
        const char* why;
        double radius, from, to;
        int ccw;
        std::string trace;
    };
    // The last chord of a whole number of steps is the end point itself, so it is not repeated by a point: the end
    // comes once more as the closing line.
    const Case cases[] = {
        {"30 pixels, 90 degrees", 3, 0, 90, 1, "MoveTo 130 0\n" + Chords(15, 15, 6) + "LineTo 100 30\n"},
        {"40 pixels is a true arc, counter-clockwise on the board", 4, 0, 90, 1,
         "MoveTo 140 0\nSetArcDirection 2\nArcTo 60 -40 140 40 140 0 100 40\n"},
        {"clockwise from 0 to 90 are 270 degrees", 3, 0, 90, 0,
         "MoveTo 130 0\n" + Chords(-15, -15, 18) + "LineTo 100 30\n"},
        {"clockwise true arc", 4, 0, 90, 0, "MoveTo 140 0\nSetArcDirection 1\nArcTo 60 -40 140 40 140 0 100 40\n"},
        {"20 degrees of 30 pixels is a line", 3, 0, 20, 1, "MoveTo 130 0\nLineTo 128 10\n"},
        {"1.5 degrees of 400 pixels is a line", 40, 0, 1.5, 1, "MoveTo 500 0\nLineTo 500 10\n"},
        {"ends that meet make a circle, clockwise too", 3, 0, 0, 0, "MoveTo 70 0\nArcTo 70 -30 130 30 70 0 70 0\n"},
        {"no pixel of radius", 0.04, 0, 90, 1, "MoveTo 100 0\nLineTo 100 0\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(BuiltArc(c.radius, c.from, c.to, c.ccw), c.trace) << c.why;
    EXPECT_EQ(BuiltArc(4, 0, 90, 1, 0), "LineTo 140 0\nSetArcDirection 2\nArcTo 60 -40 140 40 140 0 100 40\n");
}

/// The path filled at 6 pixels to the millimetre, the board's origin in the middle of 240 x 240 pixels with y up.
std::vector<uint32_t> FilledPixels(const std::function<void(CKPainter&, CDC*)>& build)
{
    Canvas canvas(240, 240);
    CKPainter painter;
    PlaceView(painter, 6.0, 120, 120);
    SetGraphicsMode(*canvas.Get(), GM_ADVANCED);
    const XFORM form = painter.GenerateXFormMirrorY();
    SetWorldTransform(*canvas.Get(), &form);
    canvas.Get()->BeginPath();
    build(painter, canvas.Get());
    canvas.Get()->EndPath();
    painter.FillPath(canvas.Get(), 0xFFFFFF);
    return ReadPixels(canvas.Bitmap());
}

struct ThickArc
{
    const char* why;
    double from, to; // degrees, radius 10 mm, centre (2, -1), width 3 mm
    int ccw;
    double offsetX, offsetY;
    float angle;
    int mirror;
};

const ThickArc kThickArcs[] = {
    {"quarter", 0, 90, 1, 0, 0, 0, 0},
    {"the other three quarters", 0, 90, 0, 0, 0, 0, 0},
    {"turned and moved", 20, 130, 1, -1.5, 2.5, 70.0f, 0},
    {"mirrored", 0, 90, 1, 0, 0, 0, 1},
    {"turned, mirrored, moved", 20, 130, 0, -1.5, 2.5, 70.0f, 1},
    {"ring", 45, 45, 1, 1, -2, 0, 0},
    {"mirrored ring", 45, 45, 1, 1, -2, 0, 1},
};

/// Distance of a point from the arc as it lies on the board before placing.
double DistanceFromArc(const ThickArc& arc, double x, double y)
{
    const double degree = std::acos(-1.0) / 180.0;
    const double dx = x - 2.0, dy = y + 1.0;
    const double turn = arc.ccw ? 1.0 : -1.0;
    const auto upTurn = [&](double a) { return std::fmod(std::fmod(a * turn, 360.0) + 360.0, 360.0); };
    const double sweep = arc.from == arc.to ? 360.0 : upTurn(arc.to - arc.from);
    if (upTurn(std::atan2(dy, dx) / degree - arc.from) <= sweep)
        return std::fabs(std::hypot(dx, dy) - 10.0);
    double nearest = 1e9;
    for (const double end : {arc.from, arc.to})
        nearest = std::min(nearest, std::hypot(dx - 10 * std::cos(end * degree), dy - 10 * std::sin(end * degree)));
    return nearest;
}

// Second method: every pixel is carried back through offset, mirror and turn, and measured against the arc. Near the
// edge nothing can be said: a centre in whole pixels is off by up to 1.5 each way (2.2 together), a radius by 0.5, and
// a pixel reaches 0.7 from its middle.
TEST(CKPainterOutline, ThickArcsCoverWhatTheyShould)
{
    const double k = 6.0, undecided = 3.4 / k;
    for (const ThickArc& arc : kThickArcs) {
        const double degree = std::acos(-1.0) / 180.0;
        const auto onCircle = [&](double a) {
            return KPointD{2 + 10 * std::cos(a * degree), -1 + 10 * std::sin(a * degree)};
        };
        const KPointD start = onCircle(arc.from), end = onCircle(arc.to);
        const auto pixels = FilledPixels([&](CKPainter& p, CDC* dc) {
            p.AddArcOutlinePath(dc, start.x, start.y, end.x, end.y, 2, -1, 3.0, arc.ccw, arc.offsetX, arc.offsetY,
                                arc.angle, 0.0f, arc.mirror);
        });
        int wrong = 0, inside = 0;
        for (int row = 0; row < 240; ++row) {
            for (int column = 0; column < 240; ++column) {
                double x = (column - 120) / k - arc.offsetX;
                const double y = (row - 120 + 1) / k - arc.offsetY; // bottom-up rows, pixel 120 is y 0
                if (arc.mirror)
                    x = -x;
                const double c = std::cos(-arc.angle * degree), s = std::sin(-arc.angle * degree);
                const double away = DistanceFromArc(arc, c * x - s * y, s * x + c * y) - 1.5;
                const int lit = pixels[size_t(row) * 240 + size_t(column)] != 0;
                inside += away < -undecided;
                wrong += (away < -undecided && !lit) || (away > undecided && lit);
            }
        }
        EXPECT_EQ(wrong, 0) << arc.why;
        EXPECT_GT(inside, 500) << arc.why;
    }
}

} // namespace
