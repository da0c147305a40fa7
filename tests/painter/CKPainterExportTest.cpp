#include "BoardPainter.h"
#include "support/TemporaryFolder.h"

namespace {

class CKPainterExport : public testing::Test, protected TemporaryFolder
{
protected:
    std::vector<uint8_t> Read(const char* name) const
    {
        const std::string content = Get(name);
        return std::vector<uint8_t>(content.begin(), content.end());
    }
};

uint32_t Number(const std::vector<uint8_t>& bytes, size_t at)
{
    return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | uint32_t(bytes[at + 3]) << 24;
}

/// A captured picture whose left half is red and right half black; the caller deletes it.
HBITMAP CapturedHalves(CWnd& window, int mode, int width, int height)
{
    class Halves : public CKPainter
    {
        void DrawBody(CWnd*, CDC* dc) override { DrawRectangle(dc, 0x0000FF, -500, 0, 1000, 1000, 1); }
    };
    Halves painter;
    painter.SetPixcelPerMM(1.0);
    painter.SetCaptureMode(mode);
    painter.Capture(&window, width, height, -float(width) / 2, 0, float(width) / 2, float(height));
    return *painter.GetCaptureBitmap();
}

TEST_F(CKPainterExport, ColourBitmapFile)
{
    RecordingApp app;
    TestWindow window(10, 10);
    const HBITMAP bitmap = CapturedHalves(window, 0, 100, 50);
    const DWORD objects = CountGdiObjects();
    CKPainter().SaveToBMP(Path("a.bmp").c_str(), bitmap);
    EXPECT_EQ(CountGdiObjects(), objects);
    DeleteObject(bitmap);
    const std::vector<uint8_t> file = Read("a.bmp");
    ASSERT_EQ(file.size(), 14u + 40 + 4 + 20000);
    EXPECT_EQ(Get("a.bmp").substr(0, 2), "BM");
    const uint32_t header[] = {uint32_t(file.size()), 0, 58, 40, 100, 50, 1 | 32 << 16, 0, 20000, 0, 0, 0, 0};
    for (size_t i = 0; i < std::size(header); ++i)
        EXPECT_EQ(Number(file, 2 + 4 * i), header[i]) << "number " << i;
    for (const size_t row : {0u, 49u}) {
        EXPECT_EQ(Number(file, 58 + row * 400 + 4 * 10) & 0xFFFFFF, 0xFF0000u) << "red is stored as blue, green, red";
        EXPECT_EQ(Number(file, 58 + row * 400 + 4 * 90) & 0xFFFFFF, 0u);
    }
    EXPECT_TRUE(app.messages.empty());
}

TEST_F(CKPainterExport, MonochromeBitmapFile)
{
    TestWindow window(10, 10);
    const HBITMAP bitmap = CapturedHalves(window, 1, 40, 3);
    CKPainter().SaveToBMP(Path("a.bmp").c_str(), bitmap);
    DeleteObject(bitmap);
    const std::vector<uint8_t> file = Read("a.bmp");
    ASSERT_EQ(file.size(), 14u + 40 + 8 + 3 * 8) << "rows of 40 bits take 8 bytes";
    EXPECT_EQ(Number(file, 10), 62u);
    EXPECT_EQ(Number(file, 54), 0u);
    EXPECT_EQ(Number(file, 58) & 0xFFFFFF, 0xFFFFFFu);
    // Red is neither black nor white nor the default white background, so it becomes the opposite of that: black. The
    // black background brush stays black.
    for (size_t i = 0; i < 5; ++i)
        EXPECT_EQ(file[62 + i], 0) << i;
}

TEST_F(CKPainterExport, JpegLeavesNoBitmapFile)
{
    RecordingApp app;
    TestWindow window(10, 10);
    const HBITMAP bitmap = CapturedHalves(window, 0, 32, 16);
    Put("a.jpg.bmp", "in the way");
    CKPainter().SaveToJPG(Path("a.jpg").c_str(), bitmap);
    DeleteObject(bitmap);
    EXPECT_FALSE(Has("a.jpg.bmp"));
    const std::string file = Get("a.jpg");
    ASSERT_GT(file.size(), 100u);
    EXPECT_EQ(file.substr(0, 2), "\xFF\xD8");
    EXPECT_EQ(file.substr(file.size() - 2), "\xFF\xD9");
    EXPECT_TRUE(app.messages.empty());
}

TEST_F(CKPainterExport, FailuresShowMessages)
{
    RecordingApp app;
    TestWindow window(10, 10);
    const HBITMAP bitmap = CapturedHalves(window, 0, 8, 8);
    CKPainter painter;
    const DWORD objects = CountGdiObjects();
    painter.SaveToBMP(Path("missing/a.bmp").c_str(), bitmap);
    painter.SaveToJPG(Path("missing/a.jpg").c_str(), bitmap);
    const std::string notCreated = "CKPainter::WriteDIB, INVALID_HANDLE_VALUE";
    EXPECT_EQ(app.messages, std::vector<std::string>(2, notCreated));
    app.messages.clear();

    painter.SaveToBMP(Path("none.bmp").c_str(), nullptr);
    EXPECT_FALSE(Has("none.bmp")) << "no bitmap: no file is touched";
    EXPECT_TRUE(app.messages.empty());

    if (std::filesystem::exists("/dev/full")) {
        painter.SaveToBMP("/dev/full", bitmap);
        EXPECT_EQ(app.messages, std::vector<std::string>{"CKPainter::WriteDIB, 1st Try WriteFile"});
    }
    EXPECT_EQ(CountGdiObjects(), objects);
    DeleteObject(bitmap);
}

TEST_F(CKPainterExport, Clipboard)
{
    RecordingApp app;
    TestWindow window(10, 10), other(10, 10);
    CKPainter painter;
    const HBITMAP bitmap = CreateBitmap(4, 4, 1, 32, nullptr);
    const HBITMAP second = CreateBitmap(4, 4, 1, 32, nullptr);

    painter.CopyToClipboardBitmap(bitmap, &window);
    ASSERT_EQ(OpenClipboard(other), TRUE) << "closed again";
    EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap);
    painter.CopyToClipboardBitmap(second, &window); // held open elsewhere
    EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap) << "not emptied";
    EXPECT_TRUE(app.messages.empty());
    CloseClipboard();

    painter.CopyToClipboardBitmap(nullptr, nullptr);
    EXPECT_EQ(app.messages, std::vector<std::string>{"Zoom ratio exceeded allowable range to capture."});
    EXPECT_EQ(IsClipboardFormatAvailable(CF_BITMAP), FALSE);
    DeleteObject(second);
}

} // namespace
