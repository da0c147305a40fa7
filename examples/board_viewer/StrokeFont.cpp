#include "StrokeFont.h"

#include <algorithm>
#include <cstdint>

// The letters are this program's own, drawn on a coarse grid with cut corners, which at the sizes of board texts cannot
// be told from curves. A glyph is a short string, so that the whole font can be read, and mended, in this file.

namespace viewer {

namespace {

// Glyphs are drawn on a grid of 9 units per cell. A stroke is a run of points, each two characters: x from 0 to 6, then
// y from 0 to 14 as 0 ... 9, a ... e. The baseline is y 3, small letters reach y 9 and capitals y 12 (c); spaces
// separate strokes.
constexpr double kUnits = 9;
constexpr int kBaseline = 3;
constexpr double kGap = 2.6;        // between letters, in grid units
constexpr double kSpaceAdvance = 6; // of a blank, in grid units
constexpr int kBarHeight = 14;

constexpr const char* kAscii[] = {
    /*   */ "",
    /* ! */ "0c06 0403",
    /* " */ "0c0a 2c2a",
    /* # */ "132c 435c 0666 0969",
    /* $ */ "04135364665718090b1c5c6b 323d",
    /* % */ "036c 0c2c2a0a0c 4565634345",
    /* & */ "63190b1c3c4b4a0604133366",
    /* ' */ "0c0a",
    /* ( */ "2d0a0522",
    /* ) */ "0d2a2502",
    /* * */ "3a34 0955 0559",
    /* + */ "3a34 0767",
    /* , */ "1402",
    /* - */ "0747",
    /* . */ "0304",
    /* / */ "025c",
    /* 0 */ "13040b1c4c5b544313 045b",
    /* 1 */ "0a2c23 0343",
    /* 2 */ "0b1c4c5b590353",
    /* 3 */ "0b1c4c5b594828 485754431304",
    /* 4 */ "434c0666",
    /* 5 */ "5c0c08485754431304",
    /* 6 */ "4c2c090413435456471706",
    /* 7 */ "0c5c23",
    /* 8 */ "18090b1c4c5b594818070413435457 4857",
    /* 9 */ "1333565b4c1c0b09184859",
    /* : */ "0809 0304",
    /* ; */ "1819 1402",
    /* < */ "5a0754",
    /* = */ "0858 0555",
    /* > */ "0a5704",
    /* ? */ "0b1c4c5b592725 2423",
    /* @ */ "4929264649465566 666a4c2c0a052353",
    /* A */ "033c63 1656",
    /* B */ "0c4c5b594808 48575443030c",
    /* C */ "6b5c1c0b04135364",
    /* D */ "030c4c6a654303",
    /* E */ "5c0c0353 0848",
    /* F */ "5c0c03 0848",
    /* G */ "6b5c1c0b041353646737",
    /* H */ "030c 636c 0868",
    /* I */ "030c",
    /* J */ "4c44331304",
    /* K */ "030c 6c06 2863",
    /* L */ "0c0353",
    /* M */ "030c366c63",
    /* N */ "030c636c",
    /* O */ "13040b1c5c6b645313",
    /* P */ "030c4c5b584707",
    /* Q */ "13040b1c5c6b645313 4662",
    /* R */ "030c4c5b584707 2753",
    /* S */ "04135364665718090b1c5c6b",
    /* T */ "0c6c 333c",
    /* U */ "0c041353646c",
    /* V */ "0c336c",
    /* W */ "0c1339536c",
    /* X */ "036c 0c63",
    /* Y */ "0c376c 3733",
    /* Z */ "0c6c0363",
    /* [ */ "2d0d0222",
    /* \ */ "0c52",
    /* ] */ "0d2d2202",
    /* ^ */ "0a2c4a",
    /* _ */ "0262",
    /* ` */ "0c2a",
    /* a */ "0819495853 57170604134354",
    /* b */ "0c03 0819495854431304",
    /* c */ "5849190804134354",
    /* d */ "5c53 5849190804134354",
    /* e */ "06565849190804134354",
    /* f */ "3c2c1b13 0939",
    /* g */ "5951401001 5849190804134354",
    /* h */ "0c03 0819495853",
    /* i */ "0903 0b0c",
    /* j */ "191100 1b1c",
    /* k */ "0c03 4905 2743",
    /* l */ "0c0413",
    /* m */ "0903 0819293833 3849596863",
    /* n */ "0903 0819495853",
    /* o */ "130408194958544313",
    /* p */ "0900 0819495854431304",
    /* q */ "5950 5849190804134354",
    /* r */ "0903 072949",
    /* s */ "041343545546160708194958",
    /* t */ "1c142333 0939",
    /* u */ "0904134354 5953",
    /* v */ "092349",
    /* w */ "0913385369",
    /* x */ "0953 5903",
    /* y */ "0923 49231000",
    /* z */ "09590353",
    /* { */ "3d2c2907252231",
    /* | */ "0d01",
    /* } */ "0d1c1937151201",
    /* ~ */ "071828465667",
};

struct Glyph
{
    uint32_t codePoint;
    const char* strokes;
};

/// What else occurs on boards: degree, plus-minus, superscript two, micro (twice), multiplication, Omega (twice),
/// dashes.
constexpr Glyph kOthers[] = {
    {0xB0, "0b1c2b1a0b"},
    {0xB1, "3b35 0868 0363"},
    {0xB2, "0b1c2b0828"},
    {0xB5, "0900 04134354 5953"},
    {0xD7, "0559 0955"},
    {0x3A9, "032325070a2c4c6a67454363"},
    {0x3BC, "0900 04134354 5953"},
    {0x2126, "032325070a2c4c6a67454363"},
    {0x2013, "0747"},
    {0x2014, "0767"},
};

constexpr const char* kNoGlyph = "030c5c5303";

/// The glyph of a character. A box stands for what the font lacks, so that its absence can be seen.
const char* StrokesOf(uint32_t codePoint)
{
    if (codePoint >= ' ' && codePoint <= '~')
        return kAscii[codePoint - ' '];
    for (const Glyph& glyph : kOthers) {
        if (glyph.codePoint == codePoint)
            return glyph.strokes;
    }
    return kNoGlyph;
}

/// Takes the next code point off the front of UTF-8 text. Bytes that are no UTF-8 count as Latin-1, as older files have
/// them.
uint32_t TakeCodePoint(std::string_view& text)
{
    const auto byte = [&](size_t i) { return i < text.size() ? uint32_t(static_cast<unsigned char>(text[i])) : 0; };
    const uint32_t first = byte(0);
    const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    uint32_t codePoint = length == 1 ? first : first & (0xFFu >> (length + 1));
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return first;
        }
        codePoint = codePoint << 6 | (byte(i) & 0x3F);
    }
    text.remove_prefix(length);
    return codePoint;
}

