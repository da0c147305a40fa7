/// Writing when the disk is full or the file cannot be made: each way reports it, and none leaves anything behind.
#include <afx.h>

#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "failures/FileSizeLimit.h"
#include "jpeg/jpegfile.h"
#include "painter/PainterFixture.h"
#include "Raises.h"
#include "support/TemporaryFolder.h"

#include <functional>

namespace failures {
namespace {

/// The cause of the file exception that the call raises, or CFileException::none.
int FileCause(const std::function<void()>& call)
{
    try {
        call();
    } catch (CFileException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return CFileException::none;
}

/// Writes 100000 bytes in each way that the platform has.
struct Writer
{
    const char* name;
    void (*write)(const char* path);
};

const std::string& Content()
{
    static const std::string content(100000, 'x');
    return content;
}

const Writer kWriters[] = {
    {"CFile",
     [](const char* path) {
         CFile file(path, CFile::modeCreate | CFile::modeWrite);
         file.Write(Content().data(), UINT(Content().size()));
         file.Close();
     }},
    {"CStdioFile",
     [](const char* path) {
         CStdioFile file(path, CFile::modeCreate | CFile::modeWrite);
         for (size_t i = 0; i < Content().size(); i += 10)
             file.Write(Content().data() + i, 10);
         file.Close();
     }},
    {"an archive of shapes",
     [](const char* path) {
         CKGeomContainer shapes;
         for (int i = 0; i < 1000; ++i)
             shapes.Add(new CKGeomLine(i, 0, 0, i, 1)); // 100 bytes and more each
         CFile file(path, CFile::modeCreate | CFile::modeWrite);
         CArchive archive(&file, CArchive::store);
         shapes.Serialize(archive);
         archive.Close();
         file.Close();
     }},
};

TEST(FullDisk, FilesAndArchivesRaise)
{
    const TemporaryFolder folder;
    const std::string path = folder.Path("f"), missing = folder.Path("none/f"), folderPath = folder.Path();
    for (const Writer& writer : kWriters) {
        if (std::filesystem::exists("/dev/full")) {
            EXPECT_EQ(FileCause([&] { writer.write("/dev/full"); }), CFileException::diskFull) << writer.name;
        }
        for (const size_t limit : {size_t(0), size_t(1), size_t(4096), size_t(99999)}) {
            const FileSizeLimit disk(limit);
            EXPECT_EQ(FileCause([&] { writer.write(path.c_str()); }), CFileException::diskFull)
                << writer.name << " with room for " << limit;
        }
        EXPECT_EQ(folder.Get("f").size(), 99999u) << writer.name << ": what there was room for arrived";
        EXPECT_EQ(FileCause([&] { writer.write(missing.c_str()); }), CFileException::fileNotFound) << writer.name;
        EXPECT_EQ(FileCause([&] { writer.write(folderPath.c_str()); }), CFileException::accessDenied) << writer.name;
        EXPECT_EQ(FileCause([&] { writer.write(path.c_str()); }), CFileException::none) << writer.name;
        EXPECT_GE(folder.Get("f").size(), Content().size()) << writer.name << " works again";
    }
}

TEST(FullDisk, HandlesAnswer)
{
    const TemporaryFolder folder;
    const HANDLE file =
        CreateFileA(folder.Path("f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 1;
    {
        const FileSizeLimit disk(60000);
        EXPECT_FALSE(WriteFile(file, Content().data(), DWORD(Content().size()), &written, nullptr));
        EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
        EXPECT_EQ(written, 60000u);
    }
    EXPECT_TRUE(WriteFile(file, "end", 3, &written, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(folder.Get("f").size(), 60003u);
}

/// A picture of stripes, whose bitmap file has 14 + 40 + 4 bytes of headers.
class Stripes : public CKPainter
{
public:
    void DrawBody(CWnd*, CDC* dc) override
    {
        for (int i = 0; i < 40; ++i)
            DrawLine(dc, RGB(6 * i, 255 - 5 * i, i), -20, i - 20, 20, i - 20.5, 0.5, 0);
    }
};

TEST(FullDisk, BitmapFilesEndInAMessage)
{
    RecordingApp app;
    const TemporaryFolder folder;
    TestWindow window(40, 40);
    Stripes painter;
    painter.Capture(&window, 40, 40, -20, -20, 20, 20);
    const HBITMAP bitmap = *painter.GetCaptureBitmap();
    const DWORD objects = CountGdiObjects();
    const struct
    {
        rlim_t room;
        const char* message;
    } cases[] = {
        {0, "CKPainter::WriteDIB, 1st Try WriteFile"},    {13, "CKPainter::WriteDIB, 1st Try WriteFile"},
        {14, "CKPainter::WriteDIB, 2nd Try WriteFile"},   {57, "CKPainter::WriteDIB, 2nd Try WriteFile"},
        {6457, "CKPainter::WriteDIB, 2nd Try WriteFile"},
    };
    for (const auto& c : cases) {
        const FileSizeLimit disk(c.room);
        painter.SaveToBMP(folder.Path("a.bmp").c_str(), bitmap);
        EXPECT_EQ(app.messages, std::vector<std::string>{c.message}) << c.room;
        app.messages.clear();
    }
    const FileSizeLimit disk(6458);
    painter.SaveToBMP(folder.Path("a.bmp").c_str(), bitmap);
    EXPECT_TRUE(app.messages.empty());
    EXPECT_EQ(folder.Get("a.bmp").size(), 6458u);
    EXPECT_EQ(CountGdiObjects(), objects);
    DeleteObject(bitmap);
}

TEST(FullDisk, JpegFilesStayAsTheyWere)
{
    RecordingApp app;
    const TemporaryFolder folder;
    TestWindow window(40, 40);
    Stripes painter;
    painter.Capture(&window, 40, 40, -20, -20, 20, 20);
    CBitmap bitmap;
    bitmap.Attach(*painter.GetCaptureBitmap());
    const HBITMAP handle = HBITMAP(bitmap.GetSafeHandle());
    const std::string jpg = folder.Path("a.jpg"), bmp = folder.Path("b.bmp");
    painter.SaveToBMP(bmp.c_str(), handle);
    painter.SaveToJPG(jpg.c_str(), handle);
    const std::string complete = folder.Get("a.jpg");
    ASSERT_GT(complete.size(), 300u);
    folder.Put("a.jpg", "old");
    for (const size_t room : {size_t(0), size_t(1), size_t(200), complete.size() / 2, complete.size() - 1}) {
        const FileSizeLimit disk(room);
        EXPECT_EQ(ConvertBitmapFileToJpegFile(bmp.c_str(), jpg.c_str()), 0) << room;
        EXPECT_EQ(folder.Get("a.jpg"), "old") << room;
        EXPECT_FALSE(folder.Has("a.jpg.part")) << room;
        painter.SaveToJPG(jpg.c_str(), handle); // fails at its bitmap file
        EXPECT_EQ(folder.Get("a.jpg"), "old") << room;
        EXPECT_FALSE(folder.Has("a.jpg.bmp")) << room;
    }
    const FileSizeLimit disk(complete.size());
    EXPECT_EQ(ConvertBitmapFileToJpegFile(bmp.c_str(), jpg.c_str()), 1);
    EXPECT_TRUE(folder.Get("a.jpg") == complete);
}

} // namespace
} // namespace failures
