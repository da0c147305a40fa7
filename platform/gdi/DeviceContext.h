/// What a device context holds, and the tables of all objects.
#pragma once

#include "gdi/Objects.h"
#include "gdi/raster/DevicePath.h"
#include "gdi/raster/Rasterizer.h"
#include "gdi/Transform.h"

class CStringArray;

namespace gdi {

enum class PathState : uint8_t
{
    None,
    Open,    ///< between BeginPath and EndPath
    Finished ///< waits to be drawn
};

/// One device context. The selected objects are referenced: they live at least as long as the selection.
struct DeviceContext : Slot
{
    const Surface* surface = nullptr; ///< of the selected bitmap, of the window, or ownSurface
    CStringArray* trace = nullptr;    ///< the host's
    Pen* pen = nullptr;
    Brush* brush = nullptr;
    Font* font = nullptr;
    Bitmap* bitmap = nullptr; ///< null on window device contexts
    Palette* palette = nullptr;

    Transform world; ///< the identity unless graphicsMode is GM_ADVANCED
    POINT position = {};
    PathState pathState = PathState::None;
    bool figureOpen = false; ///< the path has a figure that lines go on with
    int graphicsMode = GM_COMPATIBLE;
    int rop = R2_COPYPEN;
    int bkMode = OPAQUE;
    int polyFillMode = ALTERNATE;
    int arcDirection = AD_COUNTERCLOCKWISE;
    UINT textAlign = 0;
    COLORREF bkColor = 0xFFFFFF;
    COLORREF textColor = 0;

    HWND window = nullptr; ///< null for memory device contexts and the screen
    bool memory = false;
    bool ownsWindowArea = false; ///< from GetDC or GetWindowDC: ended by ReleaseDC, not by DeleteDC

    DevicePath path;
    DevicePath scratch; ///< lines drawn outside of a path

    /// The pixel of the monochrome bitmap that a memory device context begins with.
    uint8_t ownBits[4] = {};
    Surface ownSurface = {};

    Box Clip() const { return {0, 0, surface->width, surface->height}; }
};

struct Tables
{
    HandlePool<DeviceContext, Kind::Dc> dcs;
    HandlePool<Pen, Kind::Pen> pens;
    HandlePool<Brush, Kind::Brush> brushes;
    HandlePool<Font, Kind::Font> fonts;
    HandlePool<Bitmap, Kind::Bitmap> bitmaps;
    HandlePool<Palette, Kind::Palette> palettes;
    HandlePool<Window, Kind::Window> windows;
};

extern Tables tables;

/// Stock objects, made when the first device context or caller needs one. Null when memory ran out, and for an unknown
/// index.
Slot* StockObject(int index);
/// The 1 x 1 monochrome bitmap of new memory device contexts: a handle for all, the pixel belongs to each device
/// context.
Bitmap* InitialBitmap();

inline DeviceContext* FindDc(HDC dc)
{
    return tables.dcs.Find(dc);
}

/// The one rasterizer of the drawing thread.
Rasterizer& SharedRasterizer();

/// Draw one path with the selected pen or brush under the raster operation.
void StrokeSegment(DeviceContext& dc, DevicePoint from, DevicePoint to); ///< a path of one line
void StrokeFigures(DeviceContext& dc, const DevicePath& path);           ///< any other
inline void Stroke(DeviceContext& dc, const DevicePath& path)
{
    if (path.IsSegment()) {
        StrokeSegment(dc, path.From(), path.To());
    } else {
        StrokeFigures(dc, path);
    }
}
void FillInside(DeviceContext& dc, const DevicePath& path);
/// The ink of the selected brush; false when it draws nothing.
bool BrushInk(const DeviceContext& dc, Ink& ink);
bool IsHollow(const Pen& pen);
int32_t DevicePenWidth(const DeviceContext& dc); ///< 1 is cosmetic

/// End an object's life: its resources go and its handle ends.
inline void FreeObject(Pen& pen)
{
    tables.pens.Free(pen);
}
inline void FreeObject(Brush& brush)
{
    tables.brushes.Free(brush);
}
void FreeObject(Font& font);
void FreeObject(Bitmap& bitmap);
void FreeObject(Palette& palette);

/// A new pen or brush; null when there is no room. Every field is set: a slot remembers its former object.
inline Pen* NewPen(int style, int width, COLORREF color, bool extended)
{
    Pen* const pen = tables.pens.Create();
    if (pen != nullptr) {
        pen->style = style;
        pen->width = width;
        pen->color = color & 0xFFFFFF;
        pen->extended = extended;
    }
    return pen;
}
inline Brush* NewBrush(UINT style, COLORREF color, int hatch)
{
    Brush* const brush = tables.brushes.Create();
    if (brush != nullptr) {
        brush->style = style;
        brush->color = color & 0xFFFFFF;
        brush->hatch = hatch;
    }
    return brush;
}

/// A reference less; the last one of a condemned object frees it.
template <class T>
void Release(T* object)
{
    if (--object->references == 0 && object->condemned) {
        FreeObject(*object);
    }
}

/// Frees now or, when selected somewhere, with the last selection. The caller is told TRUE at once: code that deletes
/// its pen before it selects the former one back is common, and must not leak.
template <class T>
BOOL Condemn(T* object)
{
    if (object == nullptr) {
        return FALSE;
    }
    if (object->stock) {
        return TRUE;
    }
    if (object->references > 0) {
        object->condemned = true;
        return TRUE;
    }
    FreeObject(*object);
    return TRUE;
}

/// Moves the reference from the object selected so far to another; returns the former one's handle. The handle is made
/// and the new reference taken first: the former object may go with its last reference, and may be the new one.
template <class T>
HGDIOBJ Exchange(T*& selected, T* next)
{
    T* const former = selected;
    const HGDIOBJ handle = MakeHandle<HGDIOBJ>(*former);
    ++next->references;
    selected = next;
    Release(former);
    return handle;
}

/// Makes a device context with the defaults; null when there is no room.
DeviceContext* NewDeviceContext(const Surface* surface);
void FreeDeviceContext(DeviceContext& dc);
/// A device context on a window was left without one.
void DetachFromWindow(const Window& window);

/// Runs `action` and answers its result, or FALSE with ERROR_NOT_ENOUGH_MEMORY set when memory ran out on the way.
template <class Action>
BOOL WithMemory(Action action)
{
    try {
        return action();
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
}

} // namespace gdi
