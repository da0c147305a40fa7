/// The quick drawing of a board while it is dragged: outlines only.
#pragma once

#include "BoardPicture.h"

#include <afxwin.h>

class CKPainter;

namespace viewer {

/// Whether a shape may be seen in the painter's visible rectangle. Shapes without an area (CKEntity) always may.
bool IsInView(CKPainter& painter, CKGeom& shape);

/// Draws the outlines of a layer's shapes with the one-pixel pen, as one path in the frame's body: a stroke of the pen
/// costs more than what it draws. Lines that are hardly wider than the pen are their own outline; what is smaller than
/// a pixel and texts too small to be read are left out.
void DrawOutlines(CKPainter& painter, CDC* dc, const PictureLayer& layer, COLORREF colour);

} // namespace viewer
