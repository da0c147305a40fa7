#include "BoardElement.h"

#include "CopperElement.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace viewer {

namespace {

/// The points between which a figure's centre line runs. An arc or circle is taken whole: its box is only used to leave
/// out what is far away.
CKRectD BoxOfCentreLine(const Figure& figure)
{
    CKRectD box;
    if (figure.kind == Figure::Kind::Line) {
        box.MergePoint(figure.start.x, figure.start.y);
        box.MergePoint(figure.end.x, figure.end.y);
    } else if (figure.kind == Figure::Kind::Arc || figure.kind == Figure::Kind::Circle) {
        const double radius = std::hypot(figure.start.x - figure.centre.x, figure.start.y - figure.centre.y);
        box.MergePoint(figure.centre.x - radius, figure.centre.y - radius);
        box.MergePoint(figure.centre.x + radius, figure.centre.y + radius);
    } else {
        for (const KPointD& point : figure.points)
            box.MergePoint(point.x, point.y);
    }
    return box;
}

/// Whether every edge is a position that a board can have; NaN is none.
bool IsSane(const CKRectD& box)
{
    constexpr double kFarthest = 1e6; // millimetres
    for (double edge : {box.GetLeft(), box.GetRight(), box.GetBottom(), box.GetTop()}) {
        if (!(std::fabs(edge) <= kFarthest))
            return false;
    }
    return true;
}

/// Makes the elements of one board.
class ElementMaker
{
public:
    ElementMaker(const Board& source, BoardElements& result) : board(source), made(result)
    {
        for (const NamedItem& item : board.names) {
            made.owners.push_back(std::make_unique<BoardOwner>(item, int(made.owners.size())));
            if (item.kind == NamedItem::Kind::Net)
                nets.emplace(item.net, made.owners.back().get());
        }
    }

    void AddTracks()
    {
        for (size_t i = 0; i < board.tracks.size(); ++i) {
            const Track& track = board.tracks[i];
            Add(BoardElement::Kind::Track, i, {track.figure}, LayerSet(1) << track.layer, track.net, Net(track.net));
        }
    }

    void AddPads()
    {
        for (size_t i = 0; i < board.pads.size(); ++i) {
            const Pad& pad = board.pads[i];
            BoardOwner* const owner = pad.footprint >= 0 && size_t(pad.footprint) < made.owners.size()
                                          ? made.owners[size_t(pad.footprint)].get()
                                          : Net(pad.net);
            std::vector<Figure> ink = pad.copper;
            if (ink.empty() && pad.hole.width > 0 && pad.hole.height > 0)
                ink.push_back(HoleFigure(pad.hole));
            Add(BoardElement::Kind::Pad, i, std::move(ink), pad.layers, pad.net, owner);
        }
    }

    void AddVias()
    {
        for (size_t i = 0; i < board.vias.size(); ++i) {
            const Via& via = board.vias[i];
            Figure disc;
            disc.start = disc.end = via.centre;
            disc.width = via.diameter;
            Add(BoardElement::Kind::Via, i, {disc}, via.layers, via.net, Net(via.net));
        }
    }

private:
    BoardOwner* Net(int number) const
    {
        const auto found = nets.find(number);
        return found == nets.end() ? nullptr : found->second;
    }

    void Add(BoardElement::Kind kind, size_t item, std::vector<Figure> ink, LayerSet layers, int net, BoardOwner* owner)
    {
        CKRectD box;
        for (const Figure& figure : ink) {
            CKRectD part = BoxOfCentreLine(figure);
            if (!part.IsInitialized() || !IsSane(part))
                return;
            const double half = std::clamp(figure.width, 0.0, 1e6) / 2;
            box.MergePoint(part.GetLeft() - half, part.GetBottom() - half);
            box.MergePoint(part.GetRight() + half, part.GetTop() + half);
        }
        if (!box.IsInitialized())
            return;
        auto element = std::make_unique<BoardElement>();
        element->kind = kind;
        element->ink = std::move(ink);
        element->layers = layers;
        element->net = net;
        element->item = int(item);
        element->owner = owner;
        element->SetRectangleArea(box.GetLeft(), box.GetRight(), box.GetBottom(), box.GetTop());
        made.elements.push_back(std::move(element));
    }

    const Board& board;
    BoardElements& made;
    std::map<int, BoardOwner*> nets;
};

} // namespace

double BoardElement::DistanceTo(KPointD point) const
{
    double nearest = HUGE_VAL;
    for (const Figure& figure : ink) {
        const double distance = DistanceToFigure(figure, point);
        if (distance < nearest) // never for a distance that is no number
            nearest = distance;
    }
    return nearest;
}

BoardElements::BoardElements(const Board& board)
{
    ElementMaker maker(board, *this);
    maker.AddTracks();
    maker.AddPads();
    maker.AddVias();
}

} // namespace viewer
