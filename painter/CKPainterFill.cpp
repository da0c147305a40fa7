#include "painter/CKPainter.h"
#include "painter/GdiScope.h"

void CKPainter::StrokePath(CDC* dc, int width, COLORREF color)
{
    CPen pen(PS_SOLID, width, color);
    StrokePath(dc, pen);
}

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
    const LOGBRUSH ink = {BS_SOLID, color, 0};
    CPen pen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND, width, &ink);
    StrokeAndFillPathHatchStyle(dc, pen, color, hatch);
}

void CKPainter::StrokeAndFillPathHatchStyle(CDC* dc, CPen& pen, COLORREF color, int hatch)
{
    constexpr int kSolid = -1;
    CBrush brush;
    if (hatch == kSolid)
        brush.CreateSolidBrush(color);
    else
        brush.CreateHatchBrush(hatch, color);

    SelectedObject<CPen> selectedPen(dc, &pen);
    SelectedObject<CBrush> selectedBrush(dc, &brush);
    const int previousMode = dc->SetBkMode(TRANSPARENT);
    dc->StrokeAndFillPath();
    dc->SetBkMode(previousMode);
    selectedPen.Restore();
    selectedBrush.Restore();
}
