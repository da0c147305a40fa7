/// Windows: 32-bit pixels in memory, and device contexts on them.
#include "gdi/MemoryWindows.h"

#include "gdi/DeviceContext.h"
#include "gdi/PixelMemory.h"

#include <algorithm>
#include <cstring>

namespace gdi {

HWND CreateMemoryWindow(int x, int y, int width, int height)
{
    Surface surface;
    uint8_t* const memory = AllocatePixels(width, height, 32, surface);
    Window* const window = memory == nullptr ? nullptr : tables.windows.Create();
    if (window == nullptr) {
        FreePixels(memory);
        return nullptr;
    }
    window->surface = surface;
    window->memory = memory;
    window->x = x;
    window->y = y;
    return MakeHandle<HWND>(*window);
}

namespace {

/// What both sizes have in common keeps its pixels, as a window on a screen does.
void KeepOverlap(const Surface& from, const Surface& to)
{
    const size_t bytes = size_t(std::min(from.width, to.width)) * 4;
    for (int32_t y = 0; y < std::min(from.height, to.height); ++y) {
        std::memcpy(Row(to, y), Row(from, y), bytes);
    }
}

/// The end of an edge, held within int32.
LONG FarEdge(LONG start, int32_t extent)
{
    return LONG(std::min<int64_t>(int64_t(start) + extent, 0x7FFFFFFF));
}

/// A null handle is the screen, which has a resolution but no pixels.
HDC NewWindowDc(HWND handle)
{
    const Window* const window = tables.windows.Find(handle);
    if (handle != nullptr && window == nullptr) {
        return nullptr;
    }
    DeviceContext* const dc = NewDeviceContext(window != nullptr ? &window->surface : nullptr);
    if (dc == nullptr) {
        return nullptr;
    }
    dc->window = handle;
    dc->ownsWindowArea = true;
    return MakeHandle<HDC>(*dc);
}

} // namespace
} // namespace gdi

using namespace gdi;

BOOL IsWindow(HWND window)
{
    return tables.windows.Find(window) != nullptr;
}

BOOL GetClientRect(HWND handle, LPRECT rect)
{
    const Window* const window = tables.windows.Find(handle);
    if (window == nullptr || rect == nullptr) {
        return FALSE;
    }
    *rect = {0, 0, window->surface.width, window->surface.height};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, LPRECT rect)
{
    const Window* const window = tables.windows.Find(handle);
    if (window == nullptr || rect == nullptr) {
        return FALSE;
    }
    *rect = {window->x, window->y, FarEdge(window->x, window->surface.width),
             FarEdge(window->y, window->surface.height)};
    return TRUE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL)
{
    Window* const window = tables.windows.Find(handle);
    if (window == nullptr) {
        return FALSE;
    }
    if (width != window->surface.width || height != window->surface.height) {
        // The new pixels first: without memory for them the window stays as it was.
        Surface surface;
        uint8_t* const memory = AllocatePixels(width, height, 32, surface);
        if (memory == nullptr) {
            return FALSE;
        }
        KeepOverlap(window->surface, surface);
        FreePixels(window->memory);
        window->memory = memory;
        window->surface = surface; // device contexts look here, so they follow
    }
    window->x = x;
    window->y = y;
    return TRUE;
}

BOOL DestroyWindow(HWND handle)
{
    Window* const window = tables.windows.Find(handle);
    if (window == nullptr) {
        return FALSE;
    }
    // Device contexts and the clipboard first: both refer to the window, and both outlive it.
    DetachFromWindow(*window);
    CloseClipboardOf(handle);
    FreePixels(window->memory);
    window->memory = nullptr;
    window->surface = {};
    tables.windows.Free(*window);
    return TRUE;
}

HDC GetDC(HWND window)
{
    return NewWindowDc(window);
}

/// Windows have no frame, so this is the client area again.
HDC GetWindowDC(HWND window)
{
    return NewWindowDc(window);
}

int ReleaseDC(HWND window, HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    // By the handle alone, so that device contexts of a window that is gone can still be released.
    if (dc == nullptr || !dc->ownsWindowArea || dc->window != window) {
        return 0;
    }
    FreeDeviceContext(*dc);
    return 1;
}

int GdiGetWindowPixels(HWND handle, BITMAP* pixels)
{
    const Window* const window = tables.windows.Find(handle);
    if (window == nullptr || pixels == nullptr || window->surface.width == 0 || window->surface.height == 0) {
        return 0;
    }
    const Surface& surface = window->surface;
    *pixels = {0, surface.width, surface.height, LONG(surface.stride), 1, 32, surface.bits};
    return 1;
}
