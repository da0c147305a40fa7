/// The lines that a traced device context appends to its host's list.
#include "gdi/Trace.h"

#include <afxcoll.h>

#include <cstdarg>
#include <cstdio>

namespace gdi {

void AppendTrace(DeviceContext& dc, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    try {
        std::string line(size_t(length > 0 ? length : 0), '\0');
        std::vsnprintf(&line[0], line.size() + 1, format, again);
        dc.trace->Add(CString(line.c_str(), int(line.size())));
    } catch (const std::bad_alloc&) {
    } catch (CMemoryException* failure) {
        failure->Delete();
    }
    va_end(again);
}

void TraceSelection(DeviceContext& dc, HGDIOBJ object)
{
    if (const Pen* const pen = tables.pens.Find(object)) {
        AppendTrace(dc, "SelectPen %d %d 0x%06X", pen->style, pen->width, pen->color);
    } else if (const Brush* const brush = tables.brushes.Find(object)) {
        if (brush->style == BS_NULL) {
            AppendTrace(dc, "SelectBrush null");
        } else if (brush->style == BS_HATCHED) {
            AppendTrace(dc, "SelectBrush hatch %d 0x%06X", brush->hatch, brush->color);
        } else {
            AppendTrace(dc, "SelectBrush solid 0x%06X", brush->color);
        }
    } else if (const Font* const font = tables.fonts.Find(object)) {
        const LOGFONTA& record = font->record;
        AppendTrace(dc, "SelectFont %d %d \"%s\"", record.lfHeight, record.lfWidth, record.lfFaceName);
    } else if (const Bitmap* const bitmap = tables.bitmaps.Find(object)) {
        const Surface& surface = bitmap->surface;
        AppendTrace(dc, "SelectBitmap %d %d %d", surface.width, surface.height, surface.bitsPerPixel);
    }
}

} // namespace gdi

void GdiSetTrace(HDC handle, CStringArray* calls)
{
    if (gdi::DeviceContext* const dc = gdi::FindDc(handle)) {
        dc->trace = calls;
    }
}
