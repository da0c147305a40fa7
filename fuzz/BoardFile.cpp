/// Board files: an error that names file and line, or a board that can be reported, searched, measured, stored and
/// drawn.
#include "BoardClearance.h"
#include "BoardFind.h"
#include "BoardReader.h"
#include "SExpr.h"
#include "ViewerChecks.h"

using fuzz::Require;

namespace {

void CheckBoard(const viewer::Board& board)
{
    const viewer::BoardPicture picture = viewer::MakePicture(board);
    Require(!viewer::BoardInfoJson(board, picture).empty(), "a board has a report");
    viewer::FindItems(board, "R*");
    for (const viewer::Clearance& clearance : viewer::FindClearances(board, 0.5))
        Require(clearance.distance < 0.5, "clearances reported are below the limit");
    fuzz::CheckFileOf(picture);
    fuzz::DrawPicture(picture);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const fuzz::SameGdiObjects sameObjects;
    try {
        CheckBoard(viewer::ReadBoard(text, "board"));
    } catch (const viewer::ReadError& error) {
        const std::string message = error.what();
        Require(message.compare(0, 6, "board:") == 0, "an error names the file");
        const long line = std::strtol(message.c_str() + 6, nullptr, 10);
        Require(line >= 1 && line <= 1 + std::count(text.begin(), text.end(), '\n'), "and a line of it");
    }
    return 0;
}
