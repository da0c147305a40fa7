// Captures: pictures of the view for the host, drawn by the same hooks as a frame.
//
// Capture(wnd) is a frame with another idea of what to fit, and ends in the window. The sized capture draws the body
// alone into a bitmap of its own and leaves the view where it drew; the host restores its view from the saved viewport.
#include "painter/GdiScope.h"
#include "painter/PainterMapping.h"

namespace {

/// The clipboard while it is open; closed again also when a message box of the host throws.
class OpenedClipboard
{
public:
    explicit OpenedClipboard(HWND owner) : m_open(::OpenClipboard(owner)) {}
    ~OpenedClipboard()
    {
        if (m_open)
            ::CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const { return m_open != FALSE; }

private:
    BOOL m_open;
};

HBITMAP MakeCaptureBitmap(int mode, HDC window, HDC memory, int width, int height)
{
    constexpr int kLikeWindow = 0;
    constexpr int kLikeMemory = 1; // a fresh memory context is monochrome, and so becomes the capture
    if (mode == kLikeWindow)
        return ::CreateCompatibleBitmap(window, width, height);
    if (mode == kLikeMemory)
        return ::CreateCompatibleBitmap(memory, width, height);
    return nullptr;
}

} // namespace

// The capture zoom area takes part only while the centre is empty: a view that the user has moved is captured as it is.
void CKPainter::Capture(CWnd* wnd)
{
    if (!wnd)
        return;

    // The window's context has to be back before the flag says that the picture is finished.
    m_finishDraw = 0;
    {
        WindowDC window(wnd);
        CRect rect;
        wnd->GetClientRect(&rect);
        RenewSavedFrame();
        BackGroundDraw(window.Get(), m_savedDC, m_savedBitmap, &rect, m_backgroundTransparent);
        ComposeFrame(wnd, window.Get(), rect);
    }
    m_finishDraw = 1;
}

void CKPainter::Capture(CWnd* wnd, int width, int height, float x1, float y1, float x2, float y2)
{
    if (!wnd || (width == 0 && height == 0))
        return;
    // One size alone asks for a square.
    if (height == 0)
        height = width;
    else if (width == 0)
        width = height;

    // The order of these holders is the order of release: bitmap out of the context, context, window.
    const WindowDC window(wnd);
    CDC memory;
    memory.Attach(::CreateCompatibleDC(window.Handle()));
    // The bitmap in the old cell is the host's by now; a copy of this painter keeps the cell if it shares it.
    ReleaseCaptureCell();
    m_captureBitmap = new HBITMAP(MakeCaptureBitmap(m_captureMode, window.Handle(), memory.m_hDC, width, height));

    // Without a bitmap the hooks run all the same, into the one pixel that every memory context has.
    CBitmap* const bitmap = *m_captureBitmap ? CBitmap::FromHandle(*m_captureBitmap) : nullptr;
    if (bitmap) {
        const SelectedObject<CBitmap> selectedBitmap(&memory, bitmap);
        RenderCapture(wnd, &memory, width, height, x1, y1, x2, y2);
    } else {
        RenderCapture(wnd, &memory, width, height, x1, y1, x2, y2); // for what it leaves in the viewport
    }
}

void CKPainter::RenderCapture(CWnd* wnd, CDC* memDC, int width, int height, float x1, float y1, float x2, float y2)
{
    // The background covers the picture, and the client area where that is larger.
    CRect rect;
    wnd->GetClientRect(&rect);
    const int right = SaturatedSum(rect.left, width);
    const int bottom = SaturatedSum(rect.top, height);
    if (rect.right < right)
        rect.right = right;
    if (rect.bottom < bottom)
        rect.bottom = bottom;
    PaintBackground(memDC, rect, m_backgroundTransparent);

    // Framed exactly, without the margin of a fitted frame. The corners are single-precision values in any order.
    ZoomAreaByMinMax(width, height, x1, y2, x2, y1, 1.0);
    // The picture's own middle, not the window's: the body is drawn into the bitmap alone.
    SetPhysicalCenter(width / 2, height / 2);
    DrawBodyTransformed(wnd, memDC);
}

void CKPainter::CopyToClipboardBitmap(void* bitmap, CWnd* wnd)
{
    const OpenedClipboard clipboard(wnd ? wnd->GetSafeHwnd() : nullptr);
    if (!clipboard)
        return;
    // The platform takes over a bitmap that it accepts; one that it refuses stays the caller's.
    ::EmptyClipboard();
    if (!::SetClipboardData(CF_BITMAP, bitmap))
        AfxMessageBox("Zoom ratio exceeded allowable range to capture.");
}
