#include "PngFile.h"

#include "BitmapRows.h"

#include <png.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <unordered_map>

namespace viewer {

namespace {

/// The library reports errors through a function that must not return. Its frames are C without anything to release,
/// and what it holds is freed by PngWriter's destructor, so an exception may pass through them.
[[noreturn]] void ThrowPngError(png_structp, png_const_charp message)
{
    throw std::runtime_error(message);
}

void IgnorePngWarning(png_structp, png_const_charp) {}

/// The colours of a picture in the order in which they are met, as long as they are few.
class ColourTable
{
public:
    static constexpr size_t kMost = 256;

    explicit ColourTable(BitmapRows& rows)
    {
        for (int y = 0; y < rows.Height() && IsUsable(); ++y) {
            for (uint32_t pixel : rows.Row(y))
                Add(pixel);
        }
    }

    bool IsUsable() const { return colours.size() <= kMost; }
    /// Of a colour in the table.
    unsigned IndexOf(uint32_t pixel)
    {
        if (pixel != last)
            lastIndex = indices.at(last = pixel);
        return lastIndex;
    }
    const std::vector<png_color>& Colours() const { return colours; }
    /// 1, 2, 4 or 8, enough for every index.
    int BitsPerPixel() const
    {
        return colours.size() <= 2 ? 1 : colours.size() <= 4 ? 2 : colours.size() <= 16 ? 4 : 8;
    }

private:
    /// Neighbours are mostly equal.
    void Add(uint32_t pixel)
    {
        if (pixel == last || !IsUsable())
            return;
        last = pixel;
        lastIndex = unsigned(colours.size());
        const auto [place, isNew] = indices.emplace(pixel, lastIndex);
        if (isNew)
            colours.push_back({png_byte(pixel >> 16), png_byte(pixel >> 8), png_byte(pixel)});
        lastIndex = place->second;
    }

    std::unordered_map<uint32_t, unsigned> indices;
    std::vector<png_color> colours;
    uint32_t last = UINT32_MAX; // no pixel's value: the high byte of those is 0
    unsigned lastIndex = 0;
};

/// A PNG file while it is written.
class PngWriter
{
public:
    explicit PngWriter(const std::string& path) : file(std::fopen(path.c_str(), "wb"), std::fclose)
    {
        if (!file)
            throw std::runtime_error("the file cannot be opened");
        png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, ThrowPngError, IgnorePngWarning);
        info = png ? png_create_info_struct(png) : nullptr;
        if (!info) {
            png_destroy_write_struct(&png, nullptr);
            throw std::runtime_error("no memory for a PNG file");
        }
        png_init_io(png, file.get());
        png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX); // the caller's limit is on both sides together
        png_set_compression_level(png, 9);
    }
    ~PngWriter() { png_destroy_write_struct(&png, &info); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    void Write(BitmapRows& rows, double pixelsPerMm)
    {
        ColourTable table(rows);
        const bool indexed = table.IsUsable();
        png_set_IHDR(png, info, png_uint_32(rows.Width()), png_uint_32(rows.Height()),
                     indexed ? table.BitsPerPixel() : 8, indexed ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (indexed)
            png_set_PLTE(png, info, table.Colours().data(), int(table.Colours().size()));
        const double perMetre = std::round(pixelsPerMm * 1000);
        if (perMetre >= 1 && perMetre <= PNG_UINT_31_MAX)
            png_set_pHYs(png, info, png_uint_32(perMetre), png_uint_32(perMetre), PNG_RESOLUTION_METER);
        png_write_info(png, info);
        png_set_packing(png); // rows come with a byte for each index

        std::vector<png_byte> bytes;
        for (int y = 0; y < rows.Height(); ++y) {
            bytes.clear();
            for (uint32_t pixel : rows.Row(y))
                AppendPixel(bytes, pixel, indexed ? &table : nullptr);
            png_write_row(png, bytes.data());
        }
        png_write_end(png, info);
        Close();
    }

private:
    static void AppendPixel(std::vector<png_byte>& bytes, uint32_t pixel, ColourTable* table)
    {
        if (table) {
            bytes.push_back(png_byte(table->IndexOf(pixel)));
            return;
        }
        for (int shift = 16; shift >= 0; shift -= 8)
            bytes.push_back(png_byte(pixel >> shift));
    }

    /// The last bytes leave the buffer here, and a full disk is noticed.
    void Close()
    {
        if (std::fclose(file.release()) != 0)
            throw std::runtime_error("the disk does not take all of it");
    }

    std::unique_ptr<FILE, int (*)(FILE*)> file;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

} // namespace

void WritePng(const std::string& path, HBITMAP bitmap, double pixelsPerMm)
{
    BitmapRows rows(bitmap);
    PngWriter(path).Write(rows, pixelsPerMm);
}

} // namespace viewer
