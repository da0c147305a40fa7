#include "BoardClearance.h"
#include "CopperElement.h"
#include "FigureReader.h"
#include "ViewerTesting.h"

#include <algorithm>
#include <map>
#include <random>
#include <tuple>

namespace viewer {

namespace {

const std::string kNets = "(net 0 \"\") (net 1 \"A\") (net 2 \"B\")";

std::string SegmentItem(const std::string& ends, const char* width, int net, const char* layer = "F.Cu")
{
    return "(segment " + ends + " (width " + width + ") (layer \"" + layer + "\") (net " + std::to_string(net) + "))";
}

std::string ViaItem(const char* at, const char* more, int net)
{
    return "(via (at " + std::string(at) + ") (size 0.8) (drill 0.4) " + more + " (net " + std::to_string(net) + "))";
}

std::string PadItem(const char* shape, const char* at, const char* size, int net, const char* layers = "F.Cu F.Mask")
{
    return "(footprint f (layer F.Cu) (at 0 0) (pad 1 thru_hole " + std::string(shape) + " (at " + at + ") (size " +
           size + ") (drill 0.2) (layers " + layers + ") (net " + std::to_string(net) + " \"x\")))";
}

const std::string kTrackA = SegmentItem("(start 0 0) (end 10 0)", "0.2", 1); ///< its edges at y = -0.1 and 0.1

} // namespace

struct ClearanceCase
{
    const char* why;
    std::string items;
    const char* expected; ///< the lines of the report for a limit of 0.5; tabs stand as spaces
};

TEST(BoardClearance, KnownPlaces)
{
    const std::string through = "(layers \"F.Cu\" \"B.Cu\")";
    const ClearanceCase cases[] = {
        {"half widths 0.1 and 0.15 of 0.5", kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 2),
         "F.Cu A B 0.2500 4.0000 0.1000 4.0000 0.3500\n1 pair\n"},
        {"nets come in the order of their names",
         kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 3) + "(net 3 A-)",
         "F.Cu A A- 0.2500 4.0000 0.1000 4.0000 0.3500\n1 pair\n"},
        {"the same with the elements exchanged", SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 2) + kTrackA,
         "F.Cu A B 0.2500 4.0000 0.1000 4.0000 0.3500\n1 pair\n"},
        {"one net, or none",
         kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 1) + SegmentItem("(start 20 0) (end 30 0)", "0.2", 0) +
             SegmentItem("(start 20 0.4) (end 30 0.4)", "0.2", 0),
         "0 pairs\n"},
        {"without a net against a net", kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 0),
         "F.Cu - A 0.2500 4.0000 0.3500 4.0000 0.1000\n1 pair\n"},
        {"other layers", kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 2, "B.Cu"), "0 pairs\n"},
        {"as near as the limit is not closer", kTrackA + SegmentItem("(start 4 0.7) (end 4 8)", "0.2", 2), "0 pairs\n"},
        {"crossing", kTrackA + SegmentItem("(start 4 -5) (end 4 5)", "0.3", 2),
         "F.Cu A B 0.0000 4.0000 0.0000 4.0000 0.0000\n1 pair\n"},
        {"two tracks on one slanting line, 0.39 sqrt 2 apart: rounding puts their ends on both sides of each other",
         SegmentItem("(start 102.16 51.23) (end 110.03 43.36)", "0.2", 1) +
             SegmentItem("(start 110.42 42.97) (end 129.52 23.87)", "0.2", 2),
         "F.Cu A B 0.3515 110.1007 43.2893 110.3493 43.0407\n1 pair\n"},
        {"the same with wider tracks, 0.39 sqrt 2 - 0.5 apart",
         SegmentItem("(start 102.16 51.23) (end 110.03 43.36)", "0.5", 1) +
             SegmentItem("(start 110.42 42.97) (end 129.52 23.87)", "0.5", 2),
         "F.Cu A B 0.0515 110.2068 43.1832 110.2432 43.1468\n1 pair\n"},
        {"nearest first, a ring at (2, -0.7) and one at (7, 0.6)",
         kTrackA + ViaItem("2 -0.7", through.c_str(), 2) + ViaItem("7 0.6", through.c_str(), 2),
         "F.Cu A B 0.1000 7.0000 0.1000 7.0000 0.2000\nF.Cu A B 0.2000 2.0000 -0.1000 2.0000 -0.3000\n2 pairs\n"},
        {"two vias meet on four layers, pairs stand in the layers' order",
         ViaItem("5 5", through.c_str(), 1) + ViaItem("6 5", through.c_str(), 2),
         "F.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\nIn1.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\n"
         "In2.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\nB.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\n4 pairs\n"},
        {"a blind via ends at the first inner layer",
         ViaItem("5 5", "(layers \"F.Cu\" \"In1.Cu\")", 1) + SegmentItem("(start 6 5) (end 6 9)", "0.8", 2, "In1.Cu") +
             SegmentItem("(start 6 5) (end 6 9)", "0.8", 2, "In2.Cu"),
         "In1.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\n1 pair\n"},
        {"without a ring inside the bare hole of 0.4 remains",
         ViaItem("5 5", (through + " (remove_unused_layers)").c_str(), 1) +
             SegmentItem("(start 6 5) (end 6 9)", "0.8", 2, "In2.Cu") + SegmentItem("(start 6 5) (end 6 9)", "0.8", 2),
         "F.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\nIn2.Cu A B 0.4000 5.2000 5.0000 5.6000 5.0000\n2 pairs\n"},
        {"a track of its own net keeps the ring on one inner layer",
         ViaItem("5 5", (through + " (remove_unused_layers)").c_str(), 1) +
             SegmentItem("(start 5 5) (end 4 5)", "0.2", 1, "In1.Cu") +
             SegmentItem("(start 6 5) (end 6 9)", "0.8", 2, "In1.Cu"),
         "In1.Cu A B 0.2000 5.4000 5.0000 5.6000 5.0000\n1 pair\n"},
        {"an oval pad, upright by its angle, 3 high", kTrackA + PadItem("oval", "5 1.8 90", "3 1", 2),
         "F.Cu A B 0.2000 5.0000 0.1000 5.0000 0.3000\n1 pair\n"},
        {"a round pad on all layers of its set, one of them with a track",
         SegmentItem("(start 0 0) (end 10 0)", "0.2", 1, "In1.Cu") + PadItem("circle", "5 1", "1.2 1.2", 2, "*.Cu"),
         "In1.Cu A B 0.3000 5.0000 0.1000 5.0000 0.4000\n1 pair\n"},
        {"square pads and holes without copper do not count",
         kTrackA + PadItem("rect", "5 0.8", "1 1", 2) +
             "(footprint f (layer F.Cu) (at 0 0) (pad \"\" np_thru_hole circle (at 8 0.6) (size 0.6 0.6) (drill 0.6) "
             "(layers *.Cu)))",
         "0 pairs\n"},
        {"half a circle of radius 5 bulges toward the track",
         SegmentItem("(start 0 0) (end 20 0)", "0.2", 1) +
             "(arc (start 5 6) (mid 10 1) (end 15 6) (width 0.8) (layer \"F.Cu\") (net 2))",
         "0 pairs\n"},
        {"and a little further, the arc first",
         "(arc (start 5 5.8) (mid 10 0.8) (end 15 5.8) (width 0.8) (layer F.Cu) (net 2))" +
             SegmentItem("(start 0 0) (end 20 0)", "0.2", 1),
         "F.Cu A B 0.3000 10.0000 0.1000 10.0000 0.4000\n1 pair\n"},
        {"two arcs about one centre, radii 5 and 6; the first of the equally near places is an end",
         "(arc (start 5 0) (mid 0 5) (end -5 0) (width 0.4) (layer F.Cu) (net 1))"
         "(arc (start 6 0) (mid 0 6) (end -6 0) (width 0.8) (layer F.Cu) (net 2))",
         "F.Cu A B 0.4000 5.2000 0.0000 5.6000 0.0000\n1 pair\n"},
    };
    for (const ClearanceCase& c : cases) {
        const Board board = ReadItems(kNets + c.items);
        std::string report = ClearanceLines(board, FindClearances(board, 0.5));
        std::replace(report.begin(), report.end(), '\t', ' ');
        EXPECT_EQ(report, c.expected) << c.why;
    }
}

