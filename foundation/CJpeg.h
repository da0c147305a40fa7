#pragma once

#include "KolmApi.h"

/// Conversion of pictures to JPEG. Its only virtual operation is the destructor.
class KOLM_API CJpeg
{
public:
    virtual ~CJpeg();
    /// Reads the bitmap file named first and writes it as the JPEG file named second, replacing a file of that name.
    /// 1 when the file was written; 0 when a name is null, the bitmap cannot be read or the JPEG cannot be written.
    static int ConvertBMPToJPG(const char* bitmapFile, const char* jpegFile);
};
