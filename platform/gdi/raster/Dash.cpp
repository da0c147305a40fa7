#include "gdi/raster/Dash.h"

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/PathPieces.h"

#include <algorithm>

namespace gdi {
namespace {

Ink GapInk(const Ink& ink)
{
    Ink gap = ink;
    gap.pixel = ink.backPixel;
    return gap;
}

} // namespace

DashedStroke::DashedStroke(const uint8_t* dash, const Ink& ink, const Surface& surface, const Box& clip,
                           OnceWriter& once)
    : m_dash(dash), m_dashes(ink, surface), m_gaps(GapInk(ink), surface), m_paintsGaps(ink.opaque), m_clip(clip),
      m_once(once)
{
    const uint8_t* end = dash;
    for (; *end; ++end)
        m_period += *end;
    if ((end - dash) % 2)
        m_period *= 2;
}

void DashedStroke::Draw(const DevicePath& path, std::vector<DevicePoint>& points)
{
    m_merges = m_dashes.Toggles() && (!path.Arcs().empty() || HasSeveralPieces(path));
    if (m_merges)
        m_once.Begin(m_clip);
    ForEachPiece(
        path, [this] { m_position = 0; }, [this](DevicePoint from, DevicePoint to) { DrawLine(from, to); },
        [this, &points](const EllipseArc& arc) {
            points.clear();
            FlattenArc(arc, points);
            DevicePoint from = arc.start;
            for (const DevicePoint to : points) {
                DrawLine(from, to);
                from = to;
            }
        });
}

void DashedStroke::DrawLine(DevicePoint from, DevicePoint to)
{
    const CosmeticLine line(from, to);
    const CosmeticLine::StepRange visible = line.Visible(m_clip);
    // Back to the run of the pattern in which the first visible pixel lies.
    int64_t step = visible.first - (m_position + visible.first) % m_period;
    const uint8_t* length = m_dash;
    for (bool dash = true; step < visible.end; dash = !dash) {
        DrawSteps(line, {std::max(step, visible.first), std::min(step + *length, visible.end)}, dash);
        step += *length++;
        if (!*length)
            length = m_dash;
    }
    m_position = (m_position + line.Steps()) % m_period;
}

void DashedStroke::DrawSteps(const CosmeticLine& line, const CosmeticLine::StepRange& steps, bool dash)
{
    if (steps.first >= steps.end || (!dash && !m_paintsGaps))
        return;
    PixelWriter* const target = dash ? m_dashes.Get() : m_gaps.Get();
    if (m_merges) {
        m_once.SetTarget(target);
        line.Draw(steps, m_once);
    } else {
        line.Draw(steps, *target);
    }
}

} // namespace gdi
