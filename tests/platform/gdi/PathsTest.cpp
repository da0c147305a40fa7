/// The path's turns, arcs in both graphics modes, transforms, pens and rectangles.
#include "GdiTestTools.h"

#include <cmath>
#include <random>

namespace {

TEST(GdiPaths, CallsOutOfTurnFail)
{
    Canvas canvas(4, 4);
    EXPECT_FALSE(EndPath(canvas) || StrokePath(canvas) || FillPath(canvas) || CloseFigure(canvas));
    EXPECT_TRUE(BeginPath(canvas));
    EXPECT_FALSE(StrokePath(canvas) || FillPath(canvas) || StrokeAndFillPath(canvas));
    EXPECT_EQ(GetPath(canvas, nullptr, nullptr, 0), -1);
    EXPECT_TRUE(EndPath(canvas));
    EXPECT_FALSE(EndPath(canvas) || CloseFigure(canvas));
    EXPECT_EQ(GetPath(canvas, nullptr, nullptr, 0), 0);
    EXPECT_TRUE(StrokePath(canvas));
    EXPECT_FALSE(StrokePath(canvas)); // consumed
}

TEST(GdiPaths, GetPathGivesLogicalPoints)
{
    Canvas canvas(4, 4);
    canvas.SetTransform(1, 0, 0, -1, 100.5f, 37.25f); // halves make every point a tie when turned back
    BeginPath(canvas);
    MoveToEx(canvas, 7, -3, nullptr);
    LineTo(canvas, 8, 12);
    LineTo(canvas, -5, 2147483);
    CloseFigure(canvas);
    EndPath(canvas);
    POINT points[3];
    BYTE types[3];
    EXPECT_EQ(GetPath(canvas, points, types, 2), -1);
    ASSERT_EQ(GetPath(canvas, points, types, 3), 3);
    const POINT expected[] = {{7, -3}, {8, 12}, {-5, 2147483}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(points[i].x, expected[i].x);
        EXPECT_EQ(points[i].y, expected[i].y);
    }
    EXPECT_EQ(types[0], PT_MOVETO);
    EXPECT_EQ(types[1], PT_LINETO);
    EXPECT_EQ(types[2], PT_LINETO | PT_CLOSEFIGURE);
}

struct ArcCase
{
    const char* why;
    bool flipped; ///< GM_ADVANCED with y upward, else GM_COMPATIBLE
    int direction;
    int onX, onY; ///< device pixel that the arc passes
    int offX, offY;
};

/// From the right end (90, 50) of a circle around (50, 50) to its lower or upper end, which is (50, 90) logically.
const ArcCase kArcs[] = {
    {"device space, counter-clockwise takes the long way", false, AD_COUNTERCLOCKWISE, 22, 22, 78, 78},
    {"device space, clockwise takes the quarter", false, AD_CLOCKWISE, 78, 78, 22, 22},
    {"flipped, counter-clockwise before the flip: still the long way", true, AD_COUNTERCLOCKWISE, 22, 78, 78, 22},
    {"flipped, clockwise before the flip: still the quarter", true, AD_CLOCKWISE, 78, 22, 22, 78},
};

TEST(GdiPaths, ArcDirections)
{
    for (const ArcCase& c : kArcs) {
        Canvas canvas(101, 101);
        Selected pen(canvas, CreatePen(PS_SOLID, 5, RGB(255, 255, 255)));
        if (c.flipped) {
            canvas.SetTransform(1, 0, 0, -1, 0, 100);
        }
        EXPECT_EQ(SetArcDirection(canvas, c.direction), AD_COUNTERCLOCKWISE);
        BeginPath(canvas);
        MoveToEx(canvas, 90, 50, nullptr);
        EXPECT_TRUE(ArcTo(canvas, 10, 10, 90, 90, 90, 50, 50, 95));
        POINT end;
        GetCurrentPositionEx(canvas, &end);
        EXPECT_EQ(end.x, 50) << c.why;
        EXPECT_EQ(end.y, 90) << c.why;
        EndPath(canvas);
        StrokePath(canvas);
        canvas.SetTransform(1, 0, 0, 1, 0, 0);
        EXPECT_NE(canvas.At(c.onX, c.onY), 0u) << c.why;
        EXPECT_EQ(canvas.At(c.offX, c.offY), 0u) << c.why;
        EXPECT_EQ(canvas.At(50, 50), 0u) << c.why;
    }
}

/// Control points of all pieces, checked against the circle they stand for.
TEST(GdiPaths, ArcsBecomeBezierCurvesOnTheCircle)
{
    const int radius = 1000;
    for (int direction : {AD_COUNTERCLOCKWISE, AD_CLOCKWISE}) {
        Canvas canvas(1, 1);
        SetArcDirection(canvas, direction);
        BeginPath(canvas);
        MoveToEx(canvas, radius, 0, nullptr);
        ArcTo(canvas, -radius, -radius, radius, radius, 1, 0, 0, 1);
        EndPath(canvas);
        POINT p[32];
        BYTE types[32];
        const int count = GetPath(canvas, p, types, 32);
        // The quarter is one curve, the rest of the circle three.
        ASSERT_EQ(count, direction == AD_CLOCKWISE ? 4 : 10);
        for (int i = 0; i + 3 < count; i += 3) {
            EXPECT_EQ(types[i + 3], PT_BEZIERTO);
            const double mx = (p[i].x + 3.0 * p[i + 1].x + 3.0 * p[i + 2].x + p[i + 3].x) / 8;
            const double my = (p[i].y + 3.0 * p[i + 1].y + 3.0 * p[i + 2].y + p[i + 3].y) / 8;
            EXPECT_NEAR(std::hypot(mx, my), radius, 1.5) << i; // rounding of the points: at most 1.5
            EXPECT_NEAR(std::hypot(p[i + 3].x, p[i + 3].y), radius, 1);
        }
        EXPECT_EQ(p[count - 1].x, 0);
        EXPECT_EQ(p[count - 1].y, radius);
    }
}

TEST(GdiPaths, TurnedArcsCoverWhatTheUprightOnesCover)
{
    // A turn by a right angle maps pixels onto pixels, so a circle has to come out the same but for its border.
    Canvas upright(101, 101), turned(101, 101);
    turned.SetTransform(0.7071067f, 0.7071067f, -0.7071067f, 0.7071067f, 50, 50);
    upright.SetTransform(1, 0, 0, 1, 50, 50);
    for (HDC dc : {HDC(upright), HDC(turned)}) {
        BeginPath(dc);
        MoveToEx(dc, -30, 0, nullptr);
        ArcTo(dc, -30, -30, 30, 30, -30, 0, -30, 0);
        EndPath(dc);
        Selected brush(dc, CreateSolidBrush(RGB(255, 255, 255)));
        FillPath(dc);
    }
    int different = 0;
    upright.SetTransform(1, 0, 0, 1, 0, 0);
    turned.SetTransform(1, 0, 0, 1, 0, 0);
    const auto a = upright.Pixels(), b = turned.Pixels();
    for (size_t i = 0; i < a.size(); ++i) {
        different += a[i] != b[i];
    }
    EXPECT_NEAR(double(std::count(a.begin(), a.end(), 0xFFFFFFu)), 3.14159 * 900, 60);
    EXPECT_LT(different, 190); // a border of 2 * pi * 30 pixels
}

TEST(GdiPaths, PenWidthFollowsTheTransform)
{
    const struct
    {
        int width;
        float scaleX, scaleY;
        int rows;
    } cases[] = {{4, 1, 1, 4}, {4, 2, 2, 8}, {4, 4, 1, 8}, {0, 8, 8, 1}, {1, 5, 5, 5}, {3, 0.25f, 0.25f, 1}};
    for (const auto& c : cases) {
        Canvas canvas(60, 60);
        Selected pen(canvas, CreatePen(PS_SOLID, c.width, RGB(255, 255, 255)));
        canvas.SetTransform(c.scaleX, 0, 0, -c.scaleY, 30, 30);
        MoveToEx(canvas, -100, 0, nullptr);
        LineTo(canvas, 100, 0);
        canvas.SetTransform(1, 0, 0, 1, 0, 0);
        EXPECT_EQ(canvas.Drawn().Height(), c.rows) << c.width << " x " << c.scaleX;
    }
}

/// The pixels of one line drawn over a fixed picture, alone or in a path with a second line far away.
std::vector<COLORREF> PixelsOfLine(const POINT (&ends)[2], int bits, int rop, int width, bool turned, bool inPath)
{
    Canvas canvas(40, 30, bits);
    for (int i = 0; i < 40 * 30; i += 3)
        SetPixel(canvas, i % 40, i / 40, i % 2 ? 0xFFFFFF : RGB(i & 255, 70, 9));
    Selected pen(canvas, CreatePen(PS_SOLID, width, RGB(10, 200, 30)));
    SetROP2(canvas, rop);
    if (turned)
        canvas.SetTransform(0.6f, 0.8f, -0.8f, 0.6f, 18, -4);
    if (inPath)
        BeginPath(canvas);
    MoveToEx(canvas, ends[0].x, ends[0].y, nullptr);
    LineTo(canvas, ends[1].x, ends[1].y);
    if (inPath) {
        MoveToEx(canvas, 90000, 90000, nullptr);
        LineTo(canvas, 90001, 90005);
        EndPath(canvas);
        StrokePath(canvas);
    }
    if (turned)
        canvas.SetTransform(1, 0, 0, 1, 0, 0);
    return canvas.Pixels();
}

// Single lines have ways of their own to the pixels, one for each depth and kind of operation.
TEST(GdiPaths, ALineAloneIsTheLineOfALongerPath)
{
    std::mt19937 random(20);
    const auto between = [&random](int low, int high) { return low + int(random() % unsigned(high - low + 1)); };
    const int depths[] = {1, 24, 32, 32};
    const int operations[] = {R2_BLACK, R2_NOT, R2_XORPEN, R2_NOP, R2_COPYPEN, R2_WHITE};
    for (int i = 0; i < 200; ++i) {
        const int reach = i % 7 == 0 ? 100000 : 50;
        const POINT ends[2] = {{between(-reach, reach), between(-reach, reach)}, {between(-10, 50), between(-10, 40)}};
        const int bits = depths[i % 4], rop = operations[between(0, 5)], width = i % 5 < 3 ? i % 2 : between(2, 9);
        const bool turned = between(0, 3) == 0;
        ASSERT_EQ(PixelsOfLine(ends, bits, rop, width, turned, false),
                  PixelsOfLine(ends, bits, rop, width, turned, true))
            << i << ": " << bits << " bits, operation " << rop << ", width " << width;
    }
}

TEST(GdiPaths, TransformsNeedAdvancedModeAndAnInverse)
{
    Canvas canvas(4, 4);
    const XFORM move = {1, 0, 0, 1, 5, 5}, identity = {1, 0, 0, 1, 0, 0};
    const XFORM bad[] = {{0, 0, 0, 0, 0, 0}, {1, 2, 2, 4, 0, 0}, {NAN, 0, 0, 1, 0, 0}, {1, 0, 0, 1, INFINITY, 0}};
    EXPECT_FALSE(SetWorldTransform(canvas, &move));
    EXPECT_EQ(SetGraphicsMode(canvas, GM_ADVANCED), GM_COMPATIBLE);
    for (const XFORM& matrix : bad) {
        EXPECT_FALSE(SetWorldTransform(canvas, &matrix));
    }
    EXPECT_TRUE(SetWorldTransform(canvas, &move));
    EXPECT_EQ(SetGraphicsMode(canvas, GM_COMPATIBLE), 0);
    EXPECT_TRUE(SetWorldTransform(canvas, &identity));
    EXPECT_EQ(SetGraphicsMode(canvas, GM_COMPATIBLE), GM_ADVANCED);
}

TEST(GdiPaths, Rectangles)
{
    const struct
    {
        const char* why;
        int mode, pen, brush;
        std::vector<std::string> picture;
    } cases[] = {
        {"right and bottom excluded",
         GM_COMPATIBLE,
         WHITE_PEN,
         NULL_BRUSH,
         {".....", ".###.", ".#.#.", ".###.", "....."}},
        {"filled to the outline", GM_COMPATIBLE, WHITE_PEN, WHITE_BRUSH, {".....", ".###.", ".###.", ".###.", "....."}},
        {"included", GM_ADVANCED, WHITE_PEN, NULL_BRUSH, {".....", ".####", ".#..#", ".#..#", ".####"}},
        {"without a pen one smaller",
         GM_COMPATIBLE,
         NULL_PEN,
         WHITE_BRUSH,
         {".....", ".##..", ".##..", ".....", "....."}},
    };
    for (const auto& c : cases) {
        // Exclusive-or tells a pixel that is drawn twice from one that is drawn once.
        for (int rop : {R2_COPYPEN, R2_XORPEN}) {
            Canvas canvas(5, 5);
            SetGraphicsMode(canvas, c.mode);
            SetROP2(canvas, rop);
            SelectObject(canvas, GetStockObject(c.pen));
            SelectObject(canvas, GetStockObject(c.brush));
            EXPECT_TRUE(Rectangle(canvas, 4, 4, 1, 1)); // edges in any order
            EXPECT_EQ(canvas.Picture(), c.picture) << c.why;
        }
    }
}

TEST(GdiPaths, HatchesAreAnchoredToTheDeviceAndShowTheBackground)
{
    for (int mode : {OPAQUE, TRANSPARENT}) {
        Canvas canvas(32, 32);
        Selected brush(canvas, CreateHatchBrush(HS_DIAGCROSS, RGB(255, 0, 0)));
        SelectObject(canvas, GetStockObject(NULL_PEN));
        SetBkMode(canvas, mode);
        SetBkColor(canvas, RGB(0, 0, 255));
        Rectangle(canvas, 3, 5, 32, 32);
        for (int y = 5; y < 31; ++y) {
            for (int x = 3; x < 31; ++x) {
                const bool line = x % 8 == y % 8 || x % 8 == 7 - y % 8;
                EXPECT_EQ(canvas.At(x, y), line             ? RGB(255, 0, 0)
                                           : mode == OPAQUE ? RGB(0, 0, 255)
                                                            : 0)
                    << x << ", " << y;
            }
        }
    }
}

} // namespace
