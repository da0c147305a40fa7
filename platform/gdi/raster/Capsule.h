/// One wide segment with round ends: a convex shape of one span a row.
#pragma once

#include "gdi/raster/PixelWriter.h"

#include <vector>

namespace gdi {

/// Half widths of discs, row by row, one table for each diameter that came up. Diameters above kLargest are not kept.
class RoundEnds
{
public:
    static constexpr int32_t kLargest = 1024;

    /// Reaches of the rows 0 to diameter / 2 away from the centre: that many pixels left of the centre belong to the
    /// disc. Null for a diameter without a table. Valid until the next call.
    const int32_t* Table(int32_t diameter);

private:
    std::vector<std::vector<int32_t>> m_tables;
};

/// Writes the rows of all points less than width / 2 away from the segment, which is a disc when both
/// points are one. `spans` has room for every row of the clip; spans may be empty. Returns how many were written.
/// Exact for any int32: a point at just that distance belongs to the shape on its left side and at its very top.
size_t CapsuleSpans(DevicePoint from, DevicePoint to, int32_t width, RoundEnds& ends, const Box& clip, Span* spans);

} // namespace gdi
