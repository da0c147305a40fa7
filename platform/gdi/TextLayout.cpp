/// Placing lines of text, and drawing what they are made of.
#include "gdi/TextLayout.h"

#include "gdi/Colors.h"

#include <algorithm>

namespace gdi {
namespace {

/// Bytes that have to follow a first byte; -1 when it begins nothing.
int FollowingBytes(unsigned char first)
{
    if (first >= 0xC2 && first <= 0xDF) {
        return 1;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return 2;
    }
    return first >= 0xF0 && first <= 0xF4 ? 3 : -1;
}

/// Text always copies: the binary raster operation is for pens and brushes.
Ink TextInk(const DeviceContext& dc, COLORREF color)
{
    return {ToPixel(*dc.surface, color, dc.bkColor), RasterOp::Copy, nullptr, false, 0};
}

/// Escapement first (counter-clockwise as seen with y downward), then the world transform.
TextMatrix MatrixOf(const DeviceContext& dc)
{
    const Transform& world = dc.world;
    const LONG escapement = dc.font->record.lfEscapement % 3600;
    if (escapement == 0) {
        return {world.m11, world.m12, world.m21, world.m22};
    }
    const double angle = escapement * 3.14159265358979323846 / 1800;
    const double c = std::cos(angle), s = std::sin(angle);
    return {c * world.m11 - s * world.m21, c * world.m12 - s * world.m22, s * world.m11 + c * world.m21,
            s * world.m12 + c * world.m22};
}

/// Glyphs as they are kept: runs of pixels, each drawn as a box one row high.
void DrawRuns(DeviceContext& dc, const TextLine& line, const char* text, const char* end, const Ink& ink,
              const Box& clip)
{
    double x = line.left;
    while (text != end) {
        const uint32_t character = NextCharacter(text, end);
        const RealPoint at = line.ToDevice(x, line.baseline);
        const int64_t originX = RoundToPixel(at.x), originY = RoundToPixel(at.y);
        x += line.fonts.Advance(character);
        // Runs are 16 bits wide; an origin further out than that shows nothing.
        if (originX < -65536 || originY < -65536 || originX > int64_t(clip.right) + 65536 ||
            originY > int64_t(clip.bottom) + 65536)
        {
            continue;
        }
        for (const GlyphRun& run : line.fonts.Runs(character, line.matrix)) {
            const int32_t y = int32_t(originY) + run.y;
            const Box box = {int32_t(originX) + run.left, y, int32_t(originX) + run.right, y + 1};
            SharedRasterizer().FillBox(box, ink, *dc.surface, clip);
        }
    }
}

/// Glyphs too large to keep, one path each, so that the rasterizer can leave out those that lie outside.
void DrawOutlines(DeviceContext& dc, const TextLine& line, const char* text, const char* end, const Ink& ink,
                  const Box& clip)
{
    double x = line.left;
    while (text != end) {
        const uint32_t character = NextCharacter(text, end);
        dc.scratch.Clear();
        line.fonts.AppendOutline(character, line.matrix, line.ToDevice(x, line.baseline), dc.scratch);
        SharedRasterizer().Fill(dc.scratch, FillRule::Winding, ink, *dc.surface, clip);
        x += line.fonts.Advance(character);
    }
}

/// Underline and strike-out of the font record.
void DrawFontLines(DeviceContext& dc, const TextLine& line, const Box& clip)
{
    const LOGFONTA& record = dc.font->record;
    const double em = line.fonts.Metrics().em, thick = std::max(1.0, std::floor(em / 16));
    const auto draw = [&](double top) {
        FillTextBox(dc, line, line.left, top, line.left + line.width, top + thick, dc.textColor, clip);
    };
    if (record.lfUnderline) {
        draw(line.baseline + std::max(1.0, std::floor(em / 10)));
    }
    if (record.lfStrikeOut) {
        draw(line.baseline - std::floor(em * 0.3));
    }
}

} // namespace

uint32_t NextCharacter(const char*& text, const char* end)
{
    const unsigned char first = static_cast<unsigned char>(*text++);
    const int following = FollowingBytes(first);
    if (following < 0 || end - text < following) {
        return first;
    }
    uint32_t value = first & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        const unsigned char next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) {
            return first;
        }
        value = value << 6 | (next & 0x3F);
    }
    // Longer forms than needed, surrogates and values past the last code point are no characters.
    static const uint32_t least[] = {0, 0x80, 0x800, 0x10000};
    if (value < least[following] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
        return first;
    }
    text += following;
    return value;
}

