/// A board as its file tells it, but in place and in Kolm's frame: millimetres, x to the right, y upward, angles
/// counter-clockwise. Footprints are resolved already; what remains are figures on layers. Nothing here knows how a
/// board is read or drawn.
#pragma once

#include "LayerTable.h"

#include "foundation/KRecords.h"

#include <map>
#include <string>
#include <vector>

namespace viewer {

/// One piece of drawn geometry.
struct Figure
{
    enum class Kind
    {
        Line,     ///< from start to end, with round ends
        Arc,      ///< from start to end around centre
        Circle,   ///< around centre through start
        Polygon,  ///< closed, through points
        Polyline, ///< open, through points
    };
    Kind kind = Kind::Line;
    double width = 0; ///< of the stroke along the line or border
    bool filled = false;
    bool counterClockwise = true; ///< of an arc
    KPointD start{};
    KPointD end{};
    KPointD centre{};
    std::vector<KPointD> points;
};

struct Track
{
    Figure figure;      ///< a line or an arc
    bool isArc = false; ///< as the file says; an arc without a bend is drawn as a line
    int layer = 0;
    int net = 0;
};

/// A drilled hole: round where width and height are equal, else oval.
struct Hole
{
    KPointD centre{};
    double width = 0; ///< 0: no hole
    double height = 0;
    double angle = 0;  ///< degrees
    bool bare = false; ///< without copper around it
};

struct Via
{
    KPointD centre{};
    double diameter = 0;
    LayerSet layers = 0;       ///< on which it has a ring
    LayerSet unlessUnused = 0; ///< of these, where it has one only when copper of its net meets it
    int net = 0;
    Hole hole;
};

struct Pad
{
    std::string number;
    std::string shape; ///< the word of the file: "rect", "roundrect", ...
    std::vector<Figure> copper;
    LayerSet layers = 0;
    LayerSet unlessUnused = 0; ///< as for vias
    KPointD centre{};
    double width = 0; ///< as the file says, before the pad is turned
    double height = 0;
    int footprint = -1; ///< its number in the board's names; -1 for none
    int net = 0;
    Hole hole;
};

struct Graphic
{
    std::string kind; ///< "line", "arc", "circle", "rect", "polygon", "curve" or "dimension"
    std::vector<Figure> figures;
    int layer = 0;
};

struct Text
{
    enum class Side
    {
        Low = -1,
        Middle = 0,
        High = 1
    };                ///< where the anchor lies: left/bottom, middle, right/top of the text
    std::string text; ///< UTF-8; lines are separated by '\n'
    KPointD anchor{};
    double angle = 0;  ///< degrees
    double height = 1; ///< of a capital letter
    double width = 1;  ///< of a letter's cell, nominal
    double thickness = 0.15;
    Side horizontal = Side::Middle;
    Side vertical = Side::Middle;
    bool mirrored = false;
    bool italic = false;
    int layer = 0;
};

/// A filled area of a zone. Its cut-outs are part of the one outline, which runs to each of them and back along the
/// same edge.
struct FilledPolygon
{
    Figure figure;
    int layer = 0;
    int net = 0;
};

/// What a user searches a board for.
struct NamedItem
{
    enum class Kind
    {
        Footprint,
        Net,
    };
    Kind kind = Kind::Footprint;
    std::string name;   ///< the reference, or the net's name as in the file
    KPointD position{}; ///< of a footprint
    int net = 0;        ///< number of a net
};

struct Board
{
    LayerTable layers;
    std::map<int, std::string>
        nets; ///< names as in the file, escapes like {slash} included: they tell apart what else would be one name
    std::vector<NamedItem> names; ///< every footprint and every net, in the order of the file; references can repeat
    std::vector<Track> tracks;
    std::vector<Via> vias;
    std::vector<Pad> pads;
    std::vector<Graphic> graphics;
    std::vector<Text> texts;
    std::vector<FilledPolygon> filledPolygons;
};

/// The references of the footprints, in the order of the file.
std::vector<std::string> References(const Board& board);

/// Distance from a point to the inked area of a figure, border stroke included: 0 on it.
double DistanceToFigure(const Figure& figure, KPointD point);

/// Takes from each via and pad the rings on layers of its `unlessUnused` where no track, pad or zone of its net meets
/// it.
void DropUnusedRings(Board& board);

} // namespace viewer
