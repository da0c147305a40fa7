/// Between colours and the values that pixels hold.
#pragma once

#include "gdi/raster/Surface.h"
#include "gdi/wingdi.h"

namespace gdi {

constexpr COLORREF kColorBits = 0xFFFFFF;

constexpr uint32_t SwapRedBlue(uint32_t value)
{
    return (value & 0xFF00) | (value >> 16 & 0xFF) | (value & 0xFF) << 16;
}

/// 1 when white is nearer than black. The sums differ for every colour, so there is no tie.
constexpr uint32_t NearerValue(COLORREF color)
{
    return (color & 0xFF) + (color >> 8 & 0xFF) + (color >> 16 & 0xFF) > 382;
}

/// The value that a colour becomes on a monochrome surface. Black and white stay what they are, the background colour
/// takes the nearer of the two and every other colour the opposite of that, so that drawing can always be told from its
/// ground.
constexpr uint32_t MonochromeValue(COLORREF color, COLORREF background)
{
    color &= kColorBits;
    background &= kColorBits;
    if (color == 0 || color == kColorBits) {
        return color != 0;
    }
    return color == background ? NearerValue(background) : 1 - NearerValue(background);
}

constexpr uint32_t ToPixel(const Surface& surface, COLORREF color, COLORREF background)
{
    return surface.bitsPerPixel == 1 ? MonochromeValue(color, background) : SwapRedBlue(color);
}

/// The colour that a pixel value shows.
inline COLORREF ToColor(const Surface& surface, uint32_t value)
{
    return surface.bitsPerPixel == 1 ? (value != 0 ? kColorBits : 0) : SwapRedBlue(value);
}

} // namespace gdi
