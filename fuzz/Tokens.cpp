/// Splitting of texts into tokens and quoted phrases.
#include "Fuzz.h"
#include "util/CKString.h"

#include <vector>

using fuzz::Require;

namespace {

std::string Bytes(const CString& text)
{
    return std::string(text.GetString(), size_t(text.GetLength()));
}

/// What a text without quotes is split into.
std::vector<std::string> PlainPieces(const std::string& text, const std::string& delimiters)
{
    std::vector<std::string> pieces(1);
    for (const char ch : text) {
        if (delimiters.find(ch) == std::string::npos)
            pieces.back() += ch;
        else if (!pieces.back().empty())
            pieces.emplace_back();
    }
    if (pieces.back().empty())
        pieces.pop_back();
    for (std::string& piece : pieces) {
        if (piece.back() == ' ')
            piece.pop_back();
    }
    return pieces;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Input input(data, size);
    const std::string delimiters = input.Text(input.Below(4));
    const std::string text = input.Rest();
    CString source(text.data(), int(text.size()));
    const CString separators(delimiters.data(), int(delimiters.size()));

    CStringArray tokens;
    tokens.Add("first");
    CKString::GetStringTokenArray(source, tokens, separators);
    Require(Bytes(source) == text && tokens[0] == "first", "the text and what the list held stay");
    size_t total = 0;
    for (INT_PTR i = 1; i < tokens.GetSize(); ++i) {
        const std::string token = Bytes(tokens[i]);
        Require(token.find('"') == std::string::npos, "no quote remains");
        total += token.size();
    }
    // A joined phrase has a space for what separated its pieces, or for its own quotes.
    Require(total <= text.size(), "no character comes from nothing");
    if (text.find('"') == std::string::npos) {
        const std::vector<std::string> pieces = PlainPieces(text, delimiters);
        Require(tokens.GetSize() == INT_PTR(pieces.size()) + 1, "as many tokens as pieces");
        for (size_t i = 0; i < pieces.size(); ++i)
            Require(Bytes(tokens[INT_PTR(i) + 1]) == pieces[i], "each piece is a token");
    }
    return 0;
}
