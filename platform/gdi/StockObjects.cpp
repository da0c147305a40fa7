/// The objects that exist from the start and never go.
#include "gdi/DeviceContext.h"

#include <cstring>

namespace gdi {
namespace {

/// The slot may have held another object before: every field has to be set.
template <class Pool>
auto MakeStock(Pool& pool)
{
    auto* const object = pool.Create();
    if (object != nullptr) {
        pool.MakeStock(*object);
    }
    return object;
}

Slot* MakeBrush(UINT style, COLORREF color)
{
    Brush* const brush = MakeStock(tables.brushes);
    if (brush != nullptr) {
        brush->style = style;
        brush->color = color;
        brush->hatch = HS_HORIZONTAL;
    }
    return brush;
}

Slot* MakePen(int style, COLORREF color)
{
    Pen* const pen = MakeStock(tables.pens);
    if (pen != nullptr) {
        pen->style = style;
        pen->width = 0;
        pen->color = color;
        pen->extended = false;
    }
    return pen;
}

Slot* MakeFont(const char* face)
{
    Font* const font = MakeStock(tables.fonts);
    if (font != nullptr) {
        font->record = {};
        font->record.lfHeight = 16; // cell height of the classic system font
        font->record.lfWeight = FW_NORMAL;
        std::strncpy(font->record.lfFaceName, face, LF_FACESIZE - 1);
    }
    return font;
}

Slot* MakePalette()
{
    Palette* const palette = MakeStock(tables.palettes);
    if (palette != nullptr) {
        palette->entries = 20; // the static colours
    }
    return palette;
}

/// Null for the numbers between that name nothing.
Slot* MakeStockObject(int index)
{
    switch (index) {
    case WHITE_BRUSH:
        return MakeBrush(BS_SOLID, RGB(255, 255, 255));
    case LTGRAY_BRUSH:
        return MakeBrush(BS_SOLID, RGB(192, 192, 192));
    case GRAY_BRUSH:
        return MakeBrush(BS_SOLID, RGB(128, 128, 128));
    case DKGRAY_BRUSH:
        return MakeBrush(BS_SOLID, RGB(64, 64, 64));
    case BLACK_BRUSH:
        return MakeBrush(BS_SOLID, 0);
    case NULL_BRUSH:
        return MakeBrush(BS_NULL, 0);
    case WHITE_PEN:
        return MakePen(PS_SOLID, RGB(255, 255, 255));
    case BLACK_PEN:
        return MakePen(PS_SOLID, 0);
    case NULL_PEN:
        return MakePen(PS_NULL, 0);
    case OEM_FIXED_FONT:
    case ANSI_FIXED_FONT:
    case SYSTEM_FIXED_FONT:
        return MakeFont("monospace");
    case ANSI_VAR_FONT:
    case SYSTEM_FONT:
    case DEVICE_DEFAULT_FONT:
    case DEFAULT_GUI_FONT:
        return MakeFont("sans-serif");
    case DEFAULT_PALETTE:
        return MakePalette();
    default:
        return nullptr;
    }
}

} // namespace

Slot* StockObject(int index)
{
    static Slot* made[DEFAULT_GUI_FONT + 1] = {};
    if (index < 0 || index > DEFAULT_GUI_FONT) {
        return nullptr;
    }
    if (made[index] == nullptr) {
        made[index] = MakeStockObject(index);
    }
    return made[index];
}

Bitmap* InitialBitmap()
{
    static Bitmap* made = nullptr;
    if (made == nullptr) {
        made = MakeStock(tables.bitmaps);
        if (made != nullptr) {
            // Without bits: device contexts put their own pixel in its place.
            made->surface = {nullptr, 4, 1, 1, 1};
            made->memory = nullptr;
            made->section = made->bottomUp = false;
            made->holder = nullptr;
        }
    }
    return made;
}

} // namespace gdi

HGDIOBJ GetStockObject(int index)
{
    const gdi::Slot* const object = gdi::StockObject(index);
    return object == nullptr ? nullptr : gdi::MakeHandle<HGDIOBJ>(*object);
}
