#include "Options.h"

#include "SExpr.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <set>

// Arguments are checked before any file is opened, so that a mistyped option costs no waiting. Numbers are read without
// a locale: a decimal point is a point everywhere.

namespace viewer {

namespace {

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
    if (parts.size() != 2 || !ParseWhole(parts[0], size.width) || !ParseWhole(parts[1], size.height) ||
        !IsPossibleSize(size.width, size.height))
        throw std::runtime_error("--size " + text + ": expected WIDTHxHEIGHT in pixels, together at most " +
                                 std::to_string(int(kMostPixels)));
    return size;
}

/// "600" or "23.6", in `unit`. What the size comes to is known when the board is.
double ParseScale(const char* option, const char* unit, const std::string& text)
{
    constexpr double kLargest = 1e6; // pixels smaller than an atom's width help nobody
    double value = 0;
    if (!ParseWhole(text, value) || !(value > 0) || value > kLargest)
        throw std::runtime_error(std::string(option) + ' ' + text + ": expected " + unit +
                                 ", above 0 and at most 1000000");
    return value;
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

/// An option of the command line: how many values follow it, and what they do.
struct KnownOption
{
    std::string_view name;
    size_t values;
    void (*take)(Options& options, const std::string* values);
};

constexpr KnownOption kKnownOptions[] = {
    {"--export", 1, [](Options& o, const std::string* v) { o.exportPath = v[0]; }},
    {"--archive", 1, [](Options& o, const std::string* v) { o.archivePath = v[0]; }},
    {"--size", 1, [](Options& o, const std::string* v) { o.size = ParseSize(v[0]); }},
    {"--dpi", 1,
     [](Options& o, const std::string* v) {
         o.size.pixelsPerMm = ParseScale("--dpi", "dots per inch", v[0]) / kMillimetresPerInch;
     }},
    {"--px-per-mm", 1,
     [](Options& o, const std::string* v) {
         o.size.pixelsPerMm = ParseScale("--px-per-mm", "pixels per millimetre", v[0]);
     }},
    {"--area", 1, [](Options& o, const std::string* v) { o.area = ParseArea(v[0]); }},
    {"--layers", 1, [](Options& o, const std::string* v) { o.layers = SplitAt(',', v[0]); }},
    {"--mirror", 0, [](Options& o, const std::string*) { o.mirror = true; }},
    {"--diff", 3,
     [](Options& o, const std::string* v) {
         o.diff = {v[0], v[1], v[2]};
     }},
    {"--info", 0, [](Options& o, const std::string*) { o.info = true; }},
    {"--clearance", 1, [](Options& o, const std::string* v) { o.clearance = ParseClearance(v[0]); }},
    {"--find", 1, [](Options& o, const std::string* v) { o.find = v[0]; }},
    {"--json", 0, [](Options& o, const std::string*) { o.json = true; }},
    {"--log", 0, [](Options& o, const std::string*) { o.log = true; }},
    {"--help", 0, [](Options& o, const std::string*) { o.help = true; }},
};

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
    /// One option with its values, or the file.
    void TakeArgument(const std::string& argument)
    {
        if (argument.size() > 1 && argument[0] == '-')
            TakeOption(argument == "-h" ? "--help" : argument);
        else if (!options.input.empty())
            throw std::runtime_error("one file at a time: " + options.input + " or " + argument);
        else
            options.input = argument;
    }

    /// An option given twice is refused: one of the two would silently count for nothing.
    void TakeOption(const std::string& name)
    {
        const auto known = std::find_if(std::begin(kKnownOptions), std::end(kKnownOptions),
                                        [&](const KnownOption& option) { return option.name == name; });
        if (known == std::end(kKnownOptions))
            throw std::runtime_error("unknown option " + name);
        if (!given.insert(known->name).second)
            throw std::runtime_error(name + " is given twice");
        const std::string* values = arguments.data() + next;
        for (size_t i = 0; i < known->values; ++i)
            CheckValue(*known);
        known->take(options, values);
    }

    /// The next argument is a value of the option. An empty one is refused: it would read as if the option were not
    /// given.
    void CheckValue(const KnownOption& option)
    {
        if (next >= arguments.size() || arguments[next].empty())
            throw std::runtime_error(std::string(option.name) + " needs " +
                                     (option.values == 1 ? "a value" : std::to_string(option.values) + " values"));
        ++next;
    }

    bool IsGiven(std::string_view option) const { return given.count(option) != 0; }

    /// What only all arguments together can tell.
    void Check()
    {
        if (IsGiven("--size") + IsGiven("--dpi") + IsGiven("--px-per-mm") > 1)
            throw std::runtime_error("one size at a time: --size, --dpi or --px-per-mm");
        if (options.json && !options.clearance)
            throw std::runtime_error("--json goes with --clearance");
        if (options.diff)
            CheckDifference(*options.diff);
        else
            CheckOneBoard();
    }

    /// Its size is the desktop's business.
    void CheckWindow() const
    {
        for (const char* option : {"--size", "--dpi", "--px-per-mm", "--area"}) {
            if (IsGiven(option))
                throw std::runtime_error(std::string(option) + " goes with --export");
        }
    }

    void CheckOneBoard()
    {
        const int reports = IsGiven("--info") + IsGiven("--clearance") + IsGiven("--find");
        if (reports > 1)
            throw std::runtime_error("one report at a time: --info, --clearance or --find");
        options.window = reports == 0 && options.exportPath.empty() && options.archivePath.empty();
        if (options.window)
            return CheckWindow();
        if (IsGiven("--log"))
            throw std::runtime_error("--log goes with the window, which no other task opens");
        if (options.input.empty())
            throw std::runtime_error("no board file given; see --help");
        CheckPicture("--export", options.exportPath);
        CheckOutput("--export", options.exportPath, options.input);
        CheckOutput("--archive", options.archivePath, options.input);
        CheckOutput("--archive", options.archivePath, options.exportPath);
    }

    /// Its files are its values, and its report is the one.
    void CheckDifference(const DifferencePaths& paths) const
    {
        if (!options.input.empty())
            throw std::runtime_error("--diff OLD NEW OUT takes no further file: " + options.input);
        for (const char* other : {"--export", "--archive", "--info", "--clearance", "--find", "--log"}) {
            if (IsGiven(other))
                throw std::runtime_error(std::string("--diff and ") + other + " do not go together");
        }
        CheckPicture("--diff", paths.picture);
        CheckOutput("--diff", paths.picture, paths.older);
        CheckOutput("--diff", paths.picture, paths.newer);
    }

    static void CheckPicture(const char* option, const std::string& path)
    {
        if (!path.empty() && !IsPicturePath(path))
            throw std::runtime_error(std::string(option) + " " + path + ": the name has to end in .png, .bmp or .jpg");
    }

    /// A board is not worth less than its picture: no output takes the place of the input or of the other output.
    static void CheckOutput(const char* option, const std::string& path, const std::string& taken)
    {
        if (!path.empty() && !taken.empty() && IsSameFile(path, taken))
            throw std::runtime_error(std::string(option) + " " + path + ": would overwrite " + taken);
    }

    const std::vector<std::string>& arguments;
    size_t next = 0;
    std::set<std::string_view> given; // names in kKnownOptions
    Options options;
};

} // namespace

