#include "foundation/CJpeg.h"

#include <jpegfile.h>

CJpeg::~CJpeg() = default;

int CJpeg::ConvertBMPToJPG(const char* bitmapFile, const char* jpegFile)
{
    if (!bitmapFile || !jpegFile)
        return 0;
    return ConvertBitmapFileToJpegFile(bitmapFile, jpegFile);
}
