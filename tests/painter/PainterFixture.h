#pragma once

#include "painter/CKPainter.h"
#include "support/Coordinates.h"

#include <afxcoll.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A memory device context with a black 32-bit bitmap. Pen, brush and font are selected that no painter makes, so that
/// "the previous one is selected again" can be told from anything else.
class Canvas
{
public:
    static constexpr const char* kOwnPen = "SelectPen 0 7 0x123456";
    static constexpr const char* kOwnBrush = "SelectBrush solid 0x654321";

    explicit Canvas(int width = 64, int height = 64)
        : m_pen(PS_SOLID, 7, 0x123456), m_brush(COLORREF(0x654321)), m_width(width), m_height(height)
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_bitmap.Attach(::CreateBitmap(width, height, 1, 32, nullptr));
        m_previousBitmap = m_dc.SelectObject(&m_bitmap);
        m_previousPen = m_dc.SelectObject(&m_pen);
        m_previousBrush = m_dc.SelectObject(&m_brush);
        GdiSetTrace(m_dc, &m_calls);
    }
    ~Canvas()
    {
        GdiSetTrace(m_dc, nullptr);
        m_dc.SelectObject(m_previousBitmap);
        m_dc.SelectObject(m_previousPen);
        m_dc.SelectObject(m_previousBrush);
    }

    CDC* Get() { return &m_dc; }
    HBITMAP Bitmap() { return m_bitmap; }

    /// The calls since the last question, one a line.
    std::string TakeTrace()
    {
        std::string trace;
        for (INT_PTR i = 0; i < m_calls.GetSize(); ++i)
            trace += std::string(m_calls[i]) + "\n";
        m_calls.RemoveAll();
        return trace;
    }

    /// Pixels that are not black.
    int CountLit()
    {
        int lit = 0;
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x)
                lit += m_dc.GetPixel(x, y) != 0;
        }
        return lit;
    }

private:
    CDC m_dc;
    CBitmap m_bitmap;
    CPen m_pen;
    CBrush m_brush;
    CBitmap* m_previousBitmap;
    CPen* m_previousPen;
    CBrush* m_previousBrush;
    CStringArray m_calls;
    int m_width;
    int m_height;
};

/// What one stroke looks like around the calls of its figure.
inline std::string Stroked(const std::string& figure, int penWidth, const std::string& color)
{
    return "BeginPath\n" + figure + "EndPath\nSelectPen 0 " + std::to_string(penWidth) + " " + color +
           "\nStrokePath\n" + Canvas::kOwnPen + "\n";
}

inline std::string Filled(const std::string& figure, const std::string& color)
{
    return "BeginPath\n" + figure + "EndPath\nSelectBrush solid " + color + "\nFillPath\n" + Canvas::kOwnBrush + "\n";
}

/// A window without a desktop.
class TestWindow : public CWnd
{
public:
    TestWindow(int width, int height) { CreateEx(0, "", "", WS_POPUP, 0, 0, width, height, nullptr, nullptr); }
};

/// Keeps the messages that would be shown.
class RecordingApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT type, UINT helpContext) override
    {
        EXPECT_EQ(type, UINT(MB_OK));
        EXPECT_EQ(helpContext, 0u);
        messages.push_back(text);
        return IDOK;
    }

    std::vector<std::string> messages;
};

/// A painter at a round scale: `k` pixels to the millimetre, the board's origin at pixel (x, y).
inline void PlaceView(CKPainter& painter, double k, int x = 0, int y = 0)
{
    painter.SetPixcelPerMM(k);
    painter.SetScale(1.0);
    painter.SetLogicalCenter(0.0, 0.0);
    painter.SetPhysicalCenter(x, y);
}

inline XY LogicalCenter(CKPainter& painter)
{
    return {painter.GetLogicalCenterX(), painter.GetLogicalCenterY()};
}

inline XY PhysicalCenter(CKPainter& painter)
{
    return {painter.GetPhysicalCenterX(), painter.GetPhysicalCenterY()};
}

/// The lower left and the upper right corner of what the view shows, in millimetres.
inline std::pair<XY, XY> LogicalScreen(CKPainter& painter)
{
    return {{painter.GetLogicalScreenLeft(), painter.GetLogicalScreenBottom()},
            {painter.GetLogicalScreenRight(), painter.GetLogicalScreenTop()}};
}

/// The pixels of a 32-bit bitmap.
inline std::vector<uint32_t> ReadPixels(HBITMAP bitmap)
{
    BITMAP record = {};
    GetObjectA(bitmap, sizeof record, &record);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = record.bmWidth;
    info.bmiHeader.biHeight = record.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<uint32_t> pixels(size_t(record.bmWidth) * size_t(record.bmHeight));
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetDIBits(screen, bitmap, 0, UINT(record.bmHeight), pixels.data(), &info, DIB_RGB_COLORS),
              record.bmHeight);
    ReleaseDC(nullptr, screen);
    return pixels;
}

inline DWORD CountGdiObjects()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

/// Extent of text in the font that pixel-copied text of this height uses.
inline SIZE MeasurePixelText(int pixels, const char* text)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontA(-pixels, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "Tahoma");
    const HGDIOBJ previous = SelectObject(dc, font);
    SIZE extent = {};
    GetTextExtentPointA(dc, text, int(std::string(text).size()), &extent);
    SelectObject(dc, previous);
    DeleteObject(font);
    DeleteDC(dc);
    return extent;
}
