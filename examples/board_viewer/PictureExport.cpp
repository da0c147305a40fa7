#include "PictureExport.h"

#include "PendingFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace viewer {

namespace {

/// The painter reports failures of writing in message boxes; here they are kept instead. A CWinApp is the application
/// while it lives.
class MessageKeeper : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT, UINT) override
    {
        messages += messages.empty() ? "" : "; ";
        messages += text;
        return IDOK;
    }

    std::string messages;
};

/// ".bmp" for "A.BMP"; empty without an ending.
std::string LowerCaseEnding(const std::string& path)
{
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    return ending;
}

/// Which of the two kinds of picture files the name asks for.
bool IsJpegPath(const std::string& path)
{
    const std::string ending = LowerCaseEnding(path);
    return ending == ".jpg" || ending == ".jpeg";
}

bool IsCompleteJpeg(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    char end[2] = {};
    return file.seekg(-2, std::ios::end) && file.read(end, 2) && end[0] == '\xFF' && end[1] == '\xD9';
}

/// A window without a screen, of the picture's size.
class PictureWindow : public CWnd
{
public:
    explicit PictureWindow(PictureSize size)
    {
        if (!CreateEx(0, "BoardPicture", "", WS_POPUP, 0, 0, size.width, size.height, nullptr, nullptr))
            throw std::runtime_error("no memory for a picture of " + std::to_string(size.width) + "x" +
                                     std::to_string(size.height));
    }
};

/// The frame that DrawView composes, as a bitmap of its own: the painter's stays selected in its device context, where
/// it cannot be read.
void DrawWholeBoard(BoardPainter& painter, PictureWindow& window, PictureSize size, CBitmap& bitmap)
{
    CClientDC windowDC(&window);
    painter.FitToWindow();
    painter.DrawView(&window, &windowDC);

    CDC copy;
    copy.CreateCompatibleDC(&windowDC);
    bitmap.CreateCompatibleBitmap(&windowDC, size.width, size.height);
    CBitmap* former = copy.SelectObject(&bitmap);
    copy.BitBlt(0, 0, size.width, size.height, painter.GetSavedDC(), 0, 0, SRCCOPY);
    copy.SelectObject(former);
}

/// A capture frames the area without a margin and hands its bitmap over; it is deleted with the CBitmap.
void DrawArea(BoardPainter& painter, PictureWindow& window, PictureSize size, const FileArea& area, CBitmap& bitmap)
{
    // A capture keeps the centre as it is told, and a mirrored view has its centre at the negated x.
    const float side = painter.IsBoardMirrorX() ? -1.0f : 1.0f;
    painter.Capture(&window, size.width, size.height, side * float(area.x1), float(-area.y1), side * float(area.x2),
                    float(-area.y2));
    if (HBITMAP* captured = painter.GetCaptureBitmap())
        bitmap.Attach(*captured);
}

} // namespace

bool IsPicturePath(const std::string& path)
{
    return IsJpegPath(path) || LowerCaseEnding(path) == ".bmp";
}

void ExportPicture(BoardPainter& painter, PictureSize size, const std::optional<FileArea>& area,
                   const std::string& path)
{
    // First of all the target: a picture that cannot be written need not be drawn.
    PendingFile file(path);
    PictureWindow window(size);
    CBitmap bitmap;
    if (area)
        DrawArea(painter, window, size, *area, bitmap);
    else
        DrawWholeBoard(painter, window, size, bitmap);
    const auto handle = static_cast<HBITMAP>(bitmap.GetSafeHandle());
    if (!handle)
        throw std::runtime_error(path + ": no bitmap could be made");

    MessageKeeper keeper;
    if (IsJpegPath(path))
        painter.SaveToJPG(file.Name().c_str(), handle);
    else
        painter.SaveToBMP(file.Name().c_str(), handle);
    if (!keeper.messages.empty())
        throw std::runtime_error(path + ": cannot be written (" + keeper.messages + ")");
    // The library does not say how a conversion to JPEG went; a file that was cut off lacks the end mark.
    if (IsJpegPath(path) && !IsCompleteJpeg(file.Name()))
        throw std::runtime_error(path + ": cannot be written: the JPEG file is not complete");
    file.Commit();
}

} // namespace viewer
