#include "NeighbourGrid.h"

#include "Turning.h"

#include <algorithm>
#include <cmath>

// Each element is listed in the cells that its copper may touch, and looks for others in the cells that its copper
// grown by the distance may touch. Where two elements are within the distance, a point on the edge of the first belongs
// to both, and so does its cell. A long track at a slant is followed row by row: its bounding box would be most of the
// board.

namespace viewer {

namespace {

constexpr double kLargestStep = M_PI / 12; ///< of an arc's chords

/// Calls visit(from, to, sagitta) for chords that follow the figure; it strays from none by more than the sagitta.
template <class VISIT>
void ForChords(const Figure& figure, VISIT visit)
{
    if (figure.kind != Figure::Kind::Arc) {
        visit(figure.start, figure.end, 0.0);
        return;
    }
    const KPointD c = figure.centre;
    const double radius = std::hypot(figure.start.x - c.x, figure.start.y - c.y);
    const double from = DirectionFrom(c, figure.start);
    const double sweep = SweepOfArc(c, figure.start, figure.end, figure.counterClockwise);
    const int count = int(sweep / kLargestStep) + 1;
    const double step = sweep / count;
    const double sagitta = radius * (1 - std::cos(step / 2));
    KPointD last = figure.start;
    for (int i = 1; i <= count; ++i) {
        const double angle = from + (figure.counterClockwise ? i : -i) * step;
        const KPointD next = {c.x + radius * std::cos(angle), c.y + radius * std::sin(angle)};
        visit(last, next, sagitta);
        last = next;
    }
}

/// A number of a row or column, which may lie outside the grid.
int Clamped(double number, int count)
{
    return int(std::clamp(std::floor(number), 0.0, double(count - 1)));
}

} // namespace

NeighbourGrid::NeighbourGrid(const std::vector<CopperElement>& elements, double farthest) : distance(farthest)
{
    CKRectD box;
    for (const CopperElement& element : elements) {
        ForChords(element.figure, [&](KPointD from, KPointD to, double) {
            box.MergePoint(from.x, from.y);
            box.MergePoint(to.x, to.y);
        });
    }
    if (box.IsInitialized())
        Fit(box, elements.size());
    cells.resize(size_t(columns) * size_t(rows));
}

/// About one cell for each element, but none much smaller than the distance, where every search would visit many.
void NeighbourGrid::Fit(CKRectD box, size_t count)
{
    constexpr double kMostPerSide = 2048;
    const double width = box.GetRight() - box.GetLeft();
    const double height = box.GetTop() - box.GetBottom();
    const double larger = std::max(width, height);
    cell = std::max({std::sqrt(width * height / double(count)), larger / kMostPerSide, std::min(distance, larger)});
    if (!(cell > 0)) // all at one point
        cell = 1;
    left = box.GetLeft();
    bottom = box.GetBottom();
    columns = int(width / cell) + 1;
    rows = int(height / cell) + 1;
}

/// What lies outside the grid belongs to the cells at its border; that keeps all neighbours together.
int NeighbourGrid::Column(double x) const
{
    return Clamped((x - left) / cell, columns);
}

int NeighbourGrid::Row(double y) const
{
    return Clamped((y - bottom) / cell, rows);
}

template <class VISIT>
void NeighbourGrid::VisitCells(KPointD from, KPointD to, double reach, VISIT visit) const
{
    if (from.y > to.y)
        std::swap(from, to);
    const int lastRow = Row(to.y + reach);
    for (int row = Row(from.y - reach); row <= lastRow; ++row) {
        // The part of the segment whose copper can meet the row. What of it lies outside the grid is no further from
        // the part in the row at the border.
        double low = from.x, high = to.x;
        const double rise = to.y - from.y;
        if (rise > 0) {
            const double slope = (to.x - from.x) / rise;
            const double down = bottom + row * cell - reach - from.y;
            const double up = bottom + (row + 1) * cell + reach - from.y;
            if (down > 0)
                low = from.x + std::min(down, rise) * slope;
            if (up < rise)
                high = from.x + std::max(up, 0.0) * slope;
        }
        const int lastColumn = Column(std::max(low, high) + reach);
        for (int column = Column(std::min(low, high) - reach); column <= lastColumn; ++column)
            visit(size_t(row) * size_t(columns) + size_t(column));
    }
}

template <class VISIT>
void NeighbourGrid::VisitCells(const Figure& figure, double reach, VISIT visit) const
{
    // A little more than exact, for the rounding of what is computed on the way to a cell.
    const double slack = cell * 1e-6;
    ForChords(figure,
              [&](KPointD from, KPointD to, double sagitta) { VisitCells(from, to, reach + sagitta + slack, visit); });
}

const std::vector<uint32_t>& NeighbourGrid::Enter(const Figure& figure)
{
    const auto number = uint32_t(seenBy.size());
    found.clear();
    VisitCells(figure, figure.width / 2 + distance, [&](size_t at) {
        for (uint32_t other : cells[at]) {
            if (seenBy[other] != number) {
                seenBy[other] = number;
                found.push_back(other);
            }
        }
    });
    // Listed only now, so that it does not find itself; the chords of an arc can share a cell.
    seenBy.push_back(number);
    VisitCells(figure, figure.width / 2, [&](size_t at) {
        if (cells[at].empty() || cells[at].back() != number)
            cells[at].push_back(number);
    });
    return found;
}

} // namespace viewer
