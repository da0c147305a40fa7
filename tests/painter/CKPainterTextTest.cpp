#include "PainterFixture.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

/// A canvas with text settings that no painter makes, and a painter with the origin at pixel (100, 50), 10 to the
/// millimetre.
struct TextScene : Canvas
{
    TextScene() : Canvas(200, 100)
    {
        LOGFONTA record = {};
        record.lfHeight = -9;
        std::copy_n("Own", 4, record.lfFaceName);
        own.CreateFontIndirect(&record);
        Get()->SelectObject(&own);
        Get()->SetBkMode(TRANSPARENT);
        Get()->SetBkColor(0x010203);
        Get()->SetTextColor(0x040506);
        Get()->SetTextAlign(TA_RIGHT);
        TakeTrace();
        PlaceView(painter, 10.0, 100, 50);
    }

    CFont own;
    CKPainter painter;
};

const std::string kOwnFont = "SelectFont -9 0 \"Own\"\n";

struct AngleCase
{
    const char* why;
    float angle;
    int mirror;
    const char* placed; // the world transform of the text
};

// 10 pixels high: the shift is 8. The anchor (3, 2) mm lies at pixel (130, 30), mirrored at (70, 30). Sines and cosines
// of right angles are those of the single-precision angle.
const AngleCase kAngles[] = {
    {"upright", 0.0f, 0, "1 0 0 1 130 38"},
    {"a full turn is upright", 360.0f, 0, "1 0 0 1 130 38"},
    {"a full turn back, mirrored", -360.0f, 1, "1 0 0 1 70 38"},
    {"a quarter turn moves right", 90.0f, 0, "-4.37113883e-08 -1 1 -4.37113883e-08 138 30"},
    {"mirrored: turned by 270, moved as by 90", 90.0f, 1, "1.19248806e-08 1 -1 1.19248806e-08 78 30"},
    {"mirrored half turn stays", 180.0f, 1, "-1 8.74227766e-08 -8.74227766e-08 -1 70 23"},
};

TEST(CKPainterText, WindowFontTextStepByStep)
{
    for (const AngleCase& c : kAngles) {
        TextScene canvas;
        canvas.painter.SetBoardMirrorX(c.mirror);
        canvas.painter.DrawWindowFontText(canvas.Get(), 1, 0x0000FF, "R1", 1.0, 3.0, 2.0, c.angle);
        // 10 points at 96 pixels to the inch are 13.33 pixels.
        EXPECT_EQ(canvas.TakeTrace(), "SelectFont -13 -13 \"Tahoma\"\nSetBkMode 1\nSetTextColor 0x0000FF\n"
                                      "SetTextAlign 14\nSetGraphicsMode 2\nSetWorldTransform " +
                                          std::string(c.placed) + "\nDrawText \"R1\" 0 0 0 0 288\nSetWorldTransform " +
                                          (c.mirror ? "-1" : "1") + " 0 0 -1 100 50\n" + kOwnFont +
                                          "SetBkMode 1\nSetTextColor 0x040506\nSetTextAlign 2\n")
            << c.why;
    }
}

TEST(CKPainterText, OpaqueTextRestoresTheBackgroundColour)
{
    TextScene canvas;
    CKPainter& painter = canvas.painter;
    painter.SetBackgroundColorForReplacement(0x00AA00);
    const DWORD objects = CountGdiObjects();
    painter.DrawWindowFontText(canvas.Get(), 0, 0x0000FF, "R1", 0.3, 3.0, 2.0, 0.0f);
    EXPECT_EQ(canvas.TakeTrace(), "SelectFont -4 -4 \"Tahoma\"\nSetBkMode 2\nSetBkColor 0x00AA00\n"
                                  "SetTextColor 0x0000FF\nSetTextAlign 14\nSetGraphicsMode 2\n"
                                  "SetWorldTransform 1 0 0 1 130 32\nDrawText \"R1\" 0 0 0 0 288\n"
                                  "SetWorldTransform 1 0 0 -1 100 50\n" +
                                      kOwnFont +
                                      "SetBkMode 1\nSetBkColor 0x010203\nSetTextColor 0x040506\nSetTextAlign 2\n");
    painter.DrawWindowFontText(canvas.Get(), 0, 0x0000FF, "R1", 0.24, 3.0, 2.0, 0.0f);
    EXPECT_EQ(canvas.TakeTrace(), "") << "2 pixels are too small to read";
    EXPECT_EQ(CountGdiObjects(), objects);
}

TEST(CKPainterText, DrawTextALeavesItsSettings)
{
    TextScene canvas;
    CKPainter& painter = canvas.painter;
    const DWORD objects = CountGdiObjects();
    painter.DrawTextA(canvas.Get(), 0x0000FF, "R1", 3.0, 2.0, 99.0, 99);
    const std::string before =
        "SetGraphicsMode 2\nSetWorldTransform 1 0 0 1 0 0\nSelectFont -13 -13 \"\"\nSetBkMode 2\n"
        "SetTextColor 0x0000FF\nSetTextAlign 14\n";
    // The anchor is the negated point: (70, 70), 10 pixels lower; mirrored, x keeps its sign.
    EXPECT_EQ(canvas.TakeTrace(), before + "DrawText \"R1\" 70 80 70 80 288\nSetWorldTransform 1 0 0 -1 100 50\n");
    painter.SetBoardMirrorX(1);
    painter.DrawTextA(canvas.Get(), 0x0000FF, "R1", 3.0, 2.0, 99.0, 99);
    EXPECT_EQ(canvas.TakeTrace(), before + "DrawText \"R1\" 130 80 130 80 288\nSetWorldTransform -1 0 0 -1 100 50\n");
    EXPECT_EQ(CountGdiObjects(), objects + 1) << "the last font alone, still selected";
    canvas.Get()->SelectObject(&canvas.own);
    EXPECT_EQ(CountGdiObjects(), objects);
}

