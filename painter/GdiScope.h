#pragma once

// For the painter's own sources: what is changed in a device context or taken from the system for a while and has to be
// given back on every way out, a host hook's exception included.

#include <afxwin.h>

/// A pen, brush, font or bitmap object selected into a device context. Declare it after the object, so that the
/// previous one is back before the object is deleted. The previous one is kept by its handle: a wrapper for it would
/// have to be made, and without memory for that the selection could not be undone.
template <typename Object>
class SelectedObject
{
public:
    SelectedObject(CDC* dc, Object* object) : m_dc(dc->m_hDC), m_previous(::SelectObject(m_dc, object->GetSafeHandle()))
    {}
    ~SelectedObject() { Restore(); }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

    /// Selects the previous object again, for callers with more than one selection whose order counts.
    void Restore()
    {
        if (m_previous)
            ::SelectObject(m_dc, m_previous);
        m_previous = nullptr;
    }

private:
    HDC m_dc;
    HGDIOBJ m_previous; // null when nothing was selected, or when it is back already
};

/// The device context of a window; that of the screen for null and for a window object that has no window. Without a
/// handle when the window is gone, which every call refuses.
class WindowDC
{
public:
    explicit WindowDC(CWnd* wnd) : m_window(wnd ? wnd->GetSafeHwnd() : nullptr) { m_dc.Attach(::GetDC(m_window)); }
    ~WindowDC() { ::ReleaseDC(m_window, m_dc.Detach()); }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;

    HDC Handle() const { return m_dc.m_hDC; }
    CDC* Get() { return &m_dc; }

private:
    HWND m_window;
    CDC m_dc;
};

/// One capability of the screen, such as LOGPIXELSX.
inline int GetScreenCaps(int index)
{
    const WindowDC screen(nullptr);
    return ::GetDeviceCaps(screen.Handle(), index);
}

/// A world transform in advanced graphics mode. Ends with the identity and the mode found.
class WorldTransformScope
{
public:
    WorldTransformScope(HDC dc, const XFORM& transform) : m_dc(dc), m_previousMode(::SetGraphicsMode(dc, GM_ADVANCED))
    {
        ::SetWorldTransform(dc, &transform);
    }
    ~WorldTransformScope()
    {
        // The mode can only leave GM_ADVANCED once the transform is the identity.
        const XFORM identity = {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f};
        ::SetWorldTransform(m_dc, &identity);
        ::SetGraphicsMode(m_dc, m_previousMode);
    }
    WorldTransformScope(const WorldTransformScope&) = delete;
    WorldTransformScope& operator=(const WorldTransformScope&) = delete;

private:
    HDC m_dc;
    int m_previousMode;
};
