#include "PictureTesting.h"

#include "BitmapRows.h"

#include <png.h>

#include <algorithm>
#include <set>

namespace viewer {

namespace {

/// A PNG file as the library's own simple reader sees it, as colours with red in the low byte.
struct PngPicture
{
    explicit PngPicture(const std::string& file)
    {
        png_image image = {};
        image.version = PNG_IMAGE_VERSION;
        if (!png_image_begin_read_from_file(&image, file.c_str()))
            throw std::runtime_error(image.message);
        image.format = PNG_FORMAT_RGBA;
        width = int(image.width);
        height = int(image.height);
        pixels.resize(size_t(width) * size_t(height));
        if (!png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr))
            throw std::runtime_error(image.message);
    }
    Colour At(int x, int y) const { return pixels[size_t(y) * size_t(width) + size_t(x)] & 0xFFFFFF; }

    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

/// The big-endian number of 32 bits at this place.
uint32_t BigNumber(const std::string& bytes, size_t at)
{
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i)
        number = number << 8 | uint8_t(bytes.at(at + i));
    return number;
}

/// A 32-bit bitmap whose rows, top to bottom, are these pixels with blue in the low byte.
HBITMAP MakeBitmap(int width, int height, const std::vector<uint32_t>& pixels)
{
    return ::CreateBitmap(width, height, 1, 32, pixels.data());
}

/// A board 30 mm wide and 20 mm high whose frame is 2 mm wide, drawn to a file.
void Export(const std::string& file, PictureSize size, const std::optional<FileArea>& area = {})
{
    const BoardPicture picture =
        MakePicture(ReadItems("(gr_rect (start 0 0) (end 30 20) (layer \"Edge.Cuts\") (width 2) (fill none))"));
    BoardPainter painter(picture);
    ExportPicture(painter, size, area, file);
}

} // namespace

TEST(PictureExport, PngHasThePixelsOfTheBitmap)
{
    const TestFolder folder;
    Export(folder.File("p.bmp"), {90, 60});
    Export(folder.File("p.png"), {90, 60});
    const Pixels bitmap(folder.File("p.bmp"));
    const PngPicture png(folder.File("p.png"));
    ASSERT_EQ(png.width, 90);
    ASSERT_EQ(png.height, 60);
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 90; ++x)
            ASSERT_EQ(png.At(x, y), bitmap.At(x, y)) << x << ", " << y;
    }
    EXPECT_GT(bitmap.Count(LayerColour("Edge.Cuts")), 0);

    Export(folder.File("q.png"), {90, 60});
    EXPECT_EQ(ReadBytes(folder.File("p.png")), ReadBytes(folder.File("q.png")));
}

/// The bits of a pixel follow from the number of colours, and none is lost at any of them.
TEST(PictureExport, PngKeepsAnyNumberOfColours)
{
    const TestFolder folder;
    const std::tuple<unsigned, int, int> cases[] = {
        {1, 1, PNG_COLOR_TYPE_PALETTE},  {2, 1, PNG_COLOR_TYPE_PALETTE},   {3, 2, PNG_COLOR_TYPE_PALETTE},
        {4, 2, PNG_COLOR_TYPE_PALETTE},  {5, 4, PNG_COLOR_TYPE_PALETTE},   {16, 4, PNG_COLOR_TYPE_PALETTE},
        {17, 8, PNG_COLOR_TYPE_PALETTE}, {256, 8, PNG_COLOR_TYPE_PALETTE}, {257, 8, PNG_COLOR_TYPE_RGB},
        {3000, 8, PNG_COLOR_TYPE_RGB},
    };
    constexpr int kWidth = 61, kHeight = 53; // odd: the last byte of a row is not full
    for (const auto& [colours, bits, type] : cases) {
        std::vector<uint32_t> pixels;
        for (unsigned i = 0; i < kWidth * kHeight; ++i)
            pixels.push_back((i % colours) * 0x010307 & 0xFFFFFF);
        CBitmap bitmap;
        bitmap.Attach(MakeBitmap(kWidth, kHeight, pixels));
        PictureFile(folder.File("c.png")).Write(static_cast<HBITMAP>(bitmap.GetSafeHandle()), 0);

        const std::string bytes = ReadBytes(folder.File("c.png"));
        EXPECT_EQ(bytes.at(24), bits) << colours;
        EXPECT_EQ(bytes.at(25), type) << colours;
        const PngPicture png(folder.File("c.png"));
        for (int i = 0; i < kWidth * kHeight; ++i) {
            const uint32_t pixel = pixels[size_t(i)];
            ASSERT_EQ(png.At(i % kWidth, i / kWidth), pixel >> 16 | (pixel & 0xFF00) | (pixel & 0xFF) << 16) << colours;
        }
    }
}

