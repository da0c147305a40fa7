/// How the layers of the shown board look: which are visible, which one is worked on, in which colours.
#pragma once

#include "BoardPainter.h"

#include <string>
#include <vector>

namespace viewer {

enum class Scheme
{
    Dark,  ///< the layers' own colours on black
    Light, ///< darker shades of them on white
};

/// One row of the layer list.
struct LayerState
{
    std::string name;
    Colour colour = 0; ///< as the scheme shows it, undimmed
    bool visible = true;
    bool isWork = false;
};

/// The layer list of a picture. It has the layers that hold something: copper from the front to the back, then the
/// board's outline, then the others from the top of the view from the front down. The rims of bare holes have no row of
/// their own and follow the holes. Numbers outside of the list are ignored by all operations.
class LayerStates
{
public:
    /// All layers visible, none worked on. The picture is the caller's and has to outlive the object.
    explicit LayerStates(const BoardPicture& picture);

    int Count() const { return int(rows.size()); }
    LayerState At(int row) const;          ///< an invisible layer without a name outside of the list
    int Find(std::string_view name) const; ///< -1 when there is no such row

    void SetVisible(int row, bool visible);
    /// Draws this layer on top and dims all others; it becomes visible. -1 for none.
    void SetWork(int row);
    int Work() const { return work; }
    void SetScheme(Scheme newScheme) { scheme = newScheme; }
    Scheme GetScheme() const { return scheme; }
    /// Dims every layer, the work layer included, behind something else that is drawn on top.
    void SetAllDimmed(bool dimmed) { allDimmed = dimmed; }

    bool IsVisible(std::string_view name) const; ///< false for a layer without a row
    /// The layers to draw, bottom to top, in the colours to draw them in.
    std::vector<ShownLayer> Shown(bool fromBack) const;
    Colour Background() const; ///< of the scheme

private:
    struct Row
    {
        const PictureLayer* layer = nullptr;
        bool visible = true;
    };
    bool IsRow(int row) const { return row >= 0 && row < Count(); }

    void RaiseWork(std::vector<ShownLayer>& shown) const;

    const BoardPicture* picture;
    std::vector<Row> rows;
    int work = -1;
    Scheme scheme = Scheme::Dark;
    bool allDimmed = false;
};

/// The colour of a layer under a scheme. Holes look like the background.
Colour SchemeColour(const PictureLayer& layer, Scheme scheme);
/// A third of the colour over the background.
Colour DimmedColour(Colour colour, Colour background);

} // namespace viewer
