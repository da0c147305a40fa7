/// Shapes that are shown over a finished frame.
#pragma once

#include "Board.h"

#include "entities/CKGeom.h"

#include <vector>

namespace viewer {

/// The ink of any number of figures as one filled area. Overlays are drawn with exclusive-or, where what is painted
/// twice disappears: all of it is therefore one path, and figures that overlap are united by the winding fill.
class OverlayShape : public CKGeom
{
public:
    /// No figure is shown thinner than this many pixels.
    static constexpr int kThinnest = 3;

    OverlayShape(const std::vector<const Figure*>& figures, Colour colour);

    CKGeom* clone() const override { return new OverlayShape(*this); }
    /// What is outside of the painter's visible rectangle is left out.
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long colour) override;

private:
    std::vector<Figure> figures;
};

} // namespace viewer
