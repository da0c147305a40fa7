/// Texts in archives: the length before them, and how they are read without trusting it.
#include "base/CArchive.h"

#include "base/Utf.h"

#include <algorithm>
#include <climits>

namespace {

// Texts are read in pieces of this many bytes: a promised length costs memory only as the bytes turn up.
constexpr UINT kStep = 4096;

/// A text longer than its length can say is refused, but only when that many bytes are really there: until then the
/// end of the archive is the better answer.
void CheckTextLength(const std::string& text)
{
    if (text.size() > size_t(INT_MAX))
        AfxThrowMemoryException();
}

std::string ReadNarrow(CArchive& ar, UINT_PTR length)
{
    std::string text;
    char piece[kStep];
    while (length > 0) {
        const UINT count = UINT(std::min<UINT_PTR>(length, kStep));
        ar.EnsureRead(piece, count);
        text.append(piece, count);
        CheckTextLength(text);
        length -= count;
    }
    return text;
}

/// Units of two bytes, low byte first. Surrogates may lie on both sides of a step, which the decoder bridges.
std::string ReadWide(CArchive& ar, UINT_PTR length)
{
    std::string text;
    afx::Utf16Decoder decoder;
    WORD piece[kStep / sizeof(WORD)];
    while (length > 0) {
        const UINT count = UINT(std::min<UINT_PTR>(length, kStep / sizeof(WORD)));
        ar.EnsureRead(piece, count * UINT(sizeof(WORD)));
        for (UINT i = 0; i < count; ++i)
            decoder.Put(piece[i], text);
        CheckTextLength(text);
        length -= count;
    }
    decoder.Finish(text);
    CheckTextLength(text);
    return text;
}

} // namespace

void AfxWriteStringLength(CArchive& ar, UINT_PTR length, BOOL unicode)
{
    if (unicode)
        ar << BYTE(0xFF) << WORD(0xFFFE);
    if (length < 0xFF)
        ar << BYTE(length);
    else if (length < 0xFFFE)
        ar << BYTE(0xFF) << WORD(length);
    else if (length < 0xFFFFFFFF)
        ar << BYTE(0xFF) << WORD(0xFFFF) << DWORD(length);
    else
        ar << BYTE(0xFF) << WORD(0xFFFF) << DWORD(0xFFFFFFFF) << ULONGLONG(length);
}

UINT_PTR AfxReadStringLength(CArchive& ar, int& charSize)
{
    charSize = 1;
    BYTE length8;
    WORD length16;
    ar >> length8;
    if (length8 != 0xFF)
        return length8;
    ar >> length16;
    if (length16 == 0xFFFE) {
        // Wide characters; the length proper starts over. A second announcement is no form that anything writes, but
        // reads as the number that it is.
        charSize = 2;
        ar >> length8;
        if (length8 != 0xFF)
            return length8;
        ar >> length16;
    }
    if (length16 != 0xFFFF)
        return length16;
    DWORD length32;
    ar >> length32;
    if (length32 != 0xFFFFFFFF)
        return length32;
    ULONGLONG length64;
    ar >> length64;
    return UINT_PTR(length64);
}

CArchive& operator<<(CArchive& ar, const CString& text)
{
    AfxWriteStringLength(ar, UINT_PTR(text.GetLength()), FALSE);
    ar.Write(text.GetString(), UINT(text.GetLength()));
    return ar;
}

CArchive& operator>>(CArchive& ar, CString& text)
{
    int charSize = 1;
    const UINT_PTR length = AfxReadStringLength(ar, charSize);
    const std::string bytes = charSize == 1 ? ReadNarrow(ar, length) : ReadWide(ar, length);
    // Only now: until here a failure leaves the caller's text as it was.
    text = CString(bytes.data(), int(bytes.size()));
    return ar;
}
