#include "BoardClearance.h"

#include "CopperElement.h"
#include "JsonWriter.h"
#include "NeighbourGrid.h"
#include "ReportText.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace viewer {

namespace {

/// Positions in files are whole nanometres, but their differences in millimetres are not exact: gaps as wide as a
/// design rule would come out on either side of it.
constexpr double kRounding = 1e-7; // mm

/// A net that the file uses without declaring it goes by its number.
std::string NetName(const Board& board, int net)
{
    const auto found = board.nets.find(net);
    if (found != board.nets.end())
        return found->second;
    return net == 0 ? std::string() : std::to_string(net);
}

/// Appends the pair once for each layer. Which of its nets comes first depends on names only, so that a board gives the
/// same list however its items are ordered.
void AppendPair(const Board& board, const CopperElement& a, const CopperElement& b, const MeasuredGap& gap,
                std::vector<Clearance>& list)
{
    Clearance clearance = {0, a.net, b.net, gap.clearance, gap.first, gap.second};
    if (std::pair(NetName(board, b.net), b.net) < std::pair(NetName(board, a.net), a.net)) {
        std::swap(clearance.net1, clearance.net2);
        std::swap(clearance.point1, clearance.point2);
    }
    for (int layer = 0; layer < board.layers.Count(); ++layer) {
        if ((a.layers & b.layers) >> layer & 1) {
            clearance.layer = layer;
            list.push_back(clearance);
        }
    }
}

std::string NetColumn(const Board& board, int net)
{
    const std::string name = NetName(board, net);
    return name.empty() ? "-" : PlainText(name);
}

double FileY(KPointD point)
{
    return -point.y;
}

/// To the resolution of the files: what is finer is the rounding of a nearest point's direction.
double WholeNanometres(double millimetres)
{
    constexpr double kPerMillimetre = 1e6;
    return std::round(millimetres * kPerMillimetre) / kPerMillimetre;
}

} // namespace

std::vector<Clearance> FindClearances(const Board& board, double limit, const ProgressHook& progress)
{
    constexpr size_t kProgressStep = 256; // elements
    const std::vector<CopperElement> elements = CopperElements(board);
    NeighbourGrid grid(elements, limit);
    std::vector<Clearance> list;
    for (size_t i = 0; i < elements.size(); ++i) {
        const CopperElement& element = elements[i];
        for (uint32_t number : grid.Enter(element.figure)) {
            const CopperElement& other = elements[number];
            if (element.net == other.net || (element.layers & other.layers) == 0)
                continue;
            const MeasuredGap gap = MeasureGap(other, element);
            if (gap.clearance < limit - kRounding)
                AppendPair(board, other, element, gap, list);
        }
        if (progress && i % kProgressStep == 0)
            progress(double(i) / double(elements.size()));
    }

    // Equally near ones stand as their layers do in the file, then from left to right and from the top down.
    std::sort(list.begin(), list.end(), [](const Clearance& a, const Clearance& b) {
        const auto key = [](const Clearance& c) {
            return std::tuple(c.distance, c.layer, c.point1.x, -c.point1.y, c.point2.x, -c.point2.y, c.net1, c.net2);
        };
        return key(a) < key(b);
    });
    return list;
}

std::string ClearanceLines(const Board& board, const std::vector<Clearance>& clearances)
{
    std::string text;
    for (const Clearance& c : clearances) {
        text +=
            PlainText(board.layers.Name(c.layer)) + '\t' + NetColumn(board, c.net1) + '\t' + NetColumn(board, c.net2);
        for (double number : {c.distance, c.point1.x, FileY(c.point1), c.point2.x, FileY(c.point2)})
            text += '\t' + FixedText(number);
        text += '\n';
    }
    return text + std::to_string(clearances.size()) + (clearances.size() == 1 ? " pair\n" : " pairs\n");
}

std::string ClearanceJson(const Board& board, const std::vector<Clearance>& clearances)
{
    JsonWriter json;
    json.Open('[');
    for (const Clearance& c : clearances) {
        json.Open('{');
        json.Member("layer", board.layers.Name(c.layer));
        json.Member("net1", NetName(board, c.net1));
        json.Member("net2", NetName(board, c.net2));
        json.Member("clearance", WholeNanometres(c.distance));
        json.Member("x1", WholeNanometres(c.point1.x));
        json.Member("y1", WholeNanometres(FileY(c.point1)));
        json.Member("x2", WholeNanometres(c.point2.x));
        json.Member("y2", WholeNanometres(FileY(c.point2)));
        json.Close('}');
    }
    json.Close(']');
    return json.Finish();
}

} // namespace viewer
