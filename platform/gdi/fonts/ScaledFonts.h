/// A font record made real: a face, its measures in logical units, and its glyphs as the device shows them.
#pragma once

#include "gdi/fonts/FontFaces.h"
#include "gdi/raster/DevicePath.h"
#include "gdi/Transform.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace gdi {

/// In logical units.
struct FontMetrics
{
    double em;
    int32_t ascent;
    int32_t descent;
    int32_t averageWidth;
    int32_t maxWidth;
    int32_t internalLeading;
};

/// The 2 x 2 part of a map from text space (x along the line, y downward) to device pixels.
struct TextMatrix
{
    double m11, m12, m21, m22;

    RealPoint Apply(double x, double y) const { return {x * m11 + y * m21, x * m12 + y * m22}; }
    bool operator==(const TextMatrix& o) const { return m11 == o.m11 && m12 == o.m12 && m21 == o.m21 && m22 == o.m22; }
};

/// Pixels of one row of a glyph, relative to its origin; right lies outside.
struct GlyphRun
{
    int16_t y;
    int16_t left;
    int16_t right;
};

/// Shared by all fonts of one record. The glyphs of a few matrices are kept, each up to a limit.
class ScaledFonts
{
public:
    ScaledFonts(FT_Face face, const LOGFONTA& record);

    /// The shared object of a record; null when the system has no font. The latest records are kept beyond the life of
    /// their fonts, since hosts make a font for each text.
    static std::shared_ptr<ScaledFonts> Of(const LOGFONTA& record);

    const FontMetrics& Metrics() const { return m_metrics; }
    /// Ascent and descent together; in 64 bits, since fonts may be as high as int32 allows.
    int64_t CellHeight() const { return int64_t(m_metrics.ascent) + m_metrics.descent; }
    /// Logical width of a character.
    int32_t Advance(uint32_t character) { return Find(character).advance; }

    /// Glyphs above this height or width in pixels are drawn as paths instead of runs.
    bool IsLarge(const TextMatrix& matrix) const;
    /// Not for large glyphs. Valid until the next call.
    const std::vector<GlyphRun>& Runs(uint32_t character, const TextMatrix& matrix);
    /// Appends the outline, to be filled by the winding rule, with the glyph's origin at `origin`.
    void AppendOutline(uint32_t character, const TextMatrix& matrix, RealPoint origin, DevicePath& path);

private:
    struct Character
    {
        FT_UInt glyph;
        int32_t advance;
    };
    struct Variant
    {
        TextMatrix matrix;
        std::unordered_map<FT_UInt, std::vector<GlyphRun>> glyphs;
    };

    const Character& Find(uint32_t character);
    Variant& FindVariant(const TextMatrix& matrix);
    void Render(FT_UInt glyph, const TextMatrix& matrix, std::vector<GlyphRun>& runs) const;

    FT_Face m_face;
    FontMetrics m_metrics;
    double m_stretch; ///< of widths, from lfWidth
    std::unordered_map<uint32_t, Character> m_characters;
    std::vector<std::unique_ptr<Variant>> m_variants; ///< latest last
};

} // namespace gdi
