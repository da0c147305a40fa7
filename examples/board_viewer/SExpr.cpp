#include "SExpr.h"

#include <charconv>
#include <cmath>
#include <utility>

// The reader makes one pass over the file's text and copies none of it: words and texts are views, and the items of one
// entry of the outer list lie in an array that keeps its memory from entry to entry. A board of 7 MB reads in some 20
// ms; most of that time goes into numbers, which std::from_chars converts without a locale.

namespace viewer {

namespace {

/// The only characters that separate items without meaning anything.
bool IsSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// A quote ends a word too: `a"b"` is a word and a text.
bool EndsWord(char c)
{
    return IsSpace(c) || c == '(' || c == ')' || c == '"';
}

/// At most `longest` bytes of a text from the file, fit for one line of a message.
std::string Excerpt(std::string_view text, size_t longest = 40)
{
    std::string result(text.substr(0, longest));
    for (char& c : result) {
        if (static_cast<unsigned char>(c) < ' ')
            c = '?';
    }
    return result;
}

} // namespace

ReadError::ReadError(const std::string& file, uint32_t line, const std::string& what)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + what)
{}

SExprReader::SExprReader(std::string_view textOfFile, std::string fileName, std::string_view head)
    : text(textOfFile), file(std::move(fileName)), outerHead(head)
{
    SkipSpace();
    // The head decides before anything else is looked at, so that a picture or a program is not searched for lists.
    const bool opens = position < text.size() && text[position] == '(';
    if (opens) {
        ++position;
        SkipSpace();
    }
    if (!opens || ScanWord() != head)
        throw ReadError(file, line, "not a board: the file does not begin with (" + std::string(head));
}

SExpr SExprReader::NextItem()
{
    nodes.clear();
    open.clear();
    do {
        SkipSpace();
        if (position >= text.size())
            FailCutOff();

        const char c = text[position];
        if (c == '(') {
            OpenNode();
        } else if (c != ')') {
            Append(c == '"' ? Kind::Quoted : Kind::Word, c == '"' ? ScanQuoted() : ScanWord());
        } else if (!open.empty()) {
            ++position;
            open.pop_back();
        } else {
            ++position;
            SkipSpace();
            if (position < text.size())
                throw ReadError(file, line, "text after the end of the board");
            return {};
        }
    } while (!open.empty());

    return SExpr(this, 0);
}

/// A list takes its head along, so that (at 1 2) is one list of two items.
void SExprReader::OpenNode()
{
    if (open.size() >= kDeepest)
        throw ReadError(file, line, "lists are nested deeper than " + std::to_string(kDeepest));
    ++position;
    SkipSpace();
    const uint32_t node = Append(Kind::List, ScanWord());
    open.push_back({node, 0});
}

/// Adds an item behind the last one of the innermost open list. Items refer to each other by index, which stays good
/// when the array grows.
uint32_t SExprReader::Append(Kind kind, std::string_view nodeText)
{
    const auto index = uint32_t(nodes.size());
    nodes.push_back({nodeText, 0, 0, line, kind});
    if (!open.empty()) {
        OpenList& list = open.back();
        (list.last == 0 ? nodes[list.node].child : nodes[list.last].next) = index;
        list.last = index;
    }
    return index;
}

/// Lines are counted here and inside quoted texts, the only places where a line can end.
void SExprReader::SkipSpace()
{
    while (position < text.size() && IsSpace(text[position])) {
        line += text[position] == '\n';
        ++position;
    }
}

std::string_view SExprReader::ScanWord()
{
    const size_t begin = position;
    while (position < text.size() && !EndsWord(text[position]))
        ++position;
    return text.substr(begin, position - begin);
}

/// The characters between two quotes, escapes left as they are: most texts have none and need no copy.
std::string_view SExprReader::ScanQuoted()
{
    const size_t begin = ++position;
    while (position < text.size() && text[position] != '"') {
        // A backslash takes the character after it along, so that an escaped quote does not end the text.
        position += text[position] == '\\' && position + 1 < text.size();
        line += text[position] == '\n';
        ++position;
    }
    if (position >= text.size())
        FailCutOff();
    return text.substr(begin, position++ - begin);
}

void SExprReader::FailCutOff() const
{
    const std::string_view inside = open.empty() ? outerHead : nodes[open.back().node].text;
    throw ReadError(file, line, "the file ends inside (" + Excerpt(inside));
}

std::string_view SExpr::Raw() const
{
    return reader ? reader->nodes[index].text : std::string_view();
}

std::string SExpr::Text() const
{
    const std::string_view raw = Raw();
    std::string result;
    result.reserve(raw.size());
    for (size_t i = 0; i < raw.size(); ++i) {
        char c = raw[i];
        if (c == '\\' && i + 1 < raw.size() && reader->nodes[index].kind == SExprReader::Kind::Quoted) {
            c = raw[++i];
            c = c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
        }
        result += c;
    }
    return result;
}

bool SExpr::IsList() const
{
    return reader && reader->nodes[index].kind == SExprReader::Kind::List;
}

SExpr SExpr::First() const
{
    const uint32_t child = reader ? reader->nodes[index].child : 0;
    return child ? SExpr(reader, child) : SExpr();
}

SExpr SExpr::Next() const
{
    const uint32_t next = reader ? reader->nodes[index].next : 0;
    return next ? SExpr(reader, next) : SExpr();
}

SExpr SExpr::Find(std::string_view head) const
{
    for (SExpr item = First(); item; item = item.Next()) {
        if (item.Is(head))
            return item;
    }
    return {};
}

SExpr SExpr::At(size_t position) const
{
    SExpr item = First();
    while (item && position-- > 0)
        item = item.Next();
    return item;
}

/// Quoted texts do not count, since a user can write any word there.
bool SExpr::Has(std::string_view word) const
{
    for (SExpr item = First(); item; item = item.Next()) {
        if (item.Raw() == word && reader->nodes[item.index].kind != SExprReader::Kind::Quoted)
            return true;
    }
    return false;
}

double SExpr::Number(size_t position, double fallback) const
{
    const SExpr item = At(position);
    if (!item)
        return fallback;

    const std::string_view digits = item.Raw();
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (item.IsList() || error == std::errc::invalid_argument || end != digits.data() + digits.size() ||
        std::isnan(value))
        item.Fail("'" + Excerpt(digits) + "' is not a number");
    // What is too small for a double reports a range error as well; it counts as 0.
    const bool tooLarge = error == std::errc::result_out_of_range && digits.find("e-") == digits.npos;
    if (tooLarge || std::fabs(value) > kLargestNumber)
        item.Fail("the number " + Excerpt(digits) + " is too large for a board");
    return error == std::errc() ? value : 0;
}

void SExpr::Fail(const std::string& what) const
{
    throw ReadError(reader ? reader->file : "", reader ? reader->nodes[index].line : 0, what);
}

} // namespace viewer
