/// Windows in memory, the clipboard and message boxes.
#include "GdiTestTools.h"

#include <cstring>

namespace {

TEST(GdiWindows, PixelsStayWhereTheyAreWhenResized)
{
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, "any", "title", WS_POPUP, 3, 4, 40, 30, nullptr, nullptr));
    EXPECT_FALSE(window.CreateEx(0, "any", "title", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr));
    CDC* const dc = window.GetDC();
    EXPECT_EQ(dc->GetPixel(39, 29), 0u);
    EXPECT_EQ(dc->GetPixel(40, 0), CLR_INVALID);
    dc->SetPixel(10, 10, RGB(1, 2, 3));
    window.MoveWindow(0, 0, 11, 50);
    CRect client;
    window.GetClientRect(client);
    EXPECT_EQ(client, CRect(0, 0, 11, 50));
    EXPECT_EQ(dc->GetPixel(10, 10), RGB(1, 2, 3)); // the device context follows
    EXPECT_EQ(dc->GetPixel(0, 49), 0u);
    EXPECT_EQ(dc->GetPixel(11, 0), CLR_INVALID);
    EXPECT_FALSE(::MoveWindow(window, 0, 0, -1, 5, 1) || ::MoveWindow(window, 0, 0, 0x7FFFFFFF, 0x7FFFFFFF, 1));
    const CRect wide(-0x7FFFFFFF - 1, 0, 0x7FFFFFFF, 5); // its width needs 33 bits
    window.MoveWindow(wide);
    dc->FillSolidRect(5, 5, 0x7FFFFFFF, -0x7FFFFFFF - 1, RGB(9, 9, 9));
    window.GetClientRect(client);
    EXPECT_EQ(client, CRect(0, 0, 11, 50));
    EXPECT_EQ(dc->GetPixel(7, 3), RGB(9, 9, 9));
    EXPECT_EQ(dc->GetPixel(4, 3), 0u);
    BITMAP pixels;
    ASSERT_TRUE(GdiGetWindowPixels(window, &pixels));
    uint32_t value;
    std::memcpy(&value, static_cast<const char*>(pixels.bmBits) + 10 * pixels.bmWidthBytes + 10 * 4, 4);
    EXPECT_EQ(value, 0x010203u);

    EXPECT_EQ(dc->GetWindow(), &window);
    window.DestroyWindow();
    EXPECT_EQ(dc->GetPixel(10, 10), CLR_INVALID); // nothing left to look at, nothing to crash on
    EXPECT_TRUE(dc->Rectangle(0, 0, 5, 5));
}

TEST(GdiWindows, HandlesAndReleases)
{
    const DWORD before = ObjectsAlive();
    CWnd window;
    window.CreateEx(0, nullptr, nullptr, 0, 0, 0, 5, 5, nullptr, nullptr);
    const HWND handle = window;
    {
        CClientDC client(&window);
        CWindowDC whole(&window);
        client.SetPixel(1, 1, RGB(9, 9, 9));
        EXPECT_EQ(whole.GetPixel(1, 1), RGB(9, 9, 9));
        EXPECT_EQ(ObjectsAlive(), before + 2);
        EXPECT_FALSE(::DeleteDC(client)); // it is the window's
    }
    EXPECT_EQ(ObjectsAlive(), before);
    const HDC dc = ::GetDC(handle);
    EXPECT_EQ(::ReleaseDC(nullptr, dc), 0);
    EXPECT_EQ(::ReleaseDC(handle, dc), 1);
    EXPECT_EQ(::ReleaseDC(handle, dc), 0);
    EXPECT_EQ(CWnd::FromHandle(handle), &window);
    window.DestroyWindow();
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(::GetDC(handle), nullptr);
    RECT rect = {1, 2, 3, 4};
    EXPECT_FALSE(::GetClientRect(handle, &rect));
    EXPECT_EQ(rect.bottom, 4);
    EXPECT_FALSE(CWnd().CreateEx(0, nullptr, nullptr, 0, 0, 0, 5, 5, handle, nullptr)); // its parent is gone
}

TEST(GdiWindows, TheScreenReportsWhatTheHostSets)
{
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSX), 96);
    EXPECT_EQ(GetDeviceCaps(screen, BITSPIXEL), 32);
    GdiSetScreenResolution(144);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 144);
    GdiSetScreenResolution(0);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSX), 144);
    GdiSetScreenResolution(96);
    EXPECT_EQ(GetPixel(screen, 0, 0), CLR_INVALID);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
}

void Count(void* calls)
{
    ++*static_cast<int*>(calls);
}

TEST(GdiClipboard, OneHolderAtATime)
{
    CWnd first, second;
    first.CreateEx(0, nullptr, nullptr, 0, 0, 0, 1, 1, nullptr, nullptr);
    second.CreateEx(0, nullptr, nullptr, 0, 0, 0, 1, 1, nullptr, nullptr);
    const HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    int told = 0;
    GdiSetClipboardListener(Count, &told);
    EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), nullptr);
    EXPECT_FALSE(EmptyClipboard() || CloseClipboard());

    ASSERT_TRUE(OpenClipboard(first));
    EXPECT_FALSE(OpenClipboard(second) || OpenClipboard(nullptr));
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), bitmap);
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(CloseClipboard());
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);

    ASSERT_TRUE(OpenClipboard(second)); // reading is no news
    EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap);
    second.DestroyWindow(); // lets go
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_EQ(GetObjectType(bitmap), 0u); // it belonged to the clipboard
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    CloseClipboard();
    GdiSetClipboardListener(nullptr, nullptr);
}

TEST(GdiClipboard, WhatCannotBeHandedOver)
{
    Canvas canvas(2, 2);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    EXPECT_EQ(SetClipboardData(CF_BITMAP, nullptr), nullptr);
    EXPECT_EQ(SetClipboardData(CF_BITMAP, canvas.Bitmap()), nullptr); // selected
    EXPECT_EQ(SetClipboardData(CF_BITMAP, GetStockObject(BLACK_PEN)), nullptr);
    EXPECT_EQ(SetClipboardData(CF_TEXT, reinterpret_cast<HANDLE>(uintptr_t(64))), nullptr);
    const HGLOBAL text = GlobalAlloc(GMEM_MOVEABLE, 6);
    EXPECT_EQ(SetClipboardData(CF_TEXT, text), text);
    const HGLOBAL other = GlobalAlloc(GMEM_MOVEABLE, 6);
    EXPECT_EQ(SetClipboardData(CF_TEXT, other), other);
    EXPECT_EQ(GlobalSize(text), 0u); // replaced and freed
    EmptyClipboard();
    CloseClipboard();
}

class RecordingApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT type, UINT) override
    {
        m_text = text;
        m_type = type;
        return IDNO;
    }
    std::string m_text;
    UINT m_type = 0;
};

TEST(GdiApplication, MessagesGoToTheLatestApplication)
{
    EXPECT_EQ(AfxGetApp(), nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(AfxMessageBox("two\nlines"), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "two lines\n");
    auto* const first = new RecordingApp;
    {
        RecordingApp second;
        EXPECT_EQ(AfxMessageBox("hello", MB_YESNO), IDNO);
        EXPECT_EQ(second.m_text, "hello");
        EXPECT_EQ(second.m_type, MB_YESNO);
        delete first; // not the latest
        EXPECT_EQ(AfxGetApp(), &second);
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
}

} // namespace
