/// The library's own folders have to build against the real platform. What they take from the headers that stand in for
/// it may therefore only be what the real headers have, under the same name: a list checked in beside this file,
/// written from the platform's documentation and in part checked against other headers (see CheckNames.cmake).
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

const fs::path kSource = KOLM_SOURCE_DIR;

/// Words that belong to the language and its library, not to the platform.
const Names kStandard = {"auto",        "bool",
                         "char",        "class",
                         "const",       "const_cast",
                         "constexpr",   "decltype",
                         "default",     "delete",
                         "double",      "else",
                         "enum",        "explicit",
                         "extern",      "false",
                         "float",       "for",
                         "friend",      "if",
                         "inline",      "int",
                         "long",        "namespace",
                         "new",         "noexcept",
                         "nullptr",     "operator",
                         "override",    "mutable",
                         "private",     "protected",
                         "public",      "reinterpret_cast",
                         "return",      "short",
                         "signed",      "sizeof",
                         "static",      "static_assert",
                         "static_cast", "struct",
                         "template",    "this",
                         "true",        "typename",
                         "unsigned",    "using",
                         "virtual",     "void",
                         "while",       "final",
                         "std",         "size_t",
                         "int16_t",     "int32_t",
                         "int64_t",     "uint8_t",
                         "uint16_t",    "uint32_t",
                         "uint64_t",    "intptr_t",
                         "uintptr_t",   "begin",
                         "end",         "string_view",
                         "unique_ptr"};

struct Source
{
    std::vector<std::string> tokens; ///< words and single signs; no comments, literals or directives
    Names macros;                    ///< names that it defines
    std::vector<std::string> includes;
};

std::string ReadText(const fs::path& file)
{
    std::ifstream in(file);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool IsWordSign(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

/// Where a comment or literal that begins at `i` ends; `i` itself where none does.
size_t EndOfSkipped(const std::string& text, size_t i)
{
    if (text.compare(i, 2, "//") == 0)
        return std::min(text.find('\n', i), text.size());
    if (text.compare(i, 2, "/*") == 0)
        return text.find("*/", i) + 2;
    if (text[i] != '"' && text[i] != '\'')
        return i;
    const char quote = text[i];
    for (++i; text[i] != quote; ++i)
        i += text[i] == '\\';
    return i + 1;
}

void ReadDirective(const std::string& line, Source& source)
{
    std::istringstream words(line.substr(1));
    std::string word, name;
    words >> word >> name;
    if (word == "include")
        source.includes.push_back(name.substr(1, name.size() - 2));
    if (word == "define")
        source.macros.insert(name.substr(0, name.find('(')));
}

Source Parse(const fs::path& file)
{
    Source source;
    const std::string text = ReadText(file);
    bool lineStart = true;
    for (size_t i = 0; i < text.size();) {
        const size_t end = EndOfSkipped(text, i);
        if (end > i) {
            i = end;
        } else if (text[i] == '#' && lineStart) {
            const size_t lineEnd = std::min(text.find('\n', i), text.size());
            ReadDirective(text.substr(i, lineEnd - i), source);
            i = lineEnd;
        } else if (IsWordSign(text[i])) {
            size_t next = i;
            while (next < text.size() && (IsWordSign(text[next]) || (text[next] == '\'' && std::isdigit(text[i]))))
                ++next;
            source.tokens.push_back(text.substr(i, next - i));
            i = next;
            lineStart = false;
        } else {
            lineStart = text[i] == '\n' || (lineStart && std::isspace(static_cast<unsigned char>(text[i])));
            if (!std::isspace(static_cast<unsigned char>(text[i])))
                source.tokens.push_back(std::string(1, text[i]));
            ++i;
        }
    }
    return source;
}

/// The index behind the sign that closes the one at `open`.
size_t Behind(const std::vector<std::string>& tokens, size_t open, const char* opening, const char* closing)
{
    int depth = 0;
    do {
        depth += tokens[open] == opening;
        depth -= tokens[open] == closing;
        ++open;
    } while (depth > 0 && open < tokens.size());
    return open;
}

bool IsName(const std::string& token)
{
    return !std::isdigit(static_cast<unsigned char>(token[0])) && IsWordSign(token[0]) && kStandard.count(token) == 0;
}

/// Names outside of parameter lists, function bodies and template heads: what a header declares, and what it is made
/// of.
void CollectDeclared(const Source& source, Names& names)
{
    names.insert(source.macros.begin(), source.macros.end());
    const std::vector<std::string>& tokens = source.tokens;
    bool behindParameters = false;
    for (size_t i = 0; i < tokens.size();) {
        if (tokens[i] == "(") {
            i = Behind(tokens, i, "(", ")");
            behindParameters = true;
        } else if (tokens[i] == "{" && behindParameters) {
            i = Behind(tokens, i, "{", "}");
            behindParameters = false;
        } else if (tokens[i] == "template" && tokens[i + 1] == "<") {
            i = Behind(tokens, i + 1, "<", ">");
        } else {
            if (IsName(tokens[i]))
                names.insert(tokens[i]);
            if (tokens[i] == ";" || tokens[i] == "{" || tokens[i] == "}")
                behindParameters = false;
            ++i;
        }
    }
}

/// What the platform's headers, and those that they include, declare.
Names DeclaredByThePlatform()
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kSource / "platform"))
        if (entry.path().extension() == ".h")
            files.push_back(entry.path());
    Names names;
    std::set<fs::path> seen;
    while (!files.empty()) {
        const fs::path file = files.back();
        files.pop_back();
        if (!fs::exists(file) || !seen.insert(file).second)
            continue;
        const Source source = Parse(file);
        CollectDeclared(source, names);
        for (const std::string& included : source.includes)
            files.push_back(kSource / "platform" / included);
    }
    EXPECT_GT(names.size(), 300u);
    return names;
}

