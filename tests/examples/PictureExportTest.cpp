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
        {4, {}, 120, 80},                          // the outline's centre line, 30 x 20 mm
        {10, FileArea{5, 5, 0, 0}, 50, 50},        // corners in any order
        {0.01, {}, 1, 1},                          // never without a pixel
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

    // At 4 pixels a millimetre the inner half of the frame is 4 pixels wide, whatever rounding does at its edge.
    Export(folder.File("s.bmp"), {0, 0, 4});
    const Pixels frame(folder.File("s.bmp"));
    int left = 0;
    while (left < frame.width && frame.At(left, 40) == LayerColour("Edge.Cuts"))
        ++left;
    EXPECT_NEAR(left, 4, 1);
    EXPECT_EQ(frame.At(60, 1), LayerColour("Edge.Cuts"));
    EXPECT_EQ(frame.At(60, 40), Colour(0));
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
