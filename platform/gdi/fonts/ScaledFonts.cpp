/// Measures of fonts, and glyphs as runs of pixels.
#include "gdi/fonts/ScaledFonts.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>

#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

namespace gdi {
namespace {

constexpr double kLargePixels = 256; // runs of such glyphs take a few kilobytes each
constexpr size_t kVariants = 8;
constexpr size_t kGlyphs = 1024;
constexpr size_t kCharacters = 4096;
constexpr size_t kKeptRecords = 16;

/// What a face says of itself, in its design units.
struct DesignMeasures
{
    double ascent, descent, averageWidth;

    explicit DesignMeasures(FT_Face face)
        : ascent(face->ascender), descent(-face->descender), averageWidth(face->units_per_EM * 0.5)
    {
        const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
        if (os2 != nullptr && os2->version != 0xFFFF) {
            if (os2->usWinAscent + os2->usWinDescent > 0) {
                ascent = os2->usWinAscent;
                descent = os2->usWinDescent;
            }
            averageWidth = os2->xAvgCharWidth > 0 ? os2->xAvgCharWidth : averageWidth;
        }
        if (!(ascent + descent > 0)) {
            ascent = face->units_per_EM;
            descent = 0;
        }
    }
};

/// Everything is scaled from design units in double precision, so that heights of any size have measures; glyphs are
/// hinted for the device later, advances are not.
FontMetrics Measure(FT_Face face, const LOGFONTA& record, double& stretch)
{
    const DesignMeasures design(face);
    const double units = face->units_per_EM;
    const double height = std::fabs(double(record.lfHeight));
    FontMetrics metrics = {};
    if (record.lfHeight > 0) {
        metrics.em = height * units / (design.ascent + design.descent);
    } else {
        metrics.em = record.lfHeight == 0 ? 12 : height;
    }
    // A cell height asked for is kept exactly: what rounding takes from the ascent the descent gets.
    metrics.ascent = RoundToPixel(design.ascent * metrics.em / units);
    metrics.descent =
        record.lfHeight > 0 ? record.lfHeight - metrics.ascent : RoundToPixel(design.descent * metrics.em / units);
    const double average = design.averageWidth * metrics.em / units;
    stretch = record.lfWidth != 0 ? std::fabs(double(record.lfWidth)) / average : 1;
    metrics.averageWidth = RoundToPixel(average * stretch);
    metrics.maxWidth = RoundToPixel(face->max_advance_width * metrics.em * stretch / units);
    metrics.internalLeading = RoundToPixel(metrics.ascent + double(metrics.descent) - metrics.em);
    return metrics;
}

/// Runs of set pixels in a one-bit bitmap whose upper left pixel lies at (left, -top) of the glyph's origin.
void CollectRuns(const FT_Bitmap& bitmap, int left, int top, std::vector<GlyphRun>& runs)
{
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        const unsigned char* const row = bitmap.buffer + ptrdiff_t(y) * bitmap.pitch;
        const auto isSet = [&](unsigned x) { return (row[x >> 3] >> (7 - (x & 7)) & 1) != 0; };
        for (unsigned x = 0; x < bitmap.width;) {
            if (!isSet(x)) {
                ++x;
                continue;
            }
            const unsigned begin = x;
            while (x < bitmap.width && isSet(x)) {
                ++x;
            }
            runs.push_back({int16_t(int(y) - top), int16_t(left + int(begin)), int16_t(left + int(x))});
        }
    }
}

/// Curves of an outline as lines to device pixels.
struct OutlineSink
{
    DevicePath& path;
    const TextMatrix& matrix;
    RealPoint origin;
    double scaleX, scaleY; ///< design units to text space
    RealPoint last = {};   ///< in design units

