#include "JsonWriter.h"

#include <cstdio>

namespace viewer {

void JsonWriter::Close(char bracket)
{
    --depth;
    if (!first)
        Break();
    text += bracket;
    first = false;
}

void JsonWriter::Member(std::string_view key, double value)
{
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.9g", value + 0.0); // no -0
    Key(key);
    text += digits;
}

/// Nothing follows the bracket yet, so the next item needs no comma.
void JsonWriter::Enter()
{
    ++depth;
    first = true;
}

void JsonWriter::Break()
{
    text += '\n';
    text.append(size_t(depth) * 2, ' ');
}

/// Ends the line of the item before.
void JsonWriter::Item()
{
    if (!first)
        text += ',';
    if (depth > 0)
        Break();
    first = false;
}

void JsonWriter::Key(std::string_view key)
{
    Item();
    Quote(key);
    text += ": ";
}

/// Bytes of 128 and above pass as they are: names are UTF-8 in files of these versions.
void JsonWriter::Quote(std::string_view value)
{
    text += '"';
    for (char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (byte < ' ') {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", unsigned(byte));
            text += escape;
        } else {
            text += c;
        }
    }
    text += '"';
}

} // namespace viewer
