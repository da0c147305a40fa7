/// Making, describing and deleting objects.
#include "base/winkernel.h"
#include "gdi/Colors.h"
#include "gdi/DeviceContext.h"
#include "gdi/fonts/ScaledFonts.h"
#include "gdi/PixelMemory.h"
#include "gdi/winuser.h"

#include <cstdlib>
#include <cstring>

namespace gdi {

Tables tables;

void FreeObject(Font& font)
{
    // The slot is never destroyed, so what it shares has to be let go by hand.
    font.scaled.reset();
    tables.fonts.Free(font);
}

void FreeObject(Bitmap& bitmap)
{
    FreePixels(bitmap.memory);
    bitmap.memory = nullptr;
    bitmap.surface = {};
    tables.bitmaps.Free(bitmap);
}

void FreeObject(Palette& palette)
{
    tables.palettes.Free(palette);
}

namespace {

/// Unlike pens, a selected bitmap is refused: what is drawn into it would be lost.
BOOL DeleteBitmap(Bitmap* bitmap)
{
    if (bitmap == nullptr || (bitmap->references > 0 && !bitmap->stock)) {
        return FALSE;
    }
    return Condemn(bitmap);
}

/// Copies a record out in the manner of GetObject: without a place it answers the size, and a place too small gets
/// nothing, so that no caller takes half a record for a whole one.
template <class Record>
int CopyRecord(const Record& record, int size, void* out)
{
    const int needed = int(sizeof record);
    if (out == nullptr) {
        return needed;
    }
    if (size < needed) {
        return 0;
    }
    std::memcpy(out, &record, sizeof record);
    return needed;
}

/// Extended pens have a record of their own, since a LOGPEN has no room for the flags and the brush.
int DescribePen(const Pen& pen, int size, void* out)
{
    if (pen.extended) {
        EXTLOGPEN record = {};
        record.elpPenStyle = DWORD(pen.style);
        record.elpWidth = DWORD(pen.width);
        record.elpBrushStyle = BS_SOLID;
        record.elpColor = pen.color;
        return CopyRecord(record, size, out);
    }
    LOGPEN record = {};
    record.lopnStyle = UINT(pen.style);
    record.lopnWidth.x = pen.width;
    record.lopnColor = pen.color;
    return CopyRecord(record, size, out);
}

int DescribeBrush(const Brush& brush, int size, void* out)
{
    LOGBRUSH record = {};
    record.lbStyle = brush.style;
    record.lbColor = brush.color;
    record.lbHatch = ULONG_PTR(brush.hatch);
    return CopyRecord(record, size, out);
}

/// The short record fits every bitmap; a section gives the long one to a caller with the room for it.
int DescribeBitmap(const Bitmap& bitmap, int size, void* out)
{
    const Surface& surface = bitmap.surface;
    DIBSECTION record = {};
    record.dsBm.bmWidth = surface.width;
    record.dsBm.bmHeight = surface.height;
    record.dsBm.bmWidthBytes = LONG(std::abs(surface.stride));
    record.dsBm.bmPlanes = 1;
    record.dsBm.bmBitsPixel = WORD(surface.bitsPerPixel);
    record.dsBm.bmBits = bitmap.section ? bitmap.memory : nullptr;
    if (!bitmap.section || size < int(sizeof record)) {
        return CopyRecord(record.dsBm, size, out);
    }
    record.dsBmih.biSize = sizeof record.dsBmih;
    record.dsBmih.biWidth = surface.width;
    record.dsBmih.biHeight = bitmap.bottomUp ? surface.height : -surface.height;
    record.dsBmih.biPlanes = 1;
    record.dsBmih.biBitCount = record.dsBm.bmBitsPixel;
    return CopyRecord(record, size, out);
}

template <class Handle, class Object>
Handle HandleOf(const Object* object)
{
    return object == nullptr ? nullptr : MakeHandle<Handle>(*object);
}

} // namespace
} // namespace gdi

using namespace gdi;

BOOL DeleteObject(HGDIOBJ object)
{
    // The kind in the handle only picks the table; whether there is such an object is for the table to say.
    switch (HandleKind(object)) {
    case Kind::Pen:
        return Condemn(tables.pens.Find(object));
    case Kind::Brush:
        return Condemn(tables.brushes.Find(object));
    case Kind::Font:
        return Condemn(tables.fonts.Find(object));
    case Kind::Bitmap:
        return DeleteBitmap(tables.bitmaps.Find(object));
    case Kind::Palette:
        return Condemn(tables.palettes.Find(object));
    case Kind::Dc:
        return DeleteDC(static_cast<HDC>(object));
    default:
        return FALSE;
    }
}

