#include "BoardPicker.h"

#include "painter/CKPainter.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

/// An element near the cursor.
struct Hit
{
    BoardElement* element = nullptr;
    double distance = 0;
    int rank = 0; ///< of its topmost visible layer, from 0 for the lowest; -1 for none
};

/// Where an element lies in the drawing, from the order of the layers as they are shown.
int TopRank(const BoardElement& element, const PickScene& scene, const std::vector<ShownLayer>& shown)
{
    for (size_t i = shown.size(); i-- > 0;) {
        for (size_t bit = 0; bit < scene.layerNames.size(); ++bit) {
            if ((element.layers >> bit & 1) != 0 && shown[i].layer->name == scene.layerNames[bit])
                return int(i);
        }
    }
    return -1;
}

/// All visible elements with ink within the tolerance of the point, in the order in which clicks go through them.
std::vector<Hit> HitsAt(const PickScene& scene, const std::vector<ShownLayer>& shown, KPointD point, double tolerance)
{
    const Box around = {point.x - tolerance, point.y - tolerance, point.x + tolerance, point.y + tolerance};
    std::vector<Hit> hits;
    for (uint32_t number : scene.index.Find(around)) {
        BoardElement* const element = scene.board.elements[number].get();
        const double distance = element->DistanceTo(point);
        const int rank = distance <= tolerance ? TopRank(*element, scene, shown) : -1;
        if (rank >= 0)
            hits.push_back({element, distance, rank});
    }
    // The index gives drawing order; of one layer the element drawn last is on top.
    std::reverse(hits.begin(), hits.end());
    std::stable_sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
        return a.distance != b.distance ? a.distance < b.distance : a.rank > b.rank;
    });
    return hits;
}

} // namespace

PickScene::PickScene(const Board& source) : board(source)
{
    std::vector<Box> boxes;
    for (const auto& element : board.elements) {
        const CKRectD area = element->GetRectangleArea();
        boxes.push_back({area.GetLeft(), area.GetBottom(), area.GetRight(), area.GetTop()});
    }
    index = ElementIndex(boxes);
    for (int i = 0; i < source.layers.Count(); ++i)
        layerNames.push_back(source.layers.Name(i));
}

void BoardPicker::Attach(CKPainter* newPainter, const PickScene* newScene, const LayerStates* newLayers)
{
    Unpicking();
    painter = newPainter;
    scene = newScene;
    layers = newLayers;
}

int BoardPicker::Picking(CKPcbElementInfoArray* list, unsigned int, int x, int y)
{
    if (!painter || !scene || !layers || !list || painter->IsLogicalCenterEmpty())
        return 0;
    const KPointD point = painter->GetLogicalCoordFromPhysicalCoord(x, y);
    const double tolerance = painter->GetLogicalRateFromPhysicalRate(kTolerance);
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(tolerance))
        return 0;

    const std::vector<Hit> hits = HitsAt(*scene, layers->Shown(painter->IsBoardMirrorX() != 0), point, tolerance);
    for (const Hit& hit : hits) {
        auto* const record = new CKPcbElementInfo(hit.element->owner, hit.element);
        record->SetPeeking(point.x, point.y);
        list->Add(record);
    }
    return int(hits.size());
}

void BoardPicker::Unpicking()
{
    for (BoardElement* element : Picked())
        element->Unpicked();
    DeleteAllPickingInfoElements();
    current = -1;
    together = false;
}

void BoardPicker::Click(int x, int y, const BoardElement* except)
{
    CKPcbElementInfoArray hits;
    Picking(&hits, 0, x, y);
    const bool again = !together && IsSamePlace(hits);
    const int former = current;
    Unpicking();
    for (int i = 0; i < int(hits.GetSize()); ++i)
        AddPickingInfo(hits.GetAt(i)->GenerateClone());

    const int count = int(hits.GetSize());
    for (int step = 0; step < count; ++step) {
        const int record = again ? (former + 1 + step) % count : step;
        if (ElementAt(record) != except) {
            Mark(record);
            return;
        }
    }
    Unpicking(); // nothing there that may be picked
}

void BoardPicker::PickAll(const std::vector<BoardElement*>& elements)
{
    Unpicking();
    together = true;
    for (BoardElement* element : elements) {
        AddPickingInfo(new CKPcbElementInfo(element->owner, element));
        element->CKEntity::Picked();
    }
}

BoardElement* BoardPicker::Current()
{
    return current >= 0 ? ElementAt(current) : nullptr;
}

std::vector<BoardElement*> BoardPicker::Picked()
{
    std::vector<BoardElement*> picked;
    if (BoardElement* const element = Current())
        picked.push_back(element);
    for (int i = 0; together && i < int(GetPickingInfoArray()->GetSize()); ++i)
        picked.push_back(ElementAt(i));
    return picked;
}

/// The picker makes all records itself, so the child is always an element.
BoardElement* BoardPicker::ElementAt(int record)
{
    return static_cast<BoardElement*>(GetPickingInfoArray()->GetAt(record)->GetChild());
}

/// The same place shows the same stack. Elements that are equally near in one click can be so in another order a pixel
/// further on; a click there starts anew.
bool BoardPicker::IsSamePlace(CKPcbElementInfoArray& hits)
{
    CKPcbElementInfoArray& records = *GetPickingInfoArray();
    if (current < 0 || hits.GetSize() != records.GetSize())
        return false;
    for (int i = 0; i < int(hits.GetSize()); ++i) {
        if (hits.GetAt(i)->GetChild() != records.GetAt(i)->GetChild())
            return false;
    }
    CKPcbElementInfo& before = *records.GetAt(0);
    CKPcbElementInfo& now = *hits.GetAt(0);
    const double moved = std::hypot(now.GetPeekingX() - before.GetPeekingX(), now.GetPeekingY() - before.GetPeekingY());
    return moved <= painter->GetLogicalRateFromPhysicalRate(kTolerance);
}

void BoardPicker::Mark(int record)
{
    current = record;
    ElementAt(record)->CKEntity::Picked();
}

} // namespace viewer
