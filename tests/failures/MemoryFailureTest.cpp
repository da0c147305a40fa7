/// Every allocation of a load, a frame, an export and of the calls with a failure value, refused one after the other:
/// the documented exception or value, nothing leaked, and the same operation works right afterwards.
#include "entities/CKGeomArc.h"
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"
#include "failures/RefuseEach.h"
#include "painter/PainterFixture.h"
#include "support/ArchiveBytes.h"
#include "support/TemporaryFolder.h"
#include "util/CKString.h"

#include <memory>

namespace failures {
namespace {

/// What a list does not take, since it has no memory for it, stays the caller's.
template <class List>
void Give(List& list, std::unique_ptr<CKGeom> shape)
{
    list.Add(shape.get());
    (void)shape.release();
}

/// A board of every kind that archives hold, with containers in containers.
void Fill(CKGeomContainer& board)
{
    auto polygon = std::make_unique<CKGeomPolygon>();
    for (int i = 0; i < 5; ++i)
        Give(*polygon->getOutline(), std::make_unique<CKGeomLine>(i, 0, 0, i, 0.5));
    Give(*polygon->getHole(), std::make_unique<CKGeomArc>(5, 0, 0, 5, 0, 0, 0.25));
    Give(board, std::move(polygon));
    Give(board, std::make_unique<CKGeomText>("a text that does not fit into the object itself", 1, 2));
    Give(board, std::make_unique<CKGeomPoint>(4, 5));
    Give(board, std::make_unique<CKGeomLine>(0, 0, 20, 15, 1));
}

TEST(MemoryFailure, Archives)
{
    using archive_bytes::Bytes;
    CKGeomContainer board;
    Fill(board);
    const Bytes bytes = archive_bytes::Stored(board);
    const auto load = [&] {
        CKGeomContainer loaded;
        EXPECT_EQ(archive_bytes::Load(loaded, bytes).cause, CArchiveException::none);
    };
    const auto works = [&] {
        CKGeomContainer loaded;
        archive_bytes::Load(loaded, bytes);
        return archive_bytes::Stored(loaded) == bytes;
    };
    RefuseEach("loading", load, works);
    RefuseEach(
        "storing", [&] { archive_bytes::Stored(board); }, works);
    RefuseEach(
        "cloning", [&] { delete board.clone(); }, works);
    CKGeomContainer target;
    Fill(target);
    RefuseEach(
        "assigning", [&] { target = board; }, [&] { return archive_bytes::Stored(target) == bytes; });
}

/// A host that draws every kind of primitive, with text.
class Board : public CKPainter
{
public:
    Board() { Fill(m_shapes); }

    int IsExistData(CWnd*) override { return 1; }
    KRectangleD GetTargetSize() override { return {40, 30, 0, 0}; }
    void DrawBody(CWnd*, CDC* dc) override
    {
        DrawLine(dc, RGB(255, 0, 0), -20, -15, 20, 15, 1.5, 0);
        DrawArc(dc, RGB(0, 255, 0), 10, 0, 0, 10, 0, 0, -1, 0.5, 0);
        DrawCircle(dc, RGB(0, 0, 255), 4, -8, 5, 1);
        DrawArrow(dc, RGB(255, 255, 0), 0, 0, 15, -5, 1);
        DrawRectangle(dc, RGB(0, 255, 255), 5, 5, 6, 3, 0);
        dc->BeginPath();
        for (int i = 0; i < 40; ++i)
            AddLinePath(dc, i % 7, i % 5, (i + 1) % 7, (i + 1) % 5, i == 0);
        AddArcOutlinePath(dc, 10, 0, 0, 10, 0, 0, 2, 1, 0, 0, 30, 0, 0);
        dc->EndPath();
        StrokeAndFillPathHatchStyle(dc, 2, RGB(255, 255, 255), HS_CROSS);
        for (int i = 0; i < m_shapes.GetCount(); ++i)
            m_shapes.GetAt(i)->Draw(this, dc, RGB(128, 128, 128));
    }
    void DrawEnding(CWnd*, CDC* dc) override
    {
        DrawTextNoWorldTransform(dc, RGB(255, 255, 255), 1, "text of a board", 0, 0, 2);
        DrawGeoms(dc, GetEventObjects());
    }

private:
    CKGeomContainer m_shapes;
};

std::vector<uint32_t> WindowPixels(CWnd& window, int width, int height)
{
    CClientDC dc(&window);
    std::vector<uint32_t> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            pixels.push_back(dc.GetPixel(x, y));
    }
    return pixels;
}

void DrawFrame(CWnd& window)
{
    Board board;
    board.Init();
    auto shape = std::make_unique<CKGeomLine>(0, 0, 5, 5, 1);
    board.AddEventObject(shape.get());
    (void)shape.release();
    CClientDC dc(&window);
    board.DrawView(&window, &dc);
    CKGeomArray overlay;
    board.DrawGeomsAndDrawSavedDC(&window, &overlay, board.GetEventObjects());
}

TEST(MemoryFailure, Frame)
{
    TestWindow window(80, 60);
    DrawFrame(window);
    const std::vector<uint32_t> complete = WindowPixels(window, 80, 60);
    RefuseEach(
        "a frame", [&] { DrawFrame(window); },
        [&] {
            DrawFrame(window);
            return WindowPixels(window, 80, 60) == complete;
        });
}

/// Messages of the exports need memory themselves, so none are kept.
class SilentApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR, UINT, UINT) override { return IDOK; }
};