    void Line(double x, double y)
    {
        path.LineTo(Place(x, y));
        last = {x, y};
    }
    DevicePoint Place(double x, double y) const
    {
        const RealPoint p = matrix.Apply(x * scaleX, -y * scaleY);
        return {RoundToPixel(origin.x + p.x), RoundToPixel(origin.y + p.y)};
    }
};

/// Curves of letters turn by a quarter at most: sixteen chords stay within a thousandth of their size.
constexpr int kCurveSteps = 16;

int MoveSink(const FT_Vector* to, void* user)
{
    OutlineSink& sink = *static_cast<OutlineSink*>(user);
    sink.path.MoveTo(sink.Place(double(to->x), double(to->y)));
    sink.last = {double(to->x), double(to->y)};
    return 0;
}

int LineSink(const FT_Vector* to, void* user)
{
    static_cast<OutlineSink*>(user)->Line(double(to->x), double(to->y));
    return 0;
}

int CubicSink(const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* user)
{
    OutlineSink& sink = *static_cast<OutlineSink*>(user);
    const RealPoint from = sink.last;
    for (int i = 1; i <= kCurveSteps; ++i) {
        const double t = double(i) / kCurveSteps, s = 1 - t;
        const double w0 = s * s * s, w1 = 3 * s * s * t, w2 = 3 * s * t * t, w3 = t * t * t;
        sink.Line(w0 * from.x + w1 * double(a->x) + w2 * double(b->x) + w3 * double(to->x),
                  w0 * from.y + w1 * double(a->y) + w2 * double(b->y) + w3 * double(to->y));
    }
    return 0;
}

int ConicSink(const FT_Vector* control, const FT_Vector* to, void* user)
{
    OutlineSink& sink = *static_cast<OutlineSink*>(user);
    const RealPoint from = sink.last;
    for (int i = 1; i <= kCurveSteps; ++i) {
        const double t = double(i) / kCurveSteps, s = 1 - t;
        sink.Line(s * s * from.x + 2 * s * t * double(control->x) + t * t * double(to->x),
                  s * s * from.y + 2 * s * t * double(control->y) + t * t * double(to->y));
    }
    return 0;
}

/// Sizes of the face are in 64ths of a pixel; none may be 0.
FT_F26Dot6 ToFixed(double pixels)
{
    return FT_F26Dot6(std::max(1.0, pixels * 64 + 0.5));
}

} // namespace

ScaledFonts::ScaledFonts(FT_Face face, const LOGFONTA& record)
    : m_face(face), m_metrics(Measure(face, record, m_stretch))
{}

std::shared_ptr<ScaledFonts> ScaledFonts::Of(const LOGFONTA& record)
{
    struct Kept
    {
        LOGFONTA record;
        std::shared_ptr<ScaledFonts> fonts;
    };
    static auto* const kept = new std::deque<Kept>;
    // Byte by byte: the record has no padding, and its name is compared with what lies behind the zero. Two records
    // that differ there alone are made twice, which costs time but is never wrong.
    for (const Kept& entry : *kept) {
        if (std::memcmp(&entry.record, &record, sizeof record) == 0) {
            return entry.fonts;
        }
    }
    const FT_Face face = FindFace(record);
    if (face == nullptr) {
        return nullptr;
    }
    auto made = std::make_shared<ScaledFonts>(face, record);
    kept->push_back({record, made});
    if (kept->size() > kKeptRecords) {
        kept->pop_front();
    }
    return made;
}

const ScaledFonts::Character& ScaledFonts::Find(uint32_t character)
{
    const auto known = m_characters.find(character);
    if (known != m_characters.end()) {
        return known->second;
    }
    // Rather than keeping an order of use: a text of thousands of different characters is rare.
    if (m_characters.size() >= kCharacters) {
        m_characters.clear();
    }
    const FT_UInt glyph = FT_Get_Char_Index(m_face, character);
    double advance = 0;
    if (FT_Load_Glyph(m_face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_IGNORE_TRANSFORM) == 0) {
        advance = double(m_face->glyph->metrics.horiAdvance) * m_metrics.em * m_stretch / m_face->units_per_EM;
    }
    return m_characters[character] = {glyph, RoundToPixel(advance)};
}

