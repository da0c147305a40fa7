/// Text in rectangles.
#include "gdi/TextLayout.h"
#include "gdi/Trace.h"
#include "gdi/winuser.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

using namespace gdi;

namespace {

/// A line without its prefix signs, and the character that one of them marks.
struct FormattedLine
{
    std::string text;
    size_t marked = std::string::npos; ///< byte offset of the character to underline
    int32_t width = 0;
};

/// "&x" underlines x and "&&" is one sign, unless the format says otherwise.
FormattedLine MakeLine(ScaledFonts& fonts, const char* begin, const char* end, UINT format)
{
    FormattedLine line;
    for (const char* c = begin; c != end; ++c) {
        if (*c == '&' && (format & DT_NOPREFIX) == 0) {
            if (++c == end) {
                break;
            }
            line.marked = *c != '&' ? line.text.size() : line.marked;
        }
        line.text += *c;
    }
    const char* const text = line.text.data();
    line.width = TextWidth(fonts, text, text + line.text.size());
    return line;
}

std::vector<FormattedLine> SplitLines(ScaledFonts& fonts, const char* text, const char* end, UINT format)
{
    std::vector<FormattedLine> lines;
    for (;;) {
        const char* const stop = (format & DT_SINGLELINE) != 0 ? end : std::find(text, end, '\n');
        const char* const visible = stop != end && stop != text && stop[-1] == '\r' ? stop - 1 : stop;
        lines.push_back(MakeLine(fonts, text, visible, format));
        if (stop == end) {
            return lines;
        }
        text = stop + 1;
    }
}

/// A sum of int32 values held within int32.
int32_t Held(int64_t value)
{
    return int32_t(std::max<int64_t>(std::min<int64_t>(value, 0x7FFFFFFF), -0x7FFFFFFF - 1));
}

int32_t LeftOf(const RECT& rect, int32_t width, UINT format)
{
    if ((format & DT_CENTER) != 0) {
        return Held((int64_t(rect.left) + rect.right - width) / 2);
    }
    return (format & DT_RIGHT) != 0 ? Held(int64_t(rect.right) - width) : rect.left;
}

int32_t TopOf(const RECT& rect, int64_t height, UINT format)
{
    if ((format & DT_SINGLELINE) != 0 && (format & DT_VCENTER) != 0) {
        return Held((int64_t(rect.top) + rect.bottom - height) / 2);
    }
    return (format & DT_SINGLELINE) != 0 && (format & DT_BOTTOM) != 0 ? Held(rect.bottom - height) : rect.top;
}

void DrawFormatted(DeviceContext& dc, ScaledFonts& fonts, const FormattedLine& formatted, int x, int y, const Box& clip)
{
    const TextLine line(dc, fonts, x, y, formatted.width);
    const char* const text = formatted.text.data();
    const char* const end = text + formatted.text.size();
    DrawLine(dc, line, text, end, clip);
    if (formatted.marked < formatted.text.size()) {
        const char* after = text + formatted.marked;
        const double left = line.left + TextWidth(fonts, text, after);
        const double width = fonts.Advance(NextCharacter(after, end));
        FillTextBox(dc, line, left, line.baseline + 1, left + width, line.baseline + 2, dc.textColor, clip);
    }
}

/// DT_CALCRECT: the rectangle keeps its corner and takes the size of the text.
void FitToLines(RECT& rect, const std::vector<FormattedLine>& lines, int64_t height)
{
    int32_t width = 0;
    for (const FormattedLine& line : lines) {
        width = std::max(width, line.width);
    }
    rect.right = Held(int64_t(rect.left) + width);
    rect.bottom = Held(int64_t(rect.top) + height);
}

/// Draws or measures; answers the height of all lines.
int DrawLines(DeviceContext& dc, const char* text, const char* end, RECT& rect, UINT format)
{
    ScaledFonts* const fonts = CurrentFonts(dc);
    // Without a font there is nothing to break into lines, and the text has extent 0.
    const std::vector<FormattedLine> lines =
        fonts != nullptr ? SplitLines(*fonts, text, end, format) : std::vector<FormattedLine>();
    const int64_t lineHeight = fonts != nullptr ? fonts->CellHeight() : 0;
    const int64_t height = lineHeight * int64_t(lines.size());
    if ((format & DT_CALCRECT) != 0) {
        FitToLines(rect, lines, height);
        return Held(height);
    }
    const Box clip = (format & DT_NOCLIP) != 0 ? dc.Clip() : ClipToRect(dc, rect);
    int64_t y = TopOf(rect, height, format);
    for (const FormattedLine& line : lines) {
        DrawFormatted(dc, *fonts, line, LeftOf(rect, line.width, format), Held(y), clip);
        y += lineHeight;
    }
    return Held(height);
}

} // namespace

int DrawTextA(HDC handle, LPCSTR text, int count, LPRECT rect, UINT format)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || text == nullptr || rect == nullptr) {
        return 0;
    }
    const size_t length = count < 0 ? std::strlen(text) : size_t(count);
    Trace(dc, "DrawText \"%.*s\" %d %d %d %d %u", int(length), text, rect->left, rect->top, rect->right, rect->bottom,
          format);
    return WithMemory([&]() -> BOOL { return DrawLines(*dc, text, text + length, *rect, format); });
}
