#include "BitmapRows.h"

#include <stdexcept>

namespace viewer {

BitmapRows::BitmapRows(HBITMAP source) : bitmap(source)
{
    BITMAP record = {};
    if (!::GetObject(bitmap, int(sizeof record), &record) || !dc.CreateCompatibleDC(nullptr))
        throw std::runtime_error("no bitmap to read");
    width = record.bmWidth;
    height = record.bmHeight;
    row.resize(size_t(width));
}

const std::vector<uint32_t>& BitmapRows::Row(int y)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height; // positive: rows count from the bottom
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    if (y < 0 || y >= height ||
        ::GetDIBits(dc.GetSafeHdc(), bitmap, UINT(height - 1 - y), 1, row.data(), &info, DIB_RGB_COLORS) != 1)
        throw std::runtime_error("a row of the bitmap cannot be read");
    for (uint32_t& pixel : row)
        pixel &= 0xFFFFFF;
    return row;
}

} // namespace viewer
