/// A uniform grid of square cells that finds which elements may be near to each other.
#pragma once

#include "CopperElement.h"

#include "foundation/CKRectD.h"

#include <cstdint>

namespace viewer {

/// Finds for each element those before it that may lie within a distance. None that does is missed; some that do not
/// are given too, so the caller measures. Elements are entered one after the other and known by their number from 0.
class NeighbourGrid
{
public:
    /// Fit for these elements, of which it keeps nothing. The distance is in millimetres.
    NeighbourGrid(const std::vector<CopperElement>& elements, double distance);

    /// The elements entered so far that may lie within the distance of this one, each once, in no order; then the
    /// element is entered itself. The list is good until the next call.
    const std::vector<uint32_t>& Enter(const Figure& figure);

private:
    template <class VISIT>
    void VisitCells(const Figure& figure, double reach, VISIT visit) const;
    template <class VISIT>
    void VisitCells(KPointD from, KPointD to, double reach, VISIT visit) const;
    int Column(double x) const;
    int Row(double y) const;
    void Fit(CKRectD box, size_t count);

    double distance;
    double left = 0;
    double bottom = 0;
    double cell = 1; ///< side of a cell
    int columns = 1;
    int rows = 1;
    std::vector<std::vector<uint32_t>> cells; ///< row by row; each element is listed in every cell that it may touch
    std::vector<uint32_t> seenBy;             ///< by element: the last one that it was given to
    std::vector<uint32_t> found;
};

} // namespace viewer
