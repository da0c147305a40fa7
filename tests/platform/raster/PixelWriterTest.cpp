#include "RasterCanvas.h"

using namespace gdi;
using namespace raster_test;

namespace {

const RasterOp kOps[] = {RasterOp::Black, RasterOp::Not, RasterOp::Xor, RasterOp::Nop, RasterOp::Copy, RasterOp::White};

/// What an operation makes of a pixel, by its definition.
uint32_t Expected(RasterOp op, uint32_t old, uint32_t pixel, uint32_t white)
{
    switch (op) {
    case RasterOp::Black:
        return 0;
    case RasterOp::Not:
        return old ^ white;
    case RasterOp::Xor:
        return old ^ pixel;
    case RasterOp::Copy:
        return pixel;
    case RasterOp::White:
        return white;
    default:
        return old;
    }
}

TEST(PixelWriter, EveryFormAndOperation)
{
    // A hatch that differs by row and column and has no symmetry.
    const uint8_t hatch[8] = {0xE2, 0x01, 0x55, 0x80, 0x3C, 0xFF, 0x00, 0x1B};
    Random random(31);
    for (int round = 0; round < 12; ++round) {
        for (const int bits : {1, 24, 32}) {
            for (const RasterOp op : kOps) {
                const bool hatched = round % 3 != 0;
                const uint32_t white = bits == 1 ? 1 : 0xFFFFFF;
                const Ink ink = {0x00123456 & white, op, hatched ? hatch : nullptr, round % 3 == 1, 0x00ABCDEF & white};
                Canvas canvas(75, 9, bits, round % 2);
                for (uint8_t& byte : canvas.Bits())
                    byte = static_cast<uint8_t>(random.Between(0, 255));
                if (bits == 32) {
                    for (size_t i = 3; i < canvas.Bits().size(); i += 4)
                        canvas.Bits()[i] = 0;
                }
                Canvas before = canvas;
                std::vector<uint32_t> old;
                for (int32_t i = 0; i < 75 * 9; ++i)
                    old.push_back(canvas.Pixel(i % 75, i / 75));
                const int32_t left = random.Between(-3, 40);
                const Box box = {left, 2, left + random.Between(0, 40), 8};
                Rasterizer().FillBox(box, ink, canvas.Surface(), {0, 0, 75, 9});
                for (int32_t i = 0; i < 75 * 9; ++i) {
                    const int32_t x = i % 75, y = i / 75;
                    uint32_t expected = old[static_cast<size_t>(i)];
                    if (x >= box.left && x < box.right && y >= box.top && y < box.bottom) {
                        if (!hatched || (hatch[y % 8] & (0x80 >> x % 8)))
                            expected = Expected(op, expected, ink.pixel, white);
                        else if (ink.opaque)
                            expected = Expected(op, expected, ink.backPixel, white);
                    }
                    ASSERT_EQ(canvas.Pixel(x, y), expected)
                        << bits << " bits, operation " << int(op) << ", " << x << ", " << y;
                }
            }
        }
    }
}

TEST(PixelWriter, LinesAgreeInAllForms)
{
    Random random(32);
    Rasterizer rasterizer;
    for (int i = 0; i < 200; ++i) {
        const DevicePath path = Polyline({random.Point(-20, 60), random.Point(-20, 60)});
        for (const RasterOp op : {RasterOp::Copy, RasterOp::Xor}) {
            Canvas words(40, 40), bytes(40, 40, 24), bits(40, 40, 1, true);
            for (const Canvas* canvas : {&words, &bytes, &bits})
                rasterizer.StrokeCosmetic(path, nullptr, MakeInk(op, 1), canvas->Surface(), canvas->All());
            for (int32_t k = 0; k < 1600; ++k) {
                ASSERT_EQ(words.IsSet(k % 40, k / 40), bits.IsSet(k % 40, k / 40)) << i;
                ASSERT_EQ(words.IsSet(k % 40, k / 40), bytes.IsSet(k % 40, k / 40)) << i;
            }
        }
    }
}

TEST(PixelWriter, NothingToDrawInto)
{
    Rasterizer rasterizer;
    DevicePath path = Polyline({{0, 0}, {INT32_MAX, 7}, {3, 3}}, true);
    Canvas canvas(8, 8);
    uint8_t guard[4] = {1, 2, 3, 4};
    const Surface none[] = {{nullptr, 32, 8, 8, 32}, {guard, 4, 0, 8, 32}, {guard, 4, 8, -1, 32}, {guard, 4, 1, 1, 16}};
    const Box clips[] = {{0, 0, 8, 8}, {5, 5, 5, 8}, {INT32_MAX, 0, INT32_MIN, 8}};
    for (const Surface& surface : none) {
        for (const Box& clip : clips) {
            rasterizer.StrokeCosmetic(path, nullptr, MakeInk(), surface, clip);
            rasterizer.StrokeWide(path, 5, MakeInk(), surface, clip);
            rasterizer.Fill(path, FillRule::Alternate, MakeInk(), surface, clip);
            rasterizer.FillBox({0, 0, 9, 9}, MakeInk(), surface, clip);
        }
    }
    EXPECT_EQ(guard[0] + guard[1] + guard[2] + guard[3], 10);
    rasterizer.StrokeWide(path, 5, MakeInk(), canvas.Surface(), clips[1]);
    rasterizer.StrokeWide(DevicePath(), 5, MakeInk(), canvas.Surface(), canvas.All());
    EXPECT_EQ(canvas.Count(), 0);
}

} // namespace
