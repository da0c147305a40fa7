/// Pixels of all depths, device-independent rows, and block transfers.
#include "GdiTestTools.h"

#include <cstring>
#include <random>

namespace {

constexpr COLORREF kWhite = 0xFFFFFF;

TEST(GdiBitmaps, ColoursOnAMonochromeBitmap)
{
    const struct
    {
        const char* why;
        COLORREF background, color, shown;
    } cases[] = {
        {"black stays black", RGB(9, 9, 9), 0, 0},
        {"white stays white", RGB(255, 255, 254), kWhite, kWhite},
        {"the background takes the nearer value", RGB(1, 0, 0), RGB(1, 0, 0), 0},
        {"a light background is white", RGB(200, 200, 200), RGB(200, 200, 200), kWhite},
        {"sum 382 is nearer to black", RGB(127, 127, 128), RGB(127, 127, 128), 0},
        {"sum 383 is nearer to white", RGB(127, 128, 128), RGB(127, 128, 128), kWhite},
        {"a colour on dark comes out white", RGB(1, 0, 0), RGB(2, 0, 0), kWhite},
        {"a light colour on light comes out black", kWhite, RGB(254, 255, 255), 0},
    };
    for (const auto& c : cases) {
        Canvas canvas(3, 1, 1);
        SetBkColor(canvas, c.background);
        EXPECT_EQ(SetPixel(canvas, 1, 0, c.color), c.shown) << c.why;
        EXPECT_EQ(canvas.At(1, 0), c.shown) << c.why;
        Selected brush(canvas, CreateSolidBrush(c.color));
        PatBlt(canvas, 0, 0, 1, 1, PATCOPY);
        EXPECT_EQ(canvas.At(0, 0), c.shown) << c.why;
    }
}

TEST(GdiBitmaps, NewMemoryContextsHoldOneMonochromePixelEach)
{
    const HDC first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(first);
    BITMAP record = {};
    GetObjectA(GetCurrentObject(first, OBJ_BITMAP), sizeof record, &record);
    EXPECT_EQ(record.bmWidth, 1);
    EXPECT_EQ(record.bmHeight, 1);
    EXPECT_EQ(record.bmBitsPixel, 1);
    EXPECT_EQ(SetPixel(first, 0, 0, kWhite), kWhite);
    EXPECT_EQ(GetPixel(second, 0, 0), 0u);
    EXPECT_EQ(SetPixel(first, 1, 0, kWhite), CLR_INVALID);
    const HBITMAP mono = CreateCompatibleBitmap(first, 5, 5);
    GetObjectA(mono, sizeof record, &record);
    EXPECT_EQ(record.bmBitsPixel, 1);
    DeleteObject(mono);
    DeleteDC(first);
    DeleteDC(second);
}

/// A checked picture, its rows by hand.
TEST(GdiBitmaps, RowsOfEveryDepth)
{
    Canvas canvas(2, 2);
    SetPixel(canvas, 0, 0, RGB(1, 2, 3));
    SetPixel(canvas, 1, 1, RGB(250, 251, 252));
    const struct
    {
        int bits, height;
        std::vector<BYTE> rows;
    } cases[] = {
        {32, 2, {0, 0, 0, 0, 252, 251, 250, 0, 3, 2, 1, 0, 0, 0, 0, 0}},
        {32, -2, {3, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 252, 251, 250, 0}},
        {24, 2, {0, 0, 0, 252, 251, 250, 0, 0, 3, 2, 1, 0, 0, 0, 0, 0}},
        {1, 2, {0x40, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        struct
        {
            BITMAPINFOHEADER header;
            BYTE table[8];
        } info = {};
        info.header.biSize = sizeof info.header;
        info.header.biWidth = 2;
        info.header.biHeight = c.height;
        info.header.biPlanes = 1;
        info.header.biBitCount = WORD(c.bits);
        std::vector<BYTE> rows(c.rows.size(), 0xCC);
        auto* const record = reinterpret_cast<BITMAPINFO*>(&info);
        EXPECT_EQ(GetDIBits(canvas, canvas.Bitmap(), 0, 2, rows.data(), record, DIB_RGB_COLORS), 2);
        EXPECT_EQ(rows, c.rows) << c.bits;
        EXPECT_EQ(info.header.biSizeImage, c.rows.size());
        const BYTE table[8] = {0, 0, 0, 0, 255, 255, 255, 0};
        EXPECT_EQ(std::memcmp(info.table, table, 8) == 0, c.bits == 1);

        // One row from the middle on, and more rows than there are.
        std::vector<BYTE> part(c.rows.size(), 0xCC);
        EXPECT_EQ(GetDIBits(canvas, canvas.Bitmap(), 1, 99, part.data(), record, DIB_RGB_COLORS), 1);
        const size_t half = c.rows.size() / 2;
        EXPECT_EQ(std::vector<BYTE>(part.begin(), part.begin() + half),
                  std::vector<BYTE>(c.rows.begin() + half, c.rows.end()));
        EXPECT_EQ(part[half], 0xCC);
    }
}

TEST(GdiBitmaps, HeadersAreCompletedOrRefused)
{
    Canvas canvas(33, 7, 1);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    EXPECT_EQ(GetDIBits(canvas, canvas.Bitmap(), 0, 7, nullptr, &info, DIB_RGB_COLORS), 7);
    EXPECT_EQ(info.bmiHeader.biWidth, 33);
    EXPECT_EQ(info.bmiHeader.biHeight, 7);
    EXPECT_EQ(info.bmiHeader.biBitCount, 1);
    EXPECT_EQ(info.bmiHeader.biSizeImage, 56u);

    const auto refused = [&](auto change) {
        BITMAPINFO bad = info;
        change(bad.bmiHeader);
        return GetDIBits(canvas, canvas.Bitmap(), 0, 7, nullptr, &bad, DIB_RGB_COLORS) == 0;
    };
    EXPECT_TRUE(refused([](auto& h) { h.biSize = 12; }));
    EXPECT_TRUE(refused([](auto& h) { h.biBitCount = 8; }));
    EXPECT_TRUE(refused([](auto& h) { h.biWidth = -33; }));
    EXPECT_TRUE(refused([](auto& h) { h.biHeight = 0; }));
    EXPECT_TRUE(refused([](auto& h) { h.biCompression = BI_BITFIELDS; }));
    EXPECT_TRUE(refused([](auto& h) { h.biWidth = 0x7FFFFFFF, h.biHeight = -0x7FFFFFFF - 1, h.biBitCount = 32; }));
}

TEST(GdiBitmaps, SectionsShareTheirRowsWithTheHost)
{
    for (int height : {3, -3}) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = 5;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 24;
        void* bits = nullptr;
        const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        ASSERT_NE(bitmap, nullptr);
        const HDC dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
        SetPixel(dc, 1, 0, RGB(7, 8, 9));
        const BYTE* const row = static_cast<BYTE*>(bits) + (height > 0 ? 2 * 16 : 0);
        EXPECT_EQ(row[3], 9);
        EXPECT_EQ(row[5], 7);
        static_cast<BYTE*>(bits)[(height > 0 ? 0 : 2 * 16) + 2] = 77;
        EXPECT_EQ(GetPixel(dc, 0, 2), RGB(77, 0, 0));
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
}

/// Fills with reproducible noise.
void Scribble(const Canvas& canvas, int width, int height, unsigned seed)
{
    std::mt19937 random(seed);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            SetPixel(canvas, x, y, random() & kWhite);
        }
    }
}

TEST(GdiBlt, OverlappingBlocksMoveAsIfCopiedFirst)
{
    constexpr int kWidth = 23, kHeight = 9;
    for (int bits : {1, 32}) {
        for (int shift = 0; shift < 25; ++shift) {
            const int dx = shift % 5 * 3 - 6, dy = shift / 5 - 2;
            Canvas canvas(kWidth, kHeight, bits);
            Scribble(canvas, kWidth, kHeight, 5);
            auto expected = canvas.Pixels();
            const auto before = expected;
            // The block (4, 2) of 12 x 5 pixels, moved, and what of it stays inside.
            for (int y = 2; y < 7; ++y) {
                for (int x = 4; x < 16; ++x) {
                    if (x + dx >= 0) {
                        expected[size_t((y + dy) * kWidth + x + dx)] = before[size_t(y * kWidth + x)];
                    }
                }
            }
            EXPECT_TRUE(BitBlt(canvas, 4 + dx, 2 + dy, 12, 5, canvas, 4, 2, SRCCOPY));
            EXPECT_EQ(canvas.Pixels(), expected) << bits << " bits by " << dx << ", " << dy;
        }
    }
}

TEST(GdiBlt, BlocksAreCutToBothSurfaces)
{
    Canvas from(10, 10), to(10, 10);
    Scribble(from, 10, 10, 1);
    const int far = 0x7FFFFFFF;
    const int cases[][6] = {{-3, -4, 8, 8, 2, 1},       {6, 7, 100, 100, -2, -3},   {0, 0, far, far, 5, 5},
                            {far, far, far, far, 0, 0}, {-far, 0, far, 5, -far, 0}, {0, 0, -5, 5, 0, 0},
                            {2, 2, 3, 3, 50, 0}};
    for (const auto& c : cases) {
        Scribble(to, 10, 10, 2);
        auto expected = to.Pixels();
        for (int64_t y = 0; y < 10; ++y) {
            for (int64_t x = 0; x < 10; ++x) {
                const int64_t sx = x - c[0] + c[4], sy = y - c[1] + c[5];
                const bool inside = x >= c[0] && x < int64_t(c[0]) + c[2] && y >= c[1] && y < int64_t(c[1]) + c[3];
                if (inside && sx >= 0 && sy >= 0 && sx < 10 && sy < 10) {
                    expected[size_t(y * 10 + x)] = from.At(int(sx), int(sy));
                }
            }
        }
        EXPECT_TRUE(BitBlt(to, c[0], c[1], c[2], c[3], from, c[4], c[5], SRCCOPY));
        EXPECT_EQ(to.Pixels(), expected) << c[0] << ", " << c[1];
    }
}

TEST(GdiBlt, RasterCodes)
{
    const COLORREF s = 0x0F35A1, d = 0x33C0FF, p = 0x5A5A11;
    const struct
    {
        DWORD code;
        COLORREF result;
    } cases[] = {{SRCCOPY, s},         {SRCPAINT, s | d}, {SRCAND, s & d},         {SRCINVERT, s ^ d},
                 {SRCERASE, s & ~d},   {NOTSRCCOPY, ~s},  {NOTSRCERASE, ~(s | d)}, {MERGECOPY, s & p},
                 {MERGEPAINT, ~s | d}, {PATCOPY, p},      {PATPAINT, p | ~s | d},  {PATINVERT, p ^ d},
                 {DSTINVERT, ~d},      {BLACKNESS, 0},    {WHITENESS, kWhite}};
    for (const auto& c : cases) {
        Canvas from(2, 2), to(2, 2);
        Selected brush(to, CreateSolidBrush(p));
        SetROP2(to, R2_NOP); // block transfers and pixels do not look at it
        SetPixel(from, 0, 0, s);
        SetPixel(to, 1, 1, d);
        EXPECT_TRUE(BitBlt(to, 1, 1, 1, 1, from, 0, 0, c.code));
        EXPECT_EQ(to.At(1, 1), c.result & kWhite) << std::hex << c.code;
        EXPECT_EQ(to.At(0, 0), 0u);
    }
}

TEST(GdiBlt, BetweenMonochromeAndColours)
{
    Canvas mono(2, 1, 1), color(2, 1), back(2, 1, 1);
    SetPixel(mono, 1, 0, kWhite);
    SetTextColor(color, RGB(10, 20, 30));
    SetBkColor(color, RGB(40, 50, 60));
    BitBlt(color, 0, 0, 2, 1, mono, 0, 0, SRCCOPY);
    EXPECT_EQ(color.At(0, 0), RGB(10, 20, 30));
    EXPECT_EQ(color.At(1, 0), RGB(40, 50, 60));
    BitBlt(back, 0, 0, 2, 1, color, 0, 0, SRCCOPY); // the background colour becomes white again
    EXPECT_EQ(back.At(0, 0), 0u);
    EXPECT_EQ(back.At(1, 0), kWhite);
}

TEST(GdiBitmaps, ClipBoxHoldsEveryPointWithAPixel)
{
    const XFORM transforms[] = {{1, 0, 0, 1, 0, 0}, {2, 0, 0, -2, 5, 30}, {0.6f, 0.8f, -0.8f, 0.6f, 3, -4}};
    for (const XFORM& transform : transforms) {
        const Canvas canvas(20, 12);
        SetGraphicsMode(canvas, GM_ADVANCED);
        SetWorldTransform(canvas, &transform);
        RECT box = {};
        ASSERT_EQ(GetClipBox(canvas, &box), SIMPLEREGION);
        CRect drawn(1000, 1000, -1000, -1000);
        for (int y = -60; y < 60; ++y) {
            for (int x = -60; x < 60; ++x) {
                if (GetPixel(canvas, x, y) != CLR_INVALID) {
                    drawn = CRect(std::min<int>(drawn.left, x), std::min<int>(drawn.top, y),
                                  std::max<int>(drawn.right, x + 1), std::max<int>(drawn.bottom, y + 1));
                }
            }
        }
        // The corners of a turned picture can fall between points.
        const int slack = transform.eM12 != 0 ? 1 : 0;
        EXPECT_TRUE(box.left <= drawn.left && box.left >= drawn.left - slack) << transform.eM11;
        EXPECT_TRUE(box.top <= drawn.top && box.top >= drawn.top - slack) << transform.eM11;
        EXPECT_TRUE(box.right >= drawn.right && box.right <= drawn.right + slack) << transform.eM11;
        EXPECT_TRUE(box.bottom >= drawn.bottom && box.bottom <= drawn.bottom + slack) << transform.eM11;
    }
    RECT untouched = {1, 2, 3, 4};
    EXPECT_EQ(GetClipBox(nullptr, &untouched), 0);
    EXPECT_EQ(untouched.right, 3);
    const HDC screen = GetDC(nullptr); // has no pixels
    EXPECT_EQ(GetClipBox(screen, &untouched), NULLREGION);
    EXPECT_EQ(untouched.right, 0);
    ReleaseDC(nullptr, screen);
}

} // namespace
