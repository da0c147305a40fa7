/// Bitmap files on their way to JPEG files, good ones and broken ones.
#include "jpeg/jpegfile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

std::string Path(const char* name)
{
    return testing::TempDir() + "kolm_jpeg_" + name;
}

void Write(const std::string& path, const Bytes& bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
}

Bytes Read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

void Put(Bytes& bytes, size_t at, uint32_t value, int count)
{
    for (int i = 0; i < count; ++i) {
        bytes[at + size_t(i)] = uint8_t(value >> 8 * i);
    }
}

/// A bitmap file with `table` colour entries between header and rows; the left half of the picture is set.
Bytes MakeBitmap(int width, int height, int bits, int table)
{
    const size_t rowBytes = size_t(width * bits + 31) / 32 * 4, rows = size_t(std::abs(height));
    const size_t offset = 54 + size_t(table) * 4;
    Bytes bytes(offset + rowBytes * rows);
    bytes[0] = 'B', bytes[1] = 'M';
    Put(bytes, 10, uint32_t(offset), 4);
    Put(bytes, 14, 40, 4);
    Put(bytes, 18, uint32_t(width), 4);
    Put(bytes, 22, uint32_t(height), 4);
    Put(bytes, 26, 1, 2);
    Put(bytes, 28, uint32_t(bits), 2);
    if (bits == 1) {
        Put(bytes, 58, 0xFFFFFF, 4);
    }
    for (size_t y = 0; y < rows; ++y) {
        for (size_t b = 0; b < rowBytes / 2; ++b) {
            bytes[offset + y * rowBytes + b] = 0xFF;
        }
    }
    return bytes;
}

/// Width and height from the frame header, and the sampling factors of the first component; empty when it is no
/// picture.
std::vector<int> FrameOf(const Bytes& jpeg)
{
    for (size_t i = 2; i + 12 < jpeg.size() && jpeg[i] == 0xFF;) {
        if (jpeg[i + 1] == 0xC0) {
            return {jpeg[i + 7] * 256 + jpeg[i + 8], jpeg[i + 5] * 256 + jpeg[i + 6], jpeg[i + 11]};
        }
        i += 2 + size_t(jpeg[i + 2] * 256 + jpeg[i + 3]);
    }
    return {};
}

TEST(JpegFile, EveryDepthAndDirection)
{
    const struct
    {
        int height, bits, table;
    } cases[] = {{24, 1, 2}, {24, 24, 0}, {24, 32, 1}, {-24, 32, 0}};
    for (const auto& c : cases) {
        Write(Path("in.bmp"), MakeBitmap(64, c.height, c.bits, c.table));
        ASSERT_EQ(ConvertBitmapFileToJpegFile(Path("in.bmp").c_str(), Path("out.jpg").c_str()), 1) << c.bits;
        EXPECT_EQ(FrameOf(Read(Path("out.jpg"))), (std::vector<int>{64, 24, 0x11})) << c.bits; // full colour resolution
    }
}

/// Two colours by a table, and the same two in each pixel: one picture, so one file.
TEST(JpegFile, ColoursOfATable)
{
    const uint32_t left = 0xC01040, right = 0x2080F0; // blue in the low byte
    Bytes table = MakeBitmap(64, 24, 1, 2), plain = MakeBitmap(64, 24, 24, 0);
    Put(table, 54, right, 4);
    Put(table, 58, left, 4);
    for (size_t pixel = 0; pixel < 64 * 24; ++pixel)
        Put(plain, 54 + 3 * pixel, pixel % 64 < 32 ? left : right, 3);
    Write(Path("table.bmp"), table);
    Write(Path("plain.bmp"), plain);
    ASSERT_EQ(ConvertBitmapFileToJpegFile(Path("table.bmp").c_str(), Path("table.jpg").c_str()), 1);
    ASSERT_EQ(ConvertBitmapFileToJpegFile(Path("plain.bmp").c_str(), Path("plain.jpg").c_str()), 1);
    EXPECT_TRUE(Read(Path("table.jpg")) == Read(Path("plain.jpg")));
}

TEST(JpegFile, BrokenBitmapsLeaveTheOldPicture)
{
    const Bytes good = MakeBitmap(40, 5, 32, 1), old = {1, 2, 3};
    std::vector<std::pair<std::string, Bytes>> cases;
    for (size_t length = 0; length < good.size(); length += length < 60 ? 1 : 97) {
        cases.emplace_back("cut at " + std::to_string(length),
                           Bytes(good.begin(), good.begin() + std::ptrdiff_t(length)));
    }
    const auto change = [&](const char* why, size_t at, uint32_t value, int count) {
        Bytes bytes = good;
        Put(bytes, at, value, count);
        cases.emplace_back(why, bytes);
    };
    change("not a bitmap", 0, 'X', 1);
    change("rows over the headers", 10, 20, 4);
    change("rows past the end", 10, 0xFFFFFFF0, 4);
    change("an old header", 14, 12, 4);
    change("a header past the end", 14, 0xFFFFFFFF, 4);
    change("no width", 18, 0, 4);
    change("a negative width", 18, 0xFFFFFFD8, 4);
    change("too wide", 18, 70000, 4);
    change("the lowest height", 22, 0x80000000, 4);
    change("two planes", 26, 2, 2);
    change("eight bits", 28, 8, 2);
    change("compressed", 30, 1, 4);
    for (const auto& c : cases) {
        Write(Path("bad.bmp"), c.second);
        Write(Path("old.jpg"), old);
        EXPECT_EQ(ConvertBitmapFileToJpegFile(Path("bad.bmp").c_str(), Path("old.jpg").c_str()), 0) << c.first;
        EXPECT_EQ(Read(Path("old.jpg")), old) << c.first;
    }
}

TEST(JpegFile, PathsThatLeadNowhere)
{
    Write(Path("fine.bmp"), MakeBitmap(4, 4, 24, 0));
    EXPECT_EQ(ConvertBitmapFileToJpegFile(Path("missing.bmp").c_str(), Path("x.jpg").c_str()), 0);
    EXPECT_EQ(ConvertBitmapFileToJpegFile(Path("fine.bmp").c_str(), (Path("no") + "/such/x.jpg").c_str()), 0);
    EXPECT_EQ(ConvertBitmapFileToJpegFile(testing::TempDir().c_str(), Path("x.jpg").c_str()), 0);
    EXPECT_EQ(ConvertBitmapFileToJpegFile(nullptr, Path("x.jpg").c_str()), 0);
    EXPECT_EQ(ConvertBitmapFileToJpegFile(Path("fine.bmp").c_str(), nullptr), 0);
}

} // namespace
