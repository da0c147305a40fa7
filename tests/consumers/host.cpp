/// What each consumer project builds: a host that takes every way into the library once, so that a header, a symbol or
/// a flag that does not travel with the target fails to build or to run.
#include "foundation/CKRect.h"
#include <afx.h>
#include <kolm.h>

#include <cstdio>

static_assert(__cplusplus >= 201703L, "the language standard comes with the target");

namespace {

struct Board : CKPainter
{
    void DrawBody(CWnd*, CDC* dc) override { DrawLine(dc, RGB(200, 52, 52), 0, 0, 40, 0, 2, 0); }
};

/// The colour in the middle of a picture of the board.
COLORREF DrawnColor()
{
    CWnd window;
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, 90, 30, nullptr, nullptr);
    Board board;
    board.Capture(&window, 90, 30, -5, -5, 45, 5);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.Attach(*board.GetCaptureBitmap());
    CBitmap* const before = dc.SelectObject(&bitmap);
    const COLORREF color = dc.GetPixel(45, 15);
    dc.SelectObject(before);
    return color;
}

/// Whether a line comes back from an archive as it went in.
int IsStoredLineTheSame()
{
    CMemFile file;
    CKGeomContainer stored, loaded;
    stored.Add(new CKGeomLine(1, 2, 3, 4, 0.25));
    CArchive out(&file, CArchive::store);
    stored.Serialize(out);
    out.Close();
    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    loaded.Serialize(in);
    return loaded == stored && loaded.GetCount() == 1;
}

} // namespace

int main()
{
    CKRect rectangle;
    rectangle.Set(1, 4, 0, 0);
    const bool works = rectangle.GetWidth() == 3 && DrawnColor() == RGB(200, 52, 52) && IsStoredLineTheSame();
    std::printf("Kolm %s %s\n", KolmVersion(), works ? "works" : "does not work");
    return works ? 0 : 1;
}
