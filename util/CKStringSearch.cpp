#include "util/CKString.h"

#include "util/TextView.h"
#include "util/WildcardMatcher.h"

#include <utility>
#include <vector>

namespace {

std::vector<CString> TokensOf(CString& search, int tokenize)
{
    if (!tokenize)
        return {search};
    CStringArray tokens;
    CKString::GetStringTokenArray(search, tokens, " ");
    return std::vector<CString>(tokens.GetData(), tokens.GetData() + tokens.GetSize());
}

/// Whether the token is an exact phrase: takes its quotes away in that case.
bool StripQuotes(CString& token)
{
    const int length = token.GetLength();
    if (length < 2 || token[0] != '"' || token[length - 1] != '"')
        return false;
    token = token.Mid(1, length - 2);
    return true;
}

/// The length is compared first: case never changes it, and most texts differ in it.
bool IsSameButForCase(const CString& text, const CString& phrase)
{
    return text.GetLength() == phrase.GetLength() && text.CompareNoCase(phrase) == 0;
}

/// A token without a wildcard stands for all texts that begin with it. Case goes first, since the conversion brings in
/// letters of its own that may not change.
WildcardMatcher MatcherFor(CString token)
{
    token.MakeUpper();
    CString pattern = CKString::ConvertWildCardToRegex(token);
    if (!CKString::IsStringHaveWildCard(token))
        pattern += "(.)*";
    return WildcardMatcher(TextView(pattern));
}

/// Upper case as the string maps it, byte by byte.
WildcardMatcher::FoldTable UpperCaseTable()
{
    CString bytes;
    LPSTR buffer = bytes.GetBuffer(255);
    for (int byte = 1; byte < 256; ++byte) // a zero would end the text
        buffer[byte - 1] = char(byte);
    bytes.ReleaseBuffer(255);
    bytes.MakeUpper();
    WildcardMatcher::FoldTable table = {};
    for (int byte = 1; byte < 256; ++byte)
        table[size_t(byte)] = static_cast<unsigned char>(bytes[byte - 1]);
    return table;
}

/// Takes out the elements at the given ascending indices in one pass.
void RemoveElements(CStringArray& list, const std::vector<INT_PTR>& indices)
{
    const INT_PTR size = list.GetSize();
    INT_PTR kept = indices.empty() ? size : indices[0];
    for (size_t i = 0; i < indices.size(); ++i) {
        const INT_PTR next = i + 1 < indices.size() ? indices[i + 1] : size;
        for (INT_PTR from = indices[i] + 1; from < next; ++from)
            list[kept++] = std::move(list[from]);
    }
    list.RemoveAt(kept, size - kept);
}

void FindPhrase(const CString& phrase, CStringArray& data, CStringArray& found, int remove)
{
    const INT_PTR size = data.GetSize();
    for (INT_PTR i = 0; i < size; ++i) {
        if (IsSameButForCase(data[i], phrase)) {
            found.Add(data[i]);
            if (remove)
                data.RemoveAt(i);
            return;
        }
    }
}

/// Matches leave the list only after all of them are in `found`: an exception on the way loses no text.
void FindMatches(const WildcardMatcher& matcher, CStringArray& data, CStringArray& found, int remove)
{
    std::vector<INT_PTR> matches;
    const INT_PTR size = data.GetSize();
    for (INT_PTR i = 0; i < size; ++i) {
        if (matcher.Matches(TextView(data[i]))) {
            if (remove)
                matches.push_back(i);
            found.Add(data[i]);
        }
    }
    RemoveElements(data, matches);
}

} // namespace

int CKString::SearchDataForWildCard(CString& search, CString& data, int tokenize)
{
    for (CString& token : TokensOf(search, tokenize)) {
        if (StripQuotes(token) && IsSameButForCase(data, token))
            return 1;
        data.MakeUpper();
        if (MatcherFor(token).Matches(TextView(data)))
            return 1;
    }
    return 0;
}

void CKString::SearchDataForWildCard(CString& search, CStringArray& data, CStringArray& found, int remove, int tokenize)
{
    const WildcardMatcher::FoldTable upperCase = UpperCaseTable();
    for (CString& token : TokensOf(search, tokenize)) {
        if (StripQuotes(token)) {
            FindPhrase(token, data, found, remove);
            return;
        }
        WildcardMatcher matcher = MatcherFor(token);
        if (!matcher.IsUsable())
            continue;
        matcher.Fold(upperCase);
        FindMatches(matcher, data, found, remove);
    }
}
