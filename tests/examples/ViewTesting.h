/// Views on tiny boards for the tests of the interactive viewer.
#pragma once

#include "BoardEvents.h"
#include "BoardView.h"
#include "ViewerTesting.h"

#include <cstring>
#include <vector>

namespace viewer {

/// A copy of what a view shows: 0x00RRGGBB, rows from the top.
struct Screen
{
    explicit Screen(BoardView& view)
    {
        const BITMAP bitmap = view.Pixels();
        width = bitmap.bmBits ? bitmap.bmWidth : 0;
        height = bitmap.bmBits ? bitmap.bmHeight : 0;
        pixels.resize(size_t(width) * size_t(height));
        for (int y = 0; y < height; ++y)
            std::memcpy(&pixels[size_t(y) * size_t(width)],
                        static_cast<const char*>(bitmap.bmBits) + ptrdiff_t(y) * bitmap.bmWidthBytes,
                        size_t(width) * 4);
    }
    uint32_t At(CPoint p) const { return pixels[size_t(p.y) * size_t(width) + size_t(p.x)] & 0xFFFFFF; }
    /// Pixels that differ from another screen of the same size.
    int Differences(const Screen& other) const
    {
        int count = 0;
        for (size_t i = 0; i < pixels.size(); ++i)
            count += pixels[i] != other.pixels[i];
        return count;
    }

    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

/// A layer's colour as pixels tell it, red in the high byte.
inline uint32_t AsPixel(Colour colour)
{
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

/// The outline of a board from (0, 0) to (40, 30) millimetres.
inline const char* const kOutline40x30 = "(gr_rect (start 0 0) (end 40 30) (layer \"Edge.Cuts\") (width 0.1))";

/// A view of 401 x 301 pixels on a board with these items and that outline. Fitted, it shows about 9 pixels per
/// millimetre, with the board's middle (20, 15) in the middle pixel (200, 150).
struct ItemsView
{
    explicit ItemsView(const std::string& items)
    {
        view.Resize(401, 301);
        BoardFile file;
        file.board = ReadItems(kOutline40x30 + items);
        file.picture = MakePicture(*file.board);
        view.Show(std::move(file));
    }
    /// The pixel that shows a point of the file (y down).
    CPoint At(double x, double y)
    {
        view.Pixels();
        const KPoint pixel = view.Painter()->GetTranslatedPhysicalCoord(x, -y);
        return CPoint(pixel.x, pixel.y);
    }

    BoardView view;
};

inline std::string TrackItem(double x1, double y1, double x2, double y2, const char* layer, int net = 1)
{
    char text[200];
    std::snprintf(text, sizeof text, "(segment (start %g %g) (end %g %g) (width 0.5) (layer \"%s\") (net %d))", x1, y1,
                  x2, y2, layer, net);
    return text;
}

/// A footprint without turn whose one pad is in its middle. `pad` is what follows the pad's number and kind: its shape,
/// and "(at ...)" with "(size ...)" and so on.
inline std::string PadItem(const char* reference, double x, double y, const std::string& pad)
{
    char text[400];
    std::snprintf(text, sizeof text,
                  "(footprint \"f\" (layer \"F.Cu\") (at %g %g)"
                  " (fp_text reference \"%s\" (at 0 0) (layer \"F.SilkS\") hide)"
                  " (pad \"1\" smd %s (layers \"F.Cu\")))",
                  x, y, reference, pad.c_str());
    return text;
}

} // namespace viewer
