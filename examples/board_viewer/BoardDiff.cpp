#include "BoardDiff.h"

#include "ElementKey.h"
#include "ReportText.h"

#include <algorithm>
#include <unordered_map>

// Elements are paired in three passes: the new revision's are counted by key, each element of the old one takes an
// equal one of them while there is any, and those of the new one that were taken are passed over when the rest is
// gathered.

namespace viewer {

namespace {

/// Pairs equal elements of two revisions.
class Pairing
{
public:
    void CountNew(const std::string& key) { ++tallies[key].present; }

    /// Whether an element of the old revision has an equal one, which is then taken.
    bool TakeForOld(const std::string& key)
    {
        const auto found = tallies.find(key);
        if (found == tallies.end() || found->second.taken == found->second.present)
            return false;
        ++found->second.taken;
        return true;
    }

    /// Whether an element of the new revision is one of those that were taken. Equal ones cannot be told apart, so
    /// that any of them will do.
    bool WasTaken(const std::string& key)
    {
        Tally& tally = tallies[key];
        if (tally.taken == 0)
            return false;
        --tally.taken;
        return true;
    }

private:
    struct Tally
    {
        size_t present = 0;
        size_t taken = 0;
    };
    std::unordered_map<std::string, Tally> tallies;
};

/// Sorts the elements of one revision into those that the other has as well and the rest. `IS_SHARED` is called once
/// for each element and layer, with the layer's name and the key.
template <class IS_SHARED>
class BoardSplitter
{
public:
    BoardSplitter(const Board& source, IS_SHARED predicate) : board(source), isShared(predicate)
    {
        shared.layers = rest.layers = board.layers;
        Split(&Board::filledPolygons);
        Split(&Board::tracks);
        SplitByLayer(&Board::pads);
        SplitByLayer(&Board::vias);
        Split(&Board::graphics);
        Split(&Board::texts);
    }

    Board shared;
    Board rest;

private:
    template <class ELEMENT>
    bool IsShared(const ELEMENT& element, std::string_view layer, std::string_view net)
    {
        return isShared(layer, KeyOf(element, ElementPlace{layer, net}));
    }

    std::string_view NetName(int number) const
    {
        const auto found = board.nets.find(number);
        return found == board.nets.end() ? std::string_view() : std::string_view(found->second);
    }
    std::string_view NetOf(const Track& track) const { return NetName(track.net); }
    std::string_view NetOf(const FilledPolygon& area) const { return NetName(area.net); }
    std::string_view NetOf(const Graphic&) const { return {}; }
    std::string_view NetOf(const Text&) const { return {}; }

    template <class ELEMENT>
    void Split(std::vector<ELEMENT> Board::*list)
    {
        for (const ELEMENT& element : board.*list) {
            const std::string& layer = board.layers.Name(element.layer);
            ((IsShared(element, layer, NetOf(element)) ? shared : rest).*list).push_back(element);
        }
    }

    /// Pads and vias can be equal on some layers and differ on others, and so can their holes: both sides then get the
    /// element with what is theirs of it.
    template <class ELEMENT>
    void SplitByLayer(std::vector<ELEMENT> Board::*list)
    {
        for (const ELEMENT& element : board.*list) {
            ELEMENT ours = element, theirs = element;
            ours.layers = 0;
            for (int i = 0; i < board.layers.Count(); ++i) {
                const LayerSet bit = LayerSet(1) << i;
                if ((element.layers & bit) != 0 && IsShared(element, board.layers.Name(i), NetName(element.net)))
                    ours.layers |= bit;
            }
            theirs.layers &= ~ours.layers;
            const bool drilled = element.hole.width > 0 && element.hole.height > 0;
            if (drilled && IsShared(element.hole, kHolesName, {}))
                theirs.hole = Hole();
            else
                ours.hole = Hole();
            (shared.*list).push_back(std::move(ours));
            (rest.*list).push_back(std::move(theirs));
        }
    }

