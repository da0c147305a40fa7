#include "foundation/CJpeg.h"
#include "support/ArchiveBytes.h"
#include "support/TemporaryFolder.h"

TEST(CJpeg, ConvertsBitmapFilesOnly)
{
    archive_bytes::Record bitmap; // 24 bits, 8 x 8 pixels of one colour
    bitmap.Text("BM").I(54 + 192).I(0).I(54).I(40).I(8).I(8).I(1 | 24 << 16).I(0).I(192).I(0).I(0).I(0).I(0);
    bitmap.bytes.resize(54 + 192, 0x80);
    const std::string content(bitmap.bytes.begin(), bitmap.bytes.end());
    const TemporaryFolder folder;
    folder.Put("in.bmp", content);
    folder.Put("cut.bmp", content.substr(0, 100));
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(folder.Path("in.bmp").c_str(), folder.Path("out.jpg").c_str()), 1);
    EXPECT_EQ(folder.Get("out.jpg").substr(0, 3), "\xFF\xD8\xFF");
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(folder.Path("cut.bmp").c_str(), folder.Path("no.jpg").c_str()), 0);
    EXPECT_EQ(CJpeg::ConvertBMPToJPG(nullptr, folder.Path("no.jpg").c_str()), 0);
    EXPECT_FALSE(folder.Has("no.jpg"));
}
