#include "gdi/raster/PolygonFill.h"

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/SpanBuffer.h"

#include <algorithm>

namespace gdi {
namespace {

/// Where the halves of an ellipse cross a row: the first pixels right of each, as for discs.
DiscRow RowOfEllipse(const EllipseArc& arc, int64_t row)
{
    const int64_t offset2 = 2 * row - arc.centerY2;
    if (arc.radiusX2 == arc.radiusY2)
        return RowOfDisc(arc.centerX2, arc.radiusX2, offset2);
    if (offset2 == -arc.radiusY2) // the very top counts as inside
        return {CeilHalf(arc.centerX2), FloorHalf(arc.centerX2) + 1};
    const double chord = HalfChord(arc.radiusY2, arc.radiusX2, offset2);
    const double center = static_cast<double>(arc.centerX2);
    return {-FloorToInt64((chord - center) * 0.5), -FloorToInt64((-chord - center) * 0.5)};
}

constexpr double kUnrounded = -std::numeric_limits<double>::infinity();

/// Doubled y of the point where a radial meets the ellipse.
double RadialY2(const EllipseArc& arc, double x, double y)
{
    const double radiusX = static_cast<double>(arc.radiusX2);
    const double radiusY = static_cast<double>(arc.radiusY2);
    const double length = std::sqrt(x * radiusY * (x * radiusY) + y * radiusX * (y * radiusX));
    return length > 0 ? static_cast<double>(arc.centerY2) + radiusY * (y * radiusX / length) : kUnrounded;
}

} // namespace

void PolygonFill::Fill(const DevicePath& path, FillRule rule, const Box& clip, PixelWriter& writer)
{
    const Box bounds = path.Bounds();
    m_clip = clip; // rows that the path can't reach need no bucket
    m_clip.top = std::max(clip.top, bounds.top);
    m_clip.bottom = static_cast<int32_t>(std::min<int64_t>(clip.bottom, int64_t(bounds.bottom) + 1));
    if (IsEmpty(m_clip))
        return;
    const size_t rows = static_cast<size_t>(int64_t(m_clip.bottom) - m_clip.top);
    m_edges.clear();
    m_active.clear();
    m_firstInRow.assign(rows, -1);
    m_leftOfClip.assign(rows + 1, 0);
    AddPath(path);
    if (rule == FillRule::Alternate)
        EmitRows([](int32_t winding) { return (winding & 1) != 0; }, writer);
    else
        EmitRows([](int32_t winding) { return winding != 0; }, writer);
}

void PolygonFill::AddPath(const DevicePath& path)
{
    DevicePoint first = {0, 0};
    DevicePoint current = {0, 0};
    const DevicePoint* point = path.Points().data();
    const EllipseArc* arc = path.Arcs().data();
    for (const DevicePath::Verb verb : path.Verbs()) {
        switch (verb) {
        case DevicePath::Verb::Move:
            AddLine(current, first); // an open figure is closed
            first = current = *point++;
            break;
        case DevicePath::Verb::Line:
            AddLine(current, *point);
            current = *point++;
            break;
        case DevicePath::Verb::Arc:
            AddLine(current, arc->start);
            AddArc(*arc);
            current = arc++->end;
            break;
        case DevicePath::Verb::Close:
            AddLine(current, first);
            current = first;
            break;
        }
    }
    AddLine(current, first);
}

void PolygonFill::AddLine(DevicePoint from, DevicePoint to)
{
    if (from.y == to.y)
        return;
    const int32_t winding = from.y < to.y ? 1 : -1;
    if (winding < 0)
        std::swap(from, to);
    const int32_t firstRow = std::max(from.y, m_clip.top);
    const int32_t endRow = std::min(to.y, m_clip.bottom);
    if (firstRow >= endRow || std::min(from.x, to.x) >= m_clip.right)
        return;
    Edge edge = {EdgeWalk(), from.x, -1, endRow, -1, winding, nullptr, false};
    const int64_t leftmost = std::min(from.x, to.x);
    const int64_t rightmost = std::max(from.x, to.x);
    if (rightmost >= m_clip.left)
        edge.walk = EdgeWalk(int64_t(to.x) - from.x, int64_t(to.y) - from.y, 0, int64_t(firstRow) - from.y);
    AddEdge(edge, firstRow, leftmost, rightmost);
}

void PolygonFill::AddArc(const EllipseArc& arc)
{
    // Clockwise the right half runs down and the left half up; the other way round only the signs differ. The pieces
    // end at the arc's own rounded points, where the lines before and after it begin, so that every row is crossed as
    // often downward as upward.
    const ArcSector sector(arc);
    const int32_t winding = arc.clockwise ? 1 : -1;
    const DevicePoint from = arc.clockwise ? arc.start : arc.end;
    const DevicePoint to = arc.clockwise ? arc.end : arc.start;
    const SideEnd top = {CeilHalf(arc.centerY2 - arc.radiusY2), 0, kUnrounded};
    const SideEnd bottom = {CeilHalf(arc.centerY2 + arc.radiusY2), 0, kUnrounded};
    bool rightHalf = sector.FromX() > 0 || (sector.FromX() == 0 && sector.FromY() < 0);
    const bool lastRightHalf = sector.ToX() > 0 || (sector.ToX() == 0 && sector.ToY() > 0);
    // A whole ellipse from straight up or down begins in one half and ends in the other.
    int turns = rightHalf != lastRightHalf ? 1 : sector.IsWhole() || !sector.IsConvex() ? 2 : 0;
    SideEnd end = {from.y, from.x, RadialY2(arc, sector.FromX(), sector.FromY())};
    for (; turns > 0; --turns, rightHalf = !rightHalf) {
        const SideEnd& extreme = rightHalf ? bottom : top;
        AddSide(arc, rightHalf, end, extreme, winding);
        end = extreme;
    }
    AddSide(arc, rightHalf, end, {to.y, to.x, RadialY2(arc, sector.ToX(), sector.ToY())}, winding);
}

void PolygonFill::AddSide(const EllipseArc& arc, bool rightHalf, SideEnd from, SideEnd to, int32_t winding)
{
    if (from.y > to.y) {
        std::swap(from, to);
        winding = -winding;
    }
    const SideEnd& upper = from;
    const int64_t firstRow = std::max<int64_t>(upper.y, m_clip.top);
    const int64_t endRow = std::min<int64_t>(to.y, m_clip.bottom);
    if (firstRow >= endRow)
        return;
    // An end that was rounded upward lies in a row that the curve does not reach. Near the top and the bottom the curve
    // continued to that row would be columns away from the end, so there the end itself stands for it.
    const bool isLate = !arc.whole && upper.trueY2 > 2.0 * static_cast<double>(upper.y);
    const int32_t lateRow = isLate ? static_cast<int32_t>(upper.y) : -1;
    const int64_t leftmost = FloorHalf(rightHalf ? arc.centerX2 : arc.centerX2 - arc.radiusX2);
    const int64_t rightmost = CeilHalf(rightHalf ? arc.centerX2 + arc.radiusX2 : arc.centerX2);
    AddEdge({EdgeWalk(), upper.x, lateRow, static_cast<int32_t>(endRow), -1, winding, &arc, rightHalf},
            static_cast<int32_t>(firstRow), leftmost, rightmost + 1);
}

void PolygonFill::AddEdge(const Edge& edge, int32_t firstRow, int64_t leftmost, int64_t rightmost)
{
    if (leftmost >= m_clip.right)
        return; // what it would end ends at the clip
    const size_t first = static_cast<size_t>(int64_t(firstRow) - m_clip.top);
    if (rightmost < m_clip.left) {
        m_leftOfClip[first] += edge.winding;
        m_leftOfClip[static_cast<size_t>(int64_t(edge.endRow) - m_clip.top)] -= edge.winding;
        return;
    }
    m_edges.push_back(edge);
    m_edges.back().next = m_firstInRow[first];
    m_firstInRow[first] = static_cast<int32_t>(m_edges.size() - 1);
}

inline int32_t PolygonFill::ColumnAt(Edge& edge, int32_t row) const
{
    if (!edge.arc) {
        const int64_t column = edge.originX + edge.walk.Column();
        edge.walk.NextRow();
        return Clamp(column, m_clip.left, m_clip.right);
    }
    if (row == edge.lateRow)
        return Clamp(edge.originX, m_clip.left, m_clip.right);
    const DiscRow columns = RowOfEllipse(*edge.arc, row);
    return Clamp(edge.rightHalf ? columns.right : columns.left, m_clip.left, m_clip.right);
}

/// Brings the active edges to a row: ended ones out, new ones in, all with their columns there.
void PolygonFill::Advance(int32_t row)
{
    size_t kept = 0;
    for (const Active& active : m_active) {
        Edge& edge = m_edges[static_cast<size_t>(active.edge)];
        if (edge.endRow > row)
            m_active[kept++] = {ColumnAt(edge, row), active.edge};
    }
    m_active.resize(kept);
    for (int32_t i = m_firstInRow[static_cast<size_t>(int64_t(row) - m_clip.top)]; i >= 0;) {
        Edge& edge = m_edges[static_cast<size_t>(i)];
        m_active.push_back({ColumnAt(edge, row), i});
        i = edge.next;
    }
    SortActive();
}

/// The order hardly changes from row to row, so insertion is nearly free; rows in which very many edges start or cross
/// are left to a sort that does not become quadratic.
void PolygonFill::SortActive()
{
    size_t budget = 64 + 8 * m_active.size();
    for (size_t i = 1; i < m_active.size(); ++i) {
        const Active active = m_active[i];
        size_t place = i;
        for (; place > 0 && m_active[place - 1].column > active.column; --place)
            m_active[place] = m_active[place - 1];
        m_active[place] = active;
        if (i - place > budget) {
            std::sort(m_active.begin(), m_active.end(),
                      [](const Active& a, const Active& b) { return a.column < b.column; });
            return;
        }
        budget -= i - place;
    }
}

template <class Inside>
void PolygonFill::EmitRows(Inside inside, PixelWriter& writer)
{
    SpanBuffer spans(writer);
    int32_t outer = 0; // the winding number at the clip's left side
    for (int32_t row = m_clip.top; row < m_clip.bottom; ++row) {
        Advance(row);
        outer += m_leftOfClip[static_cast<size_t>(int64_t(row) - m_clip.top)];
        int32_t winding = outer;
        int32_t left = m_clip.left;
        for (const Active& active : m_active) {
            const bool wasInside = inside(winding);
            winding += m_edges[static_cast<size_t>(active.edge)].winding;
            if (wasInside == inside(winding))
                continue;
            if (wasInside && left < active.column)
                spans.Add(row, left, active.column);
            left = active.column;
        }
        if (inside(winding) && left < m_clip.right)
            spans.Add(row, left, m_clip.right);
    }
}

} // namespace gdi
