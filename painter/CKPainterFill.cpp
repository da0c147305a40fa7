// Stroking and filling of the path that the device context holds. Pens and brushes live for one call: they are
// selected, used and selected out again, in the reverse order unless stated, and then deleted.
#include "painter/CKPainter.h"
#include "painter/GdiScope.h"

void CKPainter::StrokePath(CDC* dc, int width, COLORREF color)
{
    CPen pen(PS_SOLID, width, color);
    StrokePath(dc, pen);
}

// The pen stays the caller's and may be used for many paths.
void CKPainter::StrokePath(CDC* dc, CPen& pen)
{
    const SelectedObject<CPen> selectedPen(dc, &pen);
    dc->StrokePath();
}

void CKPainter::FillPath(CDC* dc, COLORREF color)
{
    CBrush brush(color);
    const SelectedObject<CBrush> selectedBrush(dc, &brush);
    dc->FillPath();
}

// Filling itself never uses the pen: the path is filled up to its edge, not up to the middle of an outline.
void CKPainter::FillPath(CDC* dc, CPen& pen, COLORREF color)
{
    CBrush brush(color);
    const SelectedObject<CBrush> selectedBrush(dc, &brush);
    const SelectedObject<CPen> selectedPen(dc, &pen);
    dc->FillPath();
}

void CKPainter::StrokeAndFillPath(CDC* dc, int width, COLORREF color)
{
    CPen pen(PS_SOLID, width, color);
    StrokeAndFillPath(dc, pen, color);
}

void CKPainter::StrokeAndFillPath(CDC* dc, CPen& pen, COLORREF color)
{
    CBrush brush(color);
    const SelectedObject<CBrush> selectedBrush(dc, &brush);
    const SelectedObject<CPen> selectedPen(dc, &pen);
    dc->StrokeAndFillPath();
}

void CKPainter::StrokeAndFillPathHatchStyle(CDC* dc, int width, COLORREF color, int hatch)
{
    // A geometric pen scales with the world transform and joins roundly, as a hatched area's border should.
    // The ink of such a pen is a brush record of its own.
    const LOGBRUSH ink = {BS_SOLID, color, 0};
    CPen pen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND, width, &ink);
    StrokeAndFillPathHatchStyle(dc, pen, color, hatch);
}

void CKPainter::StrokeAndFillPathHatchStyle(CDC* dc, CPen& pen, COLORREF color, int hatch)
{
    constexpr int kSolid = -1;
    // An unknown hatch style makes no brush; the area is then filled with the one selected before.
    CBrush brush;
    if (hatch == kSolid)
        brush.CreateSolidBrush(color);
    else
        brush.CreateHatchBrush(hatch, color);

    // Pen before brush on the way in and on the way out.
    SelectedObject<CPen> selectedPen(dc, &pen);
    SelectedObject<CBrush> selectedBrush(dc, &brush);
    // In opaque mode the gaps between the hatch lines would cover what lies below.
    const int previousMode = dc->SetBkMode(TRANSPARENT);
    dc->StrokeAndFillPath();
    dc->SetBkMode(previousMode);
    selectedPen.Restore();
    selectedBrush.Restore();
}
