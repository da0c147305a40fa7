#include "gdi/raster/Rasterizer.h"

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/Capsule.h"
#include "gdi/raster/ChordStretches.h"
#include "gdi/raster/CosmeticArc.h"
#include "gdi/raster/Dash.h"
#include "gdi/raster/OnceWriter.h"
#include "gdi/raster/PathPieces.h"
#include "gdi/raster/PolygonFill.h"
#include "gdi/raster/RasterMath.h"
#include "gdi/raster/RingSector.h"
#include "gdi/raster/SolidFormats.h"

#include <algorithm>

namespace gdi {

struct Rasterizer::Scratch
{
    RoundEnds ends;
    PolygonFill polygon;
    OnceWriter once;
    std::vector<Span> spans;         // rows of one capsule
    std::vector<DevicePoint> points; // of a flattened arc
    DevicePath segment;              // a single dashed line
    ChordStretches stretches;        // of a wide ellipse
    bool covered = false;            // by the wide stroke being drawn: nothing is left to draw

    void BeginWide(const Box& clip)
    {
        MakeRoom(clip);
        covered = false;
    }
    void Cover(const Box& clip, PixelWriter& writer)
    {
        writer.Rectangle(clip);
        covered = true;
    }
    void Capsule(DevicePoint from, DevicePoint to, int32_t width, const Box& clip, PixelWriter& writer)
    {
        // Rows of large discs cost a square root each: worth a look whether there is anything to find out.
        if (width > RoundEnds::kLargest) {
            const Reach reached = PenReach(clip, width).Of(from.x, from.y, to.x, to.y, 0);
            if (reached == Reach::Covers && !covered)
                Cover(clip, writer);
            if (reached != Reach::Cuts || covered)
                return;
        }
        writer.Spans(spans.data(), CapsuleSpans(from, to, width, ends, clip, spans.data()));
    }
    void MakeRoom(const Box& clip)
    {
        const size_t rows = static_cast<size_t>(int64_t(clip.bottom) - clip.top);
        if (spans.size() < rows)
            spans.resize(rows);
    }
    void WideArc(const EllipseArc& arc, int32_t width, const Box& clip, PixelWriter& writer);
    void WideEllipse(const EllipseArc& arc, int32_t width, const Box& clip, PixelWriter& writer);
    /// The ink's own writer, or where pieces of one stroke could undo each other, one that takes each pixel once.
    PixelWriter* WriterFor(const DevicePath& path, const Box& visible, InkWriter& ink)
    {
        if (!ink.Toggles() || !HasSeveralPieces(path))
            return ink.Get();
        once.Begin(visible);
        once.SetTarget(ink.Get());
        return &once;
    }
};

namespace {

/// Visible part of what lies within `margin` of closed bounds; empty when there is nothing to draw.
Box VisibleBox(const Box& bounds, int32_t margin, const Surface& surface, const Box& clip)
{
    const Box visible = Intersection(clip, {0, 0, surface.width, surface.height});
    const Box nothing = {0, 0, 0, 0};
    if (bounds.left > bounds.right || bounds.top > bounds.bottom)
        return nothing;
    return Intersection(visible,
                        {SaturateToInt32(int64_t(bounds.left) - margin), SaturateToInt32(int64_t(bounds.top) - margin),
                         SaturateToInt32(int64_t(bounds.right) + margin + 1),
                         SaturateToInt32(int64_t(bounds.bottom) + margin + 1)});
}

template <class Writer>
void DrawCosmeticLine(DevicePoint from, DevicePoint to, const Box& clip, Writer&& writer)
{
    const CosmeticLine line(from, to);
    line.Draw(line.Visible(clip), writer);
}

} // namespace

Rasterizer::Rasterizer() : m_scratch(std::make_unique<Scratch>()) {}

Rasterizer::~Rasterizer() = default;

void Rasterizer::StrokeCosmetic(const DevicePath& path, const uint8_t* dash, const Ink& ink, const Surface& surface,
                                const Box& clip)
{
    const Box visible = VisibleBox(path.Bounds(), 0, surface, clip);
    if (IsEmpty(visible))
        return;
    InkWriter inkWriter(ink, surface);
    PixelWriter* writer = inkWriter.Get();
    if (!writer)
        return;
    const bool dashed = dash && *dash;
    if (dashed) {
        DashedStroke(dash, ink, surface, visible, m_scratch->once).Draw(path, m_scratch->points);
        return;
    }
    writer = m_scratch->WriterFor(path, visible, inkWriter);
    ForEachPiece(
        path, [] {}, [&](DevicePoint from, DevicePoint to) { DrawCosmeticLine(from, to, visible, *writer); },
        [&](const EllipseArc& arc) { DrawCosmeticArc(arc, visible, *writer); });
}

void Rasterizer::Scratch::WideArc(const EllipseArc& arc, int32_t width, const Box& clip, PixelWriter& writer)
{
    if (covered)
        return;
    if (arc.radiusX2 == arc.radiusY2)
        DrawRingSector(arc, width, ends, clip, writer);
    else
        WideEllipse(arc, width, clip, writer);
}

void Rasterizer::Scratch::WideEllipse(const EllipseArc& arc, int32_t width, const Box& clip, PixelWriter& writer)
{
    const ArcChords chords(arc);
    const size_t most = 512 + size_t(int64_t(clip.right) - clip.left + clip.bottom - clip.top) / 8;
    if (stretches.Find(chords, PenReach(clip, width), most) == Reach::Covers) {
        Cover(clip, writer);
        return;
    }
    for (const ChordStretches::Stretch& stretch : stretches.Found())
        Capsule(chords.Point(stretch.first), chords.Point(stretch.last), width, clip, writer);
}

void Rasterizer::StrokeWide(const DevicePath& path, int32_t width, const Ink& ink, const Surface& surface,
                            const Box& clip)
{
    if (width < 2) {
        StrokeCosmetic(path, nullptr, ink, surface, clip);
        return;
    }
    const Box visible = VisibleBox(path.Bounds(), width / 2, surface, clip);
    if (IsEmpty(visible))
        return;
    InkWriter inkWriter(ink, surface);
    PixelWriter* writer = inkWriter.Get();
    if (!writer)
        return;
    m_scratch->BeginWide(visible);
    writer = m_scratch->WriterFor(path, visible, inkWriter);
    ForEachPiece(
        path, [] {}, [&](DevicePoint from, DevicePoint to) { m_scratch->Capsule(from, to, width, visible, *writer); },
        [&](const EllipseArc& arc) { m_scratch->WideArc(arc, width, visible, *writer); });
}

void DrawThinLine(DevicePoint from, DevicePoint to, uint32_t pixel, RasterOp op, const Surface& surface)
{
    if (!surface.bits)
        return;
    const Box clip = {0, 0, surface.width, surface.height};
    uint32_t value = pixel;
    SolidForm form = op == RasterOp::Xor ? SolidForm::Toggle : SolidForm::Store;
    if (op != RasterOp::Xor && op != RasterOp::Copy) // nearly all are one of them
        form = SolidFormOf({pixel, op, nullptr, false, 0}, surface, value);
    switch (form) {
    case SolidForm::None:
        break;
    case SolidForm::Store:
        DrawCosmeticLine(from, to, clip, SolidSink<StoreFormat>({surface.bits, surface.stride, value}));
        break;
    case SolidForm::Toggle:
        DrawCosmeticLine(from, to, clip, SolidSink<XorFormat>({surface.bits, surface.stride, value}));
        break;
    }
}

void Rasterizer::StrokeSegment(DevicePoint from, DevicePoint to, int32_t width, const uint8_t* dash, const Ink& ink,
                               const Surface& surface, const Box& clip)
{
    const Box bounds = {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
    const Box visible = VisibleBox(bounds, width / 2, surface, clip);
    if (IsEmpty(visible))
        return;
    if (width < 2 && dash && *dash) {
        m_scratch->segment.Clear();
        m_scratch->segment.Segment(from, to);
        StrokeCosmetic(m_scratch->segment, dash, ink, surface, visible);
        return;
    }
    InkWriter inkWriter(ink, surface);
    PixelWriter* const writer = inkWriter.Get();
    if (!writer)
        return;
    if (width < 2) {
        DrawCosmeticLine(from, to, visible, *writer);
        return;
    }
    m_scratch->BeginWide(visible);
    m_scratch->Capsule(from, to, width, visible, *writer);
}

void Rasterizer::Fill(const DevicePath& path, FillRule rule, const Ink& ink, const Surface& surface, const Box& clip)
{
    Box box;
    if (AsBox(path, box)) {
        FillBox(box, ink, surface, clip);
        return;
    }
    const Box visible = VisibleBox(path.Bounds(), 0, surface, clip);
    if (IsEmpty(visible))
        return;
    const EllipseArc* const circle = AsCircle(path);
    uint32_t value;
    if (circle && SolidFormOf(ink, surface, value) == SolidForm::Store &&
        StoreDisc(*circle, m_scratch->ends, visible, {surface.bits, surface.stride, value}))
        return;
    InkWriter inkWriter(ink, surface);
    if (!inkWriter.Get())
        return;
    if (circle)
        FillDisc(*circle, m_scratch->ends, visible, *inkWriter.Get());
    else
        m_scratch->polygon.Fill(path, rule, visible, *inkWriter.Get());
}

void Rasterizer::FillBox(const Box& box, const Ink& ink, const Surface& surface, const Box& clip)
{
    const Box visible = Intersection(Intersection(box, clip), {0, 0, surface.width, surface.height});
    if (IsEmpty(visible))
        return;
    uint32_t value;
    if (SolidFormOf(ink, surface, value) == SolidForm::Store) {
        FillRows({surface.bits, surface.stride, value}, visible);
        return;
    }
    InkWriter inkWriter(ink, surface);
    if (inkWriter.Get())
        inkWriter.Get()->Rectangle(visible);
}

} // namespace gdi
