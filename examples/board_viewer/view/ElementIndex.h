/// A spatial index: a static tree of boxes over the elements of a board.
#pragma once

#include "foundation/KRecords.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace viewer {

/// A closed box in millimetres, y upward.
struct Box
{
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
};

/// Finds the boxes that meet another box without looking at all of them. Boxes are known by their number in the list.
/// Built once; the boxes have to be finite and arranged.
class ElementIndex
{
public:
    ElementIndex() = default;
    explicit ElementIndex(const std::vector<Box>& boxes);

    /// The numbers of the boxes that share a point with `box`, in rising order. A box that is no box (NaN) meets none.
    std::vector<uint32_t> Find(const Box& box) const;

private:
    void Search(std::size_t level, std::size_t begin, std::size_t end, const Box& box,
                std::vector<uint32_t>& found) const;

    std::vector<uint32_t> order;          ///< the boxes' numbers, neighbours side by side
    std::vector<std::vector<Box>> levels; ///< the boxes in that order; above it one box for each run of the level below
};

} // namespace viewer
