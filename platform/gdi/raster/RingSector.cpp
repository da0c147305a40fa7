#include "gdi/raster/RingSector.h"

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/RasterMath.h"
#include "gdi/raster/SolidFormats.h"
#include "gdi/raster/SpanBuffer.h"

#include <algorithm>

namespace gdi {
namespace {

/// Columns, left inside and right outside.
struct Piece
{
    int64_t left;
    int64_t right;
};

/// A handful of pieces of one row.
struct Pieces
{
    Piece list[6];
    int count = 0;

    void Add(int64_t left, int64_t right)
    {
        if (left < right)
            list[count++] = {left, right};
    }
};

constexpr int64_t kFar = int64_t(1) << 40; // beyond every pixel

/// One side of a radial in a row: a half line, everything or nothing.
class HalfPlane
{
public:
    /// Points p with cross(direction, p) >= 0 (`clockwise`) or <= 0; p counts from the centre.
    HalfPlane(double x, double y, bool clockwise)
        : m_level(y == 0), m_leftPart(clockwise == (y > 0)), m_downward(clockwise == (x > 0)),
          m_slope(m_level ? 0 : x / y)
    {}

    /// Columns of the row `offset2` / 2 below the centre centerX2 / 2. The radials run inside the discs at the arc's
    /// ends, at whose rims the rounding of the slope cannot be seen.
    Piece At(int64_t centerX2, int64_t offset2) const
    {
        if (m_level)
            return offset2 == 0 || (offset2 > 0) == m_downward ? Piece{-kFar, kFar} : Piece{0, 0};
        const double border = (static_cast<double>(centerX2) + m_slope * static_cast<double>(offset2)) * 0.5;
        const int64_t column = FloorToInt64(border);
        return m_leftPart ? Piece{-kFar, column + 1} : Piece{column + (static_cast<double>(column) < border), kFar};
    }

private:
    bool m_level;
    bool m_leftPart;
    bool m_downward;
    double m_slope;
};

/// Everything about an arc that does not change from row to row.
class RingRows
{
public:
    RingRows(const EllipseArc& arc, int32_t width, const Box& clip, PixelWriter& writer)
        : m_arc(arc), m_sector(arc), m_outer(arc.radiusX2 + width), m_inner(arc.radiusX2 - width),
          m_from(m_sector.FromX(), m_sector.FromY(), true), m_to(m_sector.ToX(), m_sector.ToY(), false), m_clip(clip),
          m_spans(writer)
    {}

    /// Draws the row; `start` and `end` are what the discs at the ends have of it, possibly nothing.
    void Draw(int64_t row, Piece start, Piece end)
    {
        Pieces ring;
        CutRing(row, ring);
        Pieces merged;
        merged.Add(start.left, start.right);
        merged.Add(end.left, end.right);
        const int64_t offset2 = 2 * row - m_arc.centerY2;
        if (m_sector.IsWhole())
            merged = ring;
        else if (ring.count > 0)
            CutSector(ring, m_from.At(m_arc.centerX2, offset2), m_to.At(m_arc.centerX2, offset2), merged);
        Emit(static_cast<int32_t>(row), merged);
    }

private:
    void CutRing(int64_t row, Pieces& ring) const
    {
        const int64_t offset2 = 2 * row - m_arc.centerY2;
        const DiscRow outer = RowOfDisc(m_arc.centerX2, m_outer, offset2);
        if (outer.left >= outer.right)
            return;
        // The hole leaves its own border to the ring where the disc takes it and the other way round.
        const DiscRow hole = m_inner > 0 ? RowOfDisc(m_arc.centerX2, m_inner, offset2) : DiscRow{0, 0};
        if (hole.left >= hole.right) {
            ring.Add(outer.left, outer.right);
            return;
        }
        ring.Add(outer.left, hole.left);
        ring.Add(hole.right, outer.right);
    }

    void CutSector(const Pieces& ring, Piece from, Piece to, Pieces& merged) const
    {
        const Piece both = {std::max(from.left, to.left), std::min(from.right, to.right)};
        for (int i = 0; i < ring.count; ++i) {
            const Piece& piece = ring.list[i];
            if (m_sector.IsConvex()) {
                merged.Add(std::max(piece.left, both.left), std::min(piece.right, both.right));
                continue;
            }
            merged.Add(std::max(piece.left, from.left), std::min(piece.right, from.right));
            merged.Add(std::max(piece.left, to.left), std::min(piece.right, to.right));
        }
    }

    void Emit(int32_t row, Pieces& pieces)
    {
        for (int i = 1; i < pieces.count; ++i) {
            for (int k = i; k > 0 && pieces.list[k].left < pieces.list[k - 1].left; --k)
                std::swap(pieces.list[k], pieces.list[k - 1]);
        }
        for (int i = 0; i < pieces.count;) {
            Piece whole = pieces.list[i];
            for (++i; i < pieces.count && pieces.list[i].left <= whole.right; ++i)
                whole.right = std::max(whole.right, pieces.list[i].right);
            const int32_t left = Clamp(whole.left, m_clip.left, m_clip.right);
            const int32_t right = Clamp(whole.right, m_clip.left, m_clip.right);
            if (left < right)
                m_spans.Add(row, left, right);
        }
    }

