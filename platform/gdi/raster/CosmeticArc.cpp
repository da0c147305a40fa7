#include "gdi/raster/CosmeticArc.h"

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/RasterMath.h"
#include "gdi/raster/SpanBuffer.h"

#include <algorithm>
#include <cmath>

namespace gdi {
namespace {

/// One axis of the ellipse, doubled: pixels lie at offsets from the centre that have the centre's parity.
struct Axis
{
    int64_t center2;
    int64_t radius2;

    int64_t Parity() const { return center2 & 1; }
    /// The pixel offset nearest to a distance from the centre, never negative.
    int64_t Nearest(double distance2) const
    {
        const double parity = static_cast<double>(Parity());
        return std::max<int64_t>(2 * FloorToInt64((distance2 - parity) * 0.5 + 0.5) + Parity(), Parity());
    }
    int32_t Pixel(int64_t offset2) const { return SaturateToInt32(FloorHalf(center2 + offset2)); }
};

class ArcDrawer
{
public:
    ArcDrawer(const EllipseArc& arc, const Box& clip, PixelWriter& writer)
        : m_arc(arc), m_sector(arc), m_x{arc.centerX2, arc.radiusX2}, m_y{arc.centerY2, arc.radiusY2}, m_clip(clip),
          m_spans(writer)
    {}

    void Draw()
    {
        const DevicePoint start = m_arc.start;
        const bool once = start.x == m_arc.end.x && start.y == m_arc.end.y;
        if (once && !m_arc.whole && m_sector.IsConvex())
            return; // shorter than a pixel, so its first point is the last one
        if (!m_arc.whole)
            Put(start);
        FindDiagonal();
        DrawColumns();
        DrawRows();
    }

private:
    /// Splits the quarter where its slope is 1: flat parts have one pixel a column, up to the offset m_flat, and steep
    /// parts one a row, for the rows nearer to the centre than the last flat pixel at m_steepEnd. On a circle that is
    /// symmetric about the diagonal: either pixel there belongs to both parts, or one row more has it.
    void FindDiagonal()
    {
        const double x = static_cast<double>(m_x.radius2);
        const double y = static_cast<double>(m_y.radius2);
        const double length = std::sqrt(x * x + y * y);
        const double diagonal = length > 0 ? x * (x / length) : 0;
        m_flat = 2 * FloorToInt64((diagonal - static_cast<double>(m_x.Parity())) * 0.5) + m_x.Parity();
        m_steepEnd = m_flat >= 0 ? FlatPixel(m_flat) : m_y.Nearest(y) + 2;
    }
    double FlatChord(int64_t offset2) const { return HalfChord(m_x.radius2, m_y.radius2, offset2); }
    int64_t FlatPixel(int64_t offset2) const { return m_y.Nearest(FlatChord(offset2)); }

    void DrawColumns()
    {
        const int64_t first = std::max<int64_t>(m_clip.left, CeilHalf(m_x.center2 - m_flat));
        const int64_t last = std::min<int64_t>(int64_t(m_clip.right) - 1, FloorHalf(m_x.center2 + m_flat));
        for (int64_t column = first; column <= last; ++column) {
            const int64_t offset2 = 2 * column - m_x.center2;
            const double chord2 = FlatChord(offset2);
            const int64_t pixel2 = m_y.Nearest(chord2);
            const double along2 = static_cast<double>(offset2);
            PutIfCovered(offset2, -pixel2, along2, -chord2);
            if (pixel2 != 0)
                PutIfCovered(offset2, pixel2, along2, chord2);
        }
    }
    void DrawRows()
    {
        const int64_t first = std::max<int64_t>(m_clip.top, CeilHalf(m_y.center2 - m_steepEnd + 2));
        const int64_t last = std::min<int64_t>(int64_t(m_clip.bottom) - 1, FloorHalf(m_y.center2 + m_steepEnd - 2));
        for (int64_t row = first; row <= last; ++row) {
            const int64_t offset2 = 2 * row - m_y.center2;
            const double chord2 = HalfChord(m_y.radius2, m_x.radius2, offset2);
            int64_t pixel2 = m_x.Nearest(chord2);
            // Where both parts meet just off the diagonal, rounding could leave a column between them.
            if (offset2 == m_steepEnd - 2 || offset2 == 2 - m_steepEnd)
                pixel2 = std::min(pixel2, m_flat + 2);
            const double along2 = static_cast<double>(offset2);
            PutIfCovered(-pixel2, offset2, -chord2, along2);
            if (pixel2 != 0)
                PutIfCovered(pixel2, offset2, chord2, along2);
        }
    }

    /// The point of the curve decides, not the pixel that stands for it: seen from the centre of a slender ellipse the
    /// pixels of one column have directions out of order.
    void PutIfCovered(int64_t pixelX2, int64_t pixelY2, double curveX2, double curveY2)
    {
        const DevicePoint pixel = {m_x.Pixel(pixelX2), m_y.Pixel(pixelY2)};
        if (m_arc.whole) {
            Put(pixel);
            return;
        }
        const bool atEnd = (pixel.x == m_arc.start.x && pixel.y == m_arc.start.y) ||
                           (pixel.x == m_arc.end.x && pixel.y == m_arc.end.y);
        if (!atEnd && m_sector.Holds(curveX2, curveY2))
            Put(pixel);
    }
    void Put(DevicePoint pixel)
    {
        if (pixel.x >= m_clip.left && pixel.x < m_clip.right && pixel.y >= m_clip.top && pixel.y < m_clip.bottom)
            m_spans.Add(pixel.y, pixel.x, pixel.x + 1);
    }

    const EllipseArc& m_arc;
    ArcSector m_sector;
    Axis m_x;
    Axis m_y;
    int64_t m_flat = 0;
    int64_t m_steepEnd = 0;
    Box m_clip;
    SpanBuffer m_spans;
};

} // namespace

void DrawCosmeticArc(const EllipseArc& arc, const Box& clip, PixelWriter& writer)
{
    ArcDrawer(arc, clip, writer).Draw();
}

} // namespace gdi
