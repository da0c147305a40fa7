/// What two revisions of a board have in common, and what only one of them has.
///
/// Elements are compared by value, without a tolerance (see ElementKey.h). Their order does not matter, but their
/// number does: of an element that one revision has three times and the other once, two are left over. Time grows with
/// the number of elements and points, not with its square.
#pragma once

#include "BoardFile.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace viewer {

/// Shapes of one group. Areas are what covers much of a layer: filled zones, and all polygons of an archive.
struct DiffPart
{
    BoardPicture areas;
    BoardPicture others;
};

/// Elements of a layer that have no equal in the other revision. A pad or via counts on each of its layers, its hole in
/// the group of holes.
struct LayerCounts
{
    size_t onlyOld = 0;
    size_t onlyNew = 0;
};

struct BoardDifference
{
    DiffPart common;
    DiffPart onlyOld;
    DiffPart onlyNew;
    std::map<std::string, LayerCounts> changes; ///< by layer, without those that are equal
};

/// Compares elements of boards with their nets. Where one of the two is an archive, the shapes of both are compared,
/// without nets, which archives do not hold. Nothing refers to the files afterwards.
BoardDifference CompareBoards(const BoardFile& older, const BoardFile& newer);

/// A line for each layer that differs, from the top layer down: its name, the number of elements that only the old and
/// that only the new revision has, separated by tabs. Then the number of these layers.
std::string DifferenceLines(const std::map<std::string, LayerCounts>& changes);

} // namespace viewer
