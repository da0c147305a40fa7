/// Text bytes as characters, and where they go.
#pragma once

#include "gdi/DeviceContext.h"
#include "gdi/fonts/ScaledFonts.h"

namespace gdi {

/// Takes one character from text that is not empty: a valid UTF-8 sequence, or else one byte as the character of its
/// value.
uint32_t NextCharacter(const char*& text, const char* end);

/// The selected font made real; null when the system has no font.
ScaledFonts* CurrentFonts(DeviceContext& dc);

/// Sum of the advances, held within int32.
int32_t TextWidth(ScaledFonts& fonts, const char* text, const char* end);

/// A line of text at a logical point under the current alignment.
struct TextLine
{
    ScaledFonts& fonts;
    TextMatrix matrix; ///< text space to device, turned by the escapement
    RealPoint anchor;  ///< device point of the logical point
    double left;       ///< where the line begins and its baseline, in text space relative to the anchor
    double baseline;
    int32_t width;
    bool turned; ///< the text box is not upright on the device

    TextLine(DeviceContext& dc, ScaledFonts& fonts, int x, int y, int32_t width);
    RealPoint ToDevice(double x, double y) const
    {
        const RealPoint p = matrix.Apply(x, y);
        return {anchor.x + p.x, anchor.y + p.y};
    }
};

/// Draws text that TextLine placed: the box when the mode is OPAQUE, then the glyphs, then the lines of the font
/// record. The binary raster operation does not take part.
void DrawLine(DeviceContext& dc, const TextLine& line, const char* text, const char* end, const Box& clip);
/// A box of text space, relative to the line's anchor, in a colour.
void FillTextBox(DeviceContext& dc, const TextLine& line, double left, double top, double right, double bottom,
                 COLORREF color, const Box& clip);
/// The device box around a logical rectangle, cut to the surface.
Box ClipToRect(const DeviceContext& dc, const RECT& rect);

} // namespace gdi
