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

void CKPainter::Capture(CWnd* wnd)
{
    if (!wnd)
        return;

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
    if (height == 0)
        height = width;
    else if (width == 0)
        width = height;

    const WindowDC window(wnd);
    CDC memory;
    memory.Attach(::CreateCompatibleDC(window.Handle()));
    ReleaseCaptureCell();
    m_captureBitmap = new HBITMAP(MakeCaptureBitmap(m_captureMode, window.Handle(), memory.m_hDC, width, height));

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
    CRect rect;
    wnd->GetClientRect(&rect);
    const int right = SaturatedSum(rect.left, width);
    const int bottom = SaturatedSum(rect.top, height);
    if (rect.right < right)
        rect.right = right;
    if (rect.bottom < bottom)
        rect.bottom = bottom;
    PaintBackground(memDC, rect, m_backgroundTransparent);

    ZoomAreaByMinMax(width, height, x1, y2, x2, y1, 1.0);
    SetPhysicalCenter(width / 2, height / 2);
    DrawBodyTransformed(wnd, memDC);
}

void CKPainter::CopyToClipboardBitmap(void* bitmap, CWnd* wnd)
{
    const OpenedClipboard clipboard(wnd ? wnd->GetSafeHwnd() : nullptr);
    if (!clipboard)
        return;
    ::EmptyClipboard();
    if (!::SetClipboardData(CF_BITMAP, bitmap))
        AfxMessageBox("Zoom ratio exceeded allowable range to capture.");
}
