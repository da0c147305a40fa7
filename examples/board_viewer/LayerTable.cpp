#include "LayerTable.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace viewer {

namespace {

constexpr Colour Rgb(unsigned red, unsigned green, unsigned blue)
{
    return red | green << 8 | blue << 16;
}

/// What is fixed for a layer of the format.
struct LayerStyle
{
    std::string_view name;
    Colour colour;
};

/// Bottom to top. Inner copper is drawn where its only line stands, the deepest first.
constexpr LayerStyle kStyles[] = {
    {"Margin", Rgb(160, 60, 160)},    {"Eco2.User", Rgb(150, 150, 60)},    {"Eco1.User", Rgb(60, 150, 90)},
    {"Cmts.User", Rgb(90, 110, 190)}, {"B.CrtYd", Rgb(70, 110, 130)},      {"B.Fab", Rgb(80, 90, 120)},
    {"B.Adhes", Rgb(40, 60, 140)},    {"B.SilkS", Rgb(190, 130, 200)},     {"B.Paste", Rgb(0, 120, 120)},
    {"B.Mask", Rgb(30, 100, 90)},     {"B.Cu", Rgb(52, 104, 216)},         {"In.Cu", Rgb(196, 160, 40)},
    {"F.Adhes", Rgb(140, 60, 120)},   {"F.Paste", Rgb(150, 130, 130)},     {"F.Mask", Rgb(120, 50, 90)},
    {"F.Cu", Rgb(204, 56, 48)},       {"F.SilkS", Rgb(236, 234, 210)},     {"F.Fab", Rgb(150, 150, 158)},
    {"F.CrtYd", Rgb(220, 70, 200)},   {"Dwgs.User", Rgb(200, 200, 200)},   {kOutlineName, Rgb(240, 220, 60)},
    {kHolesName, Rgb(20, 20, 24)},    {kBareHolesName, Rgb(60, 190, 190)},
};

/// Between two lines of kStyles; the numbers of inner layers fit in.
constexpr int kRankStep = 1000;

constexpr Colour kInnerColours[] = {
    Rgb(196, 160, 40), Rgb(80, 180, 90), Rgb(180, 100, 200), Rgb(230, 130, 50), Rgb(60, 170, 190), Rgb(190, 110, 110),
};

/// 0 without a number.
int NumberAfter(std::string_view name, size_t prefix)
{
    int number = 0;
    if (name.size() > prefix)
        std::from_chars(name.data() + prefix, name.data() + name.size(), number);
    return number;
}

/// The number in "In3.Cu"; 1 for a copper layer that has none.
int InnerNumber(std::string_view name)
{
    return std::clamp(NumberAfter(name, 2), 1, 999);
}

/// The line of kStyles, -1 without one.
int StyleIndex(std::string_view name)
{
    if (IsInnerCopper(name))
        name = "In.Cu";
    const auto found =
        std::find_if(std::begin(kStyles), std::end(kStyles), [&](const LayerStyle& s) { return s.name == name; });
    return found == std::end(kStyles) ? -1 : int(found - std::begin(kStyles));
}

/// A colour of its own for the n-th of many layers: the base moved a little in all three channels.
Colour Shifted(Colour base, int n)
{
    const auto shift = unsigned(n % 32);
    return base ^ Rgb(shift & 31, (shift * 5) & 31, (shift * 11) & 31);
}

} // namespace

int LayerTable::Find(std::string_view name) const
{
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : int(found - names.begin());
}

int LayerTable::Add(std::string_view name)
{
    const int found = Find(name);
    if (found >= 0)
        return found;
    if (Count() >= kMost)
        return -1;
    names.emplace_back(name);
    return Count() - 1;
}

/// Wildcards stand for layers of one kind on all or on both outer sides. Layers that a file uses without declaring them
/// are added: they are drawn rather than lost.
LayerSet LayerTable::Named(std::string_view name)
{
    const bool anySide = name.substr(0, 2) == "*.";
    const bool outerSides = name.substr(0, 4) == "F&B.";
    if (!anySide && !outerSides) {
        const int index = Add(name);
        return index < 0 ? 0 : LayerSet(1) << index;
    }

    // "*.Mask" and "F&B.Mask" are the same two layers; only copper lies inside the board too.
    const std::string kind(name.substr(anySide ? 1 : 3));
    LayerSet set = Named("F" + kind) | Named("B" + kind);
    return anySide && kind == ".Cu" ? set | Copper() : set;
}

LayerSet LayerTable::Copper() const
{
    LayerSet set = 0;
    for (int i = 0; i < Count(); ++i) {
        if (IsCopper(Name(i)))
            set |= LayerSet(1) << i;
    }
    return set;
}

bool IsCopper(std::string_view name)
{
    return name.size() > 3 && name.substr(name.size() - 3) == ".Cu";
}

bool IsInnerCopper(std::string_view name)
{
    return IsCopper(name) && name != "F.Cu" && name != "B.Cu";
}

Colour LayerColour(std::string_view name)
{
    if (IsInnerCopper(name)) {
        const int n = InnerNumber(name) - 1;
        constexpr int kBases = int(std::size(kInnerColours));
        return Shifted(kInnerColours[n % kBases], n / kBases);
    }
    const int style = StyleIndex(name);
    // User.1 and the like, and what a later version of the format may add.
    return style >= 0 ? kStyles[style].colour : Shifted(Rgb(96, 160, 128), NumberAfter(name, 5));
}

int LayerRank(std::string_view name)
{
    const int style = StyleIndex(name);
    if (style < 0)
        return 0;
    // The first inner layer is the nearest to the front.
    return (style + 1) * kRankStep - (IsInnerCopper(name) ? InnerNumber(name) : 0);
}

int LayerRankFromBack(std::string_view name)
{
    if (IsInnerCopper(name))
        return LayerRank(name) - kRankStep + 2 * InnerNumber(name);
    std::string other(name);
    if (other.substr(0, 2) == "F.")
        other[0] = 'B';
    else if (other.substr(0, 2) == "B.")
        other[0] = 'F';
    return LayerRank(other);
}

} // namespace viewer
