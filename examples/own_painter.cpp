#include <kolm.h>

// A painter of the host's own: DrawBody draws in millimetres, y upward. Here a track 1.5 mm wide.
struct Board : CKPainter
{
    void DrawBody(CWnd*, CDC* dc) override { DrawLine(dc, RGB(200, 52, 52), 0, 0, 40, 25, 1.5, 0); }
};

int main()
{
    CWnd window; // its pixels live in memory
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr);
    Board board;
    board.Capture(&window, 400, 300, -5, -5, 45, 30); // 400 x 300 pixels show x -5 to 45 mm, y -5 to 30 mm
    board.SaveToBMP("track.bmp", *board.GetCaptureBitmap());
}
