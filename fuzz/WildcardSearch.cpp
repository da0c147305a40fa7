/// Wildcard conversion and both searches, against the standard library's expressions on the converted text.
#include "Fuzz.h"
#include "util/CKString.h"

#include <optional>
#include <regex>
#include <vector>

using fuzz::Require;

namespace {

std::string Bytes(const CString& text)
{
    return std::string(text.GetString(), size_t(text.GetLength()));
}

CString Text(const std::string& bytes)
{
    return CString(bytes.data(), int(bytes.size()));
}

bool IsPhrase(const std::string& search)
{
    return search.size() >= 2 && search.front() == '"' && search.back() == '"';
}

/// The answer of the standard engine, which backtracks: none where that takes long.
std::optional<bool> StandardAnswer(const std::string& search, const std::string& text)
{
    const bool phrase = IsPhrase(search);
    CString token = Text(phrase ? search.substr(1, search.size() - 2) : search);
    if (phrase && token.CompareNoCase(Text(text)) == 0)
        return true;
    token.MakeUpper();
    std::string pattern = Bytes(CKString::ConvertWildCardToRegex(token));
    if (!CKString::IsStringHaveWildCard(token))
        pattern += "(.)*";
    const auto runs = std::count(search.begin(), search.end(), '*');
    if (runs > 3 || search.size() > 200 || text.size() > 24)
        return std::nullopt;
    const std::string upper = Bytes(Text(text).MakeUpper());
    return std::regex_match(upper, std::regex(pattern, std::regex::ECMAScript));
}

/// Both searches give the same answer, and nobody's texts are lost.
void CheckList(const std::string& search, const std::vector<std::string>& texts, int tokenize)
{
    CString token = Text(search);
    CStringArray data, found;
    for (const std::string& text : texts)
        data.Add(Text(text));
    CKString::SearchDataForWildCard(token, data, found, 1, tokenize);
    Require(data.GetSize() + found.GetSize() == INT_PTR(texts.size()), "every text is left or found");
    Require(Bytes(token) == search, "the search text stays");
    for (INT_PTR i = 0; i < found.GetSize(); ++i) {
        CString text = found[i];
        Require(CKString::SearchDataForWildCard(token, text, tokenize) == 1, "what the list found matches by itself");
    }
    if (search.find('"') != std::string::npos)
        return; // a phrase finds one text of the list and ends
    for (INT_PTR i = 0; i < data.GetSize(); ++i) {
        CString text = data[i];
        Require(CKString::SearchDataForWildCard(token, text, tokenize) == 0, "what the list left does not match");
    }
}

} // namespace

/// One length byte, the search text, then the texts, which end at the byte 0xFF.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Input input(data, size);
    const int tokenize = input.Byte() & 1;
    const std::string search = input.Text(input.Byte());
    std::vector<std::string> texts(1);
    while (!input.IsEmpty()) {
        const char byte = char(input.Byte());
        if (byte == char(0xFF))
            texts.emplace_back();
        else
            texts.back() += byte;
    }
    for (const std::string& text : texts) {
        CString token = Text(search), candidate = Text(text);
        const int answer = CKString::SearchDataForWildCard(token, candidate, 0);
        const std::optional<bool> expected = StandardAnswer(search, text);
        Require(!expected || answer == int(*expected), "the answer is that of the standard engine");
    }
    CheckList(search, texts, tokenize);
    return 0;
}
