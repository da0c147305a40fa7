// Frames: composed off screen, shown in one block transfer, kept for overlays.
//
// The board is drawn under the world transform, everything else in device pixels. Temporary shapes are drawn into the
// saved frame with exclusive-or, shown, and drawn again, which restores the frame without composing it anew.
//
// A hook of the host can throw anywhere in here. Modes and transforms are put back on the way out; the frame stays as
// far as it got, and the finish flag stays 0 to tell.
#include "entities/CKGeomArray.h"
#include "painter/GdiScope.h"
#include "painter/PainterMapping.h"

namespace {

constexpr double kFrameRatio = 0.9; // share of the client area that a fitted board fills

/// Exclusive-or drawing on a device context: drawing the same twice leaves no trace.
class XorScope
{
public:
    explicit XorScope(CDC* dc) : m_dc(dc), m_previous(dc->SetROP2(R2_XORPEN)) {}
    ~XorScope() { m_dc->SetROP2(m_previous); }
    XorScope(const XorScope&) = delete;
    XorScope& operator=(const XorScope&) = delete;

private:
    CDC* m_dc;
    int m_previous;
};

/// Counts are compared as int everywhere, as the drawing loop takes them.
int HasShapes(CKGeomArray* shapes)
{
    return shapes && static_cast<int>(shapes->GetSize()) >= 1;
}

/// Shows the client area's part of the saved frame, which may have had another size when it was composed.
void CopyFrame(CDC* target, CDC* frame, const CRect& rect)
{
    ::BitBlt(target->m_hDC, 0, 0, rect.Width(), rect.Height(), frame->m_hDC, 0, 0, SRCCOPY);
}

/// Has the cache load a shape that is drawn a little later. Shapes lie anywhere on the heap, and a stroke takes less
/// time than waiting for one. Nothing is read: the address may be null, or that of a shape that is gone by now.
void LoadAhead(const CKGeom* shape)
{
    constexpr uintptr_t kLine = 64;
    constexpr uintptr_t kLines = 3; // most of any shape of the library
    for (uintptr_t i = 0; i < kLines; ++i) {
        const void* const line = reinterpret_cast<const void*>(reinterpret_cast<uintptr_t>(shape) + i * kLine);
        PreFetchCacheLine(PF_TEMPORAL_LEVEL_1, line);
    }
}

/// Draws the visible shapes in their own colours, or all in `*color`. The count is taken once: a shape that removes
/// elements while it draws runs into the array's own check.
void DrawShapes(CKPainter* painter, CDC* dc, CKGeomArray* shapes, const COLORREF* color)
{
    constexpr int kAhead = 8; // strokes that take as long as the slowest memory
    const int count = shapes ? static_cast<int>(shapes->GetSize()) : 0;
    for (int i = 0; i < count; ++i) {
        if (i + kAhead < shapes->GetSize())
            LoadAhead(shapes->GetAt(i + kAhead));
        CKGeom* const shape = shapes->GetAt(i);
        if (shape && !shape->IsHidden())
            shape->DrawNoWorldTransform(painter, dc, color ? *color : shape->GetColor());
    }
}

} // namespace

// ---- Setting up a frame

void CKPainter::SetupDraw(CDC* dc, CDC* memDC, CBitmap* bitmap, CRect* rect, COLORREF background)
{
    CreateFrame(dc, memDC, bitmap, *rect);

    // Both stay selected when they are deleted here: they live on until the contexts let them go.
    CBrush brush(background);
    CPen pen(PS_SOLID, 0, background);
    for (CDC* const context : {dc, memDC}) {
        context->SelectObject(&brush);
        context->SelectObject(&pen);
    }
    ::Rectangle(memDC->m_hDC, rect->left, rect->top, rect->right, rect->bottom);
    FitFrame(*rect, 0);
}

void CKPainter::BackGroundDraw(CDC* dc, CDC* memDC, CBitmap* bitmap, CRect* rect, COLORREF background)
{
    CreateFrame(dc, memDC, bitmap, *rect);
    PaintBackground(memDC, *rect, background);
    FitFrame(*rect, m_captureAreaSet);
}

void CKPainter::CreateFrame(CDC* dc, CDC* memDC, CBitmap* bitmap, const CRect& rect)
{
    // Halves of the far edges and not of the sizes: client rectangles start at 0.
    SetPhysicalCenter(rect.right / 2, rect.bottom / 2);
    memDC->Attach(::CreateCompatibleDC(dc->m_hDC));
    bitmap->Attach(::CreateCompatibleBitmap(dc->m_hDC, SaturatedDifference(rect.right, rect.left),
                                            SaturatedDifference(rect.bottom, rect.top)));
    memDC->SelectObject(bitmap);
}

// The pen has the brush's colour, so the outline is background too.
void CKPainter::PaintBackground(CDC* dc, const CRect& rect, COLORREF background)
{
    CBrush brush(background);
    CPen pen(PS_SOLID, 0, background);
    const SelectedObject<CBrush> selectedBrush(dc, &brush);
    const SelectedObject<CPen> selectedPen(dc, &pen);
    ::Rectangle(dc->m_hDC, rect.left, rect.top, rect.right, rect.bottom);
}

