/// The narrowest places of a board: copper of different nets that lies closer together than it should.
#pragma once

#include "Board.h"
#include "BoardReader.h"

#include <string>
#include <vector>

namespace viewer {

/// Two pieces of copper on one layer and where they are nearest to each other, in Kolm's frame.
struct Clearance
{
    int layer = 0;
    int net1 = 0; ///< the net whose name comes first in byte order; 0, without a name, before all others
    int net2 = 0;
    double distance = 0; ///< between the edges; 0 where they touch or overlap
    KPointD point1{};    ///< on the edge of the first net's copper
    KPointD point2{};
};

/// All pairs of elements (see CopperElements()) of different nets that are closer than the limit, nearest first. A pair
/// counts once for every layer that its elements share. Copper without a net is compared with that of every net, but
/// not with itself. A distance that equals the limit to a tenth of a nanometre is not closer.
std::vector<Clearance> FindClearances(const Board& board, double limit, const ProgressHook& progress = {});

/// One line each: layer, both nets, distance and the points' coordinates in the file's frame (y down), separated by
/// tabs, all numbers with four decimals; "-" for no net. The last line is the count.
std::string ClearanceLines(const Board& board, const std::vector<Clearance>& clearances);

/// The same as an array of objects with the members layer, net1, net2, clearance, x1, y1, x2 and y2, without a count.
/// Numbers are rounded to nanometres; no net is the empty text.
std::string ClearanceJson(const Board& board, const std::vector<Clearance>& clearances);

} // namespace viewer
