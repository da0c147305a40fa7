/// Life of device contexts, selection of objects, and the plain settings.
#include "gdi/DeviceContext.h"

#include "base/winkernel.h"
#include "gdi/Trace.h"
#include "gdi/winuser.h"

namespace gdi {
namespace {

/// Stands for the pixels of the screen and of windows that are gone.
const Surface kNoPixels = {nullptr, 0, 0, 0, 32};

int g_pixelsPerInch = 96;
constexpr int kScreenWidth = 1920;
constexpr int kScreenHeight = 1080;

/// Points the device context at the pixels of a bitmap. The initial bitmap is one handle for all device contexts, but
/// each draws into a pixel of its own, so that no other one sees it.
void UseBitmap(DeviceContext& dc, Bitmap& bitmap)
{
    dc.surface = bitmap.stock ? &dc.ownSurface : &bitmap.surface;
    if (!bitmap.stock) {
        bitmap.holder = MakeHandle<HDC>(dc);
    }
}

/// A bitmap may be held by one memory device context at a time: two of them would draw over each other unseen.
HGDIOBJ SelectBitmap(DeviceContext& dc, Bitmap& bitmap)
{
    const HDC self = MakeHandle<HDC>(dc);
    if (!dc.memory || (bitmap.holder != nullptr && bitmap.holder != self)) {
        return nullptr;
    }
    dc.bitmap->holder = nullptr;
    const HGDIOBJ former = Exchange(dc.bitmap, &bitmap);
    UseBitmap(dc, bitmap); // after the exchange: the same bitmap selected again gets its holder back
    return former;
}

/// Selects anything but pens and brushes; null when refused.
__attribute__((noinline)) HGDIOBJ SelectOther(DeviceContext& dc, HGDIOBJ object)
{
    if (Font* const font = tables.fonts.Find(object)) {
        return Exchange(dc.font, font);
    }
    Bitmap* const bitmap = tables.bitmaps.Find(object);
    return bitmap != nullptr ? SelectBitmap(dc, *bitmap) : nullptr;
}

/// The state of a new device context. Paths keep their memory from the slot's former life: making a device context for
/// each text or stroke stays free of allocations.
void ResetState(DeviceContext& dc)
{
    dc.trace = nullptr;
    dc.world = {};
    dc.position = {};
    dc.pathState = PathState::None;
    dc.figureOpen = false;
    dc.graphicsMode = GM_COMPATIBLE;
    dc.rop = R2_COPYPEN;
    dc.bkMode = OPAQUE;
    dc.polyFillMode = ALTERNATE;
    dc.arcDirection = AD_COUNTERCLOCKWISE;
    dc.textAlign = 0;
    dc.bkColor = 0xFFFFFF;
    dc.textColor = 0;
    dc.window = nullptr;
    dc.memory = dc.ownsWindowArea = false;
    dc.ownBits[0] = 0;
    dc.ownSurface = {dc.ownBits, 4, 1, 1, 1};
    dc.path.Clear();
}

/// The stock objects that every device context begins with; false when memory ran out.
bool SelectInitialObjects(DeviceContext& dc)
{
    dc.pen = static_cast<Pen*>(StockObject(BLACK_PEN));
    dc.brush = static_cast<Brush*>(StockObject(WHITE_BRUSH));
    dc.font = static_cast<Font*>(StockObject(SYSTEM_FONT));
    dc.palette = static_cast<Palette*>(StockObject(DEFAULT_PALETTE));
    dc.bitmap = InitialBitmap();
    if (!dc.pen || !dc.brush || !dc.font || !dc.palette || !dc.bitmap) {
        return false;
    }
    for (Slot* object : {static_cast<Slot*>(dc.pen), static_cast<Slot*>(dc.brush), static_cast<Slot*>(dc.font),
                         static_cast<Slot*>(dc.palette), static_cast<Slot*>(dc.bitmap)})
    {
        ++object->references;
    }
    return true;
}

/// Changes one setting and answers its former value.
template <class T>
T Replace(T& setting, T value)
{
    const T former = setting;
    setting = value;
    return former;
}

} // namespace

DeviceContext* NewDeviceContext(const Surface* surface)
{
    DeviceContext* const dc = tables.dcs.Create();
    if (dc == nullptr) {
        return nullptr;
    }
    ResetState(*dc);
    if (!SelectInitialObjects(*dc)) {
        tables.dcs.Free(*dc);
        return nullptr;
    }
    dc->surface = surface != nullptr ? surface : &kNoPixels;
    return dc;
}

void FreeDeviceContext(DeviceContext& dc)
{
    dc.bitmap->holder = nullptr;
    Release(dc.pen);
    Release(dc.brush);
    Release(dc.font);
    Release(dc.palette);
    Release(dc.bitmap);
    tables.dcs.Free(dc);
}

/// A walk over all device contexts: windows are destroyed rarely, and a list of their device contexts would have to be
/// kept at every GetDC.
void DetachFromWindow(const Window& window)
{
    tables.dcs.ForEach([&](DeviceContext& dc) {
        if (dc.surface == &window.surface) {
            dc.surface = &kNoPixels;
        }
    });
}

Rasterizer& SharedRasterizer()
{
    static Rasterizer* const shared = new Rasterizer; // like the tables, outlives every object of the host
    return *shared;
}

} // namespace gdi

