/// The viewer without memory: one line of error instead of a picture with figures left out, and what lay at the target
/// is kept.
#include "failures/RefuseEach.h"

#include "BoardArchive.h"
#include "BoardFile.h"
#include "PictureExport.h"

#include "support/TemporaryFolder.h"

#include <set>
#include <stdexcept>

namespace failures {
namespace {

using namespace viewer;

const char* const kBoard = R"((kicad_pcb (version 20211014) (generator test)
(layers (0 "F.Cu" signal) (31 "B.Cu" signal) (37 "F.SilkS" user) (44 "Edge.Cuts" user))
(net 1 "A") (net 2 "a net with a longer name")
(gr_rect (start 0 0) (end 20 15) (layer "Edge.Cuts") (width 0.1) (fill none))
(gr_arc (start 5 5) (mid 7 7) (end 9 5) (layer "F.SilkS") (width 0.2))
(gr_text "TEXT" (at 4 12) (layer "F.SilkS") (effects (font (size 1 1) (thickness 0.15))))
(segment (start 1 1) (end 18 9) (width 0.5) (layer "F.Cu") (net 1))
(via (at 10 10) (size 0.8) (drill 0.4) (layers "F.Cu" "B.Cu") (net 2))
))";

class ViewerMemory : public testing::Test, protected TemporaryFolder
{
protected:
    ViewerMemory() : TemporaryFolder(FolderForManyFiles())
    {
        Put("board.kicad_pcb", kBoard);
        m_file = OpenBoardFile(Path("board.kicad_pcb"));
    }

    void ExportTo(const std::string& name)
    {
        BoardPainter painter(m_file.picture);
        ExportPicture(painter, PictureSize{20, 15}, {}, Path(name));
    }
    void ArchiveTo(const std::string& name) { StoreArchive(m_file.picture, Path(name)); }

    std::set<std::string> Files() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Path()))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// Refuses each allocation while `write` puts its output in place of an old file.
    void SweepWriting(const std::string& name, const std::function<void()>& write)
    {
        write();
        const std::string complete = Get(name);
        ASSERT_FALSE(complete.empty());
        bool done = false;
        const auto attempt = [&] {
            done = false;
            try {
                write();
                done = true;
            } catch (const std::runtime_error&) {
            }
        };
        Put(name, "old");
        const auto works = [&] {
            EXPECT_TRUE(Get(name) == (done ? complete : "old")) << name;
            EXPECT_EQ(Files(), std::set<std::string>({"board.kicad_pcb", name}));
            write();
            const bool asBefore = Get(name) == complete;
            Put(name, "old"); // for the attempt that follows
            done = false;
            return asBefore;
        };
        RefuseEach(name.c_str(), attempt, works);
    }

    BoardFile m_file;
};

TEST_F(ViewerMemory, Reading)
{
    ArchiveTo("board.kolm");
    for (const char* name : {"board.kicad_pcb", "board.kolm"}) {
        const auto read = [&] { return OpenBoardFile(Path(name)).picture.layers.size(); };
        const auto attempt = [&] {
            try {
                read();
            } catch (const std::runtime_error&) {
            }
        };
        RefuseEach(name, attempt, [&] { return read() == m_file.picture.layers.size(); });
    }
}

TEST_F(ViewerMemory, Bitmap)
{
    SweepWriting("a.bmp", [this] { ExportTo("a.bmp"); });
}

TEST_F(ViewerMemory, Jpeg)
{
    SweepWriting("a.jpg", [this] { ExportTo("a.jpg"); });
}

TEST_F(ViewerMemory, Png)
{
    SweepWriting("a.png", [this] { ExportTo("a.png"); });
}

TEST_F(ViewerMemory, Archive)
{
    SweepWriting("a.kolm", [this] { ArchiveTo("a.kolm"); });
}

} // namespace
} // namespace failures
