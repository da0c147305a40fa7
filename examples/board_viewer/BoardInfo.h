/// What a board holds, as JSON for other programs.
#pragma once

#include "Board.h"
#include "BoardPicture.h"

#include <string>

namespace viewer {

/// Per layer its palette colour ("#RRGGBB") and the counts of segments, arcs, vias, pads by shape, graphics by kind,
/// texts, and the point counts of its filled polygons; holes, references, net names and the outline's box. Items on
/// several layers count on each. Positions are the file's, y down.
std::string BoardInfoJson(const Board& board, const BoardPicture& picture);

/// An archive has shapes only: per layer its colour and the counts of lines, arcs, polygons and texts; and the
/// outline's box.
std::string PictureInfoJson(const BoardPicture& picture);

} // namespace viewer
