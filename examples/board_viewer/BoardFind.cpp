#include "BoardFind.h"

#include "ReportText.h"

#include "util/CKString.h"

#include <map>

namespace viewer {

namespace {

/// Where the nets are found. Pads come first: they are what a probe can reach, and the first of a list wins.
std::map<int, KPointD> NetPositions(const Board& board)
{
    std::map<int, KPointD> positions;
    for (const Pad& pad : board.pads)
        positions.emplace(pad.net, pad.centre);
    for (const Track& track : board.tracks)
        positions.emplace(track.net, track.figure.start);
    for (const Via& via : board.vias)
        positions.emplace(via.net, via.centre);
    for (const FilledPolygon& area : board.filledPolygons) {
        if (!area.figure.points.empty())
            positions.emplace(area.net, area.figure.points.front());
    }
    return positions;
}

/// The search takes strings that it may change, so it gets copies.
bool Matches(const std::string& searchText, const std::string& name)
{
    CString search(searchText.c_str());
    CString data(name.c_str());
    return CKString::SearchDataForWildCard(search, data, 1) != 0;
}

} // namespace

std::vector<FoundItem> FindItems(const Board& board, const std::string& searchText)
{
    const std::map<int, KPointD> netPositions = NetPositions(board);
    std::vector<FoundItem> found;
    for (const NamedItem& item : board.names) {
        if (item.name.empty() || !Matches(searchText, item.name))
            continue;
        std::optional<KPointD> position;
        if (item.kind == NamedItem::Kind::Footprint)
            position = item.position;
        else if (const auto net = netPositions.find(item.net); net != netPositions.end())
            position = net->second;
        found.push_back({item, int(&item - board.names.data()), position});
    }
    return found;
}

std::string FoundLines(const std::vector<FoundItem>& items)
{
    std::string text;
    for (const FoundItem& found : items) {
        text += PlainText(found.item.name);
        text += found.item.kind == NamedItem::Kind::Footprint ? "\tfootprint" : "\tnet";
        if (found.position)
            text += '\t' + FixedText(found.position->x) + '\t' + FixedText(-found.position->y);
        text += '\n';
    }
    return text;
}

} // namespace viewer