DWORD GetObjectType(HGDIOBJ object)
{
    switch (HandleKind(object)) {
    case Kind::Pen: {
        const Pen* const pen = tables.pens.Find(object);
        return pen == nullptr ? 0 : pen->extended ? OBJ_EXTPEN : OBJ_PEN;
    }
    case Kind::Brush:
        return tables.brushes.Find(object) ? OBJ_BRUSH : 0;
    case Kind::Font:
        return tables.fonts.Find(object) ? OBJ_FONT : 0;
    case Kind::Bitmap:
        return tables.bitmaps.Find(object) ? OBJ_BITMAP : 0;
    case Kind::Palette:
        return tables.palettes.Find(object) ? OBJ_PAL : 0;
    case Kind::Dc: {
        const DeviceContext* const dc = tables.dcs.Find(object);
        return dc == nullptr ? 0 : dc->memory ? OBJ_MEMDC : OBJ_DC;
    }
    default:
        return 0;
    }
}

int GetObjectA(HGDIOBJ object, int size, LPVOID record)
{
    if (const Pen* const pen = tables.pens.Find(object)) {
        return DescribePen(*pen, size, record);
    }
    if (const Brush* const brush = tables.brushes.Find(object)) {
        return DescribeBrush(*brush, size, record);
    }
    if (const Font* const font = tables.fonts.Find(object)) {
        return CopyRecord(font->record, size, record);
    }
    if (const Bitmap* const bitmap = tables.bitmaps.Find(object)) {
        return DescribeBitmap(*bitmap, size, record);
    }
    if (const Palette* const palette = tables.palettes.Find(object)) {
        return CopyRecord(palette->entries, size, record);
    }
    return 0;
}

HPEN CreatePen(int style, int width, COLORREF color)
{
    return HandleOf<HPEN>(NewPen(style, width, color, false));
}

HPEN CreatePenIndirect(const LOGPEN* record)
{
    return record == nullptr
               ? nullptr
               : HandleOf<HPEN>(NewPen(int(record->lopnStyle), record->lopnWidth.x, record->lopnColor, false));
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD styleCount, const DWORD* styles)
{
    // A cosmetic pen is one pixel wide by definition; geometric ones take any width that an int holds.
    const bool geometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
    if (brush == nullptr || brush->lbStyle != BS_SOLID || styleCount != 0 || styles != nullptr ||
        (!geometric && width != 1) || width > 0x7FFFFFFF)
    {
        return nullptr;
    }
    return HandleOf<HPEN>(NewPen(int(style), int(width), brush->lbColor, true));
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return HandleOf<HBRUSH>(NewBrush(BS_SOLID, color, 0));
}

HBRUSH CreateHatchBrush(int hatch, COLORREF color)
{
    return hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS ? nullptr
                                                         : HandleOf<HBRUSH>(NewBrush(BS_HATCHED, color, hatch));
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* record)
{
    if (record == nullptr || record->lbStyle > BS_HATCHED) {
        return nullptr;
    }
    // The field is as wide as a pointer: it is checked before it is cut to an int.
    if (record->lbStyle == BS_HATCHED) {
        return record->lbHatch > ULONG_PTR(HS_DIAGCROSS) ? nullptr
                                                         : CreateHatchBrush(int(record->lbHatch), record->lbColor);
    }
    return HandleOf<HBRUSH>(NewBrush(record->lbStyle, record->lbColor, 0));
}

HFONT CreateFontIndirectA(const LOGFONTA* record)
{
    Font* const font = record == nullptr ? nullptr : tables.fonts.Create();
    if (font == nullptr) {
        return nullptr;
    }
    font->record = *record; // the face is looked up with the first text: most hosts make more fonts than they use
    font->record.lfFaceName[LF_FACESIZE - 1] = 0;
    return MakeHandle<HFONT>(*font);
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                  DWORD pitchAndFamily, LPCSTR face)
{
    // Fields of a byte take the low byte of what comes, as the platform's call does.
    LOGFONTA record = {height,
                       width,
                       escapement,
                       orientation,
                       weight,
                       BYTE(italic),
                       BYTE(underline),
                       BYTE(strikeOut),
                       BYTE(charSet),
                       BYTE(outPrecision),
                       BYTE(clipPrecision),
                       BYTE(quality),
                       BYTE(pitchAndFamily),
                       {}};
    if (face != nullptr) { // longer names are cut; the record started out zeroed, so one zero stays behind them
        std::strncpy(record.lfFaceName, face, LF_FACESIZE - 1);
    }
    return CreateFontIndirectA(&record);
}

HPALETTE CreatePalette(const LOGPALETTE* record)
{
    Palette* const palette = record == nullptr ? nullptr : tables.palettes.Create();
    if (palette == nullptr) {
        return nullptr;
    }
    palette->entries = record->palNumEntries;
    return MakeHandle<HPALETTE>(*palette);
}

DWORD GetGuiResources(HANDLE process, DWORD flags)
{
    if (process != GetCurrentProcess() || flags != GR_GDIOBJECTS) {
        return 0;
    }
    // Windows are counted elsewhere (GR_USEROBJECTS), and stock objects belong to nobody.
    return tables.dcs.Live() + tables.pens.Live() + tables.brushes.Live() + tables.fonts.Live() +
           tables.bitmaps.Live() + tables.palettes.Live();
}
