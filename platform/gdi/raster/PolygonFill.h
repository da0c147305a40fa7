/// Inside of any closed figures of lines and arcs, row by row.
#pragma once

#include "gdi/raster/DevicePath.h"
#include "gdi/raster/PixelWriter.h"
#include "gdi/raster/Rasterizer.h"
#include "gdi/raster/RasterMath.h"

#include <vector>

namespace gdi {

/// Fills by the edges that cross a row's centre line: those that start in a row are found by bucket, the active ones
/// stay sorted by column. An edge covers the rows from its upper end (inside) to its lower end (outside) and is always
/// read from the top, so that the two sides of a seam meet without gap or overlap and coincident opposite edges cancel.
///
/// Edges above, below and right of the clip are dropped; those left of it only count. Costs the visible rows of the
/// edges. Arcs are edges themselves, split at the ellipse's top and bottom and solved in every row. Keeps its buffers.
class PolygonFill
{
public:
    void Fill(const DevicePath& path, FillRule rule, const Box& clip, PixelWriter& writer);

private:
    /// Where a piece of an ellipse begins or ends: the ellipse's top or bottom, or an end of the arc.
    struct SideEnd
    {
        int64_t y;
        int32_t x;     ///< of an end of the arc
        double trueY2; ///< doubled, before it was rounded to `y`; minus infinity for top and bottom
    };

    /// A side of an ellipse, or a line when `arc` is null.
    struct Edge
    {
        EdgeWalk walk;
        int32_t originX; ///< of a line; of a side the column in `lateRow`
        int32_t lateRow; ///< row that a side covers before its curve begins, -1 for none
        int32_t endRow;  ///< first row below the edge
        int32_t next;    ///< the next edge that starts in the same row, -1 for none
        int32_t winding; ///< +1 downward, -1 upward
        const EllipseArc* arc;
        bool rightHalf;
    };
    struct Active
    {
        int32_t column;
        int32_t edge;
    };

    void AddPath(const DevicePath& path);
    void AddLine(DevicePoint from, DevicePoint to);
    void AddArc(const EllipseArc& arc);
    void AddSide(const EllipseArc& arc, bool rightHalf, SideEnd from, SideEnd to, int32_t winding);
    void AddEdge(const Edge& edge, int32_t firstRow, int64_t leftmost, int64_t rightmost);
    int32_t ColumnAt(Edge& edge, int32_t row) const;
    void Advance(int32_t row);
    void SortActive();
    template <class Inside>
    void EmitRows(Inside inside, PixelWriter& writer);

    Box m_clip = {0, 0, 0, 0};
    std::vector<Edge> m_edges;
    std::vector<int32_t> m_firstInRow; ///< by visible row: the first of the edges that start there, -1 for none
    std::vector<int32_t> m_leftOfClip; ///< by visible row: change of the winding number left of the clip
    std::vector<Active> m_active;
};

} // namespace gdi