    const EllipseArc& m_arc;
    ArcSector m_sector;
    int64_t m_outer; // diameters of the circles around and inside the stroke
    int64_t m_inner;
    HalfPlane m_from;
    HalfPlane m_to;
    Box m_clip;
    SpanBuffer m_spans;
};

/// Rows that the arc itself reaches: those of its ends and of the circle's top and bottom where it passes them.
void ArcRows(const EllipseArc& arc, int64_t& top, int64_t& bottom)
{
    const ArcSector sector(arc);
    top = std::min(arc.start.y, arc.end.y);
    bottom = std::max(arc.start.y, arc.end.y);
    if (sector.Holds(0, -1))
        top = std::min(top, FloorHalf(arc.centerY2 - arc.radiusY2));
    if (sector.Holds(0, 1))
        bottom = std::max(bottom, CeilHalf(arc.centerY2 + arc.radiusY2));
}

Piece PieceOfEnd(DevicePoint centre, int32_t width, const RoundEndRow* table, int64_t row)
{
    const int64_t offset = row - centre.y;
    if (offset < -(width / 2) || offset > (width - 1) / 2)
        return {0, 0};
    const RoundEndRow disc = table ? table[offset + width / 2] : RoundEnds::RowOf(width, offset);
    return {int64_t(centre.x) - disc.left, int64_t(centre.x) + disc.right};
}

/// The circle lies around a pixel, so that its rows are the same wherever it is, and has a table of them.
bool IsPixelDisc(const EllipseArc& circle)
{
    return ((circle.centerX2 | circle.centerY2) & 1) == 0 && circle.radiusX2 <= RoundEnds::kLargest;
}

template <class Emit>
void ForEachRowOfPixelDisc(const EllipseArc& circle, RoundEnds& ends, const Box& clip, Emit emit)
{
    const int32_t diameter = static_cast<int32_t>(circle.radiusX2);
    const int64_t x = circle.centerX2 / 2;
    const int64_t y = circle.centerY2 / 2;
    const RoundEndRow* const table = ends.Table(diameter) + diameter / 2;
    const int64_t first = std::max<int64_t>(y - diameter / 2, clip.top);
    const int64_t end = std::min<int64_t>(y + (diameter + 1) / 2, clip.bottom);
    const bool cut = x - diameter / 2 < clip.left || x + diameter / 2 + 1 > clip.right;
    for (int64_t row = first; row < end; ++row) {
        const RoundEndRow disc = table[row - y];
        const int64_t left = x - disc.left;
        const int64_t right = x + disc.right;
        if (cut)
            emit(static_cast<int32_t>(row), Clamp(left, clip.left, clip.right), Clamp(right, clip.left, clip.right));
        else
            emit(static_cast<int32_t>(row), static_cast<int32_t>(left), static_cast<int32_t>(right));
    }
}

} // namespace

void DrawRingSector(const EllipseArc& arc, int32_t width, RoundEnds& ends, const Box& clip, PixelWriter& writer)
{
    int64_t top;
    int64_t bottom;
    ArcRows(arc, top, bottom);
    const int64_t first = std::max<int64_t>(top - width / 2 - 1, clip.top);
    const int64_t end = std::min<int64_t>(bottom + width / 2 + 2, clip.bottom);
    const RoundEndRow* const table = ends.Table(width);
    RingRows rows(arc, width, clip, writer);
    for (int64_t row = first; row < end; ++row) {
        const Piece start = PieceOfEnd(arc.start, width, table, row);
        const Piece last = PieceOfEnd(arc.end, width, table, row);
        rows.Draw(row, start, last);
    }
}

bool StoreDisc(const EllipseArc& circle, RoundEnds& ends, const Box& clip, const StoreFormat& format)
{
    if (!IsPixelDisc(circle))
        return false;
    ForEachRowOfPixelDisc(circle, ends, clip, [format](int32_t row, int32_t left, int32_t right) {
        WriteSpan(format, {row, left, right});
    });
    return true;
}

void FillDisc(const EllipseArc& circle, RoundEnds& ends, const Box& clip, PixelWriter& writer)
{
    SpanBuffer spans(writer);
    if (IsPixelDisc(circle)) {
        ForEachRowOfPixelDisc(circle, ends, clip,
                              [&](int32_t row, int32_t left, int32_t right) { spans.Add(row, left, right); });
        return;
    }
    const int64_t first = std::max<int64_t>(CeilHalf(circle.centerY2 - circle.radiusY2), clip.top);
    const int64_t end = std::min<int64_t>(CeilHalf(circle.centerY2 + circle.radiusY2), clip.bottom);
    for (int64_t row = first; row < end; ++row) {
        const DiscRow disc = RowOfDisc(circle.centerX2, circle.radiusX2, 2 * row - circle.centerY2);
        spans.Add(static_cast<int32_t>(row), Clamp(disc.left, clip.left, clip.right),
                  Clamp(disc.right, clip.left, clip.right));
    }
}

} // namespace gdi
