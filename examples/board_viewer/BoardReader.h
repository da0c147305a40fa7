/// Reading of `.kicad_pcb` files, format versions 2017 to 2021.
#pragma once

#include "Board.h"

#include <functional>
#include <string>
#include <string_view>

namespace viewer {

/// Told now and then how far the reading is, from 0 to 1.
using ProgressHook = std::function<void(double)>;

/// The board in a file's text. `file` names it in messages. Throws ReadError (SExpr.h) with file and line for a text
/// that is no board, is cut off or does not make sense. Items that are not drawn (setup, net classes, 3-D models, ...)
/// are passed over.
Board ReadBoard(std::string_view text, const std::string& file, const ProgressHook& progress = {});

} // namespace viewer
