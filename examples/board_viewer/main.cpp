// board_viewer: shows a board file as a picture, stores it as shapes, describes, checks and searches it.

#include "BoardArchive.h"
#include "BoardClearance.h"
#include "BoardFile.h"
#include "BoardFind.h"
#include "BoardInfo.h"
#include "DiffPicture.h"
#include "Options.h"
#include "ReportText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <set>
#include <unistd.h>

// All errors of all parts arrive here as exceptions and become one line; nothing else writes to standard error.

namespace {

using namespace viewer;

/// Shows on a terminal how far some work is, in one line that is wiped at the end.
class ProgressLine
{
public:
    explicit ProgressLine(const char* workName) : work(workName) {}
    ~ProgressLine()
    {
        if (shown >= 0)
            std::fputs("\r\x1b[K", stderr);
    }
    ProgressHook Hook()
    {
        if (!isatty(STDERR_FILENO))
            return {};
        return [this](double done) { Show(int(done * 100)); };
    }

private:
    void Show(int percent)
    {
        if (percent != shown)
            std::fprintf(stderr, "\r%s %3d %%", work, percent);
        shown = percent;
    }

    const char* work;
    int shown = -1;
};

void PrintError(const std::string& text)
{
    std::fprintf(stderr, "board_viewer: %s\n", PlainText(text).c_str());
}

/// Throws for names of layers that none of the pictures has, and tells which there are.
void CheckLayers(const std::vector<std::string>& names, const std::vector<const BoardPicture*>& pictures)
{
    const auto has = [&](const std::string& name) {
        return std::any_of(pictures.begin(), pictures.end(), [&](const BoardPicture* p) { return p->Find(name); });
    };
    const auto unknown = std::find_if_not(names.begin(), names.end(), has);
    if (unknown == names.end())
        return;
    std::string message = "unknown layer '" + *unknown + "'; the board has";
    std::set<std::string> listed;
    for (const BoardPicture* picture : pictures) {
        for (const auto& layer : picture->layers) {
            if (listed.insert(layer->name).second)
                message.append(" ").append(layer->name);
        }
    }
    throw std::runtime_error(message);
}

/// In the order asked for.
std::vector<const PictureLayer*> FindLayers(const BoardPicture& picture, const std::vector<std::string>& names)
{
    CheckLayers(names, {&picture});
    std::vector<const PictureLayer*> layers;
    for (const std::string& name : names)
        layers.push_back(picture.Find(name));
    return layers;
}

/// The progress is wiped off the terminal before anything else is written there.
BoardFile Open(const std::string& path)
{
    ProgressLine progress("reading");
    return OpenBoardFile(path, progress.Hook());
}

void Print(const std::string& text)
{
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        throw std::runtime_error("standard output cannot be written");
}

std::string ClearanceReport(const Board& board, const Options& options)
{
    std::vector<Clearance> clearances;
    {
        ProgressLine progress("measuring");
        clearances = FindClearances(board, *options.clearance, progress.Hook());
    }
    return options.json ? ClearanceJson(board, clearances) : ClearanceLines(board, clearances);
}

/// The exit code: 1 for a search that found nothing.
int Report(const BoardFile& file, const Options& options)
{
    if (options.info) {
        Print(file.board ? BoardInfoJson(*file.board, file.picture) : PictureInfoJson(file.picture));
        return 0;
    }
    if (!file.board)
        throw std::runtime_error(options.input + ": an archive has no nets and no names to look for");
    if (options.clearance) {
        Print(ClearanceReport(*file.board, options));
        return 0;
    }
    const std::vector<FoundItem> found = FindItems(*file.board, options.find);
    Print(FoundLines(found));
    return found.empty() ? 1 : 0;
}

/// The exit code: 1 for revisions that differ.
int RunDifference(const Options& options)
{
    const BoardFile older = Open(options.diff->older);
    const BoardFile newer = Open(options.diff->newer);
    CheckLayers(options.layers, {&older.picture, &newer.picture});
    BoardDifference difference = CompareBoards(older, newer);
    KeepLayers(difference, options.layers);
    const auto changes = difference.changes;

    const DiffView view = {options.layers, options.size, options.area, options.mirror};
    ExportDifference(std::move(difference), older, newer, view, options.diff->picture);
    Print(DifferenceLines(changes));
    return changes.empty() ? 0 : 1;
}

/// The archive is written before the picture, the report comes last, and each only when asked for.
int Run(const Options& options)
{
    const BoardFile file = Open(options.input);
    BoardPainter painter(file.picture);
    if (options.mirror)
        painter.ShowFromBack();
    if (!options.layers.empty())
        painter.ShowLayers(FindLayers(file.picture, options.layers));

    if (!options.archivePath.empty())
        StoreArchive(file.picture, options.archivePath);
    if (!options.exportPath.empty())
        ExportPicture(painter, options.size, options.area, options.exportPath);
    return options.info || options.clearance || !options.find.empty() ? Report(file, options) : 0;
}

/// Turns the process into the window's program, which lies beside this one: what writes files or answers questions
/// neither loads a toolkit nor needs one on the machine. Returns only by throwing.
void StartWindow([[maybe_unused]] char** arguments)
{
#ifdef KOLM_VIEWER_WINDOW
    const std::string program =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / KOLM_VIEWER_WINDOW).string();
    execv(program.c_str(), arguments);
    throw std::runtime_error(program + ": cannot be started: " + std::strerror(errno));
#else
    throw std::runtime_error("built without a window; give --export, --diff, --archive, --info, --clearance or --find");
#endif
}

} // namespace

/// Exit code 0; 1 after one line on standard error, or for a search that found nothing. Where revisions are compared, 1
/// says that they differ, and errors are 2.
int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool compares = std::find(arguments.begin(), arguments.end(), "--diff") != arguments.end();
    try {
        const Options options = ParseOptions(arguments);
        if (options.help) {
            std::fputs(UsageText(), stdout);
            return 0;
        }
        if (options.window)
            StartWindow(argv);
        return options.diff ? RunDifference(options) : Run(options);
    } catch (const std::exception& error) {
        PrintError(error.what());
    } catch (CException* exception) {
        char text[256] = "";
        exception->GetErrorMessage(text, sizeof text);
        exception->Delete();
        PrintError(text);
    }
    return compares ? 2 : 1;
}
