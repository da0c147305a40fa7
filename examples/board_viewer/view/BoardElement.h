/// The parts of a board that a user can point at, as entities of the library.
#pragma once

#include "Board.h"

#include "entities/CKEntity.h"

#include <memory>
#include <string>
#include <vector>

namespace viewer {

/// A footprint or a net: what elements belong to.
class BoardOwner : public CKEntity
{
public:
    BoardOwner(NamedItem namedItem, int namedNumber) : item(std::move(namedItem)), number(namedNumber) {}

    const NamedItem item;
    const int number; ///< in the board's list of names
};

/// A track, a pad or a via. Its area (GetRectangleArea) is the box of its ink.
class BoardElement : public CKEntity
{
public:
    enum class Kind
    {
        Track,
        Via,
        Pad,
    };

    Kind kind = Kind::Track;
    std::vector<Figure> ink; ///< one after the other; of a pad without copper its hole. Never empty
    LayerSet layers = 0;
    int net = 0;
    int item = 0;                ///< number in the board's list of its kind
    BoardOwner* owner = nullptr; ///< of a pad its footprint, else the net; null for copper without a net

    /// Millimetres from a point to the ink, 0 on it; infinite for a point that is no number.
    double DistanceTo(KPointD point) const;
};

/// All elements of a board with their owners. A track of no net has no owner. Elements whose position is no number or
/// absurd (beyond a kilometre) are left out.
class BoardElements
{
public:
    BoardElements() = default;
    /// Keeps copies of what it needs; the board is not referred to afterwards.
    explicit BoardElements(const Board& board);

    std::vector<std::unique_ptr<BoardOwner>> owners;
    std::vector<std::unique_ptr<BoardElement>> elements; ///< in drawing order: tracks, pads, vias
};

} // namespace viewer
