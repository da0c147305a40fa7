/// Windows without a screen, and the application object.
#pragma once

#include "gdi/mfc/devicecontexts.h"

/// Wraps a window whose pixels live in memory, and destroys it when destroyed.
class KOLM_API CWnd : public CObject
{
public:
    CWnd() = default;
    ~CWnd() override;

    /// Makes the window; its pixels start black. Class, title and menu are not looked at; the client area is the whole
    /// window. FALSE when it has a window already, for a parent that is refused, a negative or absurd size, or when
    /// memory does not suffice.
    virtual BOOL CreateEx(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style, int x, int y, int width,
                          int height, HWND parent, HMENU menu, LPVOID param = nullptr);
    virtual BOOL DestroyWindow();

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL Attach(HWND window);
    HWND Detach();
    /// The object that owns the window, or a temporary one under the rule of CGdiObject.
    static CWnd* FromHandle(HWND window);

    void GetClientRect(LPRECT rect) const;
    void GetWindowRect(LPRECT rect) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = 1);
    void MoveWindow(const RECT* rect, BOOL repaint = 1);
    /// A temporary device context for the client area; end it with ReleaseDC. Null without a window.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* dc);

    HWND m_hWnd = nullptr;
};

/// A window that shows a document.
class KOLM_API CView : public CWnd
{};

/// The application. The one constructed last is the one AfxGetApp gives, until it is destroyed.
class KOLM_API CWinApp : public CObject
{
public:
    CWinApp();
    ~CWinApp() override;

    /// Shows a message and returns the button pressed. This one writes the text as one line to standard error and
    /// answers IDOK.
    virtual int DoMessageBox(LPCSTR text, UINT type, UINT helpContext);

private:
    CWinApp* m_former; ///< the application before this one
};

KOLM_API CWinApp* AfxGetApp();
/// Goes to the application's DoMessageBox; without one the text becomes a line on standard error and the answer is
/// IDOK.
KOLM_API int AfxMessageBox(LPCSTR text, UINT type = MB_OK, UINT helpContext = 0);
