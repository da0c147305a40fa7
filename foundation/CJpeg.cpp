#include "foundation/CJpeg.h"

#include "jpeg/jpegfile.h"

CJpeg::~CJpeg() = default;

// The shared types know how files are named, the folder below how pictures are coded.
int CJpeg::ConvertBMPToJPG(const char* bitmapFile, const char* jpegFile)
{
    if (!bitmapFile || !jpegFile)
        return 0;
    return ConvertBitmapFileToJpegFile(bitmapFile, jpegFile);
}
