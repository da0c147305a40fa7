#include "PictureExport.h"

#include <cmath>
#include <stdexcept>

namespace viewer {

namespace {

/// A window without a screen.
class PictureWindow : public CWnd
{
public:
    explicit PictureWindow(PictureSize size)
    {
        if (!CreateEx(0, "BoardPicture", "", WS_POPUP, 0, 0, size.width, size.height, nullptr, nullptr))
            FailForMemory(size);
    }

    [[noreturn]] static void FailForMemory(PictureSize size)
    {
        throw std::runtime_error("no memory for a picture of " + std::to_string(size.width) + "x" +
                                 std::to_string(size.height));
    }
};

/// The frame that DrawView composes, as a bitmap of its own: the painter's stays selected in its device context, where
/// it cannot be read.
void DrawWholeBoard(BoardPainter& painter, PictureSize size, CBitmap& bitmap)
{
    PictureWindow window(size);
    CClientDC windowDC(&window);
    painter.FitToWindow();
    painter.DrawView(&window, &windowDC);

    CDC copy;
    copy.CreateCompatibleDC(&windowDC);
    if (!bitmap.CreateCompatibleBitmap(&windowDC, size.width, size.height))
        PictureWindow::FailForMemory(size);
    CBitmap* former = copy.SelectObject(&bitmap);
    copy.BitBlt(0, 0, size.width, size.height, painter.GetSavedDC(), 0, 0, SRCCOPY);
    copy.SelectObject(former);
}

/// A capture frames the area without a margin and hands its bitmap over; it is deleted with the CBitmap. The window
/// only tells it what kind of bitmap to make.
void DrawArea(BoardPainter& painter, PictureSize size, const KRectangleD& area, CBitmap& bitmap)
{
    PictureWindow window({1, 1});
    // A capture keeps the centre as it is told, and a mirrored view has its centre at the negated x.
    const double centreX = painter.IsBoardMirrorX() ? -area.centerX : area.centerX;
    const double halfWidth = area.width / 2, halfHeight = area.height / 2;
    painter.Capture(&window, size.width, size.height, float(centreX - halfWidth), float(area.centerY - halfHeight),
                    float(centreX + halfWidth), float(area.centerY + halfHeight));
    if (HBITMAP* captured = painter.GetCaptureBitmap(); captured && *captured)
        bitmap.Attach(*captured);
    else
        PictureWindow::FailForMemory(size);
}

/// A pixel on each side: no line is drawn thinner than that, and rounding must not push one out of the picture.
KRectangleD WithMargin(const KRectangleD& area, double pixelsPerMm)
{
    return {area.width + 2 / pixelsPerMm, area.height + 2 / pixelsPerMm, area.centerX, area.centerY};
}

/// In the painter's frame, y up.
KRectangleD BoardAreaOf(const FileArea& area)
{
    return {std::fabs(area.x2 - area.x1), std::fabs(area.y2 - area.y1), (area.x1 + area.x2) / 2,
            -(area.y1 + area.y2) / 2};
}

} // namespace

double DrawPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area, CBitmap& bitmap)
{
    SetLastError(NO_ERROR);
    const bool atScale = size.pixelsPerMm > 0;
    KRectangleD shown = area      ? BoardAreaOf(*area)
                        : atScale ? WithMargin(painter.GetInkSize(), size.pixelsPerMm)
                                  : KRectangleD{};
    if (atScale) {
        size = SizeAtScale(size.pixelsPerMm, shown.width, shown.height);
        // The area of whole pixels, so that the scale is the one asked for and not that of the rounded size.
        shown.width = size.width / size.pixelsPerMm;
        shown.height = size.height / size.pixelsPerMm;
    } else if (!IsPossibleSize(size.width, size.height)) {
        throw std::runtime_error("no picture can have this size");
    }
    if (area || atScale)
        DrawArea(painter, size, shown, bitmap);
    else
        DrawWholeBoard(painter, size, bitmap);
    // A figure that cannot be drawn for want of memory is left out, and the painter does not tell.
    if (GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
        PictureWindow::FailForMemory(size);
    return atScale ? size.pixelsPerMm : painter.GetScale() * painter.GetPixcelPerMM();
}

void ExportPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area,
                   const std::string& path)
{
    // First of all the target: a picture that cannot be written need not be drawn.
    PictureFile file(path);
    CBitmap bitmap;
    const double pixelsPerMm = DrawPicture(painter, size, area, bitmap);
    file.Write(static_cast<HBITMAP>(bitmap.GetSafeHandle()), pixelsPerMm);
}

} // namespace viewer
