/// The narrow string of the platform.
#pragma once

#include "base/wintypes.h"

#include <cstdarg>
#include <string>
#include <utility>

#if defined(__GNUC__)
#define AFX_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define AFX_PRINTF(text, first)
#endif

/// A text of bytes, at most INT_MAX of them, any byte included; a value with its own copy. Where a call takes a
/// `const char*` the text ends at its first zero byte, and null is the empty text; where it takes a CString, zero bytes
/// count like others. Positions are bytes from 0.
///
/// Case mapping and blanks are those of ASCII: bytes of 128 and above stay as they are, so UTF-8 survives. Wide text
/// becomes UTF-8. Growing past INT_MAX bytes raises the memory exception.
class KOLM_API CString
{
public:
    CString() = default; ///< the empty text
    CString(const CString&) = default;
    CString(CString&& other) noexcept : m_text(std::move(other.m_text)) { other.m_text.clear(); }
    CString(LPCSTR text) : m_text(text ? text : "") {}
    CString(const wchar_t* text);              ///< wide text becomes UTF-8; null is the empty text
    CString(LPCSTR bytes, int length);         ///< exactly `length` bytes; a negative length raises
    CString(const wchar_t* units, int length); ///< exactly `length` units; a negative length raises
    explicit CString(char ch, int repeat = 1); ///< a repeat of 0 or less gives the empty text

    CString& operator=(const CString&) = default;
    CString& operator=(CString&& other) noexcept;
    CString& operator=(LPCSTR text);
    CString& operator=(const wchar_t* text);
    CString& operator=(char ch); ///< a text of this one byte, a zero byte too