Options ParseOptions(const std::vector<std::string>& arguments)
{
    return Parser(arguments).Parse();
}

const char* UsageText()
{
    return "board_viewer [FILE] [options]         FILE is a .kicad_pcb board or an archive made by --archive\n"
           "board_viewer --diff OLD NEW OUT [...] compares two revisions of a board\n"
           "without one of --export, --diff, --archive, --info, --clearance and --find, a window shows the board\n"
           "  --export OUT.png|.bmp|.jpg  write a picture of the board\n"
           "  --size WxH                  its size in pixels, 1600x1200 by default\n"
           "  --dpi N                     or: the size follows from N dots per inch of the area, or else of the "
           "outline\n"
           "                              with the width of its line and a pixel around it\n"
           "  --px-per-mm N               or: from N pixels per millimetre\n"
           "  --area X1,Y1,X2,Y2          frame exactly this area, in the file's millimetres (y down)\n"
           "  --layers A,B,...            only these layers, the last on top\n"
           "  --mirror                    the board seen from the back, whose layers then lie on top\n"
           "  --diff OLD NEW OUT          write a picture of what both have (grey), what only OLD has (orange) and\n"
           "                              what only NEW has (blue), and list the layers that differ, each with the\n"
           "                              numbers of elements that only OLD and only NEW have; --layers limits both;\n"
           "                              exit code 0 when they are equal, 1 when not, 2 on an error\n"
           "  --archive OUT.kolm          store the board as shapes\n"
           "  --info                      describe the board as JSON on standard output\n"
           "  --clearance MM              list copper of different nets that lies closer than this, nearest first:\n"
           "                              layer, nets, clearance and the nearest points; the count at the end\n"
           "  --json                      the same as a JSON array\n"
           "  --find PATTERN              list the references and net names that match, and where they are; * stands\n"
           "                              for any text, ? for a character that is no digit, # for a digit; exit code\n"
           "                              1 when there is none\n"
           "  --log                       write the window's status line to standard error whenever it changes\n";
}

} // namespace viewer
