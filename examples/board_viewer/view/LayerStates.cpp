#include "LayerStates.h"

#include <algorithm>

namespace viewer {

namespace {

/// Where a layer stands in the list, smaller first.
int Group(std::string_view name)
{
    return IsCopper(name) ? 0 : name == kOutlineName ? 1 : 2;
}

template <class MIX>
Colour EachChannel(Colour a, Colour b, MIX mix)
{
    Colour result = 0;
    for (int shift : {0, 8, 16})
        result |= Colour(mix(int(a >> shift & 0xFF), int(b >> shift & 0xFF))) << shift;
    return result;
}

} // namespace

LayerStates::LayerStates(const BoardPicture& source) : picture(&source)
{
    for (const auto& layer : picture->layers) {
        if (layer->shapes.GetCount() > 0 && layer->name != kBareHolesName)
            rows.push_back({layer.get(), true});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        const int groupA = Group(a.layer->name), groupB = Group(b.layer->name);
        return groupA != groupB ? groupA < groupB : LayerRank(a.layer->name) > LayerRank(b.layer->name);
    });
}

LayerState LayerStates::At(int row) const
{
    if (!IsRow(row))
        return {"", 0, false, false};
    const Row& found = rows[size_t(row)];
    return {found.layer->name, SchemeColour(*found.layer, scheme), found.visible, row == work};
}

int LayerStates::Find(std::string_view name) const
{
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.layer->name == name; });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

void LayerStates::SetVisible(int row, bool visible)
{
    if (IsRow(row))
        rows[size_t(row)].visible = visible;
}

void LayerStates::SetWork(int row)
{
    if (row != -1 && !IsRow(row))
        return;
    work = row;
    SetVisible(row, true);
}

bool LayerStates::IsVisible(std::string_view name) const
{
    const int row = Find(name);
    return row >= 0 && rows[size_t(row)].visible;
}

std::vector<ShownLayer> LayerStates::Shown(bool fromBack) const
{
    const auto rank = [fromBack](const ShownLayer& layer) {
        return fromBack ? LayerRankFromBack(layer.layer->name) : LayerRank(layer.layer->name);
    };
    std::vector<ShownLayer> shown;
    for (const auto& layer : picture->layers) {
        const std::string_view row = layer->name == kBareHolesName ? kHolesName : std::string_view(layer->name);
        if (!IsVisible(row))
            continue;
        const bool isWork = work >= 0 && rows[size_t(work)].layer == layer.get();
        const Colour colour = SchemeColour(*layer, scheme);
        const bool dimmed = allDimmed || (work >= 0 && !isWork);
        shown.push_back({layer.get(), dimmed ? DimmedColour(colour, Background()) : colour});
    }
    std::stable_sort(shown.begin(), shown.end(),
                     [&](const ShownLayer& a, const ShownLayer& b) { return rank(a) < rank(b); });
    if (work >= 0)
        RaiseWork(shown);
    return shown;
}

/// Above all but the holes, which go through the work layer as well.
void LayerStates::RaiseWork(std::vector<ShownLayer>& shown) const
{
    const PictureLayer* const layer = rows[size_t(work)].layer;
    const auto at = std::find_if(shown.begin(), shown.end(), [&](const ShownLayer& s) { return s.layer == layer; });
    const auto holes = std::find_if(at, shown.end(), [](const ShownLayer& s) {
        return s.layer->name == kHolesName || s.layer->name == kBareHolesName;
    });
    if (at != holes)
        std::rotate(at, at + 1, holes);
}

Colour LayerStates::Background() const
{
    return scheme == Scheme::Dark ? 0x000000 : 0xFFFFFF;
}

Colour SchemeColour(const PictureLayer& layer, Scheme scheme)
{
    if (scheme == Scheme::Dark)
        return layer.colour;
    if (layer.name == kHolesName)
        return 0xF5F5F5;
    // What is too bright to be seen on white becomes the darker the brighter it was: letters that stand out on the
    // copper of the dark scheme stand out here too.
    constexpr int kBrightest = 130;
    const int red = int(layer.colour & 0xFF), green = int(layer.colour >> 8 & 0xFF);
    const int blue = int(layer.colour >> 16 & 0xFF);
    const int brightness = std::max((2 * red + 5 * green + blue) / 8, 1);
    const int wanted = brightness <= kBrightest ? brightness : kBrightest - (brightness - kBrightest) * 3 / 4;
    return EachChannel(layer.colour, 0, [=](int channel, int) { return channel * wanted / brightness; });
}

Colour DimmedColour(Colour colour, Colour background)
{
    return EachChannel(colour, background, [](int channel, int behind) { return (channel + 2 * behind) / 3; });
}

} // namespace viewer
