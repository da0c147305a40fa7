/// One wide segment with round ends: a convex shape of one span a row.
#pragma once

#include "gdi/raster/PixelWriter.h"

#include <vector>

namespace gdi {

/// One row of a disc around a pixel: `left` pixels left of the centre belong to it, the pixel `right` right of it is
/// the first that does not.
struct RoundEndRow
{
    int32_t left;
    int32_t right;
};

/// The rows of discs, one table for each diameter that came up. Diameters above kLargest are not kept.
class RoundEnds
{
public:
    static constexpr int32_t kLargest = 1024;

    /// The rows from diameter / 2 above the centre to (diameter - 1) / 2 below it. Null for a diameter without a table.
    const RoundEndRow* Table(int32_t diameter);

    /// The same for one row, without a table.
    static RoundEndRow RowOf(int64_t diameter, int64_t offset);

private:
    std::vector<std::vector<RoundEndRow>> m_tables;
};

/// Writes the rows of all points less than width / 2 away from the segment, which is a disc when both points are one.
/// `spans` has room for every row of the clip; spans may be empty. Returns how many were written. Exact for any int32:
/// a point at just that distance belongs to the shape on its left side and at its very top.
size_t CapsuleSpans(DevicePoint from, DevicePoint to, int32_t width, RoundEnds& ends, const Box& clip, Span* spans);

} // namespace gdi
