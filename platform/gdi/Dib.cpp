/// Bitmaps as rows of a device-independent bitmap.
#include "gdi/Colors.h"
#include "gdi/DeviceContext.h"
#include "gdi/PixelMemory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace gdi;

namespace {

/// Describes the bitmap in a header that asks for it with a bit count of 0.
void DescribeInHeader(const Surface& surface, BITMAPINFOHEADER& header)
{
    header.biWidth = surface.width;
    header.biHeight = surface.height;
    header.biPlanes = 1;
    header.biBitCount = WORD(surface.bitsPerPixel);
    header.biCompression = BI_RGB;
    header.biXPelsPerMeter = header.biYPelsPerMeter = 0;
    header.biClrUsed = header.biClrImportant = 0;
}

/// Fills in the image size; false for a header that no rows can be made for.
bool CompleteHeader(BITMAPINFOHEADER& header)
{
    const WORD count = header.biBitCount;
    if (header.biWidth <= 0 || header.biHeight == 0 || header.biPlanes != 1 || header.biCompression != BI_RGB ||
        (count != 1 && count != 24 && count != 32))
    {
        return false;
    }
    const int64_t rows = std::abs(int64_t(header.biHeight));
    const int64_t rowBytes = RowBytes(header.biWidth, count);
    if (rowBytes > 0xFFFFFFFFLL / rows) {
        return false;
    }
    header.biSizeImage = DWORD(rowBytes * rows);
    return true;
}

/// A pixel value of a surface as it stands in rows of another depth.
uint32_t ConvertDepth(uint32_t value, int from, int to)
{
    if (to == 1) {
        return from == 1 ? value : NearerValue(SwapRedBlue(value));
    }
    if (from == 1) {
        return value != 0 ? 0xFFFFFF : 0;
    }
    return value & 0xFFFFFF;
}

/// One row into another depth. Columns beyond the bitmap and the padding come out as zero.
void CopyRow(const Surface& surface, int32_t y, const Surface& out, int32_t outY)
{
    const int32_t columns = std::min(surface.width, out.width);
    std::memset(Row(out, outY), 0, size_t(RowBytes(out.width, out.bitsPerPixel)));
    if (surface.bitsPerPixel == out.bitsPerPixel && surface.width == out.width && out.bitsPerPixel == 32) {
        std::memcpy(Row(out, outY), Row(surface, y), size_t(columns) * 4);
        return;
    }
    for (int32_t x = 0; x < columns; ++x) {
        WritePixel(out, x, outY, ConvertDepth(ReadPixel(surface, x, y), surface.bitsPerPixel, out.bitsPerPixel));
    }
}

/// Row numbers count from the bottom for a bottom-up request, as its rows do.
int CopyRows(const Surface& surface, UINT startRow, UINT rows, void* bits, const BITMAPINFOHEADER& header)
{
    const bool bottomUp = header.biHeight > 0;
    const int64_t available = std::min(std::abs(int64_t(header.biHeight)), int64_t(surface.height)) - startRow;
    const int32_t count = int32_t(std::max<int64_t>(0, std::min<int64_t>(available, rows)));
    const Surface out = {static_cast<uint8_t*>(bits), ptrdiff_t(RowBytes(header.biWidth, header.biBitCount)),
                         header.biWidth, count, header.biBitCount};
    for (int32_t i = 0; i < count; ++i) {
        const int32_t row = int32_t(startRow) + i;
        CopyRow(surface, bottomUp ? surface.height - 1 - row : row, out, i);
    }
    return count;
}

} // namespace

int GetDIBits(HDC dc, HBITMAP handle, UINT startRow, UINT rows, LPVOID bits, BITMAPINFO* info, UINT usage)
{
    const Bitmap* const bitmap = tables.bitmaps.Find(handle);
    if (FindDc(dc) == nullptr || bitmap == nullptr || bitmap->memory == nullptr || info == nullptr ||
        usage != DIB_RGB_COLORS || info->bmiHeader.biSize < sizeof info->bmiHeader)
    {
        return 0;
    }
    BITMAPINFOHEADER& header = info->bmiHeader;
    if (bits == nullptr) {
        if (header.biBitCount == 0) {
            DescribeInHeader(bitmap->surface, header);
        }
        return CompleteHeader(header) ? bitmap->surface.height : 0;
    }
    if (!CompleteHeader(header)) {
        return 0;
    }
    if (header.biBitCount == 1) {
        const RGBQUAD blackWhite[2] = {{0, 0, 0, 0}, {255, 255, 255, 0}};
        std::memcpy(reinterpret_cast<uint8_t*>(info) + header.biSize, blackWhite, sizeof blackWhite);
    }
    return CopyRows(bitmap->surface, startRow, rows, bits, header);
}
