/// The picture of how two revisions of a board differ.
///
/// What both have is grey, filled areas darker; what only the old one has is orange, what only the new one has is blue:
/// two colours that everybody can tell apart, both brighter than the greys. Changes are never hidden by what is common.
/// Elements that differ are shown whole, the new over the old, so that a track of another width can be seen. Filled
/// areas, which change as a whole with every track near them, are compared pixel by pixel on their layer.
#pragma once

#include "BoardDiff.h"
#include "PictureExport.h"

#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// What of the difference is looked at and how.
struct DiffView
{
    std::vector<std::string> layers; ///< empty: all
    PictureSize size;
    std::optional<FileArea> area;
    bool mirror = false;
};

inline constexpr Colour kCommonColour = 0x707070;
inline constexpr Colour kCommonAreaColour = 0x383838;
inline constexpr Colour kOnlyOldColour = 0x009FE6; ///< orange; red is the low byte
inline constexpr Colour kOnlyNewColour = 0xE9B456; ///< sky blue

/// Takes out of the difference, counts included, what is not on one of these layers. Holes stay with any copper. An
/// empty list keeps all.
void KeepLayers(BoardDifference& difference, const std::vector<std::string>& layers);

/// Draws what KeepLayers leaves and writes it to the path, with a legend where there is room. Frames the outlines of
/// both revisions together unless the view names an area. Throws as ExportPicture does.
void ExportDifference(BoardDifference difference, const BoardFile& older, const BoardFile& newer, const DiffView& view,
                      const std::string& path);

} // namespace viewer