    /// The number of bytes, a zero byte counting like others.
    int GetLength() const { return int(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    /// The bytes with a zero behind them. The pointer holds until the next call that is not const.
    LPCSTR GetString() const { return m_text.c_str(); }
    operator LPCSTR() const { return m_text.c_str(); }

    char GetAt(int index) const; ///< the position after the last byte gives 0; others outside raise invalid argument
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char ch); ///< a position outside raises the invalid-argument exception

    /// @name Parts. Positions and counts outside are cut to what is there; negative ones count as 0.
    /// @{
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    /// @}

    /// @name Searches from `start` on; -1 when there is nothing or `start` lies outside.
    /// @{
    int Find(LPCSTR part, int start = 0) const; ///< an empty part is found at `start`, a null one nowhere
    int Find(char ch, int start = 0) const;
    int FindOneOf(LPCSTR characters) const;
    int ReverseFind(char ch) const; ///< the last one
    /// @}

    /// The next piece between delimiters, from `start` (0 at first) on, which then stands behind the piece. Runs of
    /// delimiters count as one. At the end the piece is empty and `start` -1. A negative `start` raises.
    CString Tokenize(LPCSTR delimiters, int& start) const;

    /// 0 when equal, else the sign of the order of unsigned bytes.
    int Compare(const CString& other) const { return Sign(m_text.compare(other.m_text)); }
    int Compare(LPCSTR other) const { return Sign(m_text.compare(other ? other : "")); }
    int CompareNoCase(const CString& other) const; ///< as if both were in lower case
    int CompareNoCase(LPCSTR other) const { return CompareNoCase(CString(other)); }

    /// Becomes the empty text.
    void Empty() { m_text.clear(); }
    /// @name Adds to the end. The text may be a part of this one; null adds nothing.
    /// @{
    CString& Append(LPCSTR text);
    CString& Append(LPCSTR bytes, int length);
    CString& AppendChar(char ch);
    CString& operator+=(const CString& other);
    CString& operator+=(LPCSTR text) { return Append(text); }
    CString& operator+=(char ch) { return AppendChar(ch); }
    /// @}

    int Insert(int index, LPCSTR text); ///< `index` is cut to the text; returns the new length
    int Insert(int index, char ch);
    int Delete(int index, int count = 1); ///< returns the new length; what lies outside is not there
    int Remove(char ch);                  ///< returns how many there were
    int Replace(char from, char to);      ///< returns how many changed
    int Replace(LPCSTR from, LPCSTR to);  ///< left to right, not inside what was put in; an empty `from` does nothing
    /// Maps the letters A to Z; all other bytes stay.
    CString& MakeUpper();
    CString& MakeLower();

    /// @name Removes blanks, a character, or any of the characters of a set from the ends.
    /// @{
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& Trim(char ch) { return TrimRight(ch).TrimLeft(ch); }
    CString& Trim(LPCSTR characters) { return TrimRight(characters).TrimLeft(characters); }
    CString& TrimLeft() { return TrimLeft(kBlanks); }
    CString& TrimLeft(char ch);
    CString& TrimLeft(LPCSTR characters);
    CString& TrimRight() { return TrimRight(kBlanks); }
    CString& TrimRight(char ch);
    CString& TrimRight(LPCSTR characters);
    /// @}

    /// As printf; a format that is null or cannot be carried out raises invalid argument, and the text stays as it was.
    /// Arguments may point into this string.
    void Format(LPCSTR format, ...) AFX_PRINTF(2, 3);
    void FormatV(LPCSTR format, va_list args) AFX_PRINTF(2, 0);
    void AppendFormat(LPCSTR format, ...) AFX_PRINTF(2, 3);

    /// Room for `minimum` bytes and a final zero to write into, the text at its start. The pointer holds until the next
    /// call that is not const, which has to be ReleaseBuffer: with -1 the text then ends at its first zero, else after
    /// `length` bytes (cut to the room).
    LPSTR GetBuffer(int minimum = 0);
    void ReleaseBuffer(int length = -1);

    /// @name Comparisons of two strings and of a string beside a plain text, which then is not converted.
    /// @{
    friend bool operator==(const CString& a, const CString& b) { return a.Compare(b) == 0; }
    friend bool operator==(const CString& a, LPCSTR b) { return a.Compare(b) == 0; }
    friend bool operator==(LPCSTR a, const CString& b) { return 0 == b.Compare(a); }
    friend bool operator!=(const CString& a, const CString& b) { return a.Compare(b) != 0; }
    friend bool operator!=(const CString& a, LPCSTR b) { return a.Compare(b) != 0; }
    friend bool operator!=(LPCSTR a, const CString& b) { return 0 != b.Compare(a); }
    friend bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
    friend bool operator<(const CString& a, LPCSTR b) { return a.Compare(b) < 0; }
    friend bool operator<(LPCSTR a, const CString& b) { return 0 < b.Compare(a); }
    friend bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
    friend bool operator>(const CString& a, LPCSTR b) { return a.Compare(b) > 0; }
    friend bool operator>(LPCSTR a, const CString& b) { return 0 > b.Compare(a); }
    friend bool operator<=(const CString& a, const CString& b) { return a.Compare(b) <= 0; }
    friend bool operator<=(const CString& a, LPCSTR b) { return a.Compare(b) <= 0; }
    friend bool operator<=(LPCSTR a, const CString& b) { return 0 <= b.Compare(a); }
    friend bool operator>=(const CString& a, const CString& b) { return a.Compare(b) >= 0; }
    friend bool operator>=(const CString& a, LPCSTR b) { return a.Compare(b) >= 0; }
    friend bool operator>=(LPCSTR a, const CString& b) { return 0 >= b.Compare(a); }
    /// @}

private:
    static constexpr LPCSTR kBlanks = " \t\n\v\f\r";
    static int Sign(int value) { return (value > 0) - (value < 0); }

    std::string m_text;
};

/// The platform's name for the narrow string where the other one depends on build settings.
using CStringA = CString;

/// Joins texts; zero bytes within a CString are kept.

KOLM_API CString operator+(const CString& a, const CString& b);
KOLM_API CString operator+(const CString& a, LPCSTR b);
KOLM_API CString operator+(LPCSTR a, const CString& b);
KOLM_API CString operator+(const CString& a, char b);
KOLM_API CString operator+(char a, const CString& b);
