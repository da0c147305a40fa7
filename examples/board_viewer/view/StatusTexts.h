/// The viewer's texts about elements and places. Coordinates are those of the file: millimetres, y down.
#pragma once

#include "BoardElement.h"
#include "ElementGap.h"

#include <string>
#include <vector>

namespace viewer {

/// "12.3450, 67.8900" for a point in Kolm's frame.
std::string PlaceText(KPointD point);

/// Kind, owner, net, layers and size: "pad U1.3, net GND, F.Cu, 1.2000 x 0.8000 mm". A pad's size is that of its file,
/// before it is turned.
std::string ElementText(const Board& board, const BoardElement& element);

/// "footprint U1, 8 elements" for a match that was picked as a whole.
std::string MatchText(const NamedItem& item, size_t elements);

/// "clearance 0.2000 mm from 1.0000, 2.0000 to 1.2000, 2.0000".
std::string GapText(const ElementGap& gap);

} // namespace viewer
