/// Drawing the view of a board into a bitmap, and writing that to a picture file.
#pragma once

#include "BoardPainter.h"
#include "PictureFile.h"
#include "PictureSize.h"

#include <optional>
#include <string>

namespace viewer {

/// A part of the board in the file's own millimetres, y down; the corners may come in any order.
struct FileArea
{
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

/// Draws the painter's board into `bitmap`, which has to be empty, and returns the scale in pixels per millimetre.
/// Frames exactly the area when one is given. Without one the board is fitted into a size in pixels with a margin, or
/// at a scale shown with its outline's line and a pixel around it; what reaches beyond the outline is cut off. Throws
/// std::runtime_error for a picture that is too large, before any memory is taken for it, and when there is not enough.
double DrawPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area, CBitmap& bitmap);

/// Draws the picture and writes it to the path as the kind of file that its ending asks for. Throws std::runtime_error
/// where it cannot be written; an existing file then stays as it was.
void ExportPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area,
                   const std::string& path);

} // namespace viewer
