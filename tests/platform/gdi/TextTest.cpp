/// Text by what can be said of it without knowing a face: where its pixels lie, and what its measures do.
#include "GdiTestTools.h"

#include <cmath>
#include <cstdlib>
#include <fstream>

namespace {

constexpr COLORREF kWhite = 0xFFFFFF;

HFONT MakeFont(int height, int width = 0, int escapement = 0)
{
    return CreateFontA(height, width, escapement, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "DejaVu Sans");
}

SIZE Extent(HDC dc, const std::string& text)
{
    SIZE size = {-1, -1};
    EXPECT_TRUE(GetTextExtentPointA(dc, text.data(), int(text.size()), &size));
    return size;
}

TEST(GdiText, PixelsLieInTheBoxThatTheAlignmentPlaces)
{
    Canvas canvas(200, 120);
    Selected font(canvas, MakeFont(-20));
    SetTextColor(canvas, kWhite);
    SetBkMode(canvas, TRANSPARENT);
    const SIZE size = Extent(canvas, "Hxg");
    ASSERT_GT(size.cx, 20);
    TEXTMETRICA metrics;
    GetTextMetricsA(canvas, &metrics);
    EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, size.cy);
    for (UINT horizontal : {TA_LEFT, TA_CENTER, TA_RIGHT}) {
        for (UINT vertical : {TA_TOP, TA_BASELINE, TA_BOTTOM}) {
            PatBlt(canvas, 0, 0, 200, 120, BLACKNESS);
            SetTextAlign(canvas, horizontal | vertical);
            TextOutA(canvas, 100, 60, "Hxg", 3);
            const int left = 100 - (horizontal == TA_CENTER ? size.cx / 2 : horizontal == TA_RIGHT ? size.cx : 0);
            const int top = 60 - (vertical == TA_BASELINE ? metrics.tmAscent : vertical == TA_BOTTOM ? size.cy : 0);
            const CRect drawn = canvas.Drawn();
            EXPECT_FALSE(drawn.IsRectEmpty());
            EXPECT_GE(drawn.left, left - 1) << horizontal << " " << vertical; // a bearing of at most a pixel
            EXPECT_LE(drawn.right, left + size.cx + 1);
            EXPECT_GE(drawn.top, top);
            EXPECT_LE(drawn.bottom, top + size.cy);
            EXPECT_GT(drawn.Width(), size.cx * 3 / 4);
        }
    }
}

TEST(GdiText, OpaqueTextPaintsItsBoxInTwoColours)
{
    Canvas canvas(120, 40);
    Selected font(canvas, MakeFont(-16));
    SetROP2(canvas, R2_XORPEN); // text does not look at it
    SetTextColor(canvas, RGB(255, 255, 0));
    SetBkColor(canvas, RGB(0, 0, 1));
    TextOutA(canvas, 10, 5, "Text", 4);
    const SIZE size = Extent(canvas, "Text");
    EXPECT_EQ(canvas.Drawn(), CRect(10, 5, 10 + size.cx, 5 + size.cy));
    int text = 0;
    for (int y = 5; y < 5 + size.cy; ++y) {
        for (int x = 10; x < 10 + size.cx; ++x) {
            EXPECT_TRUE(canvas.At(x, y) == RGB(255, 255, 0) || canvas.At(x, y) == RGB(0, 0, 1));
            text += canvas.At(x, y) == RGB(255, 255, 0);
        }
    }
    EXPECT_GT(text, 40);
}

TEST(GdiText, HeightsAndWidthsOfFontRecords)
{
    Canvas canvas(1, 1);
    const auto extentWith = [&](int height, int width) {
        Selected font(canvas, MakeFont(height, width));
        return Extent(canvas, "average width of many letters");
    };
    EXPECT_EQ(extentWith(40, 0).cy, 40);  // the cell
    EXPECT_GT(extentWith(-40, 0).cy, 40); // the em is smaller than its cell
    EXPECT_EQ(extentWith(0, 0).cy, extentWith(-12, 0).cy);
    const int natural = extentWith(-40, 0).cx, wide = extentWith(-40, 40).cx;
    EXPECT_GT(wide, natural * 3 / 2);
    EXPECT_EQ(extentWith(-40, -40).cx, wide);
    // Twice the width, up to the rounding of each of the 29 advances.
    EXPECT_NEAR(extentWith(-40, 80).cx, 2 * wide, 29);
}

