/// Making bitmaps, and reading and writing single pixels.
#include "gdi/Colors.h"
#include "gdi/DeviceContext.h"
#include "gdi/PixelMemory.h"
#include "gdi/Trace.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace gdi;

namespace {

/// A bitmap over new zeroed memory; null when the size is refused or there is no memory or slot.
Bitmap* NewBitmap(int64_t width, int64_t height, int bitsPerPixel)
{
    Surface surface;
    uint8_t* const memory = AllocatePixels(width, height, bitsPerPixel, surface);
    Bitmap* const bitmap = memory == nullptr ? nullptr : tables.bitmaps.Create();
    if (bitmap == nullptr) {
        FreePixels(memory);
        return nullptr;
    }
    bitmap->surface = surface;
    bitmap->memory = memory;
    bitmap->section = bitmap->bottomUp = false;
    bitmap->holder = nullptr;
    return bitmap;
}

/// Rows that come padded to 16 bits, as the platform's device-dependent bitmaps are; ours are padded to 32.
void CopyRowsIn(const Surface& surface, const void* bits)
{
    const size_t rowBytes = size_t((int64_t(surface.width) * surface.bitsPerPixel + 15) / 16 * 2);
    const uint8_t* row = static_cast<const uint8_t*>(bits);
    for (int32_t y = 0; y < surface.height; ++y, row += rowBytes) {
        std::memcpy(Row(surface, y), row, rowBytes);
    }
}

/// Whether a logical point shows on a pixel of the surface, and on which.
bool FindPixel(const DeviceContext& dc, int x, int y, DevicePoint& pixel)
{
    pixel = dc.world.ToDevice(x, y);
    const Surface& surface = *dc.surface;
    const bool inside = pixel.x >= 0 && pixel.y >= 0 && pixel.x < surface.width && pixel.y < surface.height;
    return inside && surface.bits != nullptr;
}

} // namespace

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    if (width < 0 || height < 0 || planes != 1 || bitsPerPixel > 32) {
        return nullptr;
    }
    // A size of 0 is no failure: callers make a bitmap for a text before they know that its extent is 0.
    const bool single = width == 0 || height == 0;
    Bitmap* const bitmap = single ? NewBitmap(1, 1, 1) : NewBitmap(width, height, int(bitsPerPixel));
    if (bitmap == nullptr) {
        return nullptr;
    }
    if (bits != nullptr && !single) {
        CopyRowsIn(bitmap->surface, bits);
    }
    return MakeHandle<HBITMAP>(*bitmap);
}

HBITMAP CreateCompatibleBitmap(HDC handle, int width, int height)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? nullptr : CreateBitmap(width, height, 1, UINT(dc->surface->bitsPerPixel), nullptr);
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD)
{
    if (bits != nullptr) {
        *bits = nullptr;
    }
    if (info == nullptr || section != nullptr || usage != DIB_RGB_COLORS) {
        return nullptr;
    }
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const bool known = header.biSize >= sizeof header && header.biPlanes == 1 && header.biCompression == BI_RGB;
    if (!known || header.biWidth <= 0 || header.biHeight == 0 || header.biBitCount > 32) {
        return nullptr;
    }
    Bitmap* const bitmap = NewBitmap(header.biWidth, std::abs(int64_t(header.biHeight)), header.biBitCount);
    if (bitmap == nullptr) {
        return nullptr;
    }
    // The host's rows may run upwards; everyone else sees row 0 on top, through a stride below 0.
    bitmap->section = true;
    bitmap->bottomUp = header.biHeight > 0;
    if (bitmap->bottomUp) {
        Surface& surface = bitmap->surface;
        surface.bits += surface.stride * (surface.height - 1);
        surface.stride = -surface.stride;
    }
    if (bits != nullptr) {
        *bits = bitmap->memory;
    }
    return MakeHandle<HBITMAP>(*bitmap);
}

COLORREF SetPixel(HDC handle, int x, int y, COLORREF color)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "SetPixel %d %d 0x%06X", x, y, color & kColorBits);
    DevicePoint at;
    if (dc == nullptr || !FindPixel(*dc, x, y, at)) {
        return CLR_INVALID;
    }
    // The answer is the colour that the pixel took, black or white on a monochrome surface.
    const uint32_t value = ToPixel(*dc->surface, color, dc->bkColor);
    WritePixel(*dc->surface, at.x, at.y, value);
    return ToColor(*dc->surface, value);
}

COLORREF GetPixel(HDC handle, int x, int y)
{
    const DeviceContext* const dc = FindDc(handle);
    DevicePoint at;
    if (dc == nullptr || !FindPixel(*dc, x, y, at)) {
        return CLR_INVALID;
    }
    return ToColor(*dc->surface, ReadPixel(*dc->surface, at.x, at.y));
}
