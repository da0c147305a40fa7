/// Pictures for the tests of the board viewer, read back from the files that it writes.
#pragma once

#include "PictureExport.h"
#include "ViewerTesting.h"

#include <cstring>

namespace viewer {

/// The pixels of a bitmap file of 32 bits per pixel, as colours with red in the low byte.
class Pixels
{
public:
    explicit Pixels(const std::string& file) : bytes(ReadBytes(file))
    {
        if (bytes.size() < 54 || bytes.compare(0, 2, "BM") != 0 || Number<uint16_t>(28) != 32)
            throw std::runtime_error(file + " is no bitmap of 32 bits");
        width = Number<int32_t>(18);
        height = Number<int32_t>(22);
        first = Number<uint32_t>(10);
        if (width <= 0 || height <= 0 || bytes.size() < first + size_t(width) * size_t(height) * 4)
            throw std::runtime_error(file + " is too short");
    }

    /// x to the right, y down; rows are stored from the bottom.
    Colour At(int x, int y) const
    {
        const auto stored = Number<uint32_t>(first + (size_t(height - 1 - y) * size_t(width) + size_t(x)) * 4);
        return (stored >> 16 & 0xFF) | (stored & 0xFF00) | (stored & 0xFF) << 16; // from blue in the low byte
    }
    int Count(Colour colour) const
    {
        int count = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                count += At(x, y) == colour;
        }
        return count;
    }

    int width = 0;
    int height = 0;

private:
    template <class NUMBER>
    NUMBER Number(size_t at) const
    {
        NUMBER value;
        std::memcpy(&value, bytes.data() + at, sizeof value);
        return value;
    }

    std::string bytes;
    size_t first = 0;
};

/// The file's area from (0, 0) to (10, 10) millimetres at 20 pixels per millimetre.
inline Pixels DrawItems(const std::string& items, bool mirror = false, const std::vector<std::string>& layers = {})
{
    const TestFolder folder;
    const BoardPicture picture = MakePicture(ReadItems(items));
    BoardPainter painter(picture);
    if (mirror)
        painter.ShowFromBack();
    if (!layers.empty()) {
        std::vector<const PictureLayer*> shown;
        for (const std::string& name : layers)
            shown.push_back(picture.Find(name));
        painter.ShowLayers(shown);
    }
    ExportPicture(painter, {200, 200}, FileArea{0, 0, 10, 10}, folder.File("p.bmp"));
    return Pixels(folder.File("p.bmp"));
}

} // namespace viewer
