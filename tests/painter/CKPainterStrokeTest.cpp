#include "PainterFixture.h"

#include <cmath>

namespace {

const COLORREF kRed = 0x0000FF;

/// A painter at a round scale and a canvas that is compared with each figure's calls.
struct Stroke : Canvas
{
    explicit Stroke(double k, int x = 0, int y = 0) { PlaceView(painter, k, x, y); }
    /// The last calls were one stroke of the figure in red.
    void Expect(const std::string& figure, int penWidth, const char* why)
    {
        EXPECT_EQ(TakeTrace(), Stroked(figure, penWidth, "0x0000FF")) << why;
    }

    CKPainter painter;
    CDC* const dc = Get();
};

// 4 pixels to the millimetre; T is independent of the centres, D is not: the origin lies at pixel (100, 50).
TEST(CKPainterStroke, LinesAndArcs)
{
    Stroke s(4.0, 100, 50);
    CKPainter& p = s.painter;
    p.DrawLine(s.dc, kRed, 0, 0, 2.5, -1, 0.5, 0);
    s.Expect("MoveTo 0 0\nLineTo 10 -3\n", 2, "-4 + 0.5 truncates to -3");
    p.DrawLineNoWorldTransform(s.dc, kRed, 0, 0, 2.5, -1, 0);
    s.Expect("MoveTo 100 50\nLineTo 110 54\n", 0, "device pixels, y down, thinnest pen");
    for (int code : {-1, 0, 1}) {
        p.DrawArc(s.dc, kRed, 2, 0, 0, 2, 0, 0, code, 1, 9);
        const std::string direction = code == -1 ? "2" : "1";
        s.Expect("MoveTo 8 0\nSetArcDirection " + direction + "\nArcTo -8 -8 8 8 8 0 0 8\n", 4, "0 counts as 1");
    }
    p.DrawArc(s.dc, kRed, 2, 0, 0, 5, 0, 0, 1, 0, 9);
    s.Expect("MoveTo 8 0\nSetArcDirection 1\nArcTo -8 -8 8 8 8 0 0 20\n", 0, "the end stays off the circle");
    p.DrawArcNoWorldTransform(s.dc, kRed, 2, 0, 0, 2, 0, 0, -1, 1, 9);
    s.Expect("MoveTo 108 50\nSetArcDirection 2\nArcTo 92 42 108 58 108 50 100 42\n", 4, "device pixels");
    p.SetBoardMirrorX(1);
    p.DrawArcNoWorldTransform(s.dc, kRed, 2, 0, 0, 2, 0, 0, -1, 1, 9);
    s.Expect("MoveTo 92 50\nSetArcDirection 2\nArcTo 92 42 108 58 92 50 100 42\n", 4,
             "a mirrored view turns points, not the direction");
}

TEST(CKPainterStroke, CirclesRectanglesAndCrosses)
{
    Stroke s(1.0, 100, 50);
    CKPainter& p = s.painter;
    const std::string circle = "MoveTo 2 4\nArcTo 2 1 8 7 2 4 2 4\n";
    p.DrawCircle(s.dc, kRed, 3, 5, 4, 0);
    s.Expect(circle, 0, "circle");
    p.DrawCircle(s.dc, kRed, 3, 5, 4, 1);
    EXPECT_EQ(s.TakeTrace(), Filled(circle, "0x0000FF"));
    p.DrawCircleNoWorldTransform(s.dc, kRed, 3, 5, 4, 0);
    s.Expect("MoveTo 102 46\nArcTo 102 43 108 49 102 46 102 46\n", 0, "device circle");

    // Halves of 3 and 5 are T(1.5) = 2 and T(2.5) = 3 in one way, 3 / 2 = 1 and 5 / 2 = 2 in the other.
    const std::string box = "MoveTo 3 1\nLineTo 7 1\nLineTo 7 7\nLineTo 3 7\nLineTo 3 1\n";
    p.DrawRectangle(s.dc, kRed, 5, 4, 3, 5, 0);
    s.Expect(box, 0, "box");
    p.DrawRectangle(s.dc, kRed, 5, 4, 3, 5, 1);
    EXPECT_EQ(s.TakeTrace(), Filled(box, "0x0000FF"));
    p.DrawRectangleWithIntPenWidth(s.dc, kRed, 5, 4, 3, 5, 0, 6);
    s.Expect(box, 6, "box with a pen");
    p.DrawRectangleNoWorldTransform(s.dc, kRed, 5, 4, 3, 5, 0);
    s.Expect("MoveTo 104 44\nLineTo 106 44\nLineTo 106 48\nLineTo 104 48\nLineTo 104 44\n", 0, "device box");

    p.DrawCross(s.dc, kRed, 10, 20, 5);
    s.Expect("MoveTo 8 20\nLineTo 12 20\nMoveTo 10 18\nLineTo 10 22\n", 0, "size 5 has arms of 2");
    p.DrawCross(s.dc, kRed, -9.6, 20.0, 5.4);
    s.Expect("MoveTo -11 20\nLineTo -7 20\nMoveTo -9 18\nLineTo -9 22\n", 0, "in millimetres: T(-9.6) = -9");
}

TEST(CKPainterStroke, CoordinatesOfAnySize)
{
    Stroke s(1.0);
    s.painter.DrawCircle(s.dc, kRed, 1e300, 1e300, -1e300, 0);
    s.Expect("MoveTo 0 -2147483648\nArcTo 0 -2147483648 2147483647 -1 0 -2147483648 0 -2147483648\n", 0,
             "circle whose box leaves int");
    s.painter.DrawRectangleNoWorldTransform(s.dc, kRed, -1e300, 0, 10, 2, 0);
    s.Expect("MoveTo -2147483648 -1\nLineTo -2147483643 -1\nLineTo -2147483643 1\nLineTo -2147483648 1\n"
             "LineTo -2147483648 -1\n",
             0, "rectangle at the edge");
    s.painter.DrawLine(s.dc, kRed, NAN, NAN, 1, 1, NAN, 0);
    s.Expect("MoveTo 0 0\nLineTo 1 1\n", 0, "no number is 0");
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