TEST(MemoryFailure, Export)
{
    const SilentApp app;
    const TemporaryFolder folder(FolderForManyFiles());
    const std::string bmp = folder.Path("a.bmp"), jpg = folder.Path("a.jpg");
    TestWindow window(30, 20);
    const auto capture = [&](bool jpeg) {
        Board board;
        board.Init();
        board.Capture(&window, 60, 40, -20, -15, 20, 15);
        CBitmap bitmap;
        bitmap.Attach(*board.GetCaptureBitmap());
        if (jpeg)
            board.SaveToJPG(jpg.c_str(), HBITMAP(bitmap.GetSafeHandle()));
        else
            board.SaveToBMP(bmp.c_str(), HBITMAP(bitmap.GetSafeHandle()));
    };
    capture(false);
    capture(true);
    const std::string completeBmp = folder.Get("a.bmp"), completeJpg = folder.Get("a.jpg");
    ASSERT_GT(completeBmp.size(), 60u * 40 * 4);
    RefuseEach(
        "a bitmap file", [&] { capture(false); }, [&] { return capture(false), folder.Get("a.bmp") == completeBmp; });
    RefuseEach(
        "a JPEG file", [&] { capture(true); }, [&] { return capture(true), folder.Get("a.jpg") == completeJpg; });
    EXPECT_FALSE(folder.Has("a.jpg.bmp"));
    EXPECT_FALSE(folder.Has("a.jpg.part"));
}

/// Functions that answer with a failure value never raise, and tell why.
TEST(MemoryFailure, KernelFunctionsAnswer)
{
    const TemporaryFolder folder(FolderForManyFiles());
    const std::string path = folder.Path("file");
    const auto expect = [](bool done) { EXPECT_TRUE(done || GetLastError() == ERROR_NOT_ENOUGH_MEMORY); };
    const auto files = [&] {
        HANDLE handles[40];
        for (HANDLE& handle : handles) {
            SetLastError(NO_ERROR);
            handle = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
            expect(handle != INVALID_HANDLE_VALUE);
        }
        for (HANDLE handle : handles)
            CloseHandle(handle);
    };
    const auto blocks = [&] {
        for (int i = 0; i < 40; ++i) {
            SetLastError(NO_ERROR);
            HGLOBAL block = GlobalAlloc(GPTR, 100);
            expect(block != nullptr);
            SetLastError(NO_ERROR);
            HGLOBAL larger = block ? GlobalReAlloc(block, 100000, GMEM_MOVEABLE) : nullptr;
            expect(!block || larger);
            if (block && !larger) {
                EXPECT_EQ(GlobalSize(block), 100u);
            }
            GlobalFree(larger ? larger : block);
        }
    };
    for (size_t n = 1; n < 200; ++n) {
        const FailingAllocation failing(n, n % 2 == 0);
        EXPECT_EQ(Attempt(files), Ending::Finished) << n;
        EXPECT_EQ(Attempt(blocks), Ending::Finished) << n;
    }
}

/// What a primitive selects for itself it takes back out also without memory for wrappers of the host's objects.
TEST(MemoryFailure, SelectionsAreUndone)
{
    Canvas canvas;
    CDC* const dc = canvas.Get();
    GdiSetTrace(*dc, nullptr);
    CKPainter painter;
    std::vector<std::unique_ptr<CPen>> pens; // kept, so that each has a handle that never had a wrapper
    for (size_t n = 1; n < 10; ++n) {
        const HPEN own = CreatePen(PS_SOLID, 3, RGB(1, 2, 3));
        pens.push_back(std::make_unique<CPen>());
        const HGDIOBJ former = ::SelectObject(*dc, own);
        {
            const FailingAllocation failing(n, true);
            painter.DrawLine(dc, RGB(255, 0, 0), 0, 0, 30, 30, 2, 0);
        }
        EXPECT_EQ(GetCurrentObject(*dc, OBJ_PEN), own) << n;
        ::SelectObject(*dc, former);
        pens.back()->Attach(own);
    }
}

/// A line for which there is no memory is left out and said to be, whichever of the path's lists could not grow.
TEST(MemoryFailure, PathsStayWhole)
{
    Canvas canvas;
    CDC* const dc = canvas.Get();
    GdiSetTrace(*dc, nullptr);
    int lines = 100;
    for (size_t n = 1; n <= 4; ++n) {
        lines *= 4; // more than ever before, so that both lists have to grow
        dc->BeginPath();
        dc->MoveTo(0, 0);
        int refused = 0;
        {
            const FailingAllocation failing(n);
            SetLastError(NO_ERROR);
            for (int i = 1; i <= lines; ++i)
                refused += !dc->LineTo(i % 64, i % 61);
        }
        EXPECT_EQ(refused, 1) << n;
        EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY) << n;
        dc->EndPath();
        std::vector<POINT> points(size_t(lines + 1 - refused));
        std::vector<BYTE> types(points.size());
        ASSERT_EQ(GetPath(*dc, points.data(), types.data(), int(points.size())), int(points.size())) << n;
        EXPECT_EQ(At(points.back()), XY(lines % 64, lines % 61)) << n << ": each line kept its own point";
        EXPECT_TRUE(dc->FillPath()) << n;
    }
}

TEST(MemoryFailure, Search)
{
    const auto found = [] {
        CStringArray data, matches;
        for (const char* name : {"R1 a resistor with a long name", "C2", "R3 another long resistor name"})
            data.Add(name);
        CString pattern = "R* C?";
        CKString::SearchDataForWildCard(pattern, data, matches, 0, 1);
        return matches.GetSize();
    };
    RefuseEach(
        "a search", [&] { found(); }, [&] { return found() == 2; });
}

} // namespace
} // namespace failures
