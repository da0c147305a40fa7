/// The layers of a board: which there are, which a layer set names, in which colour and order they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// A set of layers of one board: bit i stands for the layer with index i of its LayerTable.
using LayerSet = uint64_t;

/// Red in the low byte, then green, then blue, as the platform's COLORREF.
using Colour = uint32_t;

/// The names of a board's layers in the order in which its file declares them. Names are the canonical ones ("F.Cu"),
/// never a user's alias.
class LayerTable
{
public:
    static constexpr int kMost = 64;

    /// Index of the layer, which is appended when it is new; -1 when the table is full.
    int Add(std::string_view name);
    /// Index of the layer, -1 when the board has none of this name.
    int Find(std::string_view name) const;

    /// The layers that a name in a layer set stands for: one layer (appended when it is new), or with "*.Cu" and
    /// "F&B.Cu" all layers of the kind.
    LayerSet Named(std::string_view name);
    LayerSet Copper() const;

    int Count() const { return int(names.size()); }
    const std::string& Name(int index) const { return names[size_t(index)]; }

private:
    std::vector<std::string> names;
};

bool IsCopper(std::string_view layerName);
/// Copper, but neither the front nor the back.
bool IsInnerCopper(std::string_view layerName);

/// The layer's colour on black; each name of the format has its own.
Colour LayerColour(std::string_view layerName);

/// Rank in the usual view from the front: layers of a lower rank are drawn first. Mask and paste openings lie below the
/// copper of their side, since they are filled and would hide the pads.
int LayerRank(std::string_view layerName);

/// The same for the view from the back: the sides change places and the inner layers their order.
int LayerRankFromBack(std::string_view layerName);

/// The group of drill holes: not a layer of the file, but shown like one.
inline constexpr std::string_view kHolesName = "Holes";
/// Rims of the holes without copper around them, which on a black board could not be seen.
inline constexpr std::string_view kBareHolesName = "Holes.Bare";
inline constexpr std::string_view kOutlineName = "Edge.Cuts";

} // namespace viewer