using namespace gdi;

HDC CreateCompatibleDC(HDC like)
{
    if (like != nullptr && FindDc(like) == nullptr) {
        return nullptr;
    }
    DeviceContext* const dc = NewDeviceContext(nullptr);
    if (dc == nullptr) {
        return nullptr;
    }
    dc->memory = true;
    dc->surface = &dc->ownSurface;
    return MakeHandle<HDC>(*dc);
}

BOOL DeleteDC(HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    // One from GetDC stays: its holder is going to release it.
    if (dc == nullptr || dc->ownsWindowArea) {
        return FALSE;
    }
    FreeDeviceContext(*dc);
    return TRUE;
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ object)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return nullptr;
    }
    // Pens come first, since strokes select one each; every lookup is one comparison of the kind and slot.
    HGDIOBJ former = nullptr;
    if (Pen* const pen = tables.pens.Find(object)) {
        former = Exchange(dc->pen, pen);
    } else if (Brush* const brush = tables.brushes.Find(object)) {
        former = Exchange(dc->brush, brush);
    } else {
        former = SelectOther(*dc, object);
    }
    // Only now it is known to have worked; what was refused has no properties to tell.
    if (dc->trace != nullptr && former != nullptr) {
        TraceSelection(*dc, object);
    }
    return former;
}

HGDIOBJ GetCurrentObject(HDC handle, UINT kind)
{
    const DeviceContext* const dc = FindDc(handle);
    const Slot* object = nullptr;
    if (dc == nullptr) {
        return nullptr;
    }
    switch (kind) {
    case OBJ_PEN:
        object = dc->pen;
        break;
    case OBJ_BRUSH:
        object = dc->brush;
        break;
    case OBJ_FONT:
        object = dc->font;
        break;
    case OBJ_BITMAP:
        object = dc->bitmap;
        break;
    case OBJ_PAL:
        object = dc->palette;
        break;
    default:
        return nullptr;
    }
    return MakeHandle<HGDIOBJ>(*object);
}

HPALETTE SelectPalette(HDC handle, HPALETTE palette, BOOL)
{
    DeviceContext* const dc = FindDc(handle);
    Palette* const next = tables.palettes.Find(palette);
    if (dc == nullptr || next == nullptr) {
        return nullptr;
    }
    return static_cast<HPALETTE>(Exchange(dc->palette, next));
}

/// No entry ever changes: pixels hold their colours, and palettes are only carried along.
UINT RealizePalette(HDC dc)
{
    return FindDc(dc) == nullptr ? GDI_ERROR : 0;
}

int GetDeviceCaps(HDC handle, int index)
{
    const DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return 0;
    }
    switch (index) {
    // Those of the screen for every device context: all surfaces are made to be shown on it.
    case LOGPIXELSX:
    case LOGPIXELSY:
        return g_pixelsPerInch;
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case HORZRES:
        return kScreenWidth;
    case VERTRES:
        return kScreenHeight;
    case TECHNOLOGY:
        return DT_RASDISPLAY;
    default:
        return 0;
    }
}

