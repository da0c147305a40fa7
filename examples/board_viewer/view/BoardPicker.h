/// Picking on a board: the library's picking handler as a host derives it.
#pragma once

#include "BoardElement.h"
#include "ElementIndex.h"
#include "LayerStates.h"

#include "interaction/CKPickingHandler.h"

#include <functional>

namespace viewer {

/// The board as picking sees it; shared by all pickers of a view.
struct PickScene
{
    PickScene() = default;
    explicit PickScene(const Board& board);

    BoardElements board;
    ElementIndex index;
    std::vector<std::string> layerNames; ///< by the bit of a LayerSet
};

/// Keeps the stack of elements under the last click as records and marks one of them as picked. The records' peeking
/// point is the clicked point in board millimetres. The painter, scene and layers that it is given are the caller's,
/// and outlive the picker or are replaced by Attach.
class BoardPicker : public CKPickingHandler
{
public:
    static constexpr int kTolerance = 3; ///< pixels from the cursor within which an element is hit

    using CKPickingHandler::Picking;

    /// Forgets what was picked, in the scene that it was picked in, and works on these from now on.
    void Attach(CKPainter* newPainter, const PickScene* newScene, const LayerStates* newLayers);

    CKPainter* GetPainter() override { return painter; }
    /// Appends a record for each visible element within the tolerance of the pixel: the nearest first; of those equally
    /// near (under the cursor all have distance 0) the one drawn on top first. Returns how many.
    int Picking(CKPcbElementInfoArray* list, unsigned int flags, int x, int y) override;
    /// Takes the picked state back from all records' elements and empties the list.
    void Unpicking() override;

    /// A click: picks the first of the stack under the pixel. At the place of the last click it goes on to the next one
    /// of the same stack instead. Clicking on nothing unpicks. Never picks `except`.
    void Click(int x, int y, const BoardElement* except = nullptr);
    /// Picks these together, as a list of matches does.
    void PickAll(const std::vector<BoardElement*>& elements);

    /// The element that the last click picked; null when there is none or many were picked together.
    BoardElement* Current();
    std::vector<BoardElement*> Picked(); ///< all elements that this picker marked
    int StackSize() { return together ? 0 : int(GetPickingInfoArray()->GetSize()); }
    int StackPosition() const { return current; } ///< of Current() in its stack, from 0

private:
    BoardElement* ElementAt(int record);
    bool IsSamePlace(CKPcbElementInfoArray& hits);
    void Mark(int record);

    CKPainter* painter = nullptr;
    const PickScene* scene = nullptr;
    const LayerStates* layers = nullptr;
    int current = -1;
    bool together = false;
};

} // namespace viewer
