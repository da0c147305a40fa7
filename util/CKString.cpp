#include "util/CKString.h"

#include "util/TextView.h"

#include <algorithm>

namespace {

struct Replacement
{
    LPCSTR from;
    LPCSTR to;
};

/// In this order: the wildcards become expressions first, then those behind an apostrophe turn back into characters.
/// Pairs of apostrophes come after that, hence two of them before a wildcard are an apostrophe and the plain character.
constexpr Replacement kReplacements[] = {{"*", "(.)*"}, {"#", "\\d"},    {"?", "\\D"}, {"'(.)*", "\\*"},
                                         {"'\\d", "#"}, {"'\\D", "\\?"}, {"''", "'"},  {" ", "|"}};

constexpr std::string_view kEscaped = "$()+-.[\\]^{|}";

/// Joins pieces of a text to tokens: most pieces are a token of their own, those of a quoted phrase belong together.
class TokenJoiner
{
public:
    explicit TokenJoiner(CStringArray& tokens) : m_tokens(tokens) {}

    /// False when there is nothing in the piece and no open phrase, which ends the tokens.
    bool Take(std::string_view piece)
    {
        m_token.Append(piece.data(), int(piece.size()));
        m_quotes += std::count(piece.begin(), piece.end(), '"'); // only the new part: phrases can be long
        if (m_token.IsEmpty())
            return false;
        if (m_quotes == 1 && m_token[0] == '"')
            m_token += ' ';
        else
            Finish();
        return true;
    }

private:
    void Finish()
    {
        if (m_quotes > 0)
            m_token.Remove('"');
        else if (m_token[m_token.GetLength() - 1] == ' ')
            m_token.Delete(m_token.GetLength() - 1);
        m_tokens.Add(m_token);
        m_token.Empty();
        m_quotes = 0;
    }

    CStringArray& m_tokens;
    CString m_token;
    std::ptrdiff_t m_quotes = 0; ///< in m_token
};

} // namespace

int CKString::IsWildCard(char c)
{
    return IsWildCardAsterisk(c) || IsWildCardSharp(c) || IsWildCardQuestion(c) ? 1 : 0;
}

int CKString::IsWildCardAsterisk(char c)
{
    return c == '*' ? 1 : 0;
}

int CKString::IsWildCardSharp(char c)
{
    return c == '#' ? 1 : 0;
}

int CKString::IsWildCardQuestion(char c)
{
    return c == '?' ? 1 : 0;
}

int CKString::IsStringHaveWildCard(CString s)
{
    char before = 0;
    for (const char ch : TextView(s)) {
        if (IsWildCard(ch) && before != '\'')
            return 1;
        before = ch;
    }
    return 0;
}

CString CKString::ConvertWildCardToRegex(CString s)
{
    CString regex;
    for (const char ch : TextView(s)) {
        if (kEscaped.find(ch) != std::string_view::npos)
            regex += '\\';
        regex += ch;
    }
    for (const Replacement& replacement : kReplacements)
        regex.Replace(replacement.from, replacement.to);
    return regex;
}

/// The scan is over when it has looked for a piece and there was none; that empty piece is still handed on, and an open
/// phrase takes it in like any other.
void CKString::GetStringTokenArray(CString& s, CStringArray& tokens, CString delimiters)
{
    const std::string_view text = TextView(s);
    CStringArray pieces; // on their own at first: `s` may be an element of `tokens`, which move when there are more
    TokenJoiner joiner(pieces);
    for (size_t position = 0; position != std::string_view::npos;) {
        const size_t first = std::min(text.find_first_not_of(TextView(delimiters), position), text.size());
        const size_t last = std::min(text.find_first_of(TextView(delimiters), first), text.size());
        position = first < text.size() ? last : std::string_view::npos;
        if (!joiner.Take(text.substr(first, last - first)))
            break;
    }
    tokens.Append(pieces);
}

int CKString::IsExistStrArray(CStringArray& list, const CString& s)
{
    return GetIndex(&list, s) >= 0 ? 1 : 0;
}

int CKString::GetIndex(CStringArray* list, CString s)
{
    const INT_PTR count = list ? list->GetSize() : 0;
    for (INT_PTR i = 0; i < count; ++i)
        if (list->GetAt(i).Compare(s) == 0)
            return int(i);
    return -1;
}
