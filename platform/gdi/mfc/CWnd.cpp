/// Windows as objects.
#include "gdi/DeviceContext.h"
#include "gdi/MemoryWindows.h"
#include "gdi/mfc/TemporaryWrappers.h"
#include "gdi/mfc/windowclasses.h"

using namespace gdi;

namespace {

TemporaryWrappers<CWnd> g_windows;

} // namespace

CWnd::~CWnd()
{
    // Not the virtual one: a derived class is gone already.
    CWnd::DestroyWindow();
}

BOOL CWnd::CreateEx(DWORD, LPCSTR, LPCSTR, DWORD, int x, int y, int width, int height, HWND parent, HMENU, LPVOID)
{
    if (m_hWnd != nullptr || (parent != nullptr && !IsWindow(parent))) {
        return FALSE;
    }
    return Attach(CreateMemoryWindow(x, y, width, height));
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd != nullptr && ::DestroyWindow(Detach());
}

BOOL CWnd::Attach(HWND window)
{
    if (m_hWnd != nullptr || window == nullptr) {
        return FALSE;
    }
    m_hWnd = window;
    if (Window* const found = tables.windows.Find(window)) {
        found->owner = this;
    }
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND window = m_hWnd;
    m_hWnd = nullptr;
    Window* const found = tables.windows.Find(window);
    if (found != nullptr && found->owner == this) {
        found->owner = nullptr;
    }
    return window;
}

CWnd* CWnd::FromHandle(HWND window)
{
    const Window* const found = tables.windows.Find(window);
    if (found != nullptr && found->owner != nullptr) {
        return static_cast<CWnd*>(found->owner);
    }
    CWnd* const wrapper = tables.windows.Covers(window) ? g_windows.At(HandleBits(window)) : nullptr;
    if (wrapper != nullptr) {
        wrapper->m_hWnd = window;
    }
    return wrapper;
}

void CWnd::GetClientRect(LPRECT rect) const
{
    ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(LPRECT rect) const
{
    ::GetWindowRect(m_hWnd, rect);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT* rect, BOOL repaint)
{
    // Differences of edges may need 33 bits; sizes that large are refused, as negative ones are.
    const int64_t width = int64_t(rect->right) - rect->left, height = int64_t(rect->bottom) - rect->top;
    const auto held = [](int64_t size) { return size == int32_t(size) ? int32_t(size) : -1; };
    MoveWindow(rect->left, rect->top, held(width), held(height), repaint);
}

CDC* CWnd::GetDC()
{
    return m_hWnd != nullptr ? CDC::FromHandle(::GetDC(m_hWnd)) : nullptr;
}

CDC* CWnd::GetWindowDC()
{
    return m_hWnd != nullptr ? CDC::FromHandle(::GetWindowDC(m_hWnd)) : nullptr;
}

int CWnd::ReleaseDC(CDC* dc)
{
    return dc != nullptr ? ::ReleaseDC(m_hWnd, dc->m_hDC) : 0;
}
