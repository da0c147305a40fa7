/// Bitmap files as JPEG files.
#pragma once

#include "KolmApi.h"

/// Converts a bitmap file of 1, 24 or 32 bits without compression into a JPEG file of quality 90 with colours at full
/// resolution, as thin coloured lines need it. Pixels are found through the file header's offset, whatever lies
/// between. Returns 1, or 0 when the bitmap can't be read, is cut off, is of another kind or larger than 65500 pixels
/// in one direction, or when the JPEG file can't be written. An existing file at `jpegPath` is replaced only by a
/// complete one; the two paths may be the same.
KOLM_API int ConvertBitmapFileToJpegFile(const char* bmpPath, const char* jpegPath);
