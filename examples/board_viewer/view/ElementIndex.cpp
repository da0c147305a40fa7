#include "ElementIndex.h"

#include <algorithm>
#include <cmath>
#include <numeric>

// The boxes are sorted into vertical slices by the middle of their x and each slice by the middle of its y, so that
// runs of kFan boxes lie side by side (sort-tile-recursive). Every run has one box in the level above, and a search
// enters only the runs whose box it meets.

namespace viewer {

namespace {

constexpr size_t kFan = 16;

bool Meets(const Box& a, const Box& b)
{
    return a.left <= b.right && b.left <= a.right && a.bottom <= b.top && b.bottom <= a.top;
}

void Merge(Box& box, const Box& other)
{
    box.left = std::min(box.left, other.left);
    box.right = std::max(box.right, other.right);
    box.bottom = std::min(box.bottom, other.bottom);
    box.top = std::max(box.top, other.top);
}

/// One box for each run of kFan.
std::vector<Box> Covers(const std::vector<Box>& boxes)
{
    std::vector<Box> covers;
    covers.reserve(boxes.size() / kFan + 1);
    for (size_t i = 0; i < boxes.size(); ++i) {
        if (i % kFan == 0)
            covers.push_back(boxes[i]);
        else
            Merge(covers.back(), boxes[i]);
    }
    return covers;
}

} // namespace

ElementIndex::ElementIndex(const std::vector<Box>& boxes)
{
    order.resize(boxes.size());
    std::iota(order.begin(), order.end(), 0u);
    const auto byX = [&](uint32_t a, uint32_t b) {
        return boxes[a].left + boxes[a].right < boxes[b].left + boxes[b].right;
    };
    const auto byY = [&](uint32_t a, uint32_t b) {
        return boxes[a].bottom + boxes[a].top < boxes[b].bottom + boxes[b].top;
    };
    std::sort(order.begin(), order.end(), byX);
    // As many slices as each will have runs.
    const double runs = std::ceil(double(boxes.size()) / double(kFan));
    const size_t slice = kFan * std::max<size_t>(1, size_t(std::ceil(std::sqrt(runs))));
    for (size_t begin = 0; begin < order.size(); begin += slice) {
        const auto first = order.begin() + std::ptrdiff_t(begin);
        std::sort(first, first + std::ptrdiff_t(std::min(slice, order.size() - begin)), byY);
    }

    levels.emplace_back();
    for (uint32_t number : order)
        levels.back().push_back(boxes[number]);
    while (levels.back().size() > kFan)
        levels.push_back(Covers(levels.back()));
}

std::vector<uint32_t> ElementIndex::Find(const Box& box) const
{
    std::vector<uint32_t> found;
    if (!levels.empty())
        Search(levels.size() - 1, 0, levels.back().size(), box, found);
    std::sort(found.begin(), found.end());
    return found;
}

void ElementIndex::Search(size_t level, size_t begin, size_t end, const Box& box, std::vector<uint32_t>& found) const
{
    for (size_t i = begin; i < end; ++i) {
        if (!Meets(levels[level][i], box))
            continue;
        if (level == 0)
            found.push_back(order[i]);
        else
            Search(level - 1, i * kFan, std::min((i + 1) * kFan, levels[level - 1].size()), box, found);
    }
}

} // namespace viewer
