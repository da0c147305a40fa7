#include "PictureTesting.h"

#include <sys/wait.h>

namespace viewer {

namespace {

struct Outcome
{
    int code;
    std::string output;
    std::string errors;
};

/// Runs the command with these arguments in a shell, in the folder; `before` is what the shell does first.
Outcome RunViewer(const TestFolder& folder, const std::string& arguments, const std::string& before = "")
{
    const std::string out = folder.File("out.txt"), err = folder.File("err.txt");
    const std::string command = before + "cd '" + folder.path.string() + "' && '" KOLM_VIEWER_COMMAND "' " + arguments +
                                " >'" + out + "' 2>'" + err + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBytes(out), ReadBytes(err)};
}

} // namespace

TEST(CommandLine, ErrorsAreOneLineAndExitCodeOne)
{
    const TestFolder folder;
    WriteBytes(folder.File("good.kicad_pcb"),
               BoardText("(gr_rect (start 0 0) (end 9 9) (layer \"Edge.Cuts\") (width 1) (fill none))"));
    WriteBytes(folder.File("cut.kicad_pcb"), BoardText("").substr(0, 200));
    WriteBytes(folder.File("other.txt"), "hello\n");
    WriteBytes(folder.File("empty.kicad_pcb"), "");
    std::filesystem::create_hard_link(folder.File("good.kicad_pcb"), folder.File("link.kicad_pcb"));
    WriteBytes(folder.File("cut.kolm"), "KOLMBRD1\x01");
    WriteBytes(folder.File("good.kolm"), std::string("KOLMBRD1\0\0\0\0", 12));
    const std::pair<const char*, const char*> cases[] = {
        {"none.kicad_pcb --info", "none.kicad_pcb: cannot be read"},
        {". --info", "cannot be read"},
        {"other.txt --info", "other.txt:1: not a board"},
        {"empty.kicad_pcb --info", "not a board"},
        {"cut.kicad_pcb --info", "the file ends inside"},
        {"cut.kolm --info", "cut.kolm: a damaged or cut off board archive"},
        {"good.kicad_pcb --frobnicate", "unknown option --frobnicate"},
        {"good.kicad_pcb --export x.bmp --layers F.Cu,Nope", "unknown layer 'Nope'"},
        {"good.kicad_pcb --info --layers \"$(printf 'a\\nb\\033c')\"", "unknown layer 'a?b?c'"},
        {"good.kicad_pcb --archive link.kicad_pcb", "would overwrite good.kicad_pcb"},
        {"good.kicad_pcb --export none/x.bmp", "none/x.bmp: cannot be written"},
        {"good.kolm --find 'R*'", "good.kolm: an archive has no nets"},
        {"good.kolm --clearance 1", "good.kolm: an archive has no nets"},
        {"good.kicad_pcb --export x.bmp --px-per-mm 1e5", "the picture would have 1000002x1000002 pixels"},
        {"good.kicad_pcb --export x.png --dpi 1e6 --area 0,0,1e5,1", "at most 268435456"},
        {"good.kicad_pcb --export x.jpg --size 70000x9", "x.jpg: cannot be written"},
        {"good.kicad_pcb --archive none/x.kolm", "none/x.kolm: cannot be written"},
    };
    for (const auto& [arguments, message] : cases) {
        const Outcome outcome = RunViewer(folder, arguments);
        EXPECT_EQ(outcome.code, 1) << arguments;
        EXPECT_NE(outcome.errors.find(message), std::string::npos) << arguments << ": " << outcome.errors;
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
        EXPECT_EQ(outcome.output, "") << arguments;
    }
}

TEST(CommandLine, ReportsGoToStandardOutput)
{
    const TestFolder folder;
    WriteBytes(folder.File("b.kicad_pcb"),
               BoardText("(net 1 \"A\") (net 2 \"B\")"
                         "(segment (start 0 0) (end 9 0) (width 0.2) (layer \"F.Cu\") (net 1))"
                         "(segment (start 4 1) (end 4 9) (width 0.2) (layer \"F.Cu\") (net 2))"));
    const std::tuple<const char*, int, const char*> cases[] = {
        {"b.kicad_pcb --find 'A*'", 0, "A\tnet\t0.0000\t0.0000\n"},
        {"b.kicad_pcb --find 'C*'", 1, ""},
        {"b.kicad_pcb --clearance 1", 0, "F.Cu\tA\tB\t0.8000\t4.0000\t0.1000\t4.0000\t0.9000\n1 pair\n"},
        {"b.kicad_pcb --clearance 0.7", 0, "0 pairs\n"},
        {"b.kicad_pcb --clearance 0.7 --json", 0, "[]\n"},
    };
    for (const auto& [arguments, code, output] : cases) {
        const Outcome outcome = RunViewer(folder, arguments);
        EXPECT_EQ(outcome.code, code) << arguments;
        EXPECT_EQ(outcome.output, output) << arguments;
        EXPECT_EQ(outcome.errors, "") << arguments;
    }
}

