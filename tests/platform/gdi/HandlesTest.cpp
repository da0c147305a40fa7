/// Life of objects: who is counted, who is refused, and what a selection keeps alive.
#include "GdiTestTools.h"

namespace {

TEST(GdiHandles, EveryKindCountsUntilItIsDeleted)
{
    LOGPALETTE palette = {0x300, 1, {{0, 0, 0, 0}}};
    LOGBRUSH record = {BS_SOLID, 0, 0};
    const struct
    {
        const char* kind;
        HGDIOBJ object;
        DWORD type;
    } cases[] = {
        {"device context", CreateCompatibleDC(nullptr), OBJ_MEMDC},
        {"pen", CreatePen(PS_SOLID, 1, 0), OBJ_PEN},
        {"extended pen", ExtCreatePen(PS_GEOMETRIC, 4, &record, 0, nullptr), OBJ_EXTPEN},
        {"brush", CreateSolidBrush(0), OBJ_BRUSH},
        {"hatch", CreateHatchBrush(HS_CROSS, 0), OBJ_BRUSH},
        {"font", CreateFontA(-10, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "Any"), OBJ_FONT},
        {"bitmap", CreateBitmap(3, 3, 1, 32, nullptr), OBJ_BITMAP},
        {"palette", CreatePalette(&palette), OBJ_PAL},
    };
    for (const auto& c : cases) {
        const DWORD before = ObjectsAlive();
        EXPECT_EQ(GetObjectType(c.object), c.type) << c.kind;
        EXPECT_TRUE(DeleteObject(c.object)) << c.kind;
        EXPECT_EQ(ObjectsAlive(), before - 1) << c.kind;
        EXPECT_FALSE(DeleteObject(c.object)) << c.kind << ", twice";
        EXPECT_EQ(GetObjectType(c.object), 0u) << c.kind;
        EXPECT_EQ(GetObjectA(c.object, 0, nullptr), 0) << c.kind;
    }
}

TEST(GdiHandles, StockObjectsStayAndDoNotCount)
{
    const DWORD before = ObjectsAlive();
    for (int index : {WHITE_BRUSH, NULL_BRUSH, BLACK_PEN, NULL_PEN, SYSTEM_FONT, DEFAULT_PALETTE}) {
        const HGDIOBJ object = GetStockObject(index);
        EXPECT_TRUE(DeleteObject(object)) << index;
        EXPECT_NE(GetObjectType(object), 0u) << index;
        EXPECT_EQ(GetStockObject(index), object) << index;
    }
    EXPECT_EQ(ObjectsAlive(), before);
    EXPECT_EQ(GetStockObject(9), nullptr);
    EXPECT_EQ(GetStockObject(-1), nullptr);
}

TEST(GdiHandles, RefusedEverywhere)
{
    const HDC gone = CreateCompatibleDC(nullptr);
    DeleteDC(gone);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    const HDC bad[] = {nullptr,
                       gone,
                       reinterpret_cast<HDC>(pen),
                       reinterpret_cast<HDC>(uintptr_t(1)),
                       reinterpret_cast<HDC>(~uintptr_t(0)),
                       reinterpret_cast<HDC>(uintptr_t(1) << 56 | 0xFFFFFF)};
    for (HDC dc : bad) {
        SIZE size;
        RECT rect = {};
        BITMAPINFO info = {};
        XFORM matrix = {1, 0, 0, 1, 0, 0};
        EXPECT_EQ(SelectObject(dc, pen), nullptr);
        EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), nullptr);
        EXPECT_FALSE(DeleteDC(dc));
        EXPECT_EQ(ReleaseDC(nullptr, dc), 0);
        EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
        EXPECT_EQ(SetPixel(dc, 0, 0, 0), CLR_INVALID);
        EXPECT_EQ(SetTextColor(dc, 0), CLR_INVALID);
        EXPECT_EQ(SetROP2(dc, R2_NOT), 0);
        EXPECT_FALSE(SetWorldTransform(dc, &matrix));
        EXPECT_FALSE(BeginPath(dc) || EndPath(dc) || StrokePath(dc) || LineTo(dc, 1, 1) || MoveToEx(dc, 1, 1, nullptr));
        EXPECT_FALSE(ArcTo(dc, 0, 0, 9, 9, 0, 4, 9, 4) || Rectangle(dc, 0, 0, 9, 9));
        EXPECT_EQ(GetPath(dc, nullptr, nullptr, 0), -1);
        EXPECT_EQ(DrawTextA(dc, "x", 1, &rect, 0), 0);
        EXPECT_FALSE(GetTextExtentPointA(dc, "x", 1, &size));
        EXPECT_EQ(GetDIBits(dc, nullptr, 0, 1, nullptr, &info, DIB_RGB_COLORS), 0);
        EXPECT_EQ(CreateCompatibleBitmap(dc, 4, 4), nullptr);
        GdiSetTrace(dc, nullptr);
    }
    EXPECT_FALSE(BitBlt(CreateCompatibleDC(nullptr), 0, 0, 1, 1, gone, 0, 0, SRCCOPY));
    EXPECT_TRUE(DeleteObject(pen));
}