TEST(BoardClearance, JsonHoldsTheSame)
{
    const Board board = ReadItems("(net 1 \"A\\\"\")" + kTrackA + SegmentItem("(start 4 0.5) (end 4 8)", "0.3", 0));
    std::string json = ClearanceJson(board, FindClearances(board, 0.5));
    json.erase(std::remove_if(json.begin(), json.end(), [](char c) { return c == ' ' || c == '\n'; }), json.end());
    EXPECT_EQ(json, "[{\"layer\":\"F.Cu\",\"net1\":\"\",\"net2\":\"A\\\"\",\"clearance\":0.25,"
                    "\"x1\":4,\"y1\":0.35,\"x2\":4,\"y2\":0.1}]");
    EXPECT_EQ(ClearanceJson(board, {}), "[]\n");
}

// ---- The grid misses nothing: every pair measured, against those that the grid proposes

namespace {

/// Tracks, long and slanting ones among them, arcs from flat ones to more than half a circle, and discs, all of
/// different nets on one layer.
Board RandomBoard(std::mt19937& random, double width, double height, int count)
{
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    Board board;
    board.layers.Add("F.Cu");
    for (int i = 0; i < count; ++i) {
        Track track;
        track.net = i + 1;
        Figure& figure = track.figure;
        figure.width = between(0.05, 1);
        figure.start = {between(0, width), between(0, height)};
        figure.end = {between(0, width), between(0, height)};
        if (i % 3 == 0) {
            figure.end = figure.start;
        } else if (i % 3 == 1) {
            const double bend = between(0.02, 0.6);
            const KPointD middle = {(figure.start.x + figure.end.x) / 2 + bend * (figure.end.y - figure.start.y),
                                    (figure.start.y + figure.end.y) / 2 - bend * (figure.end.x - figure.start.x)};
            const double breadth = figure.width;
            figure = FigureThroughPoints(figure.start, middle, figure.end);
            figure.width = breadth;
        }
        board.tracks.push_back(track);
    }
    return board;
}

} // namespace

