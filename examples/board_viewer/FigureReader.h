/// Reading of the pieces that boards, footprints and pads share: points, graphics, texts, layer names.
#pragma once

#include "Board.h"
#include "SExpr.h"

namespace viewer {

/// Where the children of a footprint or pad lie: turned by an angle about the origin, then moved.
class Placement
{
public:
    /// Leaves positions where the file has them.
    Placement() = default;
    /// At a point of Kolm's frame, turned counter-clockwise by degrees.
    Placement(KPointD origin, double angle);

    /// Kolm's point for a position of the file, whose y points down. Negating y keeps angles as they are seen, but
    /// turns the sense in which a list of points runs.
    KPointD Place(double x, double y) const;
    /// The same for the first two numbers of an item such as (start 1 2). Throws ReadError where the item is missing.
    KPointD Place(const SExpr& parent, std::string_view head) const;

    /// Angle of the frame in degrees.
    double Angle() const { return angle; }

private:
    KPointD origin{};
    double angle = 0;
    double cosine = 1;
    double sine = 0;
};

/// The points of (pts (xy 1 2) ...); arcs among them become chords.
std::vector<KPointD> ReadPoints(const SExpr& parent, const Placement& placement);

/// The figure of a gr_..., fp_... item or a pad's primitive. `kind` is the head without its prefix: "line", "arc",
/// "circle", "rect", "poly" or "curve". False for another kind, and then the figure is unchanged.
bool ReadFigure(const SExpr& item, std::string_view kind, const Placement& placement, Figure& figure);

/// A line, or where the end points and the point between are not on one line, the arc through them.
Figure FigureThroughPoints(KPointD start, KPointD middle, KPointD end);

/// Position, size, justification and the like of a text; the string is the item's `textIndex`-th. The angle is taken as
/// the file has it.
Text ReadText(const SExpr& item, size_t textIndex, const Placement& placement, LayerTable& layers);

/// Whether a text is not to be drawn.
bool IsHidden(const SExpr& text);

/// The lines of a dimension: extension lines, bar and arrow heads.
std::vector<Figure> ReadDimension(const SExpr& item);

/// Index of the layer that the item's (layer ...) names. Throws ReadError where it names none.
int ReadLayer(const SExpr& item, LayerTable& layers);
/// Layers of the item's (layers ...), or (layer ...) where it has only that.
LayerSet ReadLayers(const SExpr& item, LayerTable& layers);

/// (net 5 ...), 0 for none.
int ReadNet(const SExpr& item);

} // namespace viewer
