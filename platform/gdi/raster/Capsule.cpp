#include "gdi/raster/Capsule.h"

#include "gdi/raster/RasterMath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gdi {
namespace {

/// A disc of the pen around an end of the segment, read by rows.
struct End
{
    DevicePoint centre;
    int32_t width;
    const RoundEndRow* table;

    RoundEndRow At(int64_t offset) const { return table ? table[offset + width / 2] : RoundEnds::RowOf(width, offset); }
};

/// A straight edge as EdgeWalk, for runs, rises and widths below kSmall: in steps of 2^-32 of a column. The edge's
/// exact columns are multiples of 1 / rise, and the start lies half way between two of them; the errors of all rows
/// together stay below 2^-18, so that no multiple is missed.
class ShortEdgeWalk
{
public:
    static constexpr int64_t kSmall = int64_t(1) << 12;

    ShortEdgeWalk(int64_t run, int64_t rise, int64_t offset, int64_t row)
    {
        const double scale = 4294967296.0 / static_cast<double>(rise);
        m_slope = static_cast<int64_t>(static_cast<double>(run) * scale);
        m_column = static_cast<int64_t>((static_cast<double>(run * row + offset + rise) - 0.5) * scale);
    }
    int64_t Column() const { return m_column >> 32; }
    void NextRow() { m_column += m_slope; }

private:
    int64_t m_column;
    int64_t m_slope;
};

/// What decides which rows belong to the straight sides. Rows are counted from the upper end; the sides run along
/// x = (run * row + offset) / rise and touch the round ends in the rows left + row and right - row (rounded inward).
struct Sides
{
    int64_t run;
    int64_t rise;
    int64_t leftOffset;
    int64_t rightOffset;
    int64_t firstLeft, lastLeft;   ///< rows of the left side, last inside
    int64_t firstRight, lastRight; ///< rows of the right side
};

bool IsShort(int64_t across, int64_t rise, int64_t width)
{
    return across < ShortEdgeWalk::kSmall && rise < ShortEdgeWalk::kSmall && width < ShortEdgeWalk::kSmall;
}

/// The sides are where the cross product of segment and pixel is width * length / 2, and the tangent points are
/// width * run / (2 length) rows from the ends. Pixels have integer products, so rounding those two down loses nothing.
Sides SidesOf(int64_t run, int64_t rise, int64_t width)
{
    const int64_t across = run < 0 ? -run : run;
    int64_t reach;    // largest cross product still inside or on the border
    int64_t onBorder; // 1 when that one is on the border
    int64_t tangentDown;
    int64_t tangentUp; // rows to the tangent point, rounded down and up
    if (IsShort(across, rise, width)) {
        // The square of the product is an integer below 2^49, so that its root is far enough from the next integer for
        // two roundings, and is exact when it is one itself.
        const double length = std::sqrt(static_cast<double>(across * across + rise * rise));
        const double product = static_cast<double>(width) * length * 0.5;
        reach = static_cast<int64_t>(product);
        onBorder = static_cast<double>(reach) == product;
        const double tangent = static_cast<double>(width * across) * 0.5 / length;
        tangentDown = static_cast<int64_t>(tangent);
        tangentUp = tangentDown + (static_cast<double>(tangentDown) < tangent);
    } else { // lengths have 33 bits and widths 31, so the products below stay under 2^127
        const UInt128 square = UInt128(across) * UInt128(across) + UInt128(rise) * UInt128(rise);
        const UInt128 wide = UInt128(width) * UInt128(width);
        reach = FloorSqrt(wide * square / 4);
        onBorder = UInt128(reach) * UInt128(reach) * 4 == wide * square;
        const UInt128 tangent = wide * (UInt128(across) * UInt128(across));
        tangentDown = FloorSqrt(tangent / square / 4);
        tangentUp = tangentDown;
        tangentUp += UInt128(tangentDown) * UInt128(tangentDown) * square < tangent / 4 + (tangent % 4 != 0);
    }
    Sides sides = {run, rise, -reach, reach - onBorder + 1, 0, 0, 0, 0};
    const bool rightward = run >= 0;
    sides.firstLeft = rightward ? tangentUp : -tangentDown;
    sides.lastLeft = rise + (rightward ? tangentDown : -tangentUp);
    sides.firstRight = rightward ? -tangentDown : tangentUp;
    sides.lastRight = rise + (rightward ? -tangentUp : tangentDown);
    return sides;
}

/// The visible rows and their spans. Columns are cut to the clip only where the shape leaves it.
template <bool kClips>
class RowFiller
{
public:
    RowFiller(Span* spans, int64_t first, int64_t end, const Box& clip)
        : m_spans(spans), m_first(first), m_end(end), m_clip(clip)
    {}

    // Rows [from, to) of the disc around an end; those outside the visible ones are skipped.
    void LeftOfEnd(const End& end, int64_t from, int64_t to)
    {
        const int64_t stop = std::min(to, m_end);
        for (int64_t row = std::max(from, m_first); row < stop; ++row) {
            Span& span = m_spans[row - m_first];
            span.row = static_cast<int32_t>(row);
            span.left = Cut(int64_t(end.centre.x) - end.At(row - end.centre.y).left);
        }
    }
    void RightOfEnd(const End& end, int64_t from, int64_t to)
    {
        const int64_t stop = std::min(to, m_end);
        for (int64_t row = std::max(from, m_first); row < stop; ++row)
            m_spans[row - m_first].right = Cut(int64_t(end.centre.x) + end.At(row - end.centre.y).right);
    }

