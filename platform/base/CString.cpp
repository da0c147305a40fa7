#include "base/CString.h"

#include "base/CException.h"
#include "base/Utf.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <cwchar>

namespace {

size_t CheckedLength(int length)
{
    if (length < 0)
        AfxThrowInvalidArgException();
    return size_t(length);
}

/// Lengths are ints: a text that would not fit into one is refused before it is made.
void CheckGrowth(size_t length, size_t added)
{
    if (added > size_t(INT_MAX) - length)
        AfxThrowMemoryException();
}

// Not the C library's: those look at the locale and take bytes of 128 and above for letters of some code page.
char LowerOf(char ch)
{
    return ch >= 'A' && ch <= 'Z' ? char(ch + ('a' - 'A')) : ch;
}

char UpperOf(char ch)
{
    return ch >= 'a' && ch <= 'z' ? char(ch - ('a' - 'A')) : ch;
}

/// A position cut to the text, its end included.
size_t ClampedIndex(int index, size_t length)
{
    return index <= 0 ? 0 : size_t(index) < length ? size_t(index) : length;
}

int FoundAt(size_t position)
{
    return position == std::string::npos ? -1 : int(position);
}

/// The formatted text, made beside the old one since arguments may point into that. The first pass only measures.
std::string FormatText(LPCSTR format, va_list args)
{
    if (!format)
        AfxThrowInvalidArgException();
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0) // a conversion that cannot be made, or a text longer than INT_MAX
        AfxThrowInvalidArgException();
    std::string text(size_t(length), '\0');
    std::vsnprintf(text.data(), size_t(length) + 1, format, args);
    return text;
}

} // namespace

CString::CString(const wchar_t* text) : m_text(text ? afx::Utf8FromWide(text, std::wcslen(text)) : std::string()) {}

CString::CString(LPCSTR bytes, int length) : m_text(bytes ? bytes : "", bytes ? CheckedLength(length) : 0) {}

CString::CString(const wchar_t* units, int length)
    : m_text(units ? afx::Utf8FromWide(units, CheckedLength(length)) : std::string())
{}

CString::CString(char ch, int repeat) : m_text(repeat > 0 ? size_t(repeat) : 0, ch) {}

CString& CString::operator=(CString&& other) noexcept
{
    if (this != &other) {
        m_text = std::move(other.m_text);
        other.m_text.clear();
    }
    return *this;
}

CString& CString::operator=(LPCSTR text)
{
    m_text = text ? text : "";
    return *this;
}

CString& CString::operator=(const wchar_t* text)
{
    return *this = CString(text);
}

CString& CString::operator=(char ch)
{
    m_text.assign(1, ch);
    return *this;
}

char CString::GetAt(int index) const
{
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return m_text[size_t(index)];
}

void CString::SetAt(int index, char ch)
{
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    m_text[size_t(index)] = ch;
}

CString CString::Mid(int first) const
{
    return Mid(first, INT_MAX);
}

CString CString::Mid(int first, int count) const
{
    CString part;
    if (count > 0)
        part.m_text = m_text.substr(ClampedIndex(first, m_text.size()), size_t(count));
    return part;
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return Mid(count >= GetLength() ? 0 : GetLength() - (count > 0 ? count : 0));
}

int CString::Find(LPCSTR part, int start) const
{
    return part && start >= 0 ? FoundAt(m_text.find(part, size_t(start))) : -1;
}

int CString::Find(char ch, int start) const
{
    return start >= 0 ? FoundAt(m_text.find(ch, size_t(start))) : -1;
}

int CString::FindOneOf(LPCSTR characters) const
{
    return characters ? FoundAt(m_text.find_first_of(characters)) : -1;
}

int CString::ReverseFind(char ch) const
{
    return FoundAt(m_text.rfind(ch));
}

/// `start` ends behind the delimiter that ended the piece, or at the end of the text: the last piece is a piece like
/// any other, and only the call after it finds nothing.
CString CString::Tokenize(LPCSTR delimiters, int& start) const
{
    if (start < 0)
        AfxThrowInvalidArgException();
    const size_t first = m_text.find_first_not_of(delimiters ? delimiters : "", size_t(start));
    if (first == std::string::npos) {
        start = -1;
        return CString();
    }
    const size_t last = std::min(m_text.find_first_of(delimiters ? delimiters : "", first), m_text.size());
    start = int(std::min(last + 1, m_text.size()));
    return Mid(int(first), int(last - first));
}

int CString::CompareNoCase(const CString& other) const
{
    CString mine(*this), others(other);
    return mine.MakeLower().Compare(others.MakeLower());
}