TEST(CKPainterText, PixelCopiedTextCoversItsBoxRowByRow)
{
    const SIZE extent = MeasurePixelText(12, "U7");
    if (extent.cx == 0)
        GTEST_SKIP() << "no font on this system";
    CKPainter painter;
    PlaceView(painter, 10.0, 100, 50);
    const DWORD objects = CountGdiObjects();
    for (const int transparent : {0, 1}) {
        Canvas canvas(200, 100);
        // The forwarding form takes colour and transparency the other way round.
        painter.DrawTextNoWorldTransform(canvas.Get(), 0x0000FF, transparent, "U7", 3.0, 2.0, 1.2);
        const std::string trace = canvas.TakeTrace();
        EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'), extent.cx * extent.cy);
        const int left = 130 - extent.cx / 2, top = 30 - extent.cy / 2;
        EXPECT_EQ(trace.rfind("SetPixel " + std::to_string(left) + " " + std::to_string(top) + " 0x", 0), 0u);
        EXPECT_NE(trace.find("\nSetPixel " + std::to_string(left + 1) + " " + std::to_string(top) + " 0x"),
                  std::string::npos);

        // The glyphs come out in the text colour, the rest of the box black: the default background is all but black.
        int red = 0, other = 0;
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 200; ++x) {
                const COLORREF pixel = canvas.Get()->GetPixel(x, y);
                const bool inBox = x >= left && x < left + extent.cx && y >= top && y < top + extent.cy;
                red += pixel == 0x0000FF && inBox;
                other += pixel != 0 && pixel != 0x0000FF;
                other += pixel != 0 && !inBox;
            }
        }
        EXPECT_GT(red, 10);
        EXPECT_LT(red, extent.cx * extent.cy / 2);
        EXPECT_EQ(other, 0);
    }
    EXPECT_EQ(CountGdiObjects(), objects + 0u);
}

TEST(CKPainterText, OfAHugeTextOnlyWhatIsSeenIsMade)
{
    if (MeasurePixelText(12, "M").cx == 0)
        GTEST_SKIP() << "no font on this system";
    CKPainter painter;
    PlaceView(painter, 10.0, 30, 25);
    // 1100 pixels high: the larger canvas shows all of it where the smaller one shows a part of a letter.
    Canvas small(60, 50), large(1000, 1000);
    painter.DrawTextNoWorldTransform(small.Get(), 0x0000FF, 0, "M", -22, -20, 110);
    painter.DrawTextNoWorldTransform(large.Get(), 0x0000FF, 0, "M", -22, -20, 110);
    int red = 0;
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 60; ++x) {
            ASSERT_EQ(small.Get()->GetPixel(x, y), large.Get()->GetPixel(x, y)) << x << ", " << y;
            red += small.Get()->GetPixel(x, y) == 0x0000FF;
        }
    }
    EXPECT_GT(red, 0);
    EXPECT_LT(red, 3000);

    const clock_t start = clock();
    painter.DrawTextNoWorldTransform(small.Get(), 0x0000FF, 0, "M", -1000, 0, 10000);  // covers the canvas
    painter.DrawTextNoWorldTransform(small.Get(), 0x0000FF, 0, "M", 100000, 0, 10000); // misses it
    EXPECT_LT(double(clock() - start) / CLOCKS_PER_SEC, 0.5) << "ten thousand million pixels each";
}

TEST(CKPainterText, HostileHeightsAndEmptyTexts)
{
    CKPainter painter;
    PlaceView(painter, 10.0, 30, 30);
    const DWORD objects = CountGdiObjects();
    for (const double height : {0.0, -1.0, 1e300, -1e300, double(NAN)}) {
        Canvas canvas;
        painter.DrawWindowFontText(canvas.Get(), 1, 0x0000FF, "R", height, 0, 0, NAN);
        painter.DrawWindowFontTextNoWorldTransform(canvas.Get(), 1, 0x0000FF, "", 0, 0, height);
    }
    EXPECT_EQ(CountGdiObjects(), objects);
}

TEST(CKPainterText, SizeIsMeasuredInTheDefaultFont)
{
    TextScene canvas;
    const HDC memory = CreateCompatibleDC(nullptr);
    SIZE extent = {};
    GetTextExtentPointA(memory, "Mark", 4, &extent);
    DeleteDC(memory);
    for (CDC* dc : {canvas.Get(), static_cast<CDC*>(nullptr)})
        EXPECT_EQ(At(canvas.painter.GetTextSize(dc, "Mark")), XY(extent.cx, extent.cy));
}

} // namespace