TEST(GdiText, ExtentsAddUpAndReadUtf8)
{
    Canvas canvas(1, 1);
    Selected font(canvas, MakeFont(-20));
    EXPECT_EQ(Extent(canvas, "").cx, 0);
    EXPECT_EQ(Extent(canvas, "abc").cx, Extent(canvas, "a").cx + Extent(canvas, "b").cx + Extent(canvas, "c").cx);
    // One character of two bytes; the same character as the single byte of its value, which is no UTF-8.
    EXPECT_EQ(Extent(canvas, "\xC3\xBC").cx, Extent(canvas, "\xFC").cx);
    EXPECT_EQ(Extent(canvas, "\xC3").cx + Extent(canvas, "b").cx, Extent(canvas, "\xC3"
                                                                                 "b")
                                                                      .cx);
    EXPECT_EQ(Extent(canvas, "\xC0\xAF").cx, Extent(canvas, "\xC3\x80\xC2\xAF").cx); // overlong: two characters
    SIZE size;
    EXPECT_FALSE(GetTextExtentPointA(canvas, "x", -1, &size));
}

/// Turned by a right angle, pixels land on pixels: drawing has to agree up to rounding with the upright text turned.
TEST(GdiText, TransformsTurnMirrorAndScale)
{
    const auto draw = [](float m11, float m12, float m21, float m22, int height, int escapement) {
        Canvas canvas(201, 201);
        Selected font(canvas, MakeFont(height, 0, escapement));
        canvas.SetTransform(m11, m12, m21, m22, 100, 100);
        SetTextColor(canvas, kWhite);
        SetBkMode(canvas, TRANSPARENT);
        TextOutA(canvas, 0, 0, "Fig.", 4);
        canvas.SetTransform(1, 0, 0, 1, 0, 0);
        return canvas.Drawn();
    };
    const CRect upright = draw(1, 0, 0, 1, -30, 0);
    const auto expectNear = [&](CRect box, int left, int top, int right, int bottom, const char* why) {
        EXPECT_NEAR(box.left, left, 2) << why;
        EXPECT_NEAR(box.top, top, 2) << why;
        EXPECT_NEAR(box.right, right, 2) << why;
        EXPECT_NEAR(box.bottom, bottom, 2) << why;
    };
    const int l = upright.left, t = upright.top, r = upright.right, b = upright.bottom;
    expectNear(draw(0, 1, -1, 0, -30, 0), 200 - b, l, 200 - t, r, "x downward");
    expectNear(draw(0, -1, 1, 0, -30, 0), t, 200 - r, b, 200 - l, "x upward");
    expectNear(draw(1, 0, 0, 1, -30, 900), t, 200 - r, b, 200 - l, "escapement of 90 degrees runs upward");
    expectNear(draw(-1, 0, 0, 1, -30, 0), 200 - r, t, 200 - l, b, "mirrored");
    expectNear(draw(1, 0, 0, -1, -30, 0), l, 200 - b, r, 200 - t, "upside down");
    expectNear(draw(2, 0, 0, 2, -15, 0), l, t, r, b, "half the height at twice the scale");
}

TEST(GdiText, LargeAndAbsurdTextsAreDrawnWithinBounds)
{
    for (int height : {-300, -5000, -2147483647 - 1, 2147483647}) {
        for (int x : {0, -2147483647, 2147483647}) {
            Canvas canvas(50, 50);
            Selected font(canvas, MakeFont(height, height));
            canvas.SetTransform(1e6f, 3.0f, -2.0f, 1e6f, 5, 5);
            TextOutA(canvas, x, x, "WMg", 3);
            EXPECT_GE(Extent(canvas, "WMg").cx, 0);
        }
    }
    // A letter of full height: its stem crosses the middle rows.
    Canvas canvas(300, 400);
    Selected font(canvas, MakeFont(-400));
    SetTextColor(canvas, kWhite);
    SetBkMode(canvas, TRANSPARENT);
    TextOutA(canvas, 0, 0, "I", 1);
    EXPECT_GT(canvas.Drawn().Height(), 250);
}

