/// The lines of a traced device context.
#include "GdiTestTools.h"

#include <afxcoll.h>

namespace {

std::vector<std::string> Lines(const CStringArray& calls)
{
    std::vector<std::string> lines;
    for (INT_PTR i = 0; i < calls.GetSize(); ++i) {
        lines.emplace_back(static_cast<const char*>(calls.GetAt(i)));
    }
    return lines;
}

TEST(GdiTrace, OneLineForEachCallAsItWasPassed)
{
    Canvas canvas(8, 8);
    CStringArray calls;
    LOGBRUSH record = {BS_SOLID, RGB(1, 2, 255), 0};
    const HPEN pen = CreatePen(PS_DASH, -3, RGB(0x11, 0x22, 0x33));
    const HPEN wide = ExtCreatePen(PS_GEOMETRIC, 7, &record, 0, nullptr);
    const HBRUSH hatch = CreateHatchBrush(HS_DIAGCROSS, RGB(255, 0, 0));
    const HFONT font = CreateFontA(-12, 5, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "Some Face");
    const XFORM matrix = {1, 0, 0, -1, 0.1f, 1234567.75f};
    RECT rect = {-1, 2, 3, 4};
    GdiSetTrace(canvas, &calls);

    SetGraphicsMode(canvas, GM_ADVANCED);
    SetWorldTransform(canvas, &matrix);
    BeginPath(canvas);
    MoveToEx(canvas, 1, -2, nullptr);
    LineTo(canvas, 2147483647, 4);
    SetArcDirection(canvas, AD_CLOCKWISE);
    ArcTo(canvas, 1, 2, 3, 4, 5, 6, 7, 8);
    CloseFigure(canvas);
    EndPath(canvas);
    const HGDIOBJ formerPen = SelectObject(canvas, pen);
    StrokePath(canvas);
    SelectObject(canvas, wide);
    SelectObject(canvas, hatch);
    SelectObject(canvas, GetStockObject(NULL_BRUSH));
    SelectObject(canvas, GetStockObject(LTGRAY_BRUSH));
    SelectObject(canvas, font);
    SetBkMode(canvas, TRANSPARENT);
    SetROP2(canvas, R2_XORPEN);
    SetTextAlign(canvas, TA_BOTTOM | TA_CENTER);
    SetPolyFillMode(canvas, WINDING);
    SetBkColor(canvas, RGB(1, 0, 0));
    SetTextColor(canvas, RGB(0, 0, 0xAB));
    Rectangle(canvas, 4, 3, 2, 1);
    BitBlt(canvas, 1, 2, 3, 4, canvas, 5, 6, SRCCOPY);
    DrawTextA(canvas, "a \"b\"", -1, &rect, DT_SINGLELINE | DT_NOCLIP);
    ExtTextOutA(canvas, 9, 8, 0, nullptr, "hello", 4, nullptr);
    SetPixel(canvas, 100, 200, RGB(3, 2, 1));
    EXPECT_FALSE(StrokePath(canvas)); // out of turn, but it was asked for
    GdiSetTrace(canvas, nullptr);
    BeginPath(canvas);

    const std::vector<std::string> expected = {"SetGraphicsMode 2",
                                               "SetWorldTransform 1 0 0 -1 0.100000001 1234567.75",
                                               "BeginPath",
                                               "MoveTo 1 -2",
                                               "LineTo 2147483647 4",
                                               "SetArcDirection 2",
                                               "ArcTo 1 2 3 4 5 6 7 8",
                                               "CloseFigure",
                                               "EndPath",
                                               "SelectPen 1 -3 0x332211",
                                               "StrokePath",
                                               "SelectPen 65536 7 0xFF0201",
                                               "SelectBrush hatch 5 0x0000FF",
                                               "SelectBrush null",
                                               "SelectBrush solid 0xC0C0C0",
                                               "SelectFont -12 5 \"Some Face\"",
                                               "SetBkMode 1",
                                               "SetROP2 7",
                                               "SetTextAlign 14",
                                               "SetPolyFillMode 2",
                                               "SetBkColor 0x000001",
                                               "SetTextColor 0xAB0000",
                                               "Rectangle 4 3 2 1",
                                               "BitBlt 1 2 3 4 5 6 0x00CC0020",
                                               "DrawText \"a \"b\"\" -1 2 3 4 288",
                                               "ExtTextOut 9 8 0 \"hell\"",
                                               "SetPixel 100 200 0x010203",
                                               "StrokePath"};
    EXPECT_EQ(Lines(calls), expected);
    SelectObject(canvas, formerPen);
    SelectObject(canvas, GetStockObject(SYSTEM_FONT));
    for (HGDIOBJ object : {HGDIOBJ(pen), HGDIOBJ(wide), HGDIOBJ(hatch), HGDIOBJ(font)}) {
        DeleteObject(object);
    }
}

TEST(GdiTrace, SelectedBitmapsAndCallsThatTakeEffect)
{
    CStringArray calls;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(6, 5, 1, 32, nullptr);
    GdiSetTrace(dc, &calls);
    SelectObject(dc, bitmap);
    SetPixel(dc, 2, 2, RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(dc, 2, 2), RGB(255, 0, 0));
    EXPECT_EQ(Lines(calls), (std::vector<std::string>{"SelectBitmap 6 5 32", "SetPixel 2 2 0x0000FF"}));
    DeleteDC(dc);
    DeleteObject(bitmap);
}

} // namespace