ScaledFonts* CurrentFonts(DeviceContext& dc)
{
    if (!dc.font->scaled) {
        dc.font->scaled = ScaledFonts::Of(dc.font->record);
    }
    return dc.font->scaled.get();
}

int32_t TextWidth(ScaledFonts& fonts, const char* text, const char* end)
{
    int64_t width = 0; // at most 2^31 characters of 2^31 units each
    while (text != end) {
        width += fonts.Advance(NextCharacter(text, end));
    }
    return int32_t(std::min<int64_t>(width, 0x7FFFFFFF));
}

TextLine::TextLine(DeviceContext& dc, ScaledFonts& used, int x, int y, int32_t lineWidth)
    : fonts(used), matrix(MatrixOf(dc)), anchor(dc.world.Apply(x, y)), left(0), baseline(0), width(lineWidth),
      turned(matrix.m12 != 0 || matrix.m21 != 0)
{
    const FontMetrics& metrics = fonts.Metrics();
    const UINT vertical = dc.textAlign & TA_BASELINE; // the bits of all vertical choices
    baseline = vertical == TA_BASELINE ? 0 : vertical == TA_BOTTOM ? -double(metrics.descent) : metrics.ascent;
    const UINT horizontal = dc.textAlign & TA_CENTER;
    if (horizontal == TA_CENTER) {
        left = -std::floor(width / 2.0); // whole units, so that glyphs keep their pixels
    } else if (horizontal == TA_RIGHT) {
        left = -double(width);
    }
}

void FillTextBox(DeviceContext& dc, const TextLine& line, double left, double top, double right, double bottom,
                 COLORREF color, const Box& clip)
{
    const auto corner = [&](double x, double y) {
        const RealPoint p = line.ToDevice(x, y);
        return DevicePoint{RoundToPixel(p.x), RoundToPixel(p.y)};
    };
    const Ink ink = TextInk(dc, color);
    const DevicePoint a = corner(left, top), b = corner(right, bottom);
    if (!line.turned) {
        const Box box = {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
        SharedRasterizer().FillBox(box, ink, *dc.surface, clip);
        return;
    }
    dc.scratch.Clear();
    dc.scratch.MoveTo(a);
    dc.scratch.LineTo(corner(right, top));
    dc.scratch.LineTo(b);
    dc.scratch.LineTo(corner(left, bottom));
    dc.scratch.Close();
    SharedRasterizer().Fill(dc.scratch, FillRule::Winding, ink, *dc.surface, clip);
}

void DrawLine(DeviceContext& dc, const TextLine& line, const char* text, const char* end, const Box& clip)
{
    const FontMetrics& metrics = line.fonts.Metrics();
    if (dc.bkMode == OPAQUE && line.width > 0) {
        FillTextBox(dc, line, line.left, line.baseline - metrics.ascent, line.left + line.width,
                    line.baseline + metrics.descent, dc.bkColor, clip);
    }
    const Ink ink = TextInk(dc, dc.textColor);
    if (line.fonts.IsLarge(line.matrix)) {
        DrawOutlines(dc, line, text, end, ink, clip);
    } else {
        DrawRuns(dc, line, text, end, ink, clip);
    }
    DrawFontLines(dc, line, clip);
}

Box ClipToRect(const DeviceContext& dc, const RECT& rect)
{
    const RealPoint corners[] = {dc.world.Apply(rect.left, rect.top), dc.world.Apply(rect.right, rect.top),
                                 dc.world.Apply(rect.left, rect.bottom), dc.world.Apply(rect.right, rect.bottom)};
    double left = corners[0].x, right = left, top = corners[0].y, bottom = top;
    for (const RealPoint& corner : corners) {
        left = std::min(left, corner.x);
        right = std::max(right, corner.x);
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    const Box all = dc.Clip();
    return {std::max(all.left, RoundToPixel(left)), std::max(all.top, RoundToPixel(top)),
            std::min(all.right, RoundToPixel(right)), std::min(all.bottom, RoundToPixel(bottom))};
}

} // namespace gdi
