/// The pixels of a bitmap, row by row from the top.
#pragma once

#include <afxwin.h>

#include <cstdint>
#include <vector>

namespace viewer {

/// Reads a bitmap that is not selected in any device context.
class BitmapRows
{
public:
    /// The bitmap is the caller's and has to live as long. Throws std::runtime_error where it cannot be read.
    explicit BitmapRows(HBITMAP bitmap);

    int Width() const { return width; }
    int Height() const { return height; }
    /// Pixels from left to right: blue in the low byte, then green, then red; the high byte is 0. Valid until the next
    /// call. Throws std::runtime_error outside of 0 ... height - 1.
    const std::vector<uint32_t>& Row(int y);

private:
    HBITMAP bitmap;
    CDC dc;
    int width = 0;
    int height = 0;
    std::vector<uint32_t> row;
};

} // namespace viewer
