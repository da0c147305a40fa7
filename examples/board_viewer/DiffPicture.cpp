#include "DiffPicture.h"

#include "BitmapRows.h"
#include "StrokeFont.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>

// What is common, what is old and what is new is drawn apart, each into a bitmap of its own of which only matters what
// is covered. Each pixel so gets to know all that covers it, and a table of priorities turns that into its colour. No
// order of drawing takes part, which is why the same elements in another order give the same picture.

namespace viewer {

namespace {

/// What covers a pixel, one bit each.
enum Cover : uint16_t
{
    kCommon = 1,
    kCommonArea = 2,
    kCommonHole = 4,
    kOnlyOld = 8,
    kOnlyNew = 16,
    kOldArea = 32, ///< and no new one on the same layer
    kNewArea = 64,
    kLayerOldArea = 128, ///< on the layer that is looked at
    kLayerNewArea = 256,
};

Colour ColourOf(unsigned cover)
{
    if ((cover & kCommonHole) != 0)
        return 0;
    if ((cover & kOnlyNew) != 0)
        return kOnlyNewColour;
    if ((cover & kOnlyOld) != 0)
        return kOnlyOldColour;
    if ((cover & kNewArea) != 0)
        return kOnlyNewColour;
    if ((cover & kOldArea) != 0)
        return kOnlyOldColour;
    if ((cover & kCommon) != 0)
        return kCommonColour;
    return (cover & kCommonArea) != 0 ? kCommonAreaColour : 0;
}

/// The outlines of both revisions together.
struct Frame
{
    CKRectD centreLines;
    CKRectD ink;
};

/// Frames the same area for each part of the difference.
class PartPainter : public BoardPainter
{
public:
    PartPainter(const BoardPicture& part, const Frame& outlines) : BoardPainter(part), frame(outlines) {}

    KRectangleD GetTargetSize() override { return TargetFor(frame.centreLines); }
    KRectangleD GetInkSize() override { return TargetFor(frame.ink); }

private:
    const Frame& frame;
};

bool HasShapes(const BoardPicture& picture)
{
    return std::any_of(picture.layers.begin(), picture.layers.end(),
                       [](const auto& layer) { return layer->shapes.GetCount() > 0; });
}

/// The layer of this name as a picture of its own, taken out of the other; without layers when there is none.
BoardPicture TakeLayer(BoardPicture& picture, const std::string& name)
{
    BoardPicture taken;
    for (auto& layer : picture.layers) {
        if (layer && layer->name == name)
            taken.layers.push_back(std::move(layer));
    }
    picture.layers.erase(std::remove(picture.layers.begin(), picture.layers.end(), nullptr), picture.layers.end());
    return taken;
}

/// Gathers what covers each pixel.
class CoverMap
{
public:
    CoverMap(const DiffView& diffView, const Frame& outlines) : view(diffView), frame(outlines) {}

    void Draw(BoardDifference&& difference)
    {
        BoardPicture holes = TakeLayer(difference.common.others, std::string(kHolesName));
        Draw(difference.common.others, kCommon);
        Draw(holes, kCommonHole);
        Draw(difference.common.areas, kCommonArea);
        Draw(difference.onlyOld.others, kOnlyOld);
        Draw(difference.onlyNew.others, kOnlyNew);

        std::set<std::string> names;
        for (const BoardPicture* areas : {&difference.onlyOld.areas, &difference.onlyNew.areas}) {
            for (const auto& layer : areas->layers)
                names.insert(layer->name);
        }
        for (const std::string& name : names)
            DrawAreas(TakeLayer(difference.onlyOld.areas, name), TakeLayer(difference.onlyNew.areas, name));
    }

    int Width() const { return width; }
    int Height() const { return height; }
    double PixelsPerMm() const { return pixelsPerMm; }
    /// The covers of a row, from the left.
    const uint16_t* Row(int y) const { return covers.data() + size_t(y) * size_t(width); }

private:
    /// Adds what a picture's shapes cover. The first picture is drawn even when it is empty: it makes the map.
    void Draw(BoardPicture& picture, Cover cover)
    {
        if (!covers.empty() && !HasShapes(picture))
            return;
        for (auto& layer : picture.layers)
            layer->colour = kInk;
        PartPainter painter(picture, frame);
        painter.SetBoardMirrorX(view.mirror ? 1 : 0);
        CBitmap bitmap;
        pixelsPerMm = DrawPicture(painter, view.size, view.area, bitmap);

        BitmapRows rows(static_cast<HBITMAP>(bitmap.GetSafeHandle()));
        width = rows.Width();
        height = rows.Height();
        covers.resize(size_t(width) * size_t(height));
        uint16_t* target = covers.data();
        for (int y = 0; y < height; ++y) {
            for (uint32_t pixel : rows.Row(y))
                *target++ |= pixel != 0 ? cover : 0;
        }
    }

    /// Areas of one layer: where both revisions have one, nothing changed.
    void DrawAreas(BoardPicture older, BoardPicture newer)
    {
        if (!HasShapes(older) && !HasShapes(newer))
            return;
        Draw(older, kLayerOldArea);
        Draw(newer, kLayerNewArea);
        constexpr unsigned kBoth = kLayerOldArea | kLayerNewArea;
        for (uint16_t& cover : covers) {
            const unsigned sides = cover & kBoth;
            if (sides == 0)
                continue;
            const Cover outcome = sides == kBoth ? kCommonArea : sides == kLayerOldArea ? kOldArea : kNewArea;
            cover = uint16_t((cover & ~kBoth) | outcome);
        }
    }

