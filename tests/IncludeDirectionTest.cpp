/// The tree is the architecture: a header includes only what lies below its folder, and the library's own folders know
/// nothing of the system they run on.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Folders whose headers a header of this folder may include, itself always among them.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"jpeg", {}},
    {"foundation", {}},
    {"containers", {"foundation"}},
    {"math", {"foundation"}},
    {"entities", {"foundation", "math"}},
    {"painter", {"foundation", "math", "entities"}},
    {"interaction", {"foundation", "containers", "math", "entities", "painter"}},
    {"util", {"foundation", "containers"}},
};

/// Preprocessor lines of a file, from the word after the number sign on.
std::vector<std::string> DirectivesOf(const fs::path& file)
{
    std::vector<std::string> directives;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        const size_t sign = line.find_first_not_of(" \t");
        if (sign == std::string::npos || line[sign] != '#')
            continue;
        const size_t word = line.find_first_not_of(" \t", sign + 1);
        if (word != std::string::npos)
            directives.push_back(line.substr(word));
    }
    return directives;
}

/// What an include line names, without quotes or brackets; empty for every other directive.
std::string Included(const std::string& directive)
{
    const size_t open = directive.find_first_of("\"<");
    const size_t close = directive.find_last_of("\">");
    if (directive.rfind("include", 0) != 0 || open == std::string::npos || close <= open)
        return "";
    return directive.substr(open + 1, close - open - 1);
}

/// The first folder of an included path; empty when it has none.
std::string FolderOf(const std::string& included)
{
    const size_t slash = included.find('/');
    return slash == std::string::npos ? "" : included.substr(0, slash);
}

std::vector<fs::path> FilesIn(const std::string& folder)
{
    std::vector<fs::path> files;
    const fs::path top = fs::path(KOLM_SOURCE_DIR) / folder;
    if (!fs::exists(top))
        return files;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp")
            files.push_back(entry.path());
    }
    EXPECT_FALSE(files.empty()) << folder;
    return files;
}

TEST(IncludeDirection, HeadersIncludeOnlyWhatLiesBelow)
{
    for (const auto& [folder, below] : kMayInclude) {
        for (const fs::path& file : FilesIn(folder)) {
            if (file.extension() != ".h")
                continue;
            for (const std::string& directive : DirectivesOf(file)) {
                const std::string other = FolderOf(Included(directive));
                EXPECT_TRUE(other.empty() || other == folder || below.count(other)) << file << ": " << directive;
            }
        }
    }
}

TEST(IncludeDirection, PlatformKnowsNothingOfTheLibrary)
{
    for (const fs::path& file : FilesIn("platform"))
        for (const std::string& directive : DirectivesOf(file))
            EXPECT_EQ(kMayInclude.count(FolderOf(Included(directive))), 0u) << file << ": " << directive;
}

TEST(IncludeDirection, GeometryHeadersSeeRecordsAndTheStandardLibraryOnly)
{
    const std::set<std::string> platform = {"afx.h", "afxcoll.h", "afxtempl.h", "afxwin.h", "windows.h"};
    for (const char* header : {"math/CKMath.h", "foundation/KRecords.h"}) {
        const std::vector<std::string> directives = DirectivesOf(fs::path(KOLM_SOURCE_DIR) / header);
        EXPECT_FALSE(directives.empty()) << header;
        for (const std::string& directive : directives)
            EXPECT_EQ(platform.count(Included(directive)), 0u) << header << ": " << directive;
    }
}

TEST(IncludeDirection, NoPlatformSwitchesInTheLibrary)
{
    for (const auto& [folder, below] : kMayInclude)
        for (const fs::path& file : FilesIn(folder))
            for (const std::string& directive : DirectivesOf(file))
                for (const char* system :
                     {"_WIN", "WIN32", "_MSC_VER", "linux", "unix", "APPLE", "_AFX", "GNUC", "clang"})
                    EXPECT_TRUE((directive.rfind("if", 0) != 0 && directive.rfind("elif", 0) != 0) ||
                                directive.find(system) == std::string::npos)
                        << file << ": " << directive;
}

} // namespace