bool ScaledFonts::IsLarge(const TextMatrix& matrix) const
{
    const double width = std::hypot(matrix.m11, matrix.m12) * m_metrics.em * m_stretch;
    const double height = std::hypot(matrix.m21, matrix.m22) * m_metrics.em;
    // Negated, so that a width that is no number counts as large: outlines take any size.
    return !(width <= kLargePixels && height <= kLargePixels);
}

/// Few matrices are in use at a time (one for each direction of text on a board); the oldest goes first.
ScaledFonts::Variant& ScaledFonts::FindVariant(const TextMatrix& matrix)
{
    for (const auto& variant : m_variants) {
        if (variant->matrix == matrix) {
            return *variant;
        }
    }
    if (m_variants.size() >= kVariants) {
        m_variants.erase(m_variants.begin());
    }
    m_variants.push_back(std::make_unique<Variant>());
    m_variants.back()->matrix = matrix;
    return *m_variants.back();
}

const std::vector<GlyphRun>& ScaledFonts::Runs(uint32_t character, const TextMatrix& matrix)
{
    Variant& variant = FindVariant(matrix);
    const FT_UInt glyph = Find(character).glyph;
    const auto known = variant.glyphs.find(glyph);
    if (known != variant.glyphs.end()) {
        return known->second;
    }
    if (variant.glyphs.size() >= kGlyphs) {
        variant.glyphs.clear();
    }
    std::vector<GlyphRun> runs; // kept only when complete
    Render(glyph, matrix, runs);
    return variant.glyphs[glyph] = std::move(runs);
}

void ScaledFonts::Render(FT_UInt glyph, const TextMatrix& matrix, std::vector<GlyphRun>& runs) const
{
    const double scaleX = std::hypot(matrix.m11, matrix.m12), scaleY = std::hypot(matrix.m21, matrix.m22);
    if (scaleX == 0 || scaleY == 0 ||
        FT_Set_Char_Size(m_face, ToFixed(scaleX * m_metrics.em * m_stretch), ToFixed(scaleY * m_metrics.em), 72, 72) !=
            0)
    {
        return;
    }
    // The lengths are in the size already; what is left is the turn. y of the face points up, y of text space down.
    const auto fixed = [](double v) { return FT_Fixed(v * 65536 + (v < 0 ? -0.5 : 0.5)); };
    FT_Matrix turn = {fixed(matrix.m11 / scaleX), fixed(-matrix.m21 / scaleY), fixed(-matrix.m12 / scaleX),
                      fixed(matrix.m22 / scaleY)};
    const bool upright = turn.xy == 0 && turn.yx == 0;
    FT_Set_Transform(m_face, &turn, nullptr);
    const FT_Int32 flags = FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_MONO | (upright ? 0 : FT_LOAD_NO_HINTING);
    if (FT_Load_Glyph(m_face, glyph, flags) == 0 && FT_Render_Glyph(m_face->glyph, FT_RENDER_MODE_MONO) == 0) {
        CollectRuns(m_face->glyph->bitmap, m_face->glyph->bitmap_left, m_face->glyph->bitmap_top, runs);
    }
}

void ScaledFonts::AppendOutline(uint32_t character, const TextMatrix& matrix, RealPoint origin, DevicePath& path)
{
    if (FT_Load_Glyph(m_face, Find(character).glyph, FT_LOAD_NO_SCALE | FT_LOAD_IGNORE_TRANSFORM) != 0 ||
        m_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
    {
        return;
    }
    const double scale = m_metrics.em / m_face->units_per_EM;
    OutlineSink sink = {path, matrix, origin, scale * m_stretch, scale};
    FT_Outline_Funcs functions = {MoveSink, LineSink, ConicSink, CubicSink, 0, 0};
    FT_Outline_Decompose(&m_face->glyph->outline, &functions, &sink);
}

} // namespace gdi
