/// Drawing and measuring single lines of text.
#include "gdi/Colors.h"
#include "gdi/TextLayout.h"
#include "gdi/Trace.h"

#include <algorithm>
#include <string>

using namespace gdi;

namespace {

/// The rectangle of ETO_OPAQUE, in the background colour.
void FillOpaqueRect(DeviceContext& dc, const RECT& rect)
{
    const Ink ink = {ToPixel(*dc.surface, dc.bkColor, dc.bkColor), RasterOp::Copy, nullptr, false, 0};
    if (dc.world.straight) { // a box on the device too
        SharedRasterizer().FillBox(ClipToRect(dc, rect), ink, *dc.surface, dc.Clip());
        return;
    }
    dc.scratch.Clear();
    dc.scratch.MoveTo(dc.world.ToDevice(rect.left, rect.top));
    dc.scratch.LineTo(dc.world.ToDevice(rect.right, rect.top));
    dc.scratch.LineTo(dc.world.ToDevice(rect.right, rect.bottom));
    dc.scratch.LineTo(dc.world.ToDevice(rect.left, rect.bottom));
    dc.scratch.Close();
    SharedRasterizer().Fill(dc.scratch, FillRule::Winding, ink, *dc.surface, dc.Clip());
}

BOOL DrawAt(DeviceContext& dc, int x, int y, UINT options, const RECT* rect, const char* text, const char* end)
{
    if ((options & ETO_OPAQUE) != 0 && rect != nullptr) {
        FillOpaqueRect(dc, *rect);
    }
    // Empty text does not look for a font: hosts fill rectangles this way, and should not pay for a lookup.
    ScaledFonts* const fonts = text != end ? CurrentFonts(dc) : nullptr;
    if (fonts == nullptr) {
        return TRUE;
    }
    const bool clipped = (options & ETO_CLIPPED) != 0 && rect != nullptr;
    const TextLine line(dc, *fonts, x, y, TextWidth(*fonts, text, end));
    DrawLine(dc, line, text, end, clipped ? ClipToRect(dc, *rect) : dc.Clip());
    return TRUE;
}

} // namespace

BOOL ExtTextOutA(HDC handle, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT count, const int* advances)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || (text == nullptr && count > 0) || count > 0x7FFFFFFF || advances != nullptr) {
        return FALSE;
    }
    Trace(dc, "ExtTextOut %d %d %u \"%.*s\"", x, y, options, int(count), text != nullptr ? text : "");
    return WithMemory([&] { return DrawAt(*dc, x, y, options, rect, text, text + count); });
}

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int count)
{
    return count < 0 ? FALSE : ExtTextOutA(dc, x, y, 0, nullptr, text, UINT(count), nullptr);
}

BOOL GetTextExtentPointA(HDC handle, LPCSTR text, int count, LPSIZE size)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || size == nullptr || count < 0 || (text == nullptr && count > 0)) {
        return FALSE;
    }
    *size = {0, 0}; // also what a caller finds when memory runs out
    return WithMemory([=] {
        if (ScaledFonts* const fonts = CurrentFonts(*dc)) {
            *size = {TextWidth(*fonts, text, text + count), LONG(std::min<int64_t>(fonts->CellHeight(), 0x7FFFFFFF))};
        }
        return TRUE;
    });
}

BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int count, LPSIZE size)
{
    return GetTextExtentPointA(dc, text, count, size);
}

BOOL GetTextMetricsA(HDC handle, LPTEXTMETRICA out)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || out == nullptr) {
        return FALSE;
    }
    *out = {};
    return WithMemory([=]() -> BOOL {
        ScaledFonts* const fonts = CurrentFonts(*dc);
        if (fonts == nullptr) {
            return FALSE;
        }
        const FontMetrics& metrics = fonts->Metrics();
        const LOGFONTA& record = dc->font->record;
        out->tmAscent = metrics.ascent;
        out->tmDescent = metrics.descent;
        out->tmHeight = LONG(std::min<int64_t>(fonts->CellHeight(), 0x7FFFFFFF));
        out->tmInternalLeading = metrics.internalLeading;
        out->tmAveCharWidth = metrics.averageWidth;
        out->tmMaxCharWidth = metrics.maxWidth;
        out->tmWeight = record.lfWeight;
        out->tmItalic = record.lfItalic;
        out->tmUnderlined = record.lfUnderline;
        out->tmStruckOut = record.lfStrikeOut;
        out->tmCharSet = record.lfCharSet;
        return TRUE;
    });
}
