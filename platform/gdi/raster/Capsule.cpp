#include "gdi/raster/Capsule.h"

#include "gdi/raster/RasterMath.h"

#include <algorithm>
#include <cmath>

namespace gdi {
namespace {

/// A disc of the pen around an end of the segment, read by rows.
///
/// The rightmost pixel of a row is one nearer to the centre when the circle passes exactly through a pixel's centre,
/// but for the topmost point. The tables hold that in the sign: ~reach for such a row.
struct End
{
    DevicePoint centre;
    int32_t width;
    const int32_t* table;

    int32_t Reach(int64_t row) const
    {
        const int64_t distance = row < 0 ? -row : row;
        return table ? table[distance] : ReachOf(width, distance);
    }
    static int32_t ReachOf(int64_t width, int64_t distance)
    {
        const int64_t square = width * width - 4 * distance * distance;
        const int64_t reach = FloorSqrt(UInt128(square) / 4);
        const bool exact = reach > 0 && 4 * reach * reach == square;
        return static_cast<int32_t>(exact ? ~reach : reach);
    }
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

/// The sides are where the cross product of segment and pixel is width * length / 2, and the tangent points are
/// width * run / (2 length) rows from the ends. Pixels have integer products, so rounding those two down loses nothing.
Sides SidesOf(int64_t run, int64_t rise, int64_t width)
{
    const int64_t across = run < 0 ? -run : run;
    int64_t reach;    // largest cross product still inside or on the border
    int64_t onBorder; // 1 when that one is on the border
    int64_t tangentDown;
    int64_t tangentUp; // rows to the tangent point, rounded down and up
    constexpr int64_t kSmall = int64_t(1) << 12;
    if (across < kSmall && rise < kSmall && width < kSmall) {
        // Squares below 2^49: the root is exact when it is an integer, and cannot round up to one otherwise.
        const double length = std::sqrt(static_cast<double>(across * across + rise * rise));
        const double product = std::sqrt(static_cast<double>(width * width * (across * across + rise * rise))) * 0.5;
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

/// Rows of the visible part, each with its span; [first, end) in device rows.
class RowFiller
{
public:
    RowFiller(Span* spans, int64_t first, int64_t end, const Box& clip)
        : m_spans(spans), m_first(first), m_end(end), m_clip(clip)
    {}

    void LeftOfEnd(const End& end, int64_t from, int64_t to)
    {
        for (int64_t row = std::max(from, m_first); row < std::min(to, m_end); ++row) {
            const int32_t reach = end.Reach(row - end.centre.y);
            SetLeft(row, int64_t(end.centre.x) - (reach < 0 ? ~reach : reach));
        }
    }
    void RightOfEnd(const End& end, int64_t from, int64_t to)
    {
        for (int64_t row = std::max(from, m_first); row < std::min(to, m_end); ++row) {
            const int32_t reach = end.Reach(row - end.centre.y);
            SetRight(row, int64_t(end.centre.x) + (reach < 0 ? ~reach : reach + 1));
        }
    }
    void LeftSide(const Sides& sides, DevicePoint origin)
    {
        const int64_t from = std::max(origin.y + sides.firstLeft, m_first);
        const int64_t to = std::min(origin.y + sides.lastLeft + 1, m_end);
        if (from >= to)
            return;
        EdgeWalk edge(sides.run, sides.rise, sides.leftOffset, from - origin.y);
        for (int64_t row = from; row < to; ++row, edge.NextRow())
            SetLeft(row, origin.x + edge.Column());
    }
    void RightSide(const Sides& sides, DevicePoint origin)
    {
        const int64_t from = std::max(origin.y + sides.firstRight, m_first);
        const int64_t to = std::min(origin.y + sides.lastRight + 1, m_end);
        if (from >= to)
            return;
        EdgeWalk edge(sides.run, sides.rise, sides.rightOffset, from - origin.y);
        for (int64_t row = from; row < to; ++row, edge.NextRow())
            SetRight(row, origin.x + edge.Column());
    }

private:
    void SetLeft(int64_t row, int64_t column)
    {
        Span& span = m_spans[row - m_first];
        span.row = static_cast<int32_t>(row);
        span.left = Clamp(column, m_clip.left, m_clip.right);
    }
    void SetRight(int64_t row, int64_t column)
    {
        m_spans[row - m_first].right = Clamp(column, m_clip.left, m_clip.right);
    }

    Span* m_spans;
    int64_t m_first;
    int64_t m_end;
    Box m_clip;
};

} // namespace

const int32_t* RoundEnds::Table(int32_t diameter)
{
    if (diameter > kLargest)
        return nullptr;
    const size_t index = static_cast<size_t>(diameter);
    if (index >= m_tables.size())
        m_tables.resize(index + 1);
    std::vector<int32_t>& table = m_tables[index];
    if (table.empty()) {
        for (int64_t distance = 0; distance <= diameter / 2; ++distance)
            table.push_back(End::ReachOf(diameter, distance));
    }
    return table.data();
}

size_t CapsuleSpans(DevicePoint from, DevicePoint to, int32_t width, RoundEnds& ends, const Box& clip, Span* spans)
{
    if (to.y < from.y || (to.y == from.y && to.x < from.x))
        std::swap(from, to);
    // An even width has its topmost point in the first row; its lowest point lies on the border and counts as outside.
    const int64_t first = std::max<int64_t>(int64_t(from.y) - width / 2, clip.top);
    const int64_t end = std::min<int64_t>(int64_t(to.y) + (width - 1) / 2 + 1, clip.bottom);
    const int64_t left = std::min(from.x, to.x);
    const int64_t right = std::max(from.x, to.x);
    if (first >= end || left - width / 2 >= clip.right || right + width / 2 < clip.left)
        return 0;

    const int32_t* const table = ends.Table(width);
    const End upper = {from, width, table};
    const End lower = {to, width, table};
    RowFiller rows(spans, first, end, clip);
    if (from.y == to.y) { // level: the sides are single rows, which the round ends reach as well
        rows.LeftOfEnd(upper, first, end);
        rows.RightOfEnd(lower, first, end);
        return static_cast<size_t>(end - first);
    }
    const Sides sides = SidesOf(int64_t(to.x) - from.x, int64_t(to.y) - from.y, width);
    rows.LeftOfEnd(upper, first, from.y + sides.firstLeft);
    rows.LeftSide(sides, from);
    rows.LeftOfEnd(lower, from.y + sides.lastLeft + 1, end);
    rows.RightOfEnd(upper, first, from.y + sides.firstRight);
    rows.RightSide(sides, from);
    rows.RightOfEnd(lower, from.y + sides.lastRight + 1, end);
    return static_cast<size_t>(end - first);
}

} // namespace gdi
