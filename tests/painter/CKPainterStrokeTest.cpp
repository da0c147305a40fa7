#include "PainterFixture.h"

#include <climits>
#include <functional>
#include <limits>

namespace {

const COLORREF kRed = 0x0000FF;
const char* const kRedText = "0x0000FF";

struct StrokeCase
{
    const char* why;
    std::function<void(CKPainter&, CDC*)> draw;
    std::string trace;
};

void RunCases(CKPainter& painter, const std::vector<StrokeCase>& cases)
{
    Canvas canvas;
    for (const StrokeCase& c : cases) {
        c.draw(painter, canvas.Get());
        EXPECT_EQ(canvas.TakeTrace(), c.trace) << c.why;
    }
}

// 4 pixels to the millimetre; T is independent of the centres, D is not: the origin lies at pixel (100, 50).
TEST(CKPainterStroke, LinesAndArcs)
{
    CKPainter painter;
    PlaceView(painter, 4.0, 100, 50);
    const std::string arc = "ArcTo -8 -8 8 8 8 0 0 8\n";
    const std::string deviceArc = "MoveTo 108 50\nSetArcDirection 2\nArcTo 92 42 108 58 108 50 100 42\n";
    RunCases(
        painter,
        {
            {"-4 + 0.5 truncates to -3", [](CKPainter& p, CDC* dc) { p.DrawLine(dc, kRed, 0, 0, 2.5, -1, 0.5, 0); },
             Stroked("MoveTo 0 0\nLineTo 10 -3\n", 2, kRedText)},
            {"device pixels, y down, thinnest pen",
             [](CKPainter& p, CDC* dc) { p.DrawLineNoWorldTransform(dc, kRed, 0, 0, 2.5, -1, 0); },
             Stroked("MoveTo 100 50\nLineTo 110 54\n", 0, kRedText)},
            {"code -1", [](CKPainter& p, CDC* dc) { p.DrawArc(dc, kRed, 2, 0, 0, 2, 0, 0, -1, 1, 9); },
             Stroked("MoveTo 8 0\nSetArcDirection 2\n" + arc, 4, kRedText)},
            {"code 1", [](CKPainter& p, CDC* dc) { p.DrawArc(dc, kRed, 2, 0, 0, 2, 0, 0, 1, 1, 9); },
             Stroked("MoveTo 8 0\nSetArcDirection 1\n" + arc, 4, kRedText)},
            {"code 0 counts as 1", [](CKPainter& p, CDC* dc) { p.DrawArc(dc, kRed, 2, 0, 0, 2, 0, 0, 0, 1, 9); },
             Stroked("MoveTo 8 0\nSetArcDirection 1\n" + arc, 4, kRedText)},
            {"the end stays off the circle",
             [](CKPainter& p, CDC* dc) { p.DrawArc(dc, kRed, 2, 0, 0, 5, 0, 0, 1, 0, 9); },
             Stroked("MoveTo 8 0\nSetArcDirection 1\nArcTo -8 -8 8 8 8 0 0 20\n", 0, kRedText)},
            {"device pixels",
             [](CKPainter& p, CDC* dc) { p.DrawArcNoWorldTransform(dc, kRed, 2, 0, 0, 2, 0, 0, -1, 1, 9); },
             Stroked(deviceArc, 4, kRedText)},
        });

    painter.SetBoardMirrorX(1);
    RunCases(painter,
             {
                 {"a mirrored view turns points, not the direction",
                  [](CKPainter& p, CDC* dc) { p.DrawArcNoWorldTransform(dc, kRed, 2, 0, 0, 2, 0, 0, -1, 1, 9); },
                  Stroked("MoveTo 92 50\nSetArcDirection 2\nArcTo 92 42 108 58 92 50 100 42\n", 4, kRedText)},
             });
}

TEST(CKPainterStroke, CirclesRectanglesAndCrosses)
{
    CKPainter painter;
    PlaceView(painter, 1.0, 100, 50);
    const std::string circle = "MoveTo 2 4\nArcTo 2 1 8 7 2 4 2 4\n";
    const std::string deviceCircle = "MoveTo 102 46\nArcTo 102 43 108 49 102 46 102 46\n";
    // Width 3: half is T(1.5) = 2 in one way and 3 / 2 = 1 in the other.
    const std::string box = "MoveTo 3 2\nLineTo 7 2\nLineTo 7 6\nLineTo 3 6\nLineTo 3 2\n";
    const std::string deviceBox = "MoveTo 104 45\nLineTo 106 45\nLineTo 106 47\nLineTo 104 47\nLineTo 104 45\n";
    RunCases(
        painter,
        {
            {"circle", [](CKPainter& p, CDC* dc) { p.DrawCircle(dc, kRed, 3, 5, 4, 0); }, Stroked(circle, 0, kRedText)},
            {"disc", [](CKPainter& p, CDC* dc) { p.DrawCircle(dc, kRed, 3, 5, 4, 1); }, Filled(circle, kRedText)},
            {"device circle", [](CKPainter& p, CDC* dc) { p.DrawCircleNoWorldTransform(dc, kRed, 3, 5, 4, 0); },
             Stroked(deviceCircle, 0, kRedText)},
            {"box", [](CKPainter& p, CDC* dc) { p.DrawRectangle(dc, kRed, 5, 4, 3, 3, 0); }, Stroked(box, 0, kRedText)},
            {"filled box", [](CKPainter& p, CDC* dc) { p.DrawRectangle(dc, kRed, 5, 4, 3, 3, 1); },
             Filled(box, kRedText)},
            {"box with a pen",
             [](CKPainter& p, CDC* dc) { p.DrawRectangleWithIntPenWidth(dc, kRed, 5, 4, 3, 3, 0, 6); },
             Stroked(box, 6, kRedText)},
            {"device box", [](CKPainter& p, CDC* dc) { p.DrawRectangleNoWorldTransform(dc, kRed, 5, 4, 3, 3, 0); },
             Stroked(deviceBox, 0, kRedText)},
            {"cross of size 5 has arms of 2", [](CKPainter& p, CDC* dc) { p.DrawCross(dc, kRed, 10, 20, 5); },
             Stroked("MoveTo 8 20\nLineTo 12 20\nMoveTo 10 18\nLineTo 10 22\n", 0, kRedText)},
            {"cross in millimetres: T(-9.6) = -9",
             [](CKPainter& p, CDC* dc) { p.DrawCross(dc, kRed, -9.6, 20.0, 5.4); },
             Stroked("MoveTo -11 20\nLineTo -7 20\nMoveTo -9 18\nLineTo -9 22\n", 0, kRedText)},
        });
}

TEST(CKPainterStroke, CoordinatesOfAnySize)
{
    CKPainter painter;
    PlaceView(painter, 1.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::string top = std::to_string(INT_MAX), bottom = std::to_string(INT_MIN);
    RunCases(painter,
             {
                 {"circle whose box leaves int",
                  [](CKPainter& p, CDC* dc) { p.DrawCircle(dc, kRed, 1e300, 1e300, -1e300, 0); },
                  Stroked("MoveTo 0 " + bottom + "\nArcTo 0 " + bottom + " " + top + " -1 0 " + bottom + " 0 " +
                              bottom + "\n",
                          0, kRedText)},
                 {"rectangle at the edge",
                  [](CKPainter& p, CDC* dc) { p.DrawRectangleNoWorldTransform(dc, kRed, -1e300, 0, 10, 2, 0); },
                  Stroked("MoveTo " + bottom + " -1\nLineTo -2147483643 -1\nLineTo -2147483643 1\nLineTo " + bottom +
                              " 1\nLineTo " + bottom + " -1\n",
                          0, kRedText)},
                 {"no number is 0", [=](CKPainter& p, CDC* dc) { p.DrawLine(dc, kRed, nan, nan, 1, 1, nan, 0); },
                  Stroked("MoveTo 0 0\nLineTo 1 1\n", 0, kRedText)},
             });
}

TEST(CKPainterStroke, DashesRestoreTheBackgroundColour)
{
    Canvas canvas;
    CKPainter painter;
    canvas.Get()->SetBkColor(0xABCDEF);
    canvas.Get()->BeginPath();
    canvas.Get()->MoveTo(0, 5);
    canvas.Get()->LineTo(60, 5);
    canvas.Get()->EndPath();
    canvas.TakeTrace();
    painter.StrokeDashLine(canvas.Get(), 1, kRed);
    EXPECT_EQ(canvas.TakeTrace(), std::string("SetBkColor 0x000001\nSelectPen 1 1 0x0000FF\nStrokePath\n") +
                                      Canvas::kOwnPen + "\nSetBkColor 0xABCDEF\n");
    int dashes = 0, gaps = 0; // opaque mode: the gaps show the all but black background
    for (int x = 0; x < 60; ++x) {
        dashes += canvas.Get()->GetPixel(x, 5) == kRed;
        gaps += canvas.Get()->GetPixel(x, 5) == 0x000001;
    }
    EXPECT_GT(dashes, 20);
    EXPECT_GT(gaps, 2);
    EXPECT_EQ(dashes + gaps, 60);
}

} // namespace
