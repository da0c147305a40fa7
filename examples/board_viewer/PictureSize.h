/// How many pixels a picture has, and how many there may be.
#pragma once

namespace viewer {

/// What a user asks for: a size in pixels, or a scale from which the size follows.
struct PictureSize
{
    int width = 1600;
    int height = 1200;
    double pixelsPerMm = 0; ///< above 0: width and height follow from the area shown
};

constexpr double kMillimetresPerInch = 25.4;

/// A bitmap takes four bytes a pixel: the largest one is a gigabyte. While a picture is drawn and written, up to three
/// more of its size exist.
constexpr double kMostPixels = double(1 << 28);
/// No side has this many pixels.
constexpr double kSideLimit = double(1 << 30);

/// Whether a picture of so many pixels may be made. Takes any numbers, NaN and infinity included.
bool IsPossibleSize(double width, double height);

/// The pixels that show an area at a scale, rounded, at least one a side. Throws std::runtime_error for a picture that
/// is too large.
PictureSize SizeAtScale(double pixelsPerMm, double areaWidth, double areaHeight);

} // namespace viewer