std::vector<fs::path> LibraryFiles()
{
    std::vector<fs::path> files;
    for (const char* folder :
         {"foundation", "containers", "math", "entities", "painter", "interaction", "util", "module"})
        for (const auto& entry : fs::directory_iterator(kSource / folder))
            if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
                files.push_back(entry.path());
    EXPECT_GT(files.size(), 100u);
    return files;
}

/// The checked-in names: lines of a kind, a colon and names; "#" begins a comment.
Names ListedNames()
{
    Names names;
    std::ifstream list(kSource / "tests/windows/platform-names.txt");
    for (std::string line; std::getline(list, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        for (std::string word; words >> word;)
            if (word.back() != ':')
                names.insert(word);
    }
    return names;
}

std::string Joined(const Names& names)
{
    std::string text;
    for (const std::string& name : names)
        text += name + " ";
    return text;
}

TEST(PlatformNames, TheLibraryUsesWhatTheRealPlatformHas)
{
    const Names declared = DeclaredByThePlatform(), listed = ListedNames();
    Names used;
    for (const fs::path& file : LibraryFiles())
        for (const std::string& token : Parse(file).tokens)
            if (declared.count(token) && (token.rfind("m_", 0) != 0 || listed.count(token)))
                used.insert(token); // members that are not listed are private ones, which happen to be called alike
    Names unknown, unused;
    std::set_difference(used.begin(), used.end(), listed.begin(), listed.end(), std::inserter(unknown, unknown.end()));
    std::set_difference(listed.begin(), listed.end(), used.begin(), used.end(), std::inserter(unused, unused.end()));
    EXPECT_EQ(Joined(unknown), "") << "used, but not in the list of the real platform's names";
    EXPECT_EQ(Joined(unused), "") << "in the list, but no longer used";
}

TEST(PlatformNames, TheLibraryIncludesTheRealPlatformsHeaders)
{
    const Names real = {"afx.h", "afxcoll.h", "afxdllx.h", "afxinet.h", "afxtempl.h", "afxwin.h", "windows.h"};
    for (const fs::path& file : LibraryFiles()) {
        for (const std::string& included : Parse(file).includes) {
            const bool isPlatforms = fs::exists(kSource / "platform" / included);
            EXPECT_TRUE(!isPlatforms || real.count(included)) << file << " includes " << included;
        }
    }
}

// Visual C++ comes without them, though other compilers for Windows have some. The folder jpeg/ is built there as well.
TEST(PlatformNames, NothingOfPosixIsUsed)
{
    const Names posix = {"fileno",  "fseeko", "ftello",  "isatty",      "mkstemp",     "off_t",
                         "popen",   "setenv", "ssize_t", "strcasecmp",  "strdup",      "strtok_r",
                         "sysconf", "unlink", "usleep",  "localtime_r", "gettimeofday"};
    std::vector<fs::path> files = LibraryFiles();
    for (const auto& entry : fs::directory_iterator(kSource / "jpeg"))
        files.push_back(entry.path());
    for (const fs::path& file : files)
        for (const std::string& token : Parse(file).tokens)
            EXPECT_EQ(posix.count(token), 0u) << file << " uses " << token;
}

// On the platform a long has 32 bits. Only where it stands for a colour, which has 32 bits anywhere, may it be written.
TEST(PlatformNames, NothingDependsOnTheWidthOfALong)
{
    const std::set<std::string> colours = {"color", ")", ">", "/"};
    for (const fs::path& file : LibraryFiles()) {
        const std::vector<std::string> tokens = Parse(file).tokens;
        for (size_t i = 1; i + 1 < tokens.size(); ++i) {
            if (tokens[i] != "long" || tokens[i + 1] == "long" || tokens[i - 1] == "long")
                continue;
            EXPECT_EQ(tokens[i - 1], "unsigned") << file << ": long " << tokens[i + 1];
            EXPECT_EQ(colours.count(tokens[i + 1]), 1u) << file << ": long " << tokens[i + 1];
        }
    }
}

} // namespace