TEST(GdiText, RectanglesPlaceCutAndMeasure)
{
    Canvas canvas(100, 60);
    Selected font(canvas, MakeFont(-14));
    SetTextColor(canvas, kWhite);
    SetBkColor(canvas, RGB(0, 0, 1));
    const SIZE one = Extent(canvas, "HH");
    const auto drawn = [&](const char* text, CRect rect, UINT format) {
        PatBlt(canvas, 0, 0, 100, 60, BLACKNESS);
        EXPECT_GT(DrawTextA(canvas, text, -1, &rect, format), 0);
        return canvas.Drawn();
    };
    const UINT single = DT_SINGLELINE;
    EXPECT_EQ(drawn("HH", CRect(10, 10, 10, 10), single | DT_NOCLIP), CRect(CPoint(10, 10), one));
    EXPECT_EQ(drawn("HH", CRect(0, 0, 100, 60), single | DT_CENTER | DT_VCENTER),
              CRect(CPoint((100 - one.cx) / 2, (60 - one.cy) / 2), one));
    EXPECT_EQ(drawn("HH", CRect(0, 0, 90, 50), single | DT_RIGHT | DT_BOTTOM), CRect(90 - one.cx, 50 - one.cy, 90, 50));
    EXPECT_EQ(drawn("HH", CRect(10, 10, 15, 14), single), CRect(10, 10, 15, 14)); // cut
    EXPECT_EQ(drawn("H&H", CRect(10, 10, 90, 50), single).Width(), one.cx);       // the sign only marks
    EXPECT_EQ(drawn("H&H", CRect(10, 10, 90, 50), single | DT_NOPREFIX).Width(), one.cx + Extent(canvas, "&").cx);
    SetTextAlign(canvas, TA_BOTTOM | TA_CENTER);
    EXPECT_EQ(drawn("HH", CRect(50, 40, 50, 40), single | DT_NOCLIP), CRect(CPoint(50 - one.cx / 2, 40 - one.cy), one));
    CRect room(5, 5, 5, 5);
    EXPECT_EQ(DrawTextA(canvas, "H\r\nHH\nH", -1, &room, DT_CALCRECT), 3 * one.cy);
    EXPECT_EQ(room, CRect(5, 5, 5 + one.cx, 5 + 3 * one.cy));
}

TEST(GdiText, ColouredTextOnAMonochromeBitmapCanBeToldFromItsGround)
{
    Canvas canvas(60, 30, 1);
    Selected font(canvas, MakeFont(-20));
    SetTextColor(canvas, RGB(200, 30, 30));
    SetBkColor(canvas, RGB(1, 0, 0));
    TextOutA(canvas, 2, 2, "Ab", 2);
    EXPECT_GT(canvas.Drawn().Width(), 10);
}

/// Runs in a process of its own whose font configuration is empty.
TEST(GdiTextDeathTest, NoFontOnTheSystem)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto draw = [] {
        const std::string configuration = testing::TempDir() + "kolm_no_fonts.conf";
        std::ofstream(configuration) << "<?xml version=\"1.0\"?><fontconfig></fontconfig>";
        setenv("FONTCONFIG_FILE", configuration.c_str(), 1);
        Canvas canvas(20, 20);
        RECT rect = {0, 0, 20, 20};
        SIZE size = {7, 7};
        const bool extent = GetTextExtentPointA(canvas, "abc", 3, &size) && size.cx == 0 && size.cy == 0;
        const bool draws = TextOutA(canvas, 2, 2, "abc", 3) && DrawTextA(canvas, "abc", 3, &rect, 0) == 0;
        DrawTextA(canvas, "abc", 3, &rect, DT_CALCRECT);
        std::exit(extent && draws && CRect(rect).IsRectNull() && canvas.Drawn().IsRectEmpty() ? 42 : 1);
    };
    EXPECT_EXIT(draw(), testing::ExitedWithCode(42), "");
}

} // namespace
