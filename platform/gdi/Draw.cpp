/// Pens and brushes on their way to the rasterizer.
#include "gdi/Colors.h"
#include "gdi/DeviceContext.h"
#include "gdi/Trace.h"

#include <utility>

namespace gdi {
namespace {

// Run lengths of the dashed styles in pixels, on first.
const uint8_t kDash[] = {18, 6, 0};
const uint8_t kDot[] = {3, 3, 0};
const uint8_t kDashDot[] = {9, 6, 3, 6, 0};
const uint8_t kDashDotDot[] = {9, 3, 3, 3, 3, 3, 0};

// 8 x 8 pixels anchored to the device, most significant bit leftmost.
const uint8_t kHatches[6][8] = {
    {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00}, // horizontal
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08}, // vertical
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, // falling to the right
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}, // rising to the right
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08}, // cross
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}, // diagonal cross
};

/// The run lengths of a style; null for solid lines, PS_INSIDEFRAME and unknown styles.
const uint8_t* DashOf(const Pen& pen)
{
    if ((pen.style & PS_STYLE_MASK) == PS_SOLID) { // nearly all
        return nullptr;
    }
    switch (pen.style & PS_STYLE_MASK) {
    case PS_DASH:
        return kDash;
    case PS_DOT:
        return kDot;
    case PS_DASHDOT:
        return kDashDot;
    case PS_DASHDOTDOT:
        return kDashDotDot;
    default:
        return nullptr;
    }
}

/// Everything within `reach` of a segment lies beside the surface. Surfaces and half pens are smaller than 2^30, so the
/// sums fit. Most segments of a zoomed board are outside, on any side, so that jumps could not be predicted.
bool IsOutside(DevicePoint from, DevicePoint to, int32_t reach, const Surface& surface)
{
    const int32_t right = surface.width + reach, bottom = surface.height + reach;
    const auto beyond = [](int32_t a, int32_t b, int32_t low, int32_t end) {
        return int((a < low) & (b < low)) | int((a >= end) & (b >= end));
    };
    return (beyond(from.x, to.x, -reach, right) | beyond(from.y, to.y, -reach, bottom)) != 0;
}

/// Gaps of dashes and hatches show the background colour unless the mode is TRANSPARENT.
Ink SolidInk(const DeviceContext& dc, COLORREF color)
{
    const Surface& surface = *dc.surface;
    return {ToPixel(surface, color, dc.bkColor), RasterOp(dc.rop), nullptr, dc.bkMode == OPAQUE,
            ToPixel(surface, dc.bkColor, dc.bkColor)};
}

/// Kept apart from StrokeSegment, so that lines outside of the surface save no registers for it.
__attribute__((noinline)) void StrokeVisibleSegment(DeviceContext& dc, DevicePoint from, DevicePoint to, int32_t width)
{
    const Ink ink = SolidInk(dc, dc.pen->color);
    SharedRasterizer().StrokeSegment(from, to, width, DashOf(*dc.pen), ink, *dc.surface, dc.Clip());
}

} // namespace

bool IsHollow(const Pen& pen)
{
    return (pen.style & PS_STYLE_MASK) == PS_NULL;
}

/// Width 0 stays one pixel under every transform; other widths scale, and thin out to one pixel.
int32_t DevicePenWidth(const DeviceContext& dc)
{
    const int32_t width = dc.pen->width;
    if (width <= 0 || dc.world.identity) {
        return width > 1 ? width : 1;
    }
    const int32_t scaled = RoundToPixel(width * dc.world.widthScale);
    return scaled > 1 ? scaled : 1;
}

void StrokeSegment(DeviceContext& dc, DevicePoint from, DevicePoint to)
{
    const Surface& surface = *dc.surface;
    const int32_t width = DevicePenWidth(dc);
    if (IsOutside(from, to, width / 2, surface) || IsHollow(*dc.pen)) {
        return;
    }
    if (width == 1 && (dc.pen->style & PS_STYLE_MASK) == PS_SOLID && surface.bitsPerPixel == 32) {
        DrawThinLine(from, to, SwapRedBlue(dc.pen->color), RasterOp(dc.rop), surface);
        return;
    }
    StrokeVisibleSegment(dc, from, to, width);
}

