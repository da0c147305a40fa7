/// Device contexts as objects.
#include "gdi/mfc/devicecontexts.h"

#include "gdi/DeviceContext.h"
#include "gdi/mfc/TemporaryWrappers.h"
#include "gdi/mfc/windowclasses.h"

#include <algorithm>

using namespace gdi;

namespace {

TemporaryWrappers<CDC> g_contexts;

/// Selects and gives the wrapper of the former object; null when refused. The wrapper is taken first: a former object
/// that waits to be deleted is gone after the selection.
template <class Wrapper, class Object>
__attribute__((noinline)) Wrapper* SelectWrapped(HDC dc, Object* DeviceContext::*selected, const CGdiObject* next)
{
    const DeviceContext* const context = FindDc(dc);
    if (context == nullptr || next == nullptr) {
        return nullptr;
    }
    CGdiObject* const former = WrapperOf(*(context->*selected));
    return ::SelectObject(dc, next->m_hObject) != nullptr ? static_cast<Wrapper*>(former) : nullptr;
}

/// The same for pens and brushes, which strokes and fills select one each. The usual case has nothing to search for.
template <class Wrapper, class Object, Kind kind>
Wrapper* SelectTool(HDC dc, Object* DeviceContext::*selected, const HandlePool<Object, kind>& pool,
                    const CGdiObject* next)
{
    DeviceContext* const context = tables.dcs.Recent(HandleBits(dc));
    Object* const object = next != nullptr ? pool.Recent(HandleBits(next->m_hObject)) : nullptr;
    if (context != nullptr && object != nullptr && context->trace == nullptr) {
        Object* const former = context->*selected;
        if (!former->condemned && (former->owner != nullptr || former->temporary != nullptr)) {
            ++object->references;
            --former->references;
            context->*selected = object;
            return static_cast<Wrapper*>(WrapperOf(*former));
        }
    }
    return SelectWrapped<Wrapper>(dc, selected, next);
}

template <class Wrapper>
Wrapper* CurrentWrapped(HDC dc, UINT kind)
{
    return static_cast<Wrapper*>(CGdiObject::FromHandle(::GetCurrentObject(dc, kind)));
}

/// The end of an edge, held within int32.
LONG FarEdge(int start, int extent)
{
    const int64_t end = int64_t(start) + extent;
    return LONG(std::max<int64_t>(std::min<int64_t>(end, 0x7FFFFFFF), -0x7FFFFFFF - 1));
}

} // namespace

CDC::~CDC()
{
    if (m_hDC != nullptr) {
        ::DeleteDC(Detach());
    }
}

BOOL CDC::Attach(HDC dc)
{
    if (m_hDC != nullptr || dc == nullptr) {
        return FALSE;
    }
    m_hDC = dc;
    if (DeviceContext* const context = FindDc(dc)) {
        context->owner = this;
    }
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC dc = m_hDC;
    m_hDC = nullptr;
    DeviceContext* const context = FindDc(dc);
    if (context != nullptr && context->owner == this) {
        context->owner = nullptr;
    }
    return dc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc)
{
    return m_hDC == nullptr && Attach(::CreateCompatibleDC(dc != nullptr ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC()
{
    return m_hDC != nullptr && ::DeleteDC(Detach());
}

CDC* CDC::FromHandle(HDC dc)
{
    const DeviceContext* const context = FindDc(dc);
    if (context != nullptr && context->owner != nullptr) {
        return static_cast<CDC*>(context->owner);
    }
    CDC* const wrapper = tables.dcs.Covers(dc) ? g_contexts.At(HandleBits(dc)) : nullptr;
    if (wrapper != nullptr) {
        wrapper->m_hDC = dc;
    }
    return wrapper;
}

CWnd* CDC::GetWindow() const
{
    const DeviceContext* const context = FindDc(m_hDC);
    return context != nullptr ? CWnd::FromHandle(context->window) : nullptr;
}

CPen* CDC::SelectObject(CPen* pen)
{
    return SelectTool<CPen>(m_hDC, &DeviceContext::pen, tables.pens, pen);
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    return SelectTool<CBrush>(m_hDC, &DeviceContext::brush, tables.brushes, brush);
}

CFont* CDC::SelectObject(CFont* font)
{
    return SelectWrapped<CFont>(m_hDC, &DeviceContext::font, font);
}

CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    return SelectWrapped<CBitmap>(m_hDC, &DeviceContext::bitmap, bitmap);
}

CGdiObject* CDC::SelectStockObject(int index)
{
    const HGDIOBJ object = ::GetStockObject(index);
    const DWORD type = ::GetObjectType(object);
    CGdiObject* const former = CGdiObject::FromHandle(::GetCurrentObject(m_hDC, type));
    return ::SelectObject(m_hDC, object) != nullptr ? former : nullptr;
}

CPalette* CDC::SelectPalette(CPalette* palette, BOOL forceBackground)
{
    CPalette* const former = CurrentWrapped<CPalette>(m_hDC, OBJ_PAL);
    const HPALETTE next = palette != nullptr ? static_cast<HPALETTE>(palette->m_hObject) : nullptr;
    return ::SelectPalette(m_hDC, next, forceBackground) != nullptr ? former : nullptr;
}

CPen* CDC::GetCurrentPen() const
{
    return CurrentWrapped<CPen>(m_hDC, OBJ_PEN);
}

CBrush* CDC::GetCurrentBrush() const
{
    return CurrentWrapped<CBrush>(m_hDC, OBJ_BRUSH);
}

CFont* CDC::GetCurrentFont() const
{
    return CurrentWrapped<CFont>(m_hDC, OBJ_FONT);
}

CBitmap* CDC::GetCurrentBitmap() const
{
    return CurrentWrapped<CBitmap>(m_hDC, OBJ_BITMAP);
}

CPoint CDC::GetCurrentPosition() const
{
    CPoint position;
    ::GetCurrentPositionEx(m_hDC, &position);
    return position;
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF color)
{
    const RECT box = {x, y, FarEdge(x, width), FarEdge(y, height)};
    FillSolidRect(&box, color);
}

void CDC::FillSolidRect(const RECT* box, COLORREF color)
{
    ::SetBkColor(m_hDC, color);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, box, "", 0, nullptr);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int xSrc, int ySrc, DWORD code)
{
    return ::BitBlt(m_hDC, x, y, width, height, source != nullptr ? source->m_hDC : nullptr, xSrc, ySrc, code);
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format)
{
    return ::DrawTextA(m_hDC, text, text.GetLength(), rect, format);
}

BOOL CDC::TextOut(int x, int y, const CString& text)
{
    return ::TextOutA(m_hDC, x, y, text, text.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* advances)
{
    return ::ExtTextOutA(m_hDC, x, y, options, rect, text, UINT(text.GetLength()), advances);
}

CSize CDC::GetTextExtent(const CString& text) const
{
    return GetTextExtent(text, text.GetLength());
}

CSize CDC::GetTextExtent(LPCSTR text, int count) const
{
    CSize size;
    ::GetTextExtentPointA(m_hDC, text, count, &size);
    return size;
}

CClientDC::CClientDC(CWnd* window) : m_hWnd(window != nullptr ? window->m_hWnd : nullptr)
{
    // A window object without a window gives nothing, not the screen.
    if (window == nullptr || m_hWnd != nullptr) {
        Attach(::GetDC(m_hWnd));
    }
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* window) : m_hWnd(window != nullptr ? window->m_hWnd : nullptr)
{
    if (window == nullptr || m_hWnd != nullptr) {
        Attach(::GetWindowDC(m_hWnd));
    }
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}
