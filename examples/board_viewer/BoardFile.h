/// Opening a file that holds a board, whichever kind it is.
#pragma once

#include "Board.h"
#include "BoardPicture.h"
#include "BoardReader.h"

#include <optional>
#include <string>

namespace viewer {

struct BoardFile
{
    BoardPicture picture;
    std::optional<Board> board; ///< none for an archive, which holds shapes only
};

/// Reads a board file or an archive, told apart by their first bytes. Throws std::runtime_error with the file's name
/// where it cannot be read or is neither.
BoardFile OpenBoardFile(const std::string& path, const ProgressHook& progress = {});

} // namespace viewer
