/// Windows whose pixels live in memory, the clipboard, and formatted text.
#pragma once

#include "base/wintypes.h"
#include "gdi/gdirecords.h"
#include "KolmApi.h"

// ---- Windows ----

KOLM_API BOOL IsWindow(HWND window);
/// The client area from (0, 0). FALSE and an untouched record for a refused handle.
KOLM_API BOOL GetClientRect(HWND window, LPRECT rect);
KOLM_API BOOL GetWindowRect(HWND window, LPRECT rect); ///< in screen coordinates
/// Moves and resizes; pixels that stay inside are kept, new ones are black. FALSE for a refused handle, negative or
/// absurd sizes and when memory does not suffice; the window then stays as it was.
KOLM_API BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
KOLM_API BOOL DestroyWindow(HWND window);

/// A device context on the client area, or on the screen for a null handle (the screen has no pixels: drawing goes
/// nowhere, GetPixel gives CLR_INVALID). Null for a refused handle. ReleaseDC frees it. It follows a window that is
/// resized; when the window is destroyed it has no pixels any more.
KOLM_API HDC GetDC(HWND window);
KOLM_API HDC GetWindowDC(HWND window); ///< the same here: the client area is the whole window
/// 1 when the device context came from GetDC of the same window and is now freed, else 0.
KOLM_API int ReleaseDC(HWND window, HDC dc);

/// Objects alive that the process made: device contexts, pens, brushes, fonts, bitmaps, palettes. 0 for other
/// questions.
KOLM_API DWORD GetGuiResources(HANDLE process, DWORD flags);
constexpr DWORD GR_GDIOBJECTS = 0, GR_USEROBJECTS = 1;

// clang-format off
constexpr DWORD WS_OVERLAPPED = 0, WS_POPUP = 0x80000000, WS_CHILD = 0x40000000, WS_VISIBLE = 0x10000000;
// clang-format on

// ---- Mouse messages ----

/// Buttons and keys held, as the flags of a message tell them, and one notch of the wheel.
constexpr UINT MK_LBUTTON = 0x0001, MK_RBUTTON = 0x0002, MK_SHIFT = 0x0004, MK_CONTROL = 0x0008, MK_MBUTTON = 0x0010;
constexpr int WHEEL_DELTA = 120;

// ---- Clipboard ----

/// One clipboard in the process. Opening it while another window (or a caller without one) holds it open fails.
KOLM_API BOOL OpenClipboard(HWND window);
KOLM_API BOOL CloseClipboard(); ///< tells the listener when the contents changed
/// Frees the contents; bitmaps on the clipboard belong to it. FALSE when it is not open.
KOLM_API BOOL EmptyClipboard();
/// Hands data over; from then on the clipboard owns it. Null, with the data left to the caller, when the clipboard is
/// not open, the data null, or a CF_BITMAP handle refused or selected into a device context.
KOLM_API HANDLE SetClipboardData(UINT format, HANDLE data);
/// The data, still the clipboard's; null when there is none or the clipboard is not open.
KOLM_API HANDLE GetClipboardData(UINT format);
KOLM_API BOOL IsClipboardFormatAvailable(UINT format);
constexpr UINT CF_TEXT = 1, CF_BITMAP = 2;

/// Called after the clipboard was closed with new contents, so that a host can put them on the desktop's own. It may
/// open the clipboard and read. A null function ends it. `context` is passed through.
using ClipboardListener = void (*)(void* context);
KOLM_API void GdiSetClipboardListener(ClipboardListener listener, void* context);

/// The window's pixels as they are, not a copy: rows from the top down, 0x00RRGGBB, bmWidthBytes from row to row. 0 for
/// a refused handle or a window without pixels. Valid until the window is resized or destroyed.
KOLM_API int GdiGetWindowPixels(HWND window, BITMAP* pixels);

// ---- Text and messages ----

/// Places one or several lines of text in a rectangle of logical units and returns the height used, 0 on failure. Known
/// formats: DT_CENTER, DT_RIGHT, DT_VCENTER and DT_BOTTOM (of a single line), DT_SINGLELINE, DT_NOCLIP, DT_CALCRECT
/// (grows the rectangle instead of drawing). The current alignment places each line relative to its point, as
/// ExtTextOutA does. A negative count means a text that ends at its first zero byte.
KOLM_API int DrawTextA(HDC dc, LPCSTR text, int count, LPRECT rect, UINT format);
inline int DrawText(HDC dc, LPCSTR text, int count, LPRECT rect, UINT format)
{
    return DrawTextA(dc, text, count, rect, format);
}

// clang-format off
constexpr UINT DT_LEFT = 0, DT_TOP = 0, DT_CENTER = 1, DT_RIGHT = 2, DT_VCENTER = 4, DT_BOTTOM = 8, DT_SINGLELINE = 0x20, DT_NOCLIP = 0x100,
               DT_CALCRECT = 0x400, DT_NOPREFIX = 0x800;
constexpr UINT MB_OK = 0, MB_OKCANCEL = 1, MB_YESNOCANCEL = 3, MB_YESNO = 4, MB_ICONERROR = 0x10, MB_ICONQUESTION = 0x20, MB_ICONWARNING = 0x30,
               MB_ICONEXCLAMATION = 0x30, MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7;
// clang-format on