void StrokeFigures(DeviceContext& dc, const DevicePath& path)
{
    if (IsHollow(*dc.pen)) {
        return;
    }
    const Ink ink = SolidInk(dc, dc.pen->color);
    const int32_t width = DevicePenWidth(dc);
    if (width > 1) {
        SharedRasterizer().StrokeWide(path, width, ink, *dc.surface, dc.Clip());
    } else {
        SharedRasterizer().StrokeCosmetic(path, DashOf(*dc.pen), ink, *dc.surface, dc.Clip());
    }
}

bool BrushInk(const DeviceContext& dc, Ink& ink)
{
    const Brush& brush = *dc.brush;
    if (brush.style == BS_NULL) {
        return false;
    }
    ink = SolidInk(dc, brush.color);
    if (brush.style == BS_HATCHED) {
        ink.hatch = kHatches[brush.hatch];
    }
    return true;
}

void FillInside(DeviceContext& dc, const DevicePath& path)
{
    Ink ink;
    if (BrushInk(dc, ink)) {
        const FillRule rule = dc.polyFillMode == WINDING ? FillRule::Winding : FillRule::Alternate;
        SharedRasterizer().Fill(path, rule, ink, *dc.surface, dc.Clip());
    }
}

} // namespace gdi

using namespace gdi;

namespace {

/// A closed figure through the box's corners, counter-clockwise as seen from the right upper one.
void AppendBox(const Transform& world, int32_t left, int32_t top, int32_t right, int32_t bottom, DevicePath& path)
{
    path.MoveTo(world.ToDevice(right, top));
    path.LineTo(world.ToDevice(left, top));
    path.LineTo(world.ToDevice(left, bottom));
    path.LineTo(world.ToDevice(right, bottom));
    path.Close();
}

/// The inside of an upright box up to where the outline begins, so that no pixel is drawn twice with thin pens.
void FillBoxInside(DeviceContext& dc, DevicePoint a, DevicePoint b)
{
    Ink ink;
    if (!BrushInk(dc, ink)) {
        return;
    }
    const int32_t inset = !IsHollow(*dc.pen) && DevicePenWidth(dc) == 1;
    const auto ordered = [](int32_t& low, int32_t& high) {
        if (low > high) {
            std::swap(low, high);
        }
    };
    ordered(a.x, b.x);
    ordered(a.y, b.y);
    if (a.x < b.x && a.y < b.y) { // also keeps the inset from passing the largest int
        SharedRasterizer().FillBox({a.x + inset, a.y + inset, b.x, b.y}, ink, *dc.surface, dc.Clip());
    }
}

BOOL DrawRectangle(DeviceContext& dc, int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    if (dc.pathState == PathState::Open) {
        AppendBox(dc.world, left, top, right, bottom, dc.path);
        dc.figureOpen = false;
        return TRUE;
    }
    dc.scratch.Clear();
    AppendBox(dc.world, left, top, right, bottom, dc.scratch);
    if (dc.world.straight) {
        FillBoxInside(dc, dc.world.ToDevice(left, top), dc.world.ToDevice(right, bottom));
    } else {
        FillInside(dc, dc.scratch);
    }
    Stroke(dc, dc.scratch);
    return TRUE;
}

} // namespace

BOOL Rectangle(HDC handle, int left, int top, int right, int bottom)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    Trace(dc, "Rectangle %d %d %d %d", left, top, right, bottom);
    if (left > right) {
        std::swap(left, right);
    }
    if (top > bottom) {
        std::swap(top, bottom);
    }
    if (dc->graphicsMode == GM_COMPATIBLE) {
        if (left == right || top == bottom) {
            return TRUE; // nothing lies before the excluded edges
        }
        --right;
        --bottom;
    }
    return WithMemory([&] { return DrawRectangle(*dc, left, top, right, bottom); });
}