TEST(GdiHandles, SelectionKeepsDeletedObjectsAlive)
{
    const DWORD before = ObjectsAlive();
    const HDC first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(nullptr);
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    SelectObject(first, pen);
    SelectObject(second, pen);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_EQ(ObjectsAlive(), before + 3);
    SelectObject(first, GetStockObject(BLACK_PEN));
    EXPECT_EQ(ObjectsAlive(), before + 3);
    LOGPEN record = {};
    EXPECT_EQ(GetObjectA(GetCurrentObject(second, OBJ_PEN), sizeof record, &record), int(sizeof record));
    EXPECT_EQ(record.lopnColor, RGB(1, 2, 3));
    DeleteDC(second);
    EXPECT_EQ(GetObjectType(pen), 0u);
    DeleteDC(first);
    EXPECT_EQ(ObjectsAlive(), before);
}

// The slot of a deleted object serves the next one of its kind, and what was looked up last is remembered.
TEST(GdiHandles, ReusedSlotsAnswerToTheNewHandleOnly)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HGDIOBJ initial[] = {dc.GetCurrentPen()->m_hObject, dc.GetCurrentBrush()->m_hObject};
    for (const bool brush : {false, true}) {
        const auto make = [brush]() -> HGDIOBJ {
            return brush ? HGDIOBJ(CreateSolidBrush(1)) : HGDIOBJ(CreatePen(PS_SOLID, 1, 1));
        };
        const HGDIOBJ old = make();
        EXPECT_EQ(SelectObject(dc, old), initial[brush]);
        EXPECT_EQ(SelectObject(dc, initial[brush]), old);
        EXPECT_TRUE(DeleteObject(old));
        const HGDIOBJ next = make();
        ASSERT_EQ(uintptr_t(old) & 0xFFFFFF, uintptr_t(next) & 0xFFFFFF) << "not the same slot";
        for (const HGDIOBJ gone : {old, reinterpret_cast<HGDIOBJ>(~uintptr_t(0))}) {
            CPen pen;
            CBrush wrapper;
            pen.m_hObject = wrapper.m_hObject = gone;
            EXPECT_EQ(SelectObject(dc, gone), nullptr);
            EXPECT_EQ(dc.SelectObject(&pen), nullptr);
            EXPECT_EQ(dc.SelectObject(&wrapper), nullptr);
            EXPECT_FALSE(DeleteObject(gone));
        }
        EXPECT_EQ(SelectObject(dc, next), initial[brush]);
        EXPECT_EQ(SelectObject(dc, initial[brush]), next);
        EXPECT_TRUE(DeleteObject(next));
    }
    CPen held(PS_SOLID, 1, RGB(1, 2, 3));
    const DWORD before = ObjectsAlive();
    EXPECT_FALSE(held.CreatePen(PS_SOLID, 2, RGB(1, 2, 3))); // holds one already
    EXPECT_EQ(ObjectsAlive(), before);
}

TEST(GdiHandles, BitmapsHaveOneHolder)
{
    const HDC first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(4, 4, 1, 32, nullptr);
    const HGDIOBJ initial = SelectObject(first, bitmap);
    ASSERT_NE(initial, nullptr);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_EQ(SelectObject(first, initial), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), initial); // all begin with the same one
    DeleteDC(second);
    EXPECT_TRUE(DeleteObject(bitmap));
    DeleteDC(first);
}

TEST(GdiHandles, AFrameThatLeavesItsPenSelectedLeaksNothing)
{
    CWnd window;
    window.CreateEx(0, nullptr, nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr);
    CClientDC dc(&window);
    DWORD after[2] = {};
    for (int round = 0; round < 100; ++round) {
        CPen pen(PS_SOLID, 0, RGB(9, 9, 9));
        CBrush brush(RGB(8, 8, 8));
        EXPECT_NE(dc.SelectObject(&pen), nullptr);
        EXPECT_NE(dc.SelectObject(&brush), nullptr);
        after[round > 0] = ObjectsAlive();
    }
    EXPECT_EQ(after[0], after[1]); // the former pen and brush go when the next ones are selected
}

TEST(GdiHandles, WrappersOfHandlesThatAreGoneStayRefused)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HPEN raw = CreatePen(PS_SOLID, 3, 0);
    CPen* const temporary = CPen::FromHandle(raw);
    ASSERT_NE(temporary, nullptr);
    DeleteObject(raw);
    EXPECT_EQ(dc.SelectObject(temporary), nullptr);
    EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CPen::FromHandle(reinterpret_cast<HPEN>(uintptr_t(2) << 56 | 0xFFFFF0)), nullptr);

    CPen owner(PS_SOLID, 1, RGB(0, 0, 0));
    EXPECT_EQ(CPen::FromHandle(owner), &owner);
    EXPECT_EQ(CDC::FromHandle(dc), &dc);
}

TEST(GdiHandles, AbsurdSizesAreRefused)
{
    const HDC screen = GetDC(nullptr);
    const int big = 0x7FFFFFFF;
    const struct
    {
        int width, height;
        UINT bits;
    } refused[] = {{-1, 5, 32}, {5, -1, 1},          {big, big, 32}, {big, 2, 32},
                   {big, 1, 1}, {200000, 200000, 1}, {4, 4, 8},      {4, 4, 33}};
    for (const auto& c : refused) {
        EXPECT_EQ(CreateBitmap(c.width, c.height, 1, c.bits, nullptr), nullptr) << c.width << " x " << c.height;
    }
    EXPECT_EQ(CreateCompatibleBitmap(screen, big, big), nullptr);
    const HBITMAP single = CreateCompatibleBitmap(screen, 0, 10);
    BITMAP record = {};
    GetObjectA(single, sizeof record, &record);
    EXPECT_EQ(record.bmWidth * record.bmHeight * record.bmBitsPixel, 1);
    DeleteObject(single);
    ReleaseDC(nullptr, screen);
}

} // namespace
