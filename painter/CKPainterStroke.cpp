// Lines, arcs, circles, rectangles and crosses: one path and one stroke or fill each.
//
// Nothing is drawn outside a path, so that every figure touches each pixel once and exclusive-or drawing undoes itself
// also where a figure meets itself. Each pair of variants shares its figure and differs in the conversion alone: T for
// every value, or D for points and T for lengths.
#include "math/CKMath.h"
#include "painter/GdiScope.h"
#include "painter/PainterMapping.h"

namespace {

/// The path of an arc whose three points are pixels. The direction code goes to the device context as it is: with y
/// down "clockwise" is what the board, with y up, sees as counter-clockwise once the world transform flips y.
void BuildArcPath(CDC* dc, KPoint start, KPoint end, KPoint center, int radius, int direction)
{
    dc->BeginPath();
    dc->MoveTo(start.x, start.y);
    dc->SetArcDirection(direction == -1 ? AD_CLOCKWISE : AD_COUNTERCLOCKWISE);
    dc->ArcTo(SaturatedDifference(center.x, radius), SaturatedDifference(center.y, radius),
              SaturatedSum(center.x, radius), SaturatedSum(center.y, radius), start.x, start.y, end.x, end.y);
    dc->EndPath();
}

} // namespace

void CKPainter::DrawLine(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, double width, int)
{
    dc->BeginPath();
    dc->MoveTo(T(x1), T(y1));
    dc->LineTo(T(x2), T(y2));
    dc->EndPath();
    StrokePath(dc, T(width), color);
}

// The hot path of shapes: two conversions, one path, no allocation.
void CKPainter::DrawLineNoWorldTransform(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2,
                                         double width)
{
    const KPoint start = D(x1, y1);
    const KPoint end = D(x2, y2);
    dc->BeginPath();
    dc->MoveTo(start.x, start.y);
    dc->LineTo(end.x, end.y);
    dc->EndPath();
    StrokePath(dc, T(width), color);
}

// The radius comes from the logical start and centre and is converted as one length. From the converted points it would
// change by a pixel as the view moves, and arcs of one circle would come apart.
void CKPainter::DrawArc(CDC* dc, COLORREF color, double startX, double startY, double endX, double endY, double centerX,
                        double centerY, int direction, double width, int)
{
    const int radius = T(CKMath::GetDistance(startX, startY, centerX, centerY));
    BuildArcPath(dc, {T(startX), T(startY)}, {T(endX), T(endY)}, {T(centerX), T(centerY)}, radius, direction);
    StrokePath(dc, T(width), color);
}

void CKPainter::DrawArcNoWorldTransform(CDC* dc, COLORREF color, double startX, double startY, double endX, double endY,
                                        double centerX, double centerY, int direction, double width, int)
{
    const int radius = T(CKMath::GetDistance(startX, startY, centerX, centerY));
    BuildArcPath(dc, D(startX, startY), D(endX, endY), D(centerX, centerY), radius, direction);
    StrokePath(dc, T(width), color);
}

void CKPainter::DrawCircle(CDC* dc, COLORREF color, double radius, double centerX, double centerY, int fill)
{
    DrawCirclePath(dc, color, {T(centerX), T(centerY)}, T(radius), fill);
}

void CKPainter::DrawCircleNoWorldTransform(CDC* dc, COLORREF color, double radius, double centerX, double centerY,
                                           int fill)
{
    DrawCirclePath(dc, color, D(centerX, centerY), T(radius), fill);
}

// A whole circle from its leftmost point, in whatever arc direction the context has: the same pixels either way.
void CKPainter::DrawCirclePath(CDC* dc, COLORREF color, KPoint center, int radius, int fill)
{
    dc->BeginPath();
    AddCirclePath(dc, center.x, center.y, radius, 1);
    dc->EndPath();
    if (fill)
        FillPath(dc, color);
    else
        StrokePath(dc, 0, color);
}

void CKPainter::DrawRectangle(CDC* dc, COLORREF color, double centerX, double centerY, double width, double height,
                              int fill)
{
    DrawRectangleWithIntPenWidth(dc, color, centerX, centerY, width, height, fill, 0);
}

// The pen is given in pixels and keeps its width at every zoom.
void CKPainter::DrawRectangleWithIntPenWidth(CDC* dc, COLORREF color, double centerX, double centerY, double width,
                                             double height, int fill, int penWidth)
{
    DrawRectanglePath(dc, color, {T(centerX), T(centerY)}, T(width * 0.5), T(height * 0.5), fill, penWidth);
}

void CKPainter::DrawRectangleNoWorldTransform(CDC* dc, COLORREF color, double centerX, double centerY, double width,
                                              double height, int fill)
{
    // Halved in whole pixels here, in millimetres above: the two differ by up to a pixel, and views rely on both.
    DrawRectanglePath(dc, color, D(centerX, centerY), T(width) / 2, T(height) / 2, fill, 0);
}

void CKPainter::DrawRectanglePath(CDC* dc, COLORREF color, KPoint center, int halfWidth, int halfHeight, int fill,
                                  int penWidth)
{
    // In device pixels "low" is the upper edge; the order of the corners only matters to a trace.
    const int left = SaturatedDifference(center.x, halfWidth);
    const int right = SaturatedSum(center.x, halfWidth);
    const int low = SaturatedDifference(center.y, halfHeight);
    const int high = SaturatedSum(center.y, halfHeight);

    dc->BeginPath();
    dc->MoveTo(left, low);
    dc->LineTo(right, low);
    dc->LineTo(right, high);
    dc->LineTo(left, high);
    dc->LineTo(left, low);
    dc->EndPath();
    if (fill)
        FillPath(dc, color);
    else
        StrokePath(dc, penWidth, color);
}

void CKPainter::DrawCross(CDC* dc, COLORREF color, int x, int y, int size)
{
    // Two figures in one path: under exclusive-or the crossing pixel is still drawn once.
    const int half = size / 2;
    dc->BeginPath();
    dc->MoveTo(SaturatedDifference(x, half), y);
    dc->LineTo(SaturatedSum(x, half), y);
    dc->MoveTo(x, SaturatedDifference(y, half));
    dc->LineTo(x, SaturatedSum(y, half));
    dc->EndPath();
    StrokePath(dc, 0, color);
}

void CKPainter::DrawCross(CDC* dc, COLORREF color, double x, double y, double size)
{
    DrawCross(dc, color, T(x), T(y), T(size));
}

void CKPainter::StrokeDashLine(CDC* dc, int penWidth, COLORREF color)
{
    // What an opaque background mode shows in the gaps: all but black.
    const COLORREF gapColor = 1;
    // Pens wider than a pixel come out solid: dashes exist for cosmetic pens only.
    CPen pen(PS_DASH, penWidth, color);
    const COLORREF previousColor = dc->SetBkColor(gapColor);
    SelectedObject<CPen> selectedPen(dc, &pen);
    dc->StrokePath();
    selectedPen.Restore();
    dc->SetBkColor(previousColor);
}