TEST(PictureExport, AScaleGivesTheSize)
{
    const TestFolder folder;
    const struct
    {
        double pixelsPerMm;
        std::optional<FileArea> area;
        int width;
        int height;
    } cases[] = {
        {4, {}, 130, 90},                          // the outline, 32 x 22 mm with its line, and a pixel around it
        {10, FileArea{5, 5, 0, 0}, 50, 50},        // corners in any order
        {0.01, {}, 2, 2},                          // the two around it
        {0.01, FileArea{0, 0, 30, 20}, 1, 1},      // never without a pixel
        {2.5, FileArea{0, 0, 1.1, 9}, 3, 23},      // 2.75 and 22.5, rounded
        {1 / 25.4, FileArea{0, 0, 254, 1}, 10, 1}, // a dot an inch
    };
    for (const auto& c : cases) {
        PictureSize size;
        size.pixelsPerMm = c.pixelsPerMm;
        Export(folder.File("s.bmp"), size, c.area);
        const Pixels picture(folder.File("s.bmp"));
        EXPECT_EQ(picture.width, c.width) << c.pixelsPerMm;
        EXPECT_EQ(picture.height, c.height) << c.pixelsPerMm;
    }
}

/// The outline is in the picture with all of its width, but for a pixel of rounding, and at no scale lost at an edge.
TEST(PictureExport, AScaleShowsTheWholeOutline)
{
    const TestFolder folder;
    for (double pixelsPerMm : {0.2, 0.49, 1.03, 1.7, 4.0, 4.41, 7.77, 600 / 25.4}) {
        Export(folder.File("s.bmp"), {0, 0, pixelsPerMm});
        const Pixels frame(folder.File("s.bmp"));
        const auto lit = [&](int x, int y) { return frame.At(x, y) == LayerColour("Edge.Cuts"); };
        const int right = frame.width - 1, bottom = frame.height - 1;
        int across[4] = {}; // the line's width, from each side to the middle
        for (int i = 0; i < frame.width / 2; ++i) {
            across[0] += lit(i, bottom / 2);
            across[1] += lit(right - i, bottom / 2);
        }
        for (int i = 0; i < frame.height / 2; ++i) {
            across[2] += lit(right / 2, i);
            across[3] += lit(right / 2, bottom - i);
        }
        for (int pixels : across)
            EXPECT_GE(pixels, std::max(1, int(2 * pixelsPerMm) - 1)) << pixelsPerMm;
    }
}

TEST(PictureExport, RecordsTheResolution)
{
    const TestFolder folder;
    const auto bytesOf = [&](const char* name, PictureSize size, const std::optional<FileArea>& area = {}) {
        Export(folder.File(name), size, area);
        return ReadBytes(folder.File(name));
    };
    const PictureSize dpi300 = {0, 0, 300 / 25.4};

    // 300 dots an inch are 11811.02 a metre.
    const std::string png = bytesOf("r.png", dpi300);
    const size_t physical = png.find("pHYs");
    ASSERT_NE(physical, std::string::npos);
    EXPECT_EQ(BigNumber(png, physical + 4), 11811u);
    EXPECT_EQ(BigNumber(png, physical + 8), 11811u);
    EXPECT_EQ(png.at(physical + 12), 1) << "metres";

    const std::string bitmap = bytesOf("r.bmp", dpi300);
    EXPECT_EQ(bitmap.substr(38, 8), std::string("\x23\x2E\0\0\x23\x2E\0\0", 8));

    EXPECT_EQ(bytesOf("r.jpg", dpi300).substr(6, 12), std::string("JFIF\0\1\1\1\x01\x2C\x01\x2C", 12));
    EXPECT_EQ(bytesOf("c.jpg", {0, 0, 3.1}).substr(13, 5), std::string("\2\0\x1F\0\x1F", 5))
        << "31 a centimetre are no whole number an inch";

    // In a size in pixels the scale is the one that the area comes to: 60 pixels for 15 mm.
    const std::string sized = bytesOf("z.png", {60, 60}, FileArea{0, 0, 15, 15});
    EXPECT_EQ(BigNumber(sized, sized.find("pHYs") + 4), 4000u);
}

} // namespace viewer
