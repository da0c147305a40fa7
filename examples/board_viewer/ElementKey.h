/// Values of board elements, made comparable: two elements have the same key when they are of one kind, on one layer,
/// of the same geometry to the last bit and of one net. Where the geometry is the same whichever end comes first, it
/// does not matter which one does. Keys are bytes and not for reading.
#pragma once

#include "Board.h"

#include <string>
#include <string_view>

class CKGeom;

namespace viewer {

/// Where an element is and to what it belongs.
struct ElementPlace
{
    std::string_view layer;
    std::string_view net; ///< its name, since numbers change from file to file; empty: none
};

std::string KeyOf(const Track& track, ElementPlace place);
std::string KeyOf(const FilledPolygon& area, ElementPlace place);
/// Of its ring on the layer; the hole has a key of its own, as for pads.
std::string KeyOf(const Via& via, ElementPlace place);
std::string KeyOf(const Pad& pad, ElementPlace place);
std::string KeyOf(const Hole& hole, ElementPlace place);
std::string KeyOf(const Graphic& graphic, ElementPlace place);
std::string KeyOf(const Text& text, ElementPlace place);
/// Of a shape of an archive, which has no net. Empty for kinds that the viewer does not draw, and for hidden ones.
std::string KeyOf(CKGeom& shape, std::string_view layer);

} // namespace viewer
