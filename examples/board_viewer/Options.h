/// The command line of board_viewer.
#pragma once

#include "PictureExport.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace viewer {

/// Two revisions of a board and the picture of how they differ.
struct DifferencePaths
{
    std::string older;
    std::string newer;
    std::string picture;
};

struct Options
{
    std::string input;       ///< empty with help, a difference, and a window without a board
    std::string exportPath;  ///< empty: no picture
    std::string archivePath; ///< empty: no archive
    PictureSize size;
    std::optional<FileArea> area;
    std::vector<std::string> layers; ///< empty: all
    bool mirror = false;
    std::optional<DifferencePaths> diff; ///< instead of the input
    bool info = false;
    std::optional<double> clearance; ///< millimetres, above 0
    std::string find;                ///< wildcard search text; empty: no search
    bool json = false;               ///< the clearances as JSON
    bool window = false;             ///< nothing but the board is given: show it
    bool log = false;                ///< the window's status line also goes to standard error
    bool help = false;
};

/// Arguments without the program's name. Throws std::runtime_error, whose text names the argument at fault.
Options ParseOptions(const std::vector<std::string>& arguments);

/// The calls, for --help.
const char* UsageText();

} // namespace viewer