    static constexpr Colour kInk = 0xFFFFFF; // anything but the background

    const DiffView& view;
    const Frame& frame;
    int width = 0;
    int height = 0;
    double pixelsPerMm = 0;
    std::vector<uint16_t> covers;
};

/// A bitmap whose pixels are reached directly.
class PixelBitmap
{
public:
    PixelBitmap(int bitmapWidth, int bitmapHeight) : width(bitmapWidth), height(bitmapHeight)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height; // positive: rows from the bottom up
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        HBITMAP handle = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (!handle)
            throw std::runtime_error("no memory for the picture's colours");
        bitmap.Attach(handle);
        pixels = static_cast<uint32_t*>(bits);
    }

    uint32_t* Row(int y) { return pixels + size_t(height - 1 - y) * size_t(width); }
    HBITMAP Handle() { return static_cast<HBITMAP>(bitmap.GetSafeHandle()); }

    const int width;
    const int height;
    CBitmap bitmap;

private:
    uint32_t* pixels = nullptr;
};

/// Each pixel in the colour of what covers it. Colours have red in the low byte, pixels blue.
void PaintCovers(const CoverMap& map, PixelBitmap& picture)
{
    for (int y = 0; y < picture.height; ++y) {
        const uint16_t* covers = map.Row(y);
        uint32_t* pixels = picture.Row(y);
        for (int x = 0; x < picture.width; ++x) {
            const Colour colour = ColourOf(covers[x]);
            pixels[x] = (colour >> 16 & 0xFF) | (colour & 0xFF00) | (colour & 0xFF) << 16;
        }
    }
}

/// Names the colours in the lower left corner, in letters of a height in pixels that suits the picture.
class Legend
{
public:
    explicit Legend(PixelBitmap& target)
        : picture(target), letter(std::clamp(target.height / 60, 10, 32)), margin(letter / 2)
    {}

    void Draw()
    {
        double cells = 0;
        for (const Entry& entry : kEntries)
            cells += WidthOfText(entry.text) + kGap;
        const int boxWidth = int(cells * letter);
        const int boxHeight = letter + 2 * margin;
        // In a small picture it would cover what the picture is for.
        if (boxWidth > picture.width / 2 || boxHeight > picture.height / 8)
            return;

        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        CBitmap* former = dc.SelectObject(&picture.bitmap);
        dc.FillSolidRect(0, picture.height - boxHeight, boxWidth, boxHeight, 0);
        double x = margin;
        for (const Entry& entry : kEntries) {
            DrawText(dc, entry, int(x));
            x += (WidthOfText(entry.text) + kGap) * letter;
        }
        dc.SelectObject(former);
    }

private:
    struct Entry
    {
        const char* text;
        Colour colour;
    };
    static constexpr Entry kEntries[] = {
        {"both", kCommonColour}, {"only OLD", kOnlyOldColour}, {"only NEW", kOnlyNewColour}};
    static constexpr double kGap = 2; // cells

    void DrawText(CDC& dc, const Entry& entry, int left)
    {
        CPen pen(PS_SOLID, std::max(1, letter / 10), entry.colour);
        CPen* former = dc.SelectObject(&pen);
        const auto place = [&](KPointD point) {
            return CPoint(left + int(std::lround(point.x * letter)),
                          picture.height - margin - int(std::lround(point.y * letter)));
        };
        for (const Stroke& stroke : StrokesOfText(entry.text)) {
            dc.MoveTo(place(stroke.front()));
            for (size_t i = 1; i < stroke.size(); ++i)
                dc.LineTo(place(stroke[i]));
        }
        dc.SelectObject(former);
    }

    PixelBitmap& picture;
    const int letter;
    const int margin;
};

CKRectD BoundsOfBoth(const BoardPicture& older, const BoardPicture& newer, bool withThickness)
{
    CKRectD box = BoundsOf(older, withThickness);
    CKRectD other = BoundsOf(newer, withThickness);
    if (!box.IsInitialized())
        return other;
    if (other.IsInitialized())
        box.Merge(other);
    return box;
}

} // namespace

void KeepLayers(BoardDifference& difference, const std::vector<std::string>& layers)
{
    if (layers.empty())
        return;
    const bool copper = std::any_of(layers.begin(), layers.end(), IsCopper);
    const auto isDropped = [&](const std::string& name) {
        const bool isHoles = name == kHolesName || name == kBareHolesName;
        return std::find(layers.begin(), layers.end(), name) == layers.end() && !(copper && isHoles);
    };
    for (DiffPart* part : {&difference.common, &difference.onlyOld, &difference.onlyNew}) {
        for (BoardPicture* picture : {&part->areas, &part->others}) {
            auto& list = picture->layers;
            list.erase(std::remove_if(list.begin(), list.end(), [&](const auto& l) { return isDropped(l->name); }),
                       list.end());
        }
    }
    for (auto change = difference.changes.begin(); change != difference.changes.end();)
        change = isDropped(change->first) ? difference.changes.erase(change) : std::next(change);
}

void ExportDifference(BoardDifference difference, const BoardFile& older, const BoardFile& newer, const DiffView& view,
                      const std::string& path)
{
    PictureFile file(path);
    const Frame frame = {BoundsOfBoth(older.picture, newer.picture, false),
                         BoundsOfBoth(older.picture, newer.picture, true)};
    CoverMap map(view, frame);
    map.Draw(std::move(difference));
    PixelBitmap picture(map.Width(), map.Height());
    PaintCovers(map, picture);
    Legend(picture).Draw();
    file.Write(picture.Handle(), map.PixelsPerMm());
}

} // namespace viewer
