/// The view of a board: the painter as a host derives it.
#pragma once

#include "BoardPicture.h"

#include "painter/CKPainter.h"

#include <vector>

class CKGeomArc;
class CKGeomLine;
class CKGeomPolygon;

namespace viewer {

/// A layer in the colour to draw it in.
struct ShownLayer
{
    const PictureLayer* layer = nullptr;
    Colour colour = 0;
};

/// Draws a picture's layers, each in its colour, on the painter's background. Figures are built as outline paths in the
/// frame's body and filled; what is thinner than two pixels is stroked, so that it can be seen at every zoom.
class BoardPainter : public CKPainter
{
public:
    /// The picture is the caller's and has to outlive the painter. Shows all its layers.
    explicit BoardPainter(const BoardPicture& picture);

    /// Shows all layers and mirrors the board: the layers of the back lie on top.
    void ShowFromBack();

    /// Layers to show, in drawing order. Holes are drilled through all copper: where copper is shown and they are not
    /// in the list, they are drawn on top.
    void ShowLayers(const std::vector<const PictureLayer*>& layers);
    /// Exactly these, in this order and these colours. The layers may be others than the picture's; they have to
    /// outlive the painter or be replaced.
    void ShowLayers(std::vector<ShownLayer> layers);

    void DrawBody(CWnd* wnd, CDC* dc) override;
    int IsExistData(CWnd* wnd) override;
    /// The centre lines of the board's outline; see BoundsOf(const BoardPicture&, bool).
    KRectangleD GetTargetSize() override;
    /// The same with the thickness of the outline.
    virtual KRectangleD GetInkSize();

protected:
    /// The target area for bounds, never without extent; any area where they hold nothing.
    static KRectangleD TargetFor(CKRectD box);

private:
    void ShowAll();
    void DrawLayer(CDC* dc, const PictureLayer& layer, COLORREF colour);
    void DrawLineShape(CDC* dc, COLORREF colour, CKGeomLine& line);
    void DrawArcShape(CDC* dc, COLORREF colour, CKGeomArc& arc);
    void DrawPolygonShape(CDC* dc, COLORREF colour, CKGeomPolygon& polygon);
    void DrawTextShape(CDC* dc, COLORREF colour, CKGeomText& text);

    const BoardPicture& picture;
    std::vector<ShownLayer> shown;
};

} // namespace viewer
