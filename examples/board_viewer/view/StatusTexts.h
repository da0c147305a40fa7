/// The viewer's texts about elements and places. Coordinates are those of the file: millimetres, y down.
#pragma once

#include "BoardElement.h"
#include "ElementGap.h"

#include <string>
#include <vector>

namespace viewer {

/// "12.3450, 67.8900" for a point in Kolm's frame.
std::string PlaceText(KPointD point);

/// Kind, owner, net, layers and size: "pad U1.3, net GND, F.Cu, 1.2000 x 0.8000 mm".
std::string ElementText(const Board& board, const BoardElement& element);

/// "footprint U1, 8 elements" for several that were picked together.
std::string GroupText(const std::vector<BoardElement*>& elements);

/// "clearance 0.2000 mm from 1.0000, 2.0000 to 1.2000, 2.0000".
std::string GapText(const ElementGap& gap);

} // namespace viewer
