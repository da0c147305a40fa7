/// Bitmap files on their way to JPEG: which are taken, and of what size the result is.
#include "foundation/CJpeg.h"
#include "Fuzz.h"
#include "TemporaryFile.h"

#include <cstdio>
// After <cstdio>: its declarations need FILE.
#include <jpeglib.h>

using fuzz::Require;

namespace {

uint32_t Dword(const uint8_t* at)
{
    return at[0] | at[1] << 8 | at[2] << 16 | uint32_t(at[3]) << 24;
}

struct Size
{
    int64_t width = 0;
    int64_t height = 0;
};

/// The picture's size by the format's own rules, 0 x 0 for a file to be refused.
Size SizeByFormat(const uint8_t* data, size_t size)
{
    if (size < 54 || data[0] != 'B' || data[1] != 'M')
        return {};
    const int64_t offset = Dword(data + 10), header = Dword(data + 14);
    const int64_t width = int32_t(Dword(data + 18)), height = std::abs(int64_t(int32_t(Dword(data + 22))));
    const int64_t planes = Dword(data + 26) & 0xFFFF, bits = Dword(data + 26) >> 16;
    const bool kind = bits == 1 || bits == 24 || bits == 32;
    if (header < 40 || planes != 1 || !kind || Dword(data + 30) != 0 || width < 1 || width > 65500 || height < 1 ||
        height > 65500)
        return {};
    const uint32_t named = Dword(data + 46);
    const int64_t colors = bits == 1 ? (named == 1 ? 1 : 2) : 0;
    if (14 + header + 4 * colors > int64_t(size))
        return {};
    const int64_t row = (width * bits + 31) / 32 * 4;
    if (offset < 14 + header || offset + row * height > int64_t(size))
        return {};
    return {width, height};
}

/// The size that a decoder finds in a JPEG file; its own error handler ends the process.
Size SizeOfJpeg(const std::string& path)
{
    FILE* const file = std::fopen(path.c_str(), "rb");
    Require(file != nullptr, "a converted file is there");
    jpeg_decompress_struct decoder;
    jpeg_error_mgr errors;
    decoder.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&decoder);
    jpeg_stdio_src(&decoder, file);
    Require(jpeg_read_header(&decoder, TRUE) == JPEG_HEADER_OK, "a converted file is a JPEG file");
    const Size size = {decoder.image_width, decoder.image_height};
    jpeg_start_decompress(&decoder);
    std::string row(size_t(size.width) * 3, '\0');
    JSAMPROW rows[] = {reinterpret_cast<JSAMPROW>(row.data())};
    while (decoder.output_scanline < decoder.output_height)
        jpeg_read_scanlines(&decoder, rows, 1);
    jpeg_finish_decompress(&decoder);
    Require(errors.num_warnings == 0, "a converted file is complete");
    jpeg_destroy_decompress(&decoder);
    std::fclose(file);
    return size;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const fuzz::TemporaryFile bitmap("picture.bmp"), jpeg("picture.jpg");
    bitmap.Put(std::string(reinterpret_cast<const char*>(data), size));
    jpeg.Put("before");
    const Size expected = SizeByFormat(data, size);
    const int converted = CJpeg::ConvertBMPToJPG(bitmap.Path().c_str(), jpeg.Path().c_str());
    Require(converted == (expected.width > 0 ? 1 : 0), "a bitmap is taken when it is one of a known kind and whole");
    if (converted) {
        const Size found = SizeOfJpeg(jpeg.Path());
        Require(found.width == expected.width && found.height == expected.height, "the size stays");
    } else {
        Require(jpeg.Get() == "before", "a refused bitmap leaves the file that was there");
    }
    Require(!jpeg.HasNeighbour(".part"), "nothing unfinished is left");
    return 0;
}
