/// The objects behind the handles, device contexts left out.
#pragma once

#include "gdi/HandleTable.h"
#include "gdi/raster/Surface.h"
#include "gdi/wingdi.h"

#include <memory>

namespace gdi {

class ScaledFonts;

struct Pen : Slot
{
    int style = PS_SOLID; ///< as given, flags of extended pens included
    int width = 0;
    COLORREF color = 0;
    bool extended = false;
};

struct Brush : Slot
{
    UINT style = BS_SOLID;
    COLORREF color = 0;
    int hatch = HS_HORIZONTAL;
};

struct Font : Slot
{
    LOGFONTA record = {};
    /// The face at the sizes and turns it was drawn with; made when first needed and kept while the handle lives.
    std::shared_ptr<ScaledFonts> scaled;
};

struct Bitmap : Slot
{
    Surface surface = {};
    uint8_t* memory = nullptr; ///< rows from AllocatePixels
    bool section = false;      ///< the host writes to the rows
    bool bottomUp = false;
    HDC holder = nullptr; ///< the device context that has it selected
};

struct Palette : Slot
{
    WORD entries = 0;
};

/// A window and its pixels.
struct Window : Slot
{
    Surface surface = {};
    uint8_t* memory = nullptr;
    LONG x = 0;
    LONG y = 0;
};

} // namespace gdi
