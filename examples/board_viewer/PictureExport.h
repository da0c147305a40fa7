/// Writing the view of a board to a picture file.
#pragma once

#include "BoardPainter.h"

#include <optional>
#include <string>

namespace viewer {

struct PictureSize
{
    int width = 1600;
    int height = 1200;
};

/// A part of the board in the file's own millimetres, y down; the corners may come in any order.
struct FileArea
{
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

/// Whether the path ends in .bmp, .jpg or .jpeg, in small or capital letters.
bool IsPicturePath(const std::string& path);

/// Draws the painter's board and writes it to the path: as a JPEG file or a bitmap file, by its ending. Fits the board,
/// or frames exactly the area when one is given. Throws std::runtime_error where it cannot be written; an existing file
/// then stays as it was.
void ExportPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area,
                   const std::string& path);

} // namespace viewer
