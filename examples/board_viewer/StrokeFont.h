/// A small stroke font of the viewer's own for board texts: letters are polylines, so that a text has its height in
/// millimetres at every zoom, any angle, and can be read from the back.
#pragma once

#include "foundation/KRecords.h"

#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// A polyline in units of the text's size: the baseline is at y 0, capital letters reach y 1, a nominal letter cell is
/// 1 wide.
using Stroke = std::vector<KPointD>;

/// The strokes of one line of UTF-8 text that begins at x 0. Characters without a glyph are drawn as a box, those of
/// ~{...} with a bar above. A stroke of one point is never made.
std::vector<Stroke> StrokesOfText(std::string_view line);

/// Width of the line in units of the nominal cell, without the gap after the last character.
double WidthOfText(std::string_view line);

/// Distance between the baselines of two lines in units of the height.
inline constexpr double kLineSpacing = 1.6;

/// Shear of italic letters: x grows by this share of y.
inline constexpr double kItalicSlant = 0.125;

} // namespace viewer