    template <class Edge>
    void AllSides(const Sides& sides, const End& upper, const End& lower)
    {
        const int64_t top = upper.centre.y;
        LeftOfEnd(upper, m_first, top + sides.firstLeft);
        LeftSide<Edge>(sides, upper.centre);
        LeftOfEnd(lower, top + sides.lastLeft + 1, m_end);
        RightOfEnd(upper, m_first, top + sides.firstRight);
        RightSide<Edge>(sides, upper.centre);
        RightOfEnd(lower, top + sides.lastRight + 1, m_end);
    }

private:
    template <class Edge>
    void LeftSide(const Sides& sides, DevicePoint origin)
    {
        const int64_t from = std::max(origin.y + sides.firstLeft, m_first);
        const int64_t to = std::min(origin.y + sides.lastLeft + 1, m_end);
        if (from >= to)
            return;
        Edge edge(sides.run, sides.rise, sides.leftOffset, from - origin.y);
        for (int64_t row = from; row < to; ++row, edge.NextRow()) {
            Span& span = m_spans[row - m_first];
            span.row = static_cast<int32_t>(row);
            span.left = Cut(origin.x + edge.Column());
        }
    }
    template <class Edge>
    void RightSide(const Sides& sides, DevicePoint origin)
    {
        const int64_t from = std::max(origin.y + sides.firstRight, m_first);
        const int64_t to = std::min(origin.y + sides.lastRight + 1, m_end);
        if (from >= to)
            return;
        Edge edge(sides.run, sides.rise, sides.rightOffset, from - origin.y);
        for (int64_t row = from; row < to; ++row, edge.NextRow())
            m_spans[row - m_first].right = Cut(origin.x + edge.Column());
    }
    int32_t Cut(int64_t column) const
    {
        return kClips ? Clamp(column, m_clip.left, m_clip.right) : static_cast<int32_t>(column);
    }

    Span* m_spans;
    int64_t m_first;
    int64_t m_end;
    Box m_clip;
};

template <bool kClips>
void FillRows(const End& upper, const End& lower, RowFiller<kClips> rows, int64_t first, int64_t end)
{
    const int64_t run = int64_t(lower.centre.x) - upper.centre.x;
    const int64_t rise = int64_t(lower.centre.y) - upper.centre.y;
    if (rise == 0) { // level: the sides are single rows, which the round ends reach as well
        rows.LeftOfEnd(upper, first, end);
        rows.RightOfEnd(lower, first, end);
        return;
    }
    const Sides sides = SidesOf(run, rise, upper.width);
    if (IsShort(run < 0 ? -run : run, rise, upper.width))
        rows.template AllSides<ShortEdgeWalk>(sides, upper, lower);
    else
        rows.template AllSides<EdgeWalk>(sides, upper, lower);
}

} // namespace

RoundEndRow RoundEnds::RowOf(int64_t diameter, int64_t offset)
{
    // When the circle passes exactly through a pixel's centre that pixel is inside on the left only, but for the
    // topmost point, where both are one.
    const int64_t square = diameter * diameter - 4 * offset * offset;
    const int64_t reach = FloorSqrt(UInt128(square) / 4);
    const bool exact = reach > 0 && 4 * reach * reach == square;
    return {static_cast<int32_t>(reach), static_cast<int32_t>(reach + 1 - exact)};
}

const RoundEndRow* RoundEnds::Table(int32_t diameter)
{
    if (diameter > kLargest)
        return nullptr;
    const size_t index = static_cast<size_t>(diameter);
    if (index >= m_tables.size())
        m_tables.resize(index + 1);
    if (m_tables[index].empty()) {
        std::vector<RoundEndRow> table; // kept only when complete: memory may run out on the way
        table.reserve(index);
        for (int64_t offset = -(diameter / 2); offset <= (diameter - 1) / 2; ++offset)
            table.push_back(RowOf(diameter, offset));
        m_tables[index] = std::move(table);
    }
    return m_tables[index].data();
}

size_t CapsuleSpans(DevicePoint from, DevicePoint to, int32_t width, RoundEnds& ends, const Box& clip, Span* spans)
{
    if (to.y < from.y || (to.y == from.y && to.x < from.x))
        std::swap(from, to);
    // An even width has its topmost point in the first row; its lowest point lies on the border and counts as outside.
    const int64_t first = std::max<int64_t>(int64_t(from.y) - width / 2, clip.top);
    const int64_t end = std::min<int64_t>(int64_t(to.y) + (width - 1) / 2 + 1, clip.bottom);
    const int64_t left = int64_t(std::min(from.x, to.x)) - width / 2;
    const int64_t right = int64_t(std::max(from.x, to.x)) + width / 2;
    if (first >= end || left >= clip.right || right < clip.left)
        return 0;
    const RoundEndRow* const table = ends.Table(width);
    const End upper = {from, width, table};
    const End lower = {to, width, table};
    if (left >= clip.left && right < clip.right)
        FillRows(upper, lower, RowFiller<false>(spans, first, end, clip), first, end);
    else
        FillRows(upper, lower, RowFiller<true>(spans, first, end, clip), first, end);
    return static_cast<size_t>(end - first);
}

} // namespace gdi