CString& CString::Append(LPCSTR text)
{
    if (text) {
        const size_t length = std::strlen(text);
        CheckGrowth(m_text.size(), length);
        m_text.append(text, length);
    }
    return *this;
}

CString& CString::Append(LPCSTR bytes, int length)
{
    CheckGrowth(m_text.size(), CheckedLength(length));
    if (bytes)
        m_text.append(bytes, size_t(length));
    return *this;
}

CString& CString::AppendChar(char ch)
{
    CheckGrowth(m_text.size(), 1);
    m_text += ch;
    return *this;
}

CString& CString::operator+=(const CString& other)
{
    CheckGrowth(m_text.size(), other.m_text.size());
    m_text += other.m_text;
    return *this;
}

int CString::Insert(int index, LPCSTR text)
{
    if (text) {
        CheckGrowth(m_text.size(), std::strlen(text));
        m_text.insert(ClampedIndex(index, m_text.size()), text);
    }
    return GetLength();
}

int CString::Insert(int index, char ch)
{
    CheckGrowth(m_text.size(), 1);
    m_text.insert(ClampedIndex(index, m_text.size()), 1, ch);
    return GetLength();
}

int CString::Delete(int index, int count)
{
    if (count > 0)
        m_text.erase(ClampedIndex(index, m_text.size()), size_t(count));
    return GetLength();
}

int CString::Remove(char ch)
{
    const int before = GetLength();
    m_text.erase(std::remove(m_text.begin(), m_text.end(), ch), m_text.end());
    return before - GetLength();
}

int CString::Replace(char from, char to)
{
    int changed = 0;
    for (char& ch : m_text) {
        if (ch == from && from != to) {
            ch = to;
            ++changed;
        }
    }
    return changed;
}

/// Builds the new text from the pieces between the finds. Replacing in place would move the rest once per find.
int CString::Replace(LPCSTR from, LPCSTR to)
{
    const std::string old(from ? from : "");
    const std::string fresh(to ? to : ""); // copies: both may point into this text
    if (old.empty())
        return 0;
    int changed = 0;
    std::string result;
    size_t done = 0;
    for (size_t at = m_text.find(old); at != std::string::npos; at = m_text.find(old, done)) {
        result.append(m_text, done, at - done);
        CheckGrowth(result.size(), fresh.size());
        result += fresh;
        done = at + old.size();
        ++changed;
    }
    CheckGrowth(result.size(), m_text.size() - done);
    result.append(m_text, done, std::string::npos);
    m_text.swap(result);
    return changed;
}

CString& CString::MakeUpper()
{
    for (char& ch : m_text)
        ch = UpperOf(ch);
    return *this;
}

CString& CString::MakeLower()
{
    for (char& ch : m_text)
        ch = LowerOf(ch);
    return *this;
}

CString& CString::TrimLeft(char ch)
{
    m_text.erase(0, m_text.find_first_not_of(ch));
    return *this;
}

CString& CString::TrimLeft(LPCSTR characters)
{
    m_text.erase(0, m_text.find_first_not_of(characters ? characters : ""));
    return *this;
}

CString& CString::TrimRight(char ch)
{
    m_text.erase(m_text.find_last_not_of(ch) + 1); // nothing found: npos + 1 is 0
    return *this;
}

CString& CString::TrimRight(LPCSTR characters)
{
    m_text.erase(m_text.find_last_not_of(characters ? characters : "") + 1);
    return *this;
}

void CString::Format(LPCSTR format, ...)
{
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(LPCSTR format, va_list args)
{
    m_text = FormatText(format, args);
}

void CString::AppendFormat(LPCSTR format, ...)
{
    va_list args;
    va_start(args, format);
    const std::string added = FormatText(format, args);
    va_end(args);
    CheckGrowth(m_text.size(), added.size());
    m_text += added;
}

/// The room is made by lengthening the text with zeros, so that all of it may be written; the final zero comes for
/// free.
LPSTR CString::GetBuffer(int minimum)
{
    if (size_t(CheckedLength(minimum)) > m_text.size())
        m_text.resize(size_t(minimum), '\0');
    return m_text.data();
}

void CString::ReleaseBuffer(int length)
{
    const size_t room = m_text.size();
    const size_t wanted = length >= 0 ? size_t(length) : std::strlen(m_text.c_str());
    m_text.resize(std::min(wanted, room));
}

CString operator+(const CString& a, const CString& b)
{
    return CString(a) += b;
}

CString operator+(const CString& a, LPCSTR b)
{
    return CString(a) += b;
}

CString operator+(LPCSTR a, const CString& b)
{
    return CString(a) += b;
}

CString operator+(const CString& a, char b)
{
    return CString(a) += b;
}

CString operator+(char a, const CString& b)
{
    return CString(a) += b;
}
