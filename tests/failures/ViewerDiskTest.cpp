/// An output of the viewer replaces an existing file only when all of it could be written.
#include "BoardArchive.h"
#include "BoardFile.h"
#include "PictureExport.h"

#include "failures/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <sys/wait.h>

namespace failures {
namespace {

using namespace viewer;

class ViewerDisk : public testing::Test, protected TemporaryFolder
{
protected:
    ViewerDisk()
    {
        std::string items;
        for (int i = 0; i < 60; ++i)
            items += "(gr_line (start 0 0) (end 30 " + std::to_string(i) + ") (layer \"F.SilkS\") (width 0.1))\n";
        Put("b.kicad_pcb", "(kicad_pcb (version 20211014) (generator test)\n"
                           "(layers (0 \"F.Cu\" signal) (31 \"B.Cu\" signal) (37 \"F.SilkS\" user))\n" +
                               items + ")\n");
    }

    void Write(const std::string& name)
    {
        const BoardFile file = OpenBoardFile(Path("b.kicad_pcb"));
        if (name == "a.kolm")
            return StoreArchive(file.picture, Path(name));
        BoardPainter painter(file.picture);
        ExportPicture(painter, PictureSize{80, 60}, {}, Path(name));
    }
    size_t CountFiles() const
    {
        return size_t(
            std::distance(std::filesystem::directory_iterator(Path()), std::filesystem::directory_iterator()));
    }
    /// The exit code of the viewer and how many lines it wrote to standard error. `setting` comes before the command.
    std::pair<int, int> Run(const std::string& setting, const std::string& arguments)
    {
        const std::string command = setting + " '" KOLM_VIEWER_COMMAND "' '" + Path("b.kicad_pcb") + "' " + arguments +
                                    " 2>'" + Path("errors") + "'";
        const int status = std::system(command.c_str());
        const std::string errors = Get("errors");
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, int(std::count(errors.begin(), errors.end(), '\n'))};
    }
};

TEST_F(ViewerDisk, FilesAreReplacedWholeOrNotAtAll)
{
    for (const char* name : {"a.bmp", "a.jpg", "a.png", "a.kolm"}) {
        Write(name);
        const std::string complete = Get(name);
        const size_t size = complete.size();
        ASSERT_GT(size, 100u) << name;
        Put(name, "old");
        const size_t files = CountFiles();
        for (const size_t room : {size_t(0), size_t(1), size_t(13), size_t(14), size_t(54), size / 2, size - 1}) {
            const FileSizeLimit disk(room);
            EXPECT_THROW(Write(name), std::runtime_error) << name << " with room for " << room;
            EXPECT_EQ(Get(name), "old") << name << " with room for " << room;
            EXPECT_EQ(CountFiles(), files) << name << " with room for " << room;
        }
        // A JPEG file takes a larger bitmap file on its way.
        const FileSizeLimit disk(std::string(name) == "a.jpg" ? 20000 : size);
        Write(name);
        EXPECT_TRUE(Get(name) == complete) << name;
    }
}

TEST_F(ViewerDisk, ReportsThatCannotBeWrittenAreAnError)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full";
    for (const char* report : {"--info", "--clearance 1", "--clearance 1 --json"})
        EXPECT_EQ(Run("", std::string(report) + " >/dev/full"), std::make_pair(1, 1)) << report;
    EXPECT_EQ(Run("", "--info >'" + Path("info") + "'"), std::make_pair(0, 0));
    EXPECT_EQ(Get("info").front(), '{');
}

/// Files are written without a display, and a window that has none is one line.
TEST_F(ViewerDisk, NoDisplay)
{
    for (const char* display : {"env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM",
                                "env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:4711"})
    {
        EXPECT_EQ(Run(display, "--export '" + Path("a.bmp") + "'"), std::make_pair(0, 0)) << display;
        EXPECT_TRUE(Has("a.bmp"));
        std::filesystem::remove(Path("a.bmp"));
        EXPECT_EQ(Run(display, ""), std::make_pair(1, 1)) << display;
    }
}

} // namespace
} // namespace failures