    const Board& board;
    IS_SHARED isShared;
};

/// Areas are drawn by a rule of their own, so they come apart from the rest.
DiffPart PartOf(Board&& board)
{
    Board areas;
    areas.layers = board.layers;
    areas.filledPolygons.swap(board.filledPolygons);
    return {MakePicture(areas), MakePicture(board)};
}

/// An empty layer like that one.
PictureLayer& AppendLayer(BoardPicture& picture, const PictureLayer& like)
{
    picture.layers.push_back(std::make_unique<PictureLayer>());
    picture.layers.back()->name = like.name;
    picture.layers.back()->colour = like.colour;
    return *picture.layers.back();
}

/// The same as BoardSplitter for the shapes of a picture. Shapes that are not drawn are in neither part.
template <class IS_SHARED>
class PictureSplitter
{
public:
    PictureSplitter(const BoardPicture& picture, IS_SHARED isShared)
    {
        for (const auto& layer : picture.layers) {
            PictureLayer* targets[2][2] = {
                {&AppendLayer(rest.others, *layer), &AppendLayer(rest.areas, *layer)},
                {&AppendLayer(shared.others, *layer), &AppendLayer(shared.areas, *layer)},
            };
            for (int i = 0; i < layer->shapes.GetCount(); ++i) {
                CKGeom* shape = layer->shapes.GetAt(i);
                const std::string key = shape ? KeyOf(*shape, layer->name) : std::string();
                if (!key.empty())
                    targets[isShared(layer->name, key)][shape->GetType() == 6]->shapes.Add(shape->clone());
            }
        }
    }

    DiffPart shared;
    DiffPart rest;
};

DiffPart PartOf(DiffPart&& part)
{
    return std::move(part);
}

/// The three passes, over boards or over pictures.
template <template <class> class SPLITTER, class SOURCE>
BoardDifference Compare(const SOURCE& older, const SOURCE& newer)
{
    Pairing pairing;
    BoardDifference difference;
    const auto count = [&](std::string_view, const std::string& key) {
        pairing.CountNew(key);
        return true;
    };
    const auto takeForOld = [&](std::string_view layer, const std::string& key) {
        const bool isShared = pairing.TakeForOld(key);
        if (!isShared)
            ++difference.changes[std::string(layer)].onlyOld;
        return isShared;
    };
    const auto wasTaken = [&](std::string_view layer, const std::string& key) {
        const bool isShared = pairing.WasTaken(key);
        if (!isShared)
            ++difference.changes[std::string(layer)].onlyNew;
        return isShared;
    };
    SPLITTER<decltype(count)>(newer, count);
    SPLITTER<decltype(takeForOld)> old(older, takeForOld);
    SPLITTER<decltype(wasTaken)> young(newer, wasTaken);
    difference.common = PartOf(std::move(old.shared));
    difference.onlyOld = PartOf(std::move(old.rest));
    difference.onlyNew = PartOf(std::move(young.rest));
    return difference;
}

} // namespace

BoardDifference CompareBoards(const BoardFile& older, const BoardFile& newer)
{
    if (older.board && newer.board)
        return Compare<BoardSplitter>(*older.board, *newer.board);
    return Compare<PictureSplitter>(older.picture, newer.picture);
}

std::string DifferenceLines(const std::map<std::string, LayerCounts>& changes)
{
    std::vector<std::string> layers;
    for (const auto& change : changes)
        layers.push_back(change.first);
    std::stable_sort(layers.begin(), layers.end(),
                     [](const std::string& a, const std::string& b) { return LayerRank(a) > LayerRank(b); });
    std::string lines;
    for (const std::string& layer : layers) {
        const LayerCounts& counts = changes.at(layer);
        lines +=
            PlainText(layer) + '\t' + std::to_string(counts.onlyOld) + '\t' + std::to_string(counts.onlyNew) + '\n';
    }
    return lines + std::to_string(layers.size()) + (layers.size() == 1 ? " layer differs\n" : " layers differ\n");
}

} // namespace viewer
