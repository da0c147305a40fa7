/// The viewer's own archives, from behind their mark on.
#include "ViewerChecks.h"

using fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes =
        std::string(viewer::kArchiveMark) + std::string(reinterpret_cast<const char*>(data), size);
    const fuzz::SameGdiObjects sameObjects;
    viewer::BoardPicture picture;
    try {
        picture = viewer::LoadArchive(bytes, "archive");
    } catch (const std::runtime_error& error) {
        Require(std::string(error.what()).compare(0, 8, "archive:") == 0, "an error names the file");
        return 0;
    }
    fuzz::CheckFileOf(picture);
    fuzz::DrawPicture(picture);
    return 0;
}
