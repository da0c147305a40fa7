#include "PictureSize.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace viewer {

bool IsPossibleSize(double width, double height)
{
    const auto isSide = [](double side) { return side >= 1 && side < kSideLimit; };
    return isSide(width) && isSide(height) && width * height <= kMostPixels;
}

PictureSize SizeAtScale(double pixelsPerMm, double areaWidth, double areaHeight)
{
    const auto pixels = [&](double length) { return std::fmax(1, std::round(length * pixelsPerMm)); };
    const double width = pixels(areaWidth), height = pixels(areaHeight);
    if (!IsPossibleSize(width, height)) {
        char text[128];
        std::snprintf(text, sizeof text, "the picture would have %.0fx%.0f pixels; at most %.0f are made", width,
                      height, kMostPixels);
        throw std::runtime_error(text);
    }
    return {int(width), int(height), pixelsPerMm};
}

} // namespace viewer
