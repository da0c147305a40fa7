/// Faces of the system by name.
#pragma once

#include "gdi/gdirecords.h"

#include <ft2build.h>
#include FT_FREETYPE_H

namespace gdi {

/// The outline face nearest to the record's name, weight and slant; null when the system has none or memory ran out.
/// Faces are opened once and stay open for the life of the process.
FT_Face FindFace(const LOGFONTA& record);

} // namespace gdi
