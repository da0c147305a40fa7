#include "base/Utf.h"

namespace afx {

namespace {

constexpr uint32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(uint32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(uint32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// One to four bytes: the first tells their number in its leading ones, the others carry six bits each below "10".
void PutCodePoint(uint32_t code, std::string& out)
{
    if (code < 0x80) {
        out += char(code);
    } else if (code < 0x800) {
        out += char(0xC0 | code >> 6);
        out += char(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += char(0xE0 | code >> 12);
        out += char(0x80 | (code >> 6 & 0x3F));
        out += char(0x80 | (code & 0x3F));
    } else {
        out += char(0xF0 | code >> 18);
        out += char(0x80 | (code >> 12 & 0x3F));
        out += char(0x80 | (code >> 6 & 0x3F));
        out += char(0x80 | (code & 0x3F));
    }
}

} // namespace

void Utf16Decoder::Put(uint32_t unit, std::string& out)
{
    // A pair carries 10 bits in each half, counted from U+10000.
    if (m_high && IsLowSurrogate(unit)) {
        PutCodePoint(0x10000 + ((m_high - 0xD800) << 10) + (unit - 0xDC00), out);
        m_high = 0;
        return;
    }
    Finish(out);
    if (IsHighSurrogate(unit))
        m_high = unit;
    else
        PutCodePoint(IsLowSurrogate(unit) || unit > 0x10FFFF ? kReplacement : unit, out);
}

void Utf16Decoder::Finish(std::string& out)
{
    if (m_high)
        PutCodePoint(kReplacement, out);
    m_high = 0;
}

std::string Utf8FromWide(const wchar_t* units, size_t count)
{
    // Units wider than 16 bits pass as code points; only surrogates are joined, which 32-bit text has no use for.
    std::string out;
    Utf16Decoder decoder;
    for (size_t i = 0; i < count; ++i)
        decoder.Put(uint32_t(units[i]), out);
    decoder.Finish(out);
    return out;
}

} // namespace afx