void CKPainter::FitFrame(const CRect& rect, int useCaptureArea)
{
    // A centre that is set is never touched. The capture area is stored as the view will hold it; a target area is
    // where the board is, and its x has to be negated for a mirrored view.
    const int width = SaturatedDifference(rect.right, rect.left);
    const int height = SaturatedDifference(rect.bottom, rect.top);
    if (!IsLogicalCenterEmpty()) {
        UpdateLogicalScreenSide(width, height);
    } else if (useCaptureArea) {
        FitArea(width, height, m_captureCenterX, m_captureCenterY, m_captureWidth, m_captureHeight, kFrameRatio);
    } else {
        const KRectangleD target = GetTargetSize();
        const double centerX = m_boardMirror ? -target.centerX : target.centerX;
        FitArea(width, height, centerX, target.centerY, target.width, target.height, kFrameRatio);
    }
}

void CKPainter::RenewSavedFrame()
{
    // Copies of this painter keep the old frame if they share it.
    ReleaseSavedFrame();
    m_savedDC = new CDC;
    m_savedBitmap = new CBitmap;
}

// ---- Composing a frame

void CKPainter::DrawView(CWnd* wnd, CDC* dc)
{
    if (!wnd)
        return;

    m_finishDraw = 0;
    CRect rect;
    wnd->GetClientRect(&rect);
    RenewSavedFrame();
    SetupDraw(dc, m_savedDC, m_savedBitmap, &rect, m_backgroundTransparent);

    // Taken after the fit: this is the view that the saved frame shows, whatever the host does to the view later.
    m_savedScale = m_scale;
    m_savedCenter = GetLogicalCenterCoord();
    m_savedLeft = m_screenLeft;
    m_savedRight = m_screenRight;
    m_savedTop = m_screenTop;
    m_savedBottom = m_screenBottom;

    ComposeFrame(wnd, dc, rect);
    m_finishDraw = 1;
}

void CKPainter::ComposeFrame(CWnd* wnd, CDC* dc, const CRect& rect)
{
    // The ending is drawn over an empty view too: scales, rulers and messages do not depend on data.
    if (IsExistData(wnd))
        DrawBodyTransformed(wnd, m_savedDC);
    DrawEnding(wnd, m_savedDC);
    CopyFrame(dc, m_savedDC, rect);
}

void CKPainter::DrawBodyTransformed(CWnd* wnd, CDC* dc)
{
    // T() pixels, y up, become device pixels: shift, flip of y and mirror in one matrix.
    const WorldTransformScope transform(dc->m_hDC, GenerateXFormMirrorY(m_boardMirror));
    DrawBody(wnd, dc);
}

void CKPainter::DrawSavedDC(CWnd* wnd, CDC* dc)
{
    if (!wnd || !dc || !m_savedDC)
        return;
    CRect rect;
    wnd->GetClientRect(&rect);
    CopyFrame(dc, m_savedDC, rect);
}

void CKPainter::DrawBody(CWnd*, CDC*) {}

void CKPainter::DrawEnding(CWnd*, CDC*) {}

int CKPainter::IsExistData(CWnd*)
{
    return 0;
}

KRectangleD CKPainter::GetTargetSize()
{
    return {0.0, 0.0, 0.0, 0.0};
}

// ---- Shapes

// A colour that is passed takes the place of every shape's own; null asks for those.
void CKPainter::DrawGeoms(CDC* dc, CKGeomArray* shapes)
{
    DrawShapes(this, dc, shapes, nullptr);
}

void CKPainter::DrawGeoms(CDC* dc, CKGeomArray* shapes, COLORREF color)
{
    DrawShapes(this, dc, shapes, &color);
}

void CKPainter::DrawGeomsAndDrawSavedDC(CWnd* wnd, CKGeomArray* first, CKGeomArray* second)
{
    OverlayShapes(wnd, first, second, nullptr);
}

void CKPainter::DrawGeomsAndDrawSavedDC(CWnd* wnd, CKGeomArray* first, CKGeomArray* second, COLORREF color)
{
    OverlayShapes(wnd, first, second, &color);
}

void CKPainter::OverlayShapes(CWnd* wnd, CKGeomArray* first, CKGeomArray* second, const COLORREF* color)
{
    if (!m_savedDC)
        return;
    const auto drawBoth = [&] {
        DrawShapes(this, m_savedDC, first, color);
        DrawShapes(this, m_savedDC, second, color);
    };

    // Without a window nothing can be shown, so the shapes stay in the frame until the same call takes them out.
    if (!wnd) {
        if (!HasShapes(first) && !HasShapes(second))
            return;
        const XorScope exclusiveOr(m_savedDC);
        drawBoth();
        return;
    }

    // Holders in this order: the raster operation is back before the window's context is released.
    WindowDC window(wnd);
    const XorScope exclusiveOr(m_savedDC);
    drawBoth();
    DrawSavedDC(wnd, window.Get());
    drawBoth(); // takes the shapes out of the saved frame again; the window keeps them
}
