#include "foundation/CJpeg.h"
#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace {

namespace fs = std::filesystem;

/// A folder of its own for one test, gone afterwards.
struct Folder
{
    Folder() { fs::create_directories(path); }
    ~Folder() { fs::remove_all(path); }
    std::string File(const char* name) const { return (path / name).string(); }

    const fs::path path = fs::temp_directory_path() / ("kolm_jpeg_" + std::to_string(std::random_device{}()));
};

/// A 24-bit bitmap of 8 x 8 pixels of one colour.
archive_bytes::Bytes Bitmap()
{
    archive_bytes::Record record;
    record.Text("BM").I(54 + 192).I(0).I(54).I(40).I(8).I(8).I(1 | 24 << 16).I(0).I(192).I(0).I(0).I(0).I(0);
    record.bytes.resize(54 + 192, 0x80);
    return record.bytes;
}

void Write(const std::string& name, const archive_bytes::Bytes& bytes)
{
    std::ofstream(name, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), long(bytes.size()));
}

std::string Content(const std::string& name)
{
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

} // namespace

TEST(CJpeg, ConvertsABitmapFile)
{
    const Folder folder;
    const std::string bitmap = folder.File("in.bmp"), jpeg = folder.File("out.jpg");
    Write(bitmap, Bitmap());
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(bitmap.c_str(), jpeg.c_str()), 1);
    const std::string content = Content(jpeg);
    ASSERT_GT(content.size(), 100u);
    EXPECT_EQ(content.substr(0, 3), "\xFF\xD8\xFF");
    EXPECT_EQ(content.substr(content.size() - 2), "\xFF\xD9");
}

TEST(CJpeg, RefusesWhatIsNoBitmap)
{
    const Folder folder;
    const std::string bitmap = folder.File("in.bmp"), jpeg = folder.File("out.jpg");
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(nullptr, jpeg.c_str()), 0);
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(bitmap.c_str(), nullptr), 0);
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(bitmap.c_str(), jpeg.c_str()), 0) << "no such file";
    archive_bytes::Bytes cut = Bitmap();
    cut.resize(100);
    Write(bitmap, cut);
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(bitmap.c_str(), jpeg.c_str()), 0);
    EXPECT_FALSE(fs::exists(jpeg));
}
