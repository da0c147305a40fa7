/// Writing of JSON by hand: what the viewer reports is flat and small, and a library for it would be this example's
/// only other dependency.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace viewer {

/// Builds indented JSON; commas and line breaks come by themselves. The caller closes what it opens, with the bracket
/// that fits, and gives every item of an object a key.
class JsonWriter
{
public:
    void Open(char bracket) { Item(), text += bracket, Enter(); }
    void Open(std::string_view key, char bracket) { Key(key), text += bracket, Enter(); }
    void Close(char bracket);

    void Value(std::string_view value) { Item(), Quote(value); }
    void Value(size_t value) { Item(), text += std::to_string(value); }
    void Member(std::string_view key, std::string_view value) { Key(key), Quote(value); }
    void Member(std::string_view key, size_t value) { Key(key), text += std::to_string(value); }
    /// With nine significant digits: nanometres up to a metre. The value has to be finite.
    void Member(std::string_view key, double value);

    /// The text with a line feed at its end. Nothing is left to write to afterwards.
    std::string Finish() { return std::move(text) + '\n'; }

private:
    void Enter();
    void Break();
    void Item();
    void Key(std::string_view key);
    void Quote(std::string_view value);

    std::string text;
    int depth = 0;
    bool first = true;
};

} // namespace viewer
