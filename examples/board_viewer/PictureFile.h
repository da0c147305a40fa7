/// Files of the kinds that pictures are written to.
#pragma once

#include "PendingFile.h"

#include <afxwin.h>

#include <string>

namespace viewer {

/// Whether the path ends in .png, .bmp, .jpg or .jpeg, in small or capital letters.
bool IsPicturePath(const std::string& path);

/// A picture file to be: made before the picture is drawn, since one that cannot be written need not be drawn.
class PictureFile
{
public:
    /// Throws std::runtime_error where the path cannot be written, as PendingFile does.
    explicit PictureFile(const std::string& path);

    /// Writes the bitmap as the kind of file that the name asks for, with its resolution, and puts it in its place. The
    /// same pixels give the same bytes. Throws std::runtime_error when anything fails; an existing file then stays as
    /// it was.
    void Write(HBITMAP bitmap, double pixelsPerMm);

private:
    void WriteByPainter(HBITMAP bitmap, bool asJpeg);

    std::string path;
    PendingFile file;
};

} // namespace viewer
