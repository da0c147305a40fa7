#include "StatusTexts.h"

#include "ReportText.h"
#include "Turning.h"

#include <cmath>

namespace viewer {

namespace {

/// A net that the file uses without declaring it goes by its number.
std::string NetText(const Board& board, int net)
{
    const auto found = board.nets.find(net);
    if (found != board.nets.end() && !found->second.empty())
        return "net " + PlainText(found->second);
    return net == 0 ? "no net" : "net " + std::to_string(net);
}

/// Through-hole elements are on all copper and on masks: only copper counts where there is any.
std::string LayersText(const Board& board, LayerSet layers)
{
    if ((layers & board.layers.Copper()) != 0)
        layers &= board.layers.Copper();
    std::string text;
    for (int i = 0; i < board.layers.Count(); ++i) {
        if ((layers >> i & 1) != 0)
            text += (text.empty() ? "" : " ") + PlainText(board.layers.Name(i));
    }
    return text;
}

double LengthOf(const Figure& figure)
{
    if (figure.kind != Figure::Kind::Arc)
        return std::hypot(figure.end.x - figure.start.x, figure.end.y - figure.start.y);
    const double radius = std::hypot(figure.start.x - figure.centre.x, figure.start.y - figure.centre.y);
    return radius * SweepOfArc(figure.centre, figure.start, figure.end, figure.counterClockwise);
}

std::string TrackText(const Track& track)
{
    return "width " + FixedText(track.figure.width) + " mm, length " + FixedText(LengthOf(track.figure)) + " mm";
}

std::string HoleText(const Hole& hole)
{
    if (!(hole.width > 0) || !(hole.height > 0))
        return {};
    if (hole.width == hole.height)
        return ", hole " + FixedText(hole.width) + " mm";
    return ", hole " + FixedText(hole.width) + " x " + FixedText(hole.height) + " mm";
}

std::string PadName(const Pad& pad, const BoardElement& element)
{
    std::string name = "pad";
    if (element.owner && element.owner->item.kind == NamedItem::Kind::Footprint)
        name += ' ' + PlainText(element.owner->item.name) + (pad.number.empty() ? "" : "." + PlainText(pad.number));
    return name;
}

} // namespace

std::string PlaceText(KPointD point)
{
    return FixedText(point.x) + ", " + FixedText(-point.y);
}

std::string ElementText(const Board& board, const BoardElement& element)
{
    const auto item = size_t(element.item);
    const std::string place = ", " + NetText(board, element.net) + ", " + LayersText(board, element.layers) + ", ";
    switch (element.kind) {
    case BoardElement::Kind::Track:
        return (board.tracks[item].isArc ? "arc track" : "track") + place + TrackText(board.tracks[item]);
    case BoardElement::Kind::Via:
        return "via" + place + "diameter " + FixedText(board.vias[item].diameter) + " mm" +
               HoleText(board.vias[item].hole);
    case BoardElement::Kind::Pad:
        break;
    }
    const Pad& pad = board.pads[item];
    return PadName(pad, element) + place + FixedText(pad.width) + " x " + FixedText(pad.height) + " mm" +
           HoleText(pad.hole);
}

std::string MatchText(const NamedItem& item, size_t elements)
{
    return (item.kind == NamedItem::Kind::Footprint ? "footprint " : "net ") + PlainText(item.name) + ", " +
           std::to_string(elements) + (elements == 1 ? " element" : " elements");
}

std::string GapText(const ElementGap& gap)
{
    return "clearance " + FixedText(gap.clearance) + " mm from " + PlaceText(gap.first) + " to " +
           PlaceText(gap.second);
}

} // namespace viewer