TEST(BoardClearance, TheGridMissesNothing)
{
    constexpr int kCount = 120;
    std::mt19937 random(20240611);
    const struct
    {
        double width, height, limit;
    } cases[] = {{50, 40, 0.3}, {50, 40, 12}, {50, 40, 1000}, {80, 0, 0.5}, {0, 80, 0.5}, {0, 0, 0.5}, {300, 1, 2}};
    for (const auto& c : cases) {
        const Board board = RandomBoard(random, c.width, c.height, kCount);
        const std::vector<CopperElement> elements = CopperElements(board);
        ASSERT_EQ(elements.size(), size_t(kCount));
        std::vector<double> expected;
        for (size_t j = 0; j < elements.size(); ++j) {
            for (size_t i = 0; i < j; ++i) {
                const double clearance = MeasureGap(elements[i], elements[j]).clearance;
                if (clearance < c.limit)
                    expected.push_back(clearance);
            }
        }
        std::sort(expected.begin(), expected.end());
        std::vector<double> found;
        for (const Clearance& clearance : FindClearances(board, c.limit))
            found.push_back(clearance.distance);
        EXPECT_EQ(found, expected) << c.width << " x " << c.height << ", " << c.limit;
    }
}

TEST(BoardClearance, TheGridFollowsFlatArcs)
{
    // 14 degrees of a circle of radius 100 mm, which rise 0.75 mm above their chord, and dots 0.1 mm outside of them.
    const auto onCircle = [](double radius, double degrees) {
        return KPointD{radius * std::sin(degrees * M_PI / 180), radius * std::cos(degrees * M_PI / 180)};
    };
    constexpr int kDots = 137;
    Board board;
    board.layers.Add("F.Cu");
    Track arc;
    arc.figure = FigureThroughPoints(onCircle(100, -7), onCircle(100, 0), onCircle(100, 7));
    arc.figure.width = 0.1;
    board.tracks.push_back(arc);
    for (int i = 0; i < kDots; ++i) {
        Track dot;
        dot.net = 1;
        dot.figure.start = dot.figure.end = onCircle(100.2, (i - kDots / 2) * 0.1);
        dot.figure.width = 0.1;
        board.tracks.push_back(dot);
    }
    const std::vector<Clearance> list = FindClearances(board, 0.11);
    EXPECT_EQ(list.size(), size_t(kDots));
    for (const Clearance& clearance : list)
        EXPECT_NEAR(clearance.distance, 0.1, 1e-6);
}

