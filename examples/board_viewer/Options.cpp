#include "Options.h"

#include "SExpr.h"

#include <charconv>
#include <cmath>
#include <filesystem>

// Arguments are checked before any file is opened, so that a mistyped option costs no waiting. Numbers are read without
// a locale: a decimal point is a point everywhere.

namespace viewer {

namespace {

constexpr int kLargestPicture = 16384; // pixels a side: a gigabyte of bitmap

/// Always at least one part; empty parts stay, for the caller to refuse.
std::vector<std::string> SplitAt(char separator, const std::string& text)
{
    std::vector<std::string> parts(1);
    for (char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

/// Whether the text is a number from its first to its last character.
template <class NUMBER>
bool ParseWhole(const std::string& text, NUMBER& value)
{
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

/// "1600x1200".
PictureSize ParseSize(const std::string& text)
{
    const std::vector<std::string> parts = SplitAt('x', text);
    PictureSize size;
    const auto isSide = [](int side) { return side >= 1 && side <= kLargestPicture; };
    if (parts.size() != 2 || !ParseWhole(parts[0], size.width) || !ParseWhole(parts[1], size.height) ||
        !isSide(size.width) || !isSide(size.height))
        throw std::runtime_error("--size " + text + ": expected WIDTHxHEIGHT in pixels, each from 1 to " +
                                 std::to_string(kLargestPicture));
    return size;
}

/// "X1,Y1,X2,Y2". An area without extent could not be framed. NaN fails the comparison with the largest number.
FileArea ParseArea(const std::string& text)
{
    const std::vector<std::string> parts = SplitAt(',', text);
    double values[4] = {};
    bool good = parts.size() == 4;
    for (size_t i = 0; good && i < 4; ++i)
        good = ParseWhole(parts[i], values[i]) && std::fabs(values[i]) <= SExpr::kLargestNumber;
    const FileArea area = {values[0], values[1], values[2], values[3]};
    if (!good || area.x1 == area.x2 || area.y1 == area.y2)
        throw std::runtime_error("--area " + text +
                                 ": expected X1,Y1,X2,Y2 in millimetres, the two corners of an area");
    return area;
}

/// Whether two names lead to one file, which neither needs to exist.
bool IsSameFile(const std::string& a, const std::string& b)
{
    namespace fs = std::filesystem;
    std::error_code error; // what cannot be resolved is reported when it is opened
    const auto resolved = [&](const std::string& path) {
        return fs::weakly_canonical(fs::absolute(path, error), error);
    };
    return fs::equivalent(a, b, error) || resolved(a) == resolved(b);
}

/// "0.2". Nothing is closer than 0, so that an empty list would say nothing about a board.
double ParseClearance(const std::string& text)
{
    double value = 0;
    if (!ParseWhole(text, value) || !(value > 0) || value > SExpr::kLargestNumber)
        throw std::runtime_error("--clearance " + text + ": expected a distance in millimetres, above 0");
    return value;
}

/// Takes the arguments one after the other.
class Parser
{
public:
    explicit Parser(const std::vector<std::string>& list) : arguments(list) {}

    Options Parse()
    {
        while (next < arguments.size())
            TakeArgument(arguments[next++]);
        if (!options.help)
            Check();
        return options;
    }

private:
    /// One option with its value, or the file.
    void TakeArgument(const std::string& argument)
    {
        if (argument == "--export")
            options.exportPath = TakeValue(argument);
        else if (argument == "--archive")
            options.archivePath = TakeValue(argument);
        else if (argument == "--size")
            options.size = ParseSize(TakeValue(argument));
        else if (argument == "--area")
            options.area = ParseArea(TakeValue(argument));
        else if (argument == "--layers")
            options.layers = SplitAt(',', TakeValue(argument));
        else if (argument == "--mirror")
            options.mirror = true;
        else if (argument == "--info")
            options.info = true;
        else if (argument == "--clearance")
            options.clearance = ParseClearance(TakeValue(argument));
        else if (argument == "--find")
            options.find = TakeValue(argument);
        else if (argument == "--json")
            options.json = true;
        else if (argument == "--help" || argument == "-h")
            options.help = true;
        else if (argument.size() > 1 && argument[0] == '-')
            throw std::runtime_error("unknown option " + argument);
        else if (!options.input.empty())
            throw std::runtime_error("one file at a time: " + options.input + " or " + argument);
        else
            options.input = argument;
    }

    /// The argument after an option. An empty one is refused: it would read as if the option were not given.
    const std::string& TakeValue(const std::string& option)
    {
        if (next >= arguments.size() || arguments[next].empty())
            throw std::runtime_error(option + " needs a value");
        return arguments[next++];
    }

    /// What only all arguments together can tell.
    void Check() const
    {
        if (options.input.empty())
            throw std::runtime_error("no board file given; see --help");
        const int reports = int(options.info) + int(options.clearance.has_value()) + int(!options.find.empty());
        if (reports > 1)
            throw std::runtime_error("one report at a time: --info, --clearance or --find");
        if (reports == 0 && options.exportPath.empty() && options.archivePath.empty())
            throw std::runtime_error("nothing to do: give --export, --archive, --info, --clearance or --find");
        if (options.json && !options.clearance)
            throw std::runtime_error("--json goes with --clearance");
        if (!options.exportPath.empty() && !IsPicturePath(options.exportPath))
            throw std::runtime_error("--export " + options.exportPath + ": the name has to end in .bmp or .jpg");
        CheckOutput("--export", options.exportPath, options.input);
        CheckOutput("--archive", options.archivePath, options.input);
        CheckOutput("--archive", options.archivePath, options.exportPath);
    }

    /// A board is not worth less than its picture: no output takes the place of the input or of the other output.
    static void CheckOutput(const char* option, const std::string& path, const std::string& taken)
    {
        if (!path.empty() && !taken.empty() && IsSameFile(path, taken))
            throw std::runtime_error(std::string(option) + " " + path + ": would overwrite " + taken);
    }

    const std::vector<std::string>& arguments;
    size_t next = 0;
    Options options;
};

} // namespace

Options ParseOptions(const std::vector<std::string>& arguments)
{
    return Parser(arguments).Parse();
}

const char* UsageText()
{
    return "board_viewer FILE [options]   FILE is a .kicad_pcb board or an archive made by --archive\n"
           "  --export OUT.bmp|OUT.jpg    write a picture of the board\n"
           "  --size WxH                  its size in pixels, 1600x1200 by default\n"
           "  --area X1,Y1,X2,Y2          frame exactly this area, in the file's millimetres (y down)\n"
           "  --layers A,B,...            only these layers, the last on top\n"
           "  --mirror                    the board seen from the back, whose layers then lie on top\n"
           "  --archive OUT.kolm          store the board as shapes\n"
           "  --info                      describe the board as JSON on standard output\n"
           "  --clearance MM              list copper of different nets that lies closer than this, nearest first:\n"
           "                              layer, nets, clearance and the nearest points; the count at the end\n"
           "  --json                      the same as a JSON array\n"
           "  --find PATTERN              list the references and net names that match, and where they are; * stands\n"
           "                              for any text, ? for a character that is no digit, # for a digit; exit code\n"
           "                              1 when there is none\n";
}

} // namespace viewer
