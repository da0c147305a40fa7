// Picks the track under the mouse and shows it over the finished frame with exclusive-or: the board is not drawn anew.
#include <kolm.h>

#include <cstdio>

namespace {

struct Board : CKPainter
{
    void DrawEnding(CWnd*, CDC* dc) override { DrawGeoms(dc, &tracks); } // shapes draw themselves in device pixels
    KRectangleD GetTargetSize() override { return {40, 20, 20, 10}; }    // width, height, centre in millimetres

    CKGeomArray tracks; // owns its shapes
};

struct Picker : CKPickingHandler
{
    using CKPickingHandler::Picking;
    int Picking(CKPcbElementInfoArray* list, unsigned int, int x, int y) override
    {
        const KPointD p = board.GetLogicalCoordFromPhysicalCoord(x, y);
        for (int i = 0; i < board.tracks.GetSize(); ++i) {
            CKGeomLine* t = static_cast<CKGeomLine*>(board.tracks[i]);
            if (CKMath::GetDistance(t->GetStartX(), t->GetStartY(), t->GetEndX(), t->GetEndY(), p.x, p.y) <=
                t->GetThickness() / 2)
                list->Add(new CKPcbElementInfo(t, nullptr)); // the handler owns the record, not the track
        }
        return IsPick();
    }

    Board board;
};

} // namespace

int main()
{
    CWnd window; // its pixels live in memory
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, 400, 200, nullptr, nullptr);
    CClientDC dc(&window);
    Picker picker;
    for (double y : {4.0, 10.0, 16.0}) {
        picker.board.tracks.Add(new CKGeomLine(2, y, 38, y, 2));
        picker.board.tracks.GetLastElement()->SetColor(RGB(200, 52, 52));
    }
    picker.board.DrawView(&window, &dc);

    const KPoint click = picker.board.GetTranslatedPhysicalCoord(20, 10.5);
    std::printf("found: %d, the middle pixel is 0x%06X\n", picker.Picking(0, click.x, click.y, 0),
                dc.GetPixel(click.x, click.y));
    CKGeomArray overlay;
    overlay.Add(static_cast<CKGeom*>(picker.GetPickingInfoArray()->GetAt(0)->GetParent())->clone());
    picker.board.DrawGeomsAndDrawSavedDC(&window, &overlay, nullptr, RGB(255, 255, 255));
    std::printf("shown: the middle pixel is 0x%06X\n", dc.GetPixel(click.x, click.y));
    picker.board.DrawSavedDC(&window, &dc); // the next paint, from the saved frame
    std::printf("gone: the middle pixel is 0x%06X\n", dc.GetPixel(click.x, click.y));
}