// ---- Real boards against a slow second way

namespace {

/// A piece of copper as points along its centre line. The spacing bounds the error: the nearest point of the line is
/// within half of it of a sample, so a sampled distance is too large by at most that.
constexpr double kSpacing = 0.01;

struct SampledElement
{
    std::vector<KPointD> samples;
    Figure figure;
    LayerSet layers;
    int net;
    KPointD middle; ///< no part of the copper is further from here than the reach
    double reach;
};

std::vector<KPointD> Samples(const Figure& figure)
{
    std::vector<KPointD> points = {figure.start};
    if (figure.kind == Figure::Kind::Arc) {
        const double radius = std::hypot(figure.start.x - figure.centre.x, figure.start.y - figure.centre.y);
        double angle = std::atan2(figure.start.y - figure.centre.y, figure.start.x - figure.centre.x);
        const double end = std::atan2(figure.end.y - figure.centre.y, figure.end.x - figure.centre.x);
        const double sense = figure.counterClockwise ? 1 : -1;
        double sweep = sense * (end - angle);
        sweep += sweep <= 0 ? 2 * M_PI : 0;
        for (double turned = 0; turned < sweep; turned += kSpacing / radius)
            points.push_back({figure.centre.x + radius * std::cos(angle + sense * turned),
                              figure.centre.y + radius * std::sin(angle + sense * turned)});
    } else {
        const double dx = figure.end.x - figure.start.x, dy = figure.end.y - figure.start.y;
        const int count = int(std::hypot(dx, dy) / kSpacing) + 1;
        for (int i = 1; i < count; ++i)
            points.push_back({figure.start.x + dx * i / count, figure.start.y + dy * i / count});
    }
    points.push_back(figure.end);
    return points;
}

void AddSampled(std::vector<SampledElement>& list, const Figure& figure, LayerSet layers, int net)
{
    if (layers == 0)
        return;
    SampledElement element = {Samples(figure), figure, layers, net, {}, 0};
    element.middle = element.samples[element.samples.size() / 2];
    for (const KPointD& p : element.samples)
        element.reach = std::max(element.reach, std::hypot(p.x - element.middle.x, p.y - element.middle.y));
    element.reach += figure.width / 2;
    list.push_back(std::move(element));
}

/// Tracks, rings, the holes where rings are gone, and round and oval pads.
std::vector<SampledElement> SampledCopper(const Board& board)
{
    std::vector<SampledElement> list;
    const LayerSet copper = board.layers.Copper();
    for (const Track& track : board.tracks)
        AddSampled(list, track.figure, LayerSet(1) << track.layer & copper, track.net);
    for (const Via& via : board.vias) {
        Figure disc;
        disc.start = disc.end = via.centre;
        disc.width = via.diameter;
        AddSampled(list, disc, via.layers & copper, via.net);
        disc.width = via.hole.width;
        AddSampled(list, disc, via.unlessUnused & ~via.layers & copper, via.net);
    }
    for (const Pad& pad : board.pads) {
        if (pad.copper.empty() || (pad.shape != "oval" && pad.shape != "circle"))
            continue;
        Figure figure = pad.copper[0];
        if (figure.kind == Figure::Kind::Circle) {
            figure.kind = Figure::Kind::Line;
            figure.width = 2 * std::hypot(figure.start.x - figure.centre.x, figure.start.y - figure.centre.y);
            figure.start = figure.end = figure.centre;
        }
        AddSampled(list, figure, pad.layers & copper, pad.net);
    }
    return list;
}

/// From the samples of the one to the other; too large by at most half the spacing.
double SampledDistance(const SampledElement& a, const SampledElement& b)
{
    double nearest = HUGE_VAL;
    for (const KPointD& sample : a.samples)
        nearest = std::min(nearest, DistanceToFigure(b.figure, sample));
    return std::max(nearest - a.figure.width / 2, 0.0);
}

using Place = std::tuple<int, int, int>; ///< layer and the two nets, the smaller number first

/// All pairs on all layers, sorted by distance for each place.
std::map<Place, std::vector<double>> SampledClearances(const Board& board, double limit)
{
    const std::vector<SampledElement> list = SampledCopper(board);
    std::map<Place, std::vector<double>> clearances;
    for (size_t j = 0; j < list.size(); ++j) {
        for (size_t i = 0; i < j; ++i) {
            const SampledElement& a = list[i];
            const SampledElement& b = list[j];
            const double between = std::hypot(a.middle.x - b.middle.x, a.middle.y - b.middle.y);
            if (a.net == b.net || (a.layers & b.layers) == 0 || between > a.reach + b.reach + limit)
                continue;
            const bool aIsShorter = a.samples.size() < b.samples.size();
            const double distance = aIsShorter ? SampledDistance(a, b) : SampledDistance(b, a);
            for (int layer = 0; distance < limit && layer < board.layers.Count(); ++layer) {
                if ((a.layers & b.layers) >> layer & 1)
                    clearances[{layer, std::min(a.net, b.net), std::max(a.net, b.net)}].push_back(distance);
            }
        }
    }
    for (auto& [place, distances] : clearances)
        std::sort(distances.begin(), distances.end());
    return clearances;
}

void ExpectSameAsSampled(const std::string& file, double limit)
{
    SCOPED_TRACE(file);
    const Board board = ReadBoard(ReadBytes(file), file);
    const std::vector<Clearance> list = FindClearances(board, limit);
    EXPECT_GT(list.size(), 0u);

    // Sorting keeps the bound: the n-th smallest of two lists differ by no more than their pairs do.
    std::map<Place, std::vector<double>> found;
    double last = 0;
    for (const Clearance& c : list) {
        EXPECT_GE(c.distance, last);
        last = c.distance;
        found[{c.layer, std::min(c.net1, c.net2), std::max(c.net1, c.net2)}].push_back(c.distance);
        // Points are off by the rounding of a float's angle and, on tracks that rise by less than a ten-thousandth of
        // their run, by the slope that the library neglects there.
        const double between = std::hypot(c.point1.x - c.point2.x, c.point1.y - c.point2.y);
        if (c.distance > 0) {
            EXPECT_NEAR(between, c.distance, 1e-4);
        }
    }
    // Pairs at the limit may be on one list only, so the sampled list reaches further and its end may be missing.
    for (const auto& [place, expected] : SampledClearances(board, limit + kSpacing)) {
        const std::vector<double>& distances = found[place];
        ASSERT_LE(distances.size(), expected.size());
        for (size_t i = 0; i < expected.size(); ++i) {
            const double clearance = i < distances.size() ? distances[i] : limit;
            EXPECT_LE(clearance, expected[i] + 1e-6) << std::get<0>(place) << " " << std::get<1>(place);
            if (i < distances.size()) {
                EXPECT_GE(clearance, expected[i] - kSpacing / 2 - 1e-6);
            }
        }
        found.erase(place);
    }
    EXPECT_TRUE(found.empty()) << found.size() << " places are near on our list only";
}

} // namespace

TEST(BoardClearance, AgreesWithSamplingOnOurBoard)
{
    ExpectSameAsSampled(KOLM_VIEWER_BOARD, 0.5);
}

TEST(BoardClearance, AgreesWithSamplingOnInstalledBoards)
{
    const char* place = std::getenv("KOLM_DEMO_BOARDS");
    const std::filesystem::path folder = place ? place : "/usr/share/kicad/demos";
    // Arc tracks; vias without inner rings; many round and oval pads.
    const std::pair<const char*, double> boards[] = {
        {"stickhub/StickHub.kicad_pcb", 0.2},
        {"kit-dev-coldfire-xilinx_5213/kit-dev-coldfire-xilinx_5213.kicad_pcb", 0.2},
        {"interf_u/interf_u.kicad_pcb", 0.3},
        {"ecc83/ecc83-pp_v2.kicad_pcb", 3},
    };
    int tested = 0;
    for (const auto& [name, limit] : boards) {
        if (std::filesystem::exists(folder / name)) {
            ExpectSameAsSampled((folder / name).string(), limit);
            ++tested;
        }
    }
    if (tested == 0)
        GTEST_SKIP() << "no boards found: install the package kicad-demos or set KOLM_DEMO_BOARDS";
}

} // namespace viewer