TEST(CommandLine, ADifferenceIsToldByTheExitCode)
{
    const TestFolder folder;
    const std::string frame = "(gr_rect (start 0 0) (end 9 9) (layer \"Edge.Cuts\") (width 1) (fill none))";
    WriteBytes(folder.File("a.kicad_pcb"), BoardText(frame));
    WriteBytes(folder.File("b.kicad_pcb"), BoardText(frame + "(gr_text X (at 4 4) (layer F.SilkS))"));
    const std::tuple<const char*, int, const char*, const char*> cases[] = {
        {"--diff a.kicad_pcb a.kicad_pcb d.png", 0, "0 layers differ\n", ""},
        {"--diff a.kicad_pcb b.kicad_pcb d.png", 1, "F.SilkS\t0\t1\n1 layer differs\n", ""},
        {"--diff b.kicad_pcb a.kicad_pcb d.png --layers Edge.Cuts", 0, "0 layers differ\n", ""},
        {"--diff a.kicad_pcb c.kicad_pcb d.png", 2, "", "c.kicad_pcb: cannot be read"},
        {"--diff a.kicad_pcb b.kicad_pcb none/d.png", 2, "", "none/d.png: cannot be written"},
        {"--diff a.kicad_pcb b.kicad_pcb d.png --layers F.Cu,Nope", 2, "", "unknown layer 'Nope'"},
        {"--diff a.kicad_pcb b.kicad_pcb d.png --px-per-mm 1e5", 2, "", "the picture would have"},
        {"--diff a.kicad_pcb b.kicad_pcb", 2, "", "--diff needs 3 values"},
    };
    for (const auto& [arguments, code, output, message] : cases) {
        const Outcome outcome = RunViewer(folder, arguments);
        EXPECT_EQ(outcome.code, code) << arguments;
        EXPECT_EQ(outcome.output, output) << arguments;
        EXPECT_NE(outcome.errors.find(message), std::string::npos) << arguments << ": " << outcome.errors;
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), code == 2) << outcome.errors;
    }
}

TEST(CommandLine, AFullDiskKeepsTheOldFile)
{
    const TestFolder folder;
    std::string lines;
    for (int i = 0; i < 9; ++i)
        lines += "(gr_line (start 0 0) (end 9 " + std::to_string(i) + ") (layer \"Edge.Cuts\") (width 1))";
    WriteBytes(folder.File("b.kicad_pcb"), BoardText(lines));
    const std::pair<std::string, std::string> outputs[] = {
        {"--export", "o.bmp"}, {"--export", "o.jpg"}, {"--export", "o.png"}, {"--archive", "o.kolm"}};
    for (const auto& [option, name] : outputs) {
        const std::string output = option + " " + name;
        const std::string file = folder.File(name);
        WriteBytes(file, "old");
        // No file may grow beyond one block, and the signal for trying is ignored: writes then fail as on a full disk.
        const Outcome outcome = RunViewer(folder, "b.kicad_pcb " + output, "trap '' XFSZ; ulimit -f 1; ");
        EXPECT_EQ(outcome.code, 1) << output;
        EXPECT_NE(outcome.errors.find("cannot be written"), std::string::npos) << output << ": " << outcome.errors;
        EXPECT_EQ(ReadBytes(file), "old") << output;
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder.path))
        EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path() << " is left lying about";
}

TEST(CommandLine, DrawsStoresAndDescribes)
{
    const TestFolder folder;
    WriteBytes(folder.File("b.kicad_pcb"),
               BoardText("(gr_rect (start 0 0) (end 9 9) (layer \"Edge.Cuts\") (width 1) (fill none))"));
    EXPECT_EQ(RunViewer(folder, "b.kicad_pcb --export a.bmp --size 90x60 --archive b.kolm --info --mirror").code, 0);
    EXPECT_NE(ReadBytes(folder.File("out.txt")).find("\"Edge.Cuts\""), std::string::npos);
    EXPECT_EQ(RunViewer(folder, "b.kolm --export b.bmp --size 90x60 --mirror").code, 0);
    EXPECT_EQ(ReadBytes(folder.File("a.bmp")), ReadBytes(folder.File("b.bmp")));
    EXPECT_EQ(Pixels(folder.File("a.bmp")).width, 90);

    EXPECT_EQ(RunViewer(folder, "b.kicad_pcb --export c.bmp").code, 0);
    const Pixels usual(folder.File("c.bmp"));
    EXPECT_EQ(usual.width, 1600);
    EXPECT_EQ(usual.height, 1200);
    EXPECT_EQ(RunViewer(folder, "--help").code, 0);
}

} // namespace viewer