/// The grid height that a character stands for.
int Height(char c)
{
    return c >= 'a' ? c - 'a' + 10 : c - '0';
}

/// Walks the line's characters with a pen and hands their strokes to `emit`, when there is one.
class LineSetter
{
public:
    explicit LineSetter(std::vector<Stroke>* target) : strokes(target) {}

    /// The width set, in grid units.
    double Set(std::string_view line)
    {
        while (!line.empty()) {
            if (line.substr(0, 2) == "~{") {
                line.remove_prefix(2);
                barFrom = pen;
                barred = true;
            } else if (barred && line.front() == '}') {
                line.remove_prefix(1);
                EndBar();
            } else {
                SetGlyph(TakeCodePoint(line));
            }
        }
        // A bar that is never closed ends with the line.
        if (barred)
            EndBar();
        return std::max(pen - kGap, 0.0);
    }

private:
    /// Adds a character's strokes and moves the pen past its widest point and the gap. Letters are as wide as they are
    /// drawn; only the blank has a width of its own.
    void SetGlyph(uint32_t codePoint)
    {
        double widest = codePoint == ' ' ? kSpaceAdvance - kGap : 0;
        Stroke stroke;
        for (const char* at = StrokesOf(codePoint); *at != '\0';) {
            if (*at == ' ') {
                Emit(stroke);
                ++at;
                continue;
            }
            widest = std::max(widest, double(at[0] - '0'));
            stroke.push_back({(pen + (at[0] - '0')) / kUnits, (Height(at[1]) - kBaseline) / kUnits});
            at += 2;
        }
        Emit(stroke);
        pen += widest + kGap;
    }

    /// Bars mark signals that are active when low; they reach from the first to the last letter below them.
    void EndBar()
    {
        const double y = (kBarHeight - kBaseline) / kUnits;
        Stroke bar = {{barFrom / kUnits, y}, {(pen - kGap) / kUnits, y}};
        if (pen > barFrom)
            Emit(bar);
        barred = false;
    }

    /// Hands a finished stroke over, or drops it when only the width is wanted.
    void Emit(Stroke& stroke)
    {
        if (strokes && !stroke.empty())
            strokes->push_back(stroke);
        stroke.clear();
    }

    std::vector<Stroke>* strokes;
    double pen = 0;
    double barFrom = 0;
    bool barred = false;
};

} // namespace

std::vector<Stroke> StrokesOfText(std::string_view line)
{
    std::vector<Stroke> strokes;
    LineSetter(&strokes).Set(line);
    return strokes;
}

double WidthOfText(std::string_view line)
{
    return LineSetter(nullptr).Set(line) / kUnits;
}

} // namespace viewer
