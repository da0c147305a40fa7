/// The tree is the architecture: a header includes only what lies below its folder, and the library's own folders know
/// nothing of the system they run on.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Folders whose headers a header of this folder may include, itself always among them.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"foundation", {}},
    {"containers", {"foundation"}},
    {"math", {"foundation"}},
    {"entities", {"foundation", "math"}},
    {"painter", {"foundation", "math", "entities"}},
    {"interaction", {"foundation", "containers", "math", "entities", "painter"}},
    {"util", {"foundation", "containers"}},
};

std::vector<std::string> LinesOf(const fs::path& file)
{
    std::vector<std::string> lines;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

template <typename Visit>
void ForEachFile(const std::string& folder, Visit visit)
{
    const fs::path top = fs::path(KOLM_SOURCE_DIR) / folder;
    if (!fs::exists(top))
        return;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp")
            visit(entry.path());
    }
}

TEST(IncludeDirection, HeadersIncludeOnlyWhatLiesBelow)
{
    const std::regex include("^\\s*#\\s*include\\s*\"(\\w+)/.*");
    for (const auto& [folder, below] : kMayInclude) {
        int headers = 0;
        ForEachFile(folder, [&, folder = folder, below = below](const fs::path& file) {
            if (file.extension() != ".h")
                return;
            ++headers;
            for (const std::string& line : LinesOf(file)) {
                std::smatch match;
                if (std::regex_match(line, match, include)) {
                    EXPECT_TRUE(match[1] == folder || below.count(match[1])) << file << ": " << line;
                }
            }
        });
        if (fs::exists(fs::path(KOLM_SOURCE_DIR) / folder)) {
            EXPECT_GT(headers, 0) << folder;
        }
    }
}

TEST(IncludeDirection, PlatformKnowsNothingOfTheLibrary)
{
    const std::regex upward("^\\s*#\\s*include\\s*\"(foundation|containers|math|entities|painter|interaction|util)/.*");
    ForEachFile("platform", [&](const fs::path& file) {
        for (const std::string& line : LinesOf(file))
            EXPECT_FALSE(std::regex_match(line, upward)) << file << ": " << line;
    });
}

TEST(IncludeDirection, GeometryHeadersSeeRecordsAndTheStandardLibraryOnly)
{
    const std::regex platform("^\\s*#\\s*include\\s*<(afx\\w*|windows)\\.h>.*");
    const fs::path top = KOLM_SOURCE_DIR;
    for (const char* header : {"math/CKMath.h", "foundation/KRecords.h"}) {
        const std::vector<std::string> lines = LinesOf(top / header);
        EXPECT_FALSE(lines.empty()) << header;
        for (const std::string& line : lines)
            EXPECT_FALSE(std::regex_match(line, platform)) << header << ": " << line;
    }
}

TEST(IncludeDirection, NoPlatformSwitchesInTheLibrary)
{
    const std::regex condition(
        "^\\s*#\\s*(if|ifdef|ifndef|elif)\\b.*(_WIN|WIN32|_MSC_VER|linux|unix|APPLE|_AFX|GNUC|clang).*");
    for (const auto& [folder, below] : kMayInclude)
        ForEachFile(folder, [&](const fs::path& file) {
            for (const std::string& line : LinesOf(file))
                EXPECT_FALSE(std::regex_match(line, condition)) << file << ": " << line;
        });
}

} // namespace
