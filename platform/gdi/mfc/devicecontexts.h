/// Device contexts as objects.
#pragma once

#include "gdi/mfc/gdiobjects.h"
#include "gdi/mfc/geometry.h"

class CWnd;

/// Wraps a device context. The plain class owns what CreateCompatibleDC or Attach gave it and deletes it when
/// destroyed; the derived classes release what they got from a window. Results are those of the functions of the same
/// names in wingdi.h; the wrappers returned by SelectObject are those of CGdiObject::FromHandle. Temporary CDCs follow
/// the same rule.
class KOLM_API CDC : public CObject
{
public:
    CDC() = default;
    ~CDC() override;

    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    BOOL Attach(HDC dc);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* dc); ///< null: compatible with the screen
    BOOL DeleteDC();
    static CDC* FromHandle(HDC dc);
    CWnd* GetWindow() const; ///< null for memory device contexts

    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CFont* SelectObject(CFont* font);
    CBitmap* SelectObject(CBitmap* bitmap);
    HGDIOBJ SelectObject(HGDIOBJ object) { return ::SelectObject(m_hDC, object); }
    CGdiObject* SelectStockObject(int index);
    CPalette* SelectPalette(CPalette* palette, BOOL forceBackground);
    UINT RealizePalette() { return ::RealizePalette(m_hDC); }
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    UINT SetTextAlign(UINT align) { return ::SetTextAlign(m_hDC, align); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hDC); }
    int SetROP2(int mode) { return ::SetROP2(m_hDC, mode); }
    int GetROP2() const { return ::GetROP2(m_hDC); }
    int SetPolyFillMode(int mode) { return ::SetPolyFillMode(m_hDC, mode); }
    int GetPolyFillMode() const { return ::GetPolyFillMode(m_hDC); }
    int SetArcDirection(int direction) { return ::SetArcDirection(m_hDC, direction); }
    int GetArcDirection() const { return ::GetArcDirection(m_hDC); }
    int SetGraphicsMode(int mode) { return ::SetGraphicsMode(m_hDC, mode); }
    int GetGraphicsMode() const { return ::GetGraphicsMode(m_hDC); }
    BOOL SetWorldTransform(const XFORM* transform) { return ::SetWorldTransform(m_hDC, transform); }
    BOOL GetWorldTransform(XFORM& transform) const { return ::GetWorldTransform(m_hDC, &transform); }

    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y)
    {
        CPoint former;
        ::MoveToEx(m_hDC, x, y, &former);
        return former;
    }
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL ArcTo(int left, int top, int right, int bottom, int xr1, int yr1, int xr2, int yr2)
    {
        return ::ArcTo(m_hDC, left, top, right, bottom, xr1, yr1, xr2, yr2);
    }
    BOOL ArcTo(const RECT* box, POINT start, POINT end)
    {
        return ArcTo(box->left, box->top, box->right, box->bottom, start.x, start.y, end.x, end.y);
    }
    BOOL BeginPath() { return ::BeginPath(m_hDC); }
    BOOL EndPath() { return ::EndPath(m_hDC); }
    BOOL AbortPath() { return ::AbortPath(m_hDC); }
    BOOL CloseFigure() { return ::CloseFigure(m_hDC); }
    BOOL StrokePath() { return ::StrokePath(m_hDC); }
    BOOL FillPath() { return ::FillPath(m_hDC); }
    BOOL StrokeAndFillPath() { return ::StrokeAndFillPath(m_hDC); }
    int GetPath(POINT* points, BYTE* types, int count) const { return ::GetPath(m_hDC, points, types, count); }
    BOOL Rectangle(int left, int top, int right, int bottom) { return ::Rectangle(m_hDC, left, top, right, bottom); }
    BOOL Rectangle(const RECT* box) { return Rectangle(box->left, box->top, box->right, box->bottom); }
    /// Fills a box with a colour, which becomes the background colour as on the platform. Edges are held within int32;
    /// a null box fills nothing.
    void FillSolidRect(int x, int y, int width, int height, COLORREF color);
    void FillSolidRect(const RECT* box, COLORREF color);

    COLORREF SetPixel(int x, int y, COLORREF color) { return ::SetPixel(m_hDC, x, y, color); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int xSrc, int ySrc, DWORD code);
    BOOL PatBlt(int x, int y, int width, int height, DWORD code) { return ::PatBlt(m_hDC, x, y, width, height, code); }

    int DrawText(const CString& text, LPRECT rect, UINT format);
    int DrawText(LPCSTR text, int count, LPRECT rect, UINT format)
    {
        return ::DrawTextA(m_hDC, text, count, rect, format);
    }
    BOOL TextOut(int x, int y, const CString& text);
    BOOL TextOut(int x, int y, LPCSTR text, int count) { return ::TextOutA(m_hDC, x, y, text, count); }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT count, const int* advances)
    {
        return ::ExtTextOutA(m_hDC, x, y, options, rect, text, count, advances);
    }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* advances);
    CSize GetTextExtent(const CString& text) const;
    CSize GetTextExtent(LPCSTR text, int count) const;
    BOOL GetTextMetrics(TEXTMETRICA* metrics) const { return ::GetTextMetricsA(m_hDC, metrics); }

    HDC m_hDC = nullptr;
};

/// The client area of a window while the object lives. A null window means the screen.
class KOLM_API CClientDC : public CDC
{
public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

private:
    HWND m_hWnd;
};

/// The whole window while the object lives.
class KOLM_API CWindowDC : public CDC
{
public:
    explicit CWindowDC(CWnd* window);
    ~CWindowDC() override;

private:
    HWND m_hWnd;
};
