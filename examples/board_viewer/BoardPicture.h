/// The board as Kolm shapes: what is drawn, stored and loaded. The picture is always drawn from these shapes, so that a
/// board and its archive cannot look different.
#pragma once

#include "Board.h"

#include "entities/CKGeomContainer.h"
#include "entities/CKGeomText.h"
#include "foundation/CKRectD.h"

#include <memory>
#include <string>
#include <vector>

namespace viewer {

/// One layer's shapes, in the order in which they are drawn. How board items are told in shapes:
///  - tracks, ovals, graphics: lines and arcs with their thickness; an arc with equal ends is a ring;
///  - discs (vias, round pads, holes): lines of length 0 with the diameter as thickness;
///  - filled areas: polygons, whose outline is a chain of lines as thick as the border;
///  - texts: one text shape per line (see TextStyle).
struct PictureLayer
{
    std::string name;
    Colour colour = 0;
    CKGeomContainer shapes;
};

struct BoardPicture
{
    /// Bottom to top.
    std::vector<std::unique_ptr<PictureLayer>> layers;

    /// Null where there is none of this name.
    const PictureLayer* Find(std::string_view name) const;
};

/// The strokes of a text shape in millimetres where they lie on the board: sheared, sized and turned. The sign of the
/// width mirrors it about the start of the baseline.
std::vector<std::vector<KPointD>> PlacedStrokes(CKGeomText& text);

/// The shapes know their areas (see SetAreas).
BoardPicture MakePicture(const Board& board);

/// Appends to a layer the shapes that show a figure, as MakePicture does.
void AppendShapes(const Figure& figure, PictureLayer& layer);

/// How a text shape is drawn, beyond its string, its place (the start of the baseline) and its angle. It travels in the
/// shape's min/max pair, which belongs to the host and is archived with the shape; the font size of a text shape is
/// not.
struct TextStyle
{
    double width = 1;     ///< of a nominal letter cell in millimetres; negative runs leftward: mirrored
    double height = 1;    ///< of a capital letter in millimetres
    double thickness = 0; ///< of the strokes in millimetres
    double slant = 0;     ///< shear of italic letters

    void Put(CKGeomText& text) const { text.SetMinMax(width, height, thickness, slant); }
    static TextStyle Of(CKGeomText& text);
};

/// Sets each shape's area (CKEntity) to a box that covers its ink, by which shapes out of view are passed over. Shapes
/// at absurd positions get none. Areas are not archived.
void SetAreas(PictureLayer& layer);

/// Bounds of the shapes' centre lines, widened by their thickness when asked; texts do not count. Not initialized when
/// nothing has bounds.
CKRectD BoundsOf(const PictureLayer& layer, bool withThickness);

/// The area that shows the board: the centre lines of its outline, where the board ends, widened by their thickness
/// when asked; or all ink where it has no outline. Not initialized for an empty board.
CKRectD BoundsOf(const BoardPicture& picture, bool withThickness);

} // namespace viewer