void GdiSetScreenResolution(int pixelsPerInch)
{
    if (pixelsPerInch > 0) {
        g_pixelsPerInch = pixelsPerInch;
    }
}

int SetBkMode(HDC handle, int mode)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "SetBkMode %d", mode);
    if (dc == nullptr || (mode != TRANSPARENT && mode != OPAQUE)) {
        return 0;
    }
    return Replace(dc->bkMode, mode);
}

COLORREF SetBkColor(HDC handle, COLORREF color)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return CLR_INVALID;
    }
    Trace(dc, "SetBkColor 0x%06X", color & 0xFFFFFF);
    return Replace(dc->bkColor, color & 0xFFFFFF);
}

COLORREF SetTextColor(HDC handle, COLORREF color)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return CLR_INVALID;
    }
    Trace(dc, "SetTextColor 0x%06X", color & 0xFFFFFF);
    return Replace(dc->textColor, color & 0xFFFFFF);
}

int SetROP2(HDC handle, int mode)
{
    DeviceContext* const dc = FindDc(handle);
    // The other binary codes mix in the destination in ways that no caller here needs, and are refused rather than
    // drawn as something else.
    const bool known = mode == R2_BLACK || mode == R2_NOT || mode == R2_XORPEN || mode == R2_NOP ||
                       mode == R2_COPYPEN || mode == R2_WHITE;
    Trace(dc, "SetROP2 %d", mode);
    if (dc == nullptr || !known) {
        return 0;
    }
    return Replace(dc->rop, mode);
}

int SetPolyFillMode(HDC handle, int mode)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "SetPolyFillMode %d", mode);
    if (dc == nullptr || (mode != ALTERNATE && mode != WINDING)) {
        return 0;
    }
    return Replace(dc->polyFillMode, mode);
}

int SetArcDirection(HDC handle, int direction)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "SetArcDirection %d", direction);
    if (dc == nullptr || (direction != AD_COUNTERCLOCKWISE && direction != AD_CLOCKWISE)) {
        return 0;
    }
    return Replace(dc->arcDirection, direction);
}

int SetGraphicsMode(HDC handle, int mode)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "SetGraphicsMode %d", mode);
    // GM_COMPATIBLE has no transform: the host has to set the identity before it goes back.
    if (dc == nullptr || (mode != GM_COMPATIBLE && mode != GM_ADVANCED) ||
        (mode == GM_COMPATIBLE && !dc->world.identity)) {
        return 0;
    }
    return Replace(dc->graphicsMode, mode);
}

UINT SetTextAlign(HDC handle, UINT align)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return GDI_ERROR;
    }
    Trace(dc, "SetTextAlign %u", align);
    return Replace(dc->textAlign, align);
}

int GetBkMode(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? 0 : dc->bkMode;
}

COLORREF GetBkColor(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? CLR_INVALID : dc->bkColor;
}

COLORREF GetTextColor(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? CLR_INVALID : dc->textColor;
}

int GetROP2(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? 0 : dc->rop;
}

int GetPolyFillMode(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? 0 : dc->polyFillMode;
}

int GetArcDirection(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? 0 : dc->arcDirection;
}

int GetGraphicsMode(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? 0 : dc->graphicsMode;
}

UINT GetTextAlign(HDC handle)
{
    const DeviceContext* const dc = FindDc(handle);
    return dc == nullptr ? GDI_ERROR : dc->textAlign;
}

BOOL SetWorldTransform(HDC handle, const XFORM* transform)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || transform == nullptr) {
        return FALSE;
    }
    Trace(dc, "SetWorldTransform %.9g %.9g %.9g %.9g %.9g %.9g", double(transform->eM11), double(transform->eM12),
          double(transform->eM21), double(transform->eM22), double(transform->eDx), double(transform->eDy));
    return dc->graphicsMode == GM_ADVANCED && dc->world.Set(*transform);
}

BOOL GetWorldTransform(HDC handle, XFORM* transform)
{
    const DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || transform == nullptr) {
        return FALSE;
    }
    *transform = dc->world.Get();
    return TRUE;
}
