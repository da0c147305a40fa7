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

/// What a file holds before shapes are made of it.
struct BoardSource
{
    std::string path;
    std::optional<Board> board;
    std::string archive; ///< the bytes of an archive where there is no board
};

/// Reads a board file or an archive, told apart by their first bytes. Throws std::runtime_error with the file's name
/// where it cannot be read or is no board. Makes no shapes, so that it can run beside the thread of a window.
///
/// What the progress hook throws ends the reading. It is called also while a pipe gives nothing.
BoardSource ReadBoardSource(const std::string& path, const ProgressHook& progress = {});

/// Makes the shapes. Throws std::runtime_error for a damaged archive.
BoardFile MakeBoardFile(BoardSource source);

/// Both, one after the other.
BoardFile OpenBoardFile(const std::string& path, const ProgressHook& progress = {});

} // namespace viewer
