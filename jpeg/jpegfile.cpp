/// Writing JPEG files through libjpeg.
#include "jpeg/jpegfile.h"

#include "jpeg/BmpFile.h"

#include <csetjmp>
#include <cstdio>
#include <filesystem>
#include <new>
#include <string>
#include <system_error>
#include <vector>

// After <cstdio>: its declarations need FILE.
#include <jpeglib.h>

namespace {

constexpr int kQuality = 90;

/// Errors of the encoder jump back to Encode instead of ending the process.
struct Failure
{
    jpeg_error_mgr manager;
    std::jmp_buf back;
};

[[noreturn]] void JumpBack(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<Failure*>(info->err)->back, 1);
}

void KeepSilent(j_common_ptr) {}

void Configure(jpeg_compress_struct& encoder, int width, int height)
{
    encoder.image_width = JDIMENSION(width);
    encoder.image_height = JDIMENSION(height);
    encoder.input_components = 3;
    encoder.in_color_space = JCS_RGB;
    jpeg_set_defaults(&encoder);
    jpeg_set_quality(&encoder, kQuality, TRUE);
    for (int i = 0; i < encoder.num_components; ++i) {
        encoder.comp_info[i].h_samp_factor = encoder.comp_info[i].v_samp_factor = 1;
    }
}

/// Nothing here has a destructor: a failure leaves by a jump.
bool Encode(jpeg::BmpFile& bitmap, std::FILE* file, uint8_t* row)
{
    jpeg_compress_struct encoder;
    Failure failure;
    encoder.err = jpeg_std_error(&failure.manager);
    failure.manager.error_exit = JumpBack;
    failure.manager.output_message = KeepSilent;
    if (setjmp(failure.back) != 0) {
        jpeg_destroy_compress(&encoder);
        return false;
    }
    jpeg_create_compress(&encoder);
    jpeg_stdio_dest(&encoder, file);
    Configure(encoder, bitmap.Width(), bitmap.Height());
    jpeg_start_compress(&encoder, TRUE);
    while (encoder.next_scanline < encoder.image_height) {
        if (!bitmap.ReadRow(int(encoder.next_scanline), row)) {
            jpeg_destroy_compress(&encoder);
            return false;
        }
        JSAMPROW rows[] = {row};
        jpeg_write_scanlines(&encoder, rows, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    return true;
}

/// Writes beside the target first, so that a failure leaves what was there.
bool WriteThrough(jpeg::BmpFile& bitmap, const std::string& path)
{
    std::vector<uint8_t> row(size_t(bitmap.Width()) * 3);
    const std::string unfinished = path + ".part";
    const std::filesystem::path from = unfinished, to = path; // nothing needs memory once there is a file to remove
    std::FILE* const file = std::fopen(unfinished.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    const bool encoded = Encode(bitmap, file, row.data());
    const bool closed = std::fclose(file) == 0;
    std::error_code failed; // a plain rename() does not replace a file on every system
    if (encoded && closed) {
        std::filesystem::rename(from, to, failed);
        if (!failed) {
            return true;
        }
    }
    std::remove(unfinished.c_str());
    return false;
}

} // namespace

int ConvertBitmapFileToJpegFile(const char* bmpPath, const char* jpegPath)
{
    if (jpegPath == nullptr) {
        return 0;
    }
    try {
        jpeg::BmpFile bitmap;
        return bitmap.Open(bmpPath) && WriteThrough(bitmap, jpegPath);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
