/// Searching a board by name.
#pragma once

#include "Board.h"

#include <optional>
#include <string>
#include <vector>

namespace viewer {

struct FoundItem
{
    NamedItem item;
    int number = 0;                  ///< of the item in the board's names
    std::optional<KPointD> position; ///< in Kolm's frame; none for a net that nothing belongs to
};

/// The footprints and nets whose reference or name matches the search text, in the order of the file. The text is what
/// the library's wildcard search takes, split at its spaces: any of its tokens may match, case does not count, and a
/// token without a wildcard matches what begins with it. What has no name is never found.
///
/// A net is where one finds it on the board: at its first pad, or else at its first track, via or area.
std::vector<FoundItem> FindItems(const Board& board, const std::string& searchText);

/// One line each: the name, "footprint" or "net", and x and y in the file's frame (y down) with four decimals,
/// separated by tabs. Without a position the line ends after the kind.
std::string FoundLines(const std::vector<FoundItem>& items);

} // namespace viewer
