/// What a picture of any origin has to stand: reports, a small drawing, and its way through a file.
#pragma once

#include "BoardArchive.h"
#include "BoardInfo.h"
#include "BoardPainter.h"
#include "Fuzz.h"
#include "TemporaryFile.h"

#include <string>

namespace fuzz {

/// Draws all layers, once fitted and once around the origin.
inline void DrawPicture(const viewer::BoardPicture& picture)
{
    CWnd window;
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, 64, 48, nullptr, nullptr);
    viewer::BoardPainter painter(picture);
    CClientDC dc(&window);
    painter.Init(nullptr);
    painter.DrawView(&window, &dc);
    Require(painter.IsFinishDraw() == 1, "the frame is finished");
    painter.Capture(&window, 64, 48, -10, -8, 10, 8);
    DeleteObject(*painter.GetCaptureBitmap());
}

/// Stores the picture, loads it and stores it again: both files are the same.
inline void CheckFileOf(const viewer::BoardPicture& picture)
{
    static const TemporaryFile file("board.kolm");
    viewer::StoreArchive(picture, file.Path());
    const std::string bytes = file.Get();
    const viewer::BoardPicture again = viewer::LoadArchive(bytes, "again");
    Require(viewer::PictureInfoJson(again) == viewer::PictureInfoJson(picture), "a loaded picture reports the same");
    viewer::StoreArchive(again, file.Path());
    Require(file.Get() == bytes, "a loaded picture stores as the same bytes");
}

} // namespace fuzz
