/// The interactive view of a board without any toolkit: it draws into a window of the library whose pixels lie in
/// memory, and a toolkit shows these pixels and forwards what the user does.
#pragma once

#include "BoardFile.h"
#include "BoardFind.h"
#include "BoardPicker.h"
#include "ElementGap.h"
#include "LayerStates.h"
#include "OverlayShape.h"

#include "entities/CKGeomArray.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// Pixels are device pixels of the window, x right and y down; they may lie anywhere, also outside of it. Operations
/// that change what is to be seen call the repaint function and draw nothing themselves: many of them between two paint
/// messages cost one frame. Everything runs on one thread, that of the window, and the object may be deleted at any
/// time but from within the repaint function.
class BoardView
{
public:
    BoardView(); ///< a window of 0 x 0 pixels and an empty board
    ~BoardView();
    BoardView(const BoardView&) = delete;
    BoardView& operator=(const BoardView&) = delete;

    // ---- The window

    /// The function tells the toolkit to paint soon (and to ask for the texts again).
    void SetRepaint(std::function<void()> function) { repaint = std::move(function); }
    /// Keeps a fitted board fitted, and else the board point in the middle where it is. Sizes below 0 count as 0; one
    /// that the platform refuses leaves the window as it was.
    void Resize(int width, int height);
    /// Device pixels per millimetre of the screen, by which the scale is told; what is shown does not change. 96 dpi
    /// unless set. Only a positive finite number counts.
    void SetScreenResolution(double pixelsPerMM);
    int Width() const { return width; }
    int Height() const { return height; }
    /// The pixels with all that is due drawn: rows from the top, 0x00RRGGBB, good until the next call of any operation.
    /// bmBits is null where the window has no pixels.
    BITMAP Pixels();
    void Draw(CDC* dc);                            ///< brings the window's pixels up to date; `dc` is the window's
    void Redraw();                                 ///< has a new frame composed at the next paint
    CKPainter* Painter() { return painter.get(); } ///< never null; another one after Show
    CKPickingHandler* Picker() { return &first; }

    // ---- The board

    /// Replaces the board, fitted and with nothing picked; scheme and side stay. Makes entities, so it belongs on the
    /// thread of the window like everything here.
    void Show(BoardFile newFile);
    const BoardFile& File() const { return *file; }

    // ---- Navigation

    void Fit();
    /// Shows the other side. The board point under the pixel stays under it.
    void FlipAbout(CPoint pixel);
    bool IsFromBack() const;
    /// One step of the library's zoom, 1.3. The board point under the pixel stays under it. Refused beyond the limits.
    void ZoomIn(CPoint about);
    void ZoomOut(CPoint about);
    void PanBy(int dx, int dy); ///< moves the picture right and down
    CPoint Middle() const { return CPoint(width / 2, height / 2); }
    /// The board point under a pixel in Kolm's frame (y upward), nothing while no view is set.
    std::optional<KPointD> BoardPoint(CPoint pixel);

    // ---- Layers; rows are those of the layer list, from 0

    const LayerStates& Layers() const { return layers; }
    void ToggleLayer(int number); ///< 1 for the first of the list, as on the number keys
    void SetLayerVisible(int row, bool visible);
    void SetWorkLayer(int row); ///< drawn on top, the others dimmed; -1 for none
    void SetScheme(Scheme scheme);

    // ---- Picking and measuring

    /// Picks at the pixel and forgets a measurement; see BoardPicker::Click.
    void Pick(CPoint pixel);
    /// Picks the second element of a measurement, or the first where nothing is picked.
    void PickSecond(CPoint pixel);
    /// Takes picks and measurement away, and what was shown of them, without composing a new frame.
    void ClearPick();
    BoardElement* PickedElement() { return first.Current(); }         ///< null when there is none
    BoardElement* SecondElement() { return second.Current(); }        ///< null when there is none
    const std::optional<ElementGap>& Measured() const { return gap; } ///< while two are picked

    // ---- Searching

    /// Searches as FindItems does and keeps the matches. An empty or blank pattern matches nothing. Nothing is picked
    /// yet, and a former match is picked no longer.
    const std::vector<FoundItem>& Find(const std::string& pattern);
    const std::vector<FoundItem>& Matches() const { return matches; }
    /// Brings the match into view and picks all that belongs to it. False for a number outside of the matches and for a
    /// match that is nowhere on the board.
    bool ShowMatch(int match);
    /// Dims everything but the elements of the matches.
    void DimOthers(bool dim);
    bool AreOthersDimmed() const { return othersDimmed; }

    // ---- Texts and copies. Coordinates are those of the file: millimetres, y down.

    void SetCursor(CPoint pixel);
    void ClearCursor();
    std::string CursorText(); ///< "x 12.345 y 67.890 mm"; empty without a cursor
    std::string ScaleText();  ///< "scale 250 %", of the board's true size
    std::string PickText();   ///< what is picked, or what is measured; empty when nothing is
    std::string StatusText(); ///< the three of them
    /// The measurement for other programs: clearance, both points, and whether the two are on different layers, where
    /// the clearance in the plane separates nothing. Empty while nothing is measured.
    std::string MeasureText();
    /// Puts a copy of what the window shows on the library's clipboard. False where there is nothing to show, or the
    /// clipboard refuses.
    bool CopyPicture();
    /// Writes what the window shows, without picks, to a picture file of the window's size. Throws std::runtime_error
    /// as PictureFile does, and where the window has no pixels.
    void Export(const std::string& path);

private:
    bool EnsureView();
    bool IsFitted();
    void UpdateLayers();
    std::vector<ShownLayer> LayersToDraw() const;
    void SetCentreUnder(KPointD board, CPoint pixel);
    void ForgetSelection();
    void SelectionChanged();
    void LayersChanged();
    bool IsVisible(const BoardElement& element) const;
    void MakeHighlights();
    std::vector<BoardElement*> ElementsOf(const std::vector<FoundItem>& found) const;
    void BringIntoView(const std::vector<BoardElement*>& elements, KPointD position);
    void Invalidate();
    bool CopyPixels(CDC* source, CBitmap& bitmap);

    std::function<void()> repaint;
    CWnd window;
    int width = 0;
    int height = 0;
    double screenResolution = 0; ///< 0: the painter's own
    std::unique_ptr<BoardFile> file;
    LayerStates layers;
    std::vector<std::unique_ptr<PictureLayer>> highlights; ///< the matches' shapes while the others are dimmed
    std::unique_ptr<BoardPainter> painter;
    PickScene scene;
    BoardPicker first;
    BoardPicker second;
    std::optional<ElementGap> gap;
    CKGeomArray pickShapes;    ///< overlay of what is picked
    CKGeomArray measureShapes; ///< overlay of the measurement
    bool overlayDue = false;
    std::vector<FoundItem> matches;
    NamedItem shownMatch; ///< what is picked, while many elements are picked together
    bool othersDimmed = false;
    std::optional<CPoint> cursor;
    double fittedScale = 0; ///< of the last fit, to know whether the view is still fitted
    KPointD fittedCentre{};
};

} // namespace viewer
