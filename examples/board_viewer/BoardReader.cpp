#include "BoardReader.h"

#include "FootprintReader.h"
#include "PadReader.h"

#include <cmath>

namespace viewer {

namespace {

void ReadLayerTable(const SExpr& item, Board& board)
{
    // (0 "F.Cu" signal "alias"): the head is a number, the first item the canonical name.
    for (SExpr layer = item.First(); layer; layer = layer.Next()) {
        if (layer.IsList() && board.layers.Add(layer.At(0).Text()) < 0)
            layer.Fail("the board has more than " + std::to_string(LayerTable::kMost) + " layers");
    }
}

void ReadNetInto(Board& board, const SExpr& item)
{
    const int number = item.Whole(0);
    const std::string name = item.At(1).Text();
    board.nets[number] = name;
    board.names.push_back({NamedItem::Kind::Net, name, {}, number});
}

/// A segment or an arc of a net.
Track ReadTrack(const SExpr& item, LayerTable& layers)
{
    Track track;
    track.isArc = item.Is("arc");
    ReadFigure(item, track.isArc ? "arc" : "line", Placement(), track.figure);
    track.layer = ReadLayer(item, layers);
    track.net = ReadNet(item);
    return track;
}

/// The copper layers between and including two, by their place in the stack.
LayerSet CopperSpan(const LayerTable& layers, LayerSet ends)
{
    // A via names the layers at its ends in either order.
    int lowest = INT32_MAX, highest = INT32_MIN;
    for (int i = 0; i < layers.Count(); ++i) {
        if ((ends >> i & 1) != 0) {
            lowest = std::min(lowest, LayerRank(layers.Name(i)));
            highest = std::max(highest, LayerRank(layers.Name(i)));
        }
    }
    LayerSet span = 0;
    for (int i = 0; i < layers.Count(); ++i) {
        const int rank = LayerRank(layers.Name(i));
        if (IsCopper(layers.Name(i)) && rank >= lowest && rank <= highest)
            span |= LayerSet(1) << i;
    }
    return span;
}

/// A via of any kind: through all copper, or, blind or buried, between the two layers that it names.
Via ReadVia(const SExpr& item, LayerTable& layers)
{
    Via via;
    via.centre = Placement().Place(item, "at");
    via.diameter = std::fabs(item.Find("size").Number(0));
    via.layers = CopperSpan(layers, ReadLayers(item, layers));
    via.unlessUnused = ReadUnlessUnused(item, via.layers, layers);
    via.net = ReadNet(item);
    via.hole.centre = via.centre;
    // Older files leave out a drill that equals the net class's; half the ring is the usual proportion.
    via.hole.width = via.hole.height = std::fabs(item.Find("drill").Number(0, via.diameter / 2));
    return via;
}

/// A drawn item of its kind; without figures when the kind is none that is drawn.
Graphic ReadGraphic(const SExpr& item, std::string_view kind, const Placement& placement, LayerTable& layers)
{
    Graphic graphic;
    Figure figure;
    if (ReadFigure(item, kind, placement, figure)) {
        graphic.kind = kind == "poly" ? "polygon" : kind;
        graphic.figures.push_back(std::move(figure));
        graphic.layer = ReadLayer(item, layers);
    }
    return graphic;
}

} // namespace

bool ReadGraphicInto(Board& board, const SExpr& item, const Placement& placement)
{
    const std::string_view head = item.Raw();
    if (head.substr(0, 3) != "gr_" && head.substr(0, 3) != "fp_")
        return false;
    Graphic graphic = ReadGraphic(item, head.substr(3), placement, board.layers);
    if (graphic.figures.empty())
        return false;
    board.graphics.push_back(std::move(graphic));
    return true;
}

void ReadZoneInto(Board& board, const SExpr& item)
{
    const int net = ReadNet(item);
    // Without a word on it a filled area is drawn with a border as wide as the zone's narrowest copper.
    const bool bordered = item.Find("filled_areas_thickness").At(0).Raw() != "no";
    const double border = bordered ? std::fabs(item.Find("min_thickness").Number(0)) : 0;

    for (SExpr part = item.First(); part; part = part.Next()) {
        if (!part.Is("filled_polygon"))
            continue;
        FilledPolygon area;
        area.figure.kind = Figure::Kind::Polygon;
        area.figure.filled = true;
        area.figure.width = border;
        area.figure.points = ReadPoints(part, Placement());
        area.layer = ReadLayer(part.Find("layer") ? part : item, board.layers);
        area.net = net;
        board.filledPolygons.push_back(std::move(area));
    }
}

namespace {

/// A text of the board itself, which is in place already and is not kept upright.
void ReadBoardTextInto(Board& board, const SExpr& item)
{
    if (!IsHidden(item))
        board.texts.push_back(ReadText(item, 0, Placement(), board.layers));
}

/// A dimension is lines and a text, which stands in place already.
void ReadDimensionInto(Board& board, const SExpr& item)
{
    Graphic graphic;
    graphic.kind = "dimension";
    graphic.figures = ReadDimension(item);
    graphic.layer = ReadLayer(item, board.layers);
    board.graphics.push_back(std::move(graphic));
    if (const SExpr text = item.Find("gr_text"))
        ReadBoardTextInto(board, text);
}

/// What to do with each kind of item on the outer level. The order of the file does not matter but for one thing:
/// layers come before what lies on them, so that "*.Cu" knows all copper.
void ReadItem(Board& board, const SExpr& item)
{
    const std::string_view head = item.IsList() ? item.Raw() : std::string_view();
    if (head == "segment" || head == "arc")
        board.tracks.push_back(ReadTrack(item, board.layers));
    else if (head == "via")
        board.vias.push_back(ReadVia(item, board.layers));
    else if (head == "footprint" || head == "module")
        ReadFootprintInto(board, item);
    else if (head == "zone")
        ReadZoneInto(board, item);
    else if (head == "net")
        ReadNetInto(board, item);
    else if (head == "layers")
        ReadLayerTable(item, board);
    else if (head == "gr_text")
        ReadBoardTextInto(board, item);
    else if (head == "dimension")
        ReadDimensionInto(board, item);
    else
        ReadGraphicInto(board, item, Placement());
}

} // namespace

Board ReadBoard(std::string_view text, const std::string& file, const ProgressHook& progress)
{
    constexpr size_t kProgressStep = 1 << 16; // bytes
    Board board;
    SExprReader reader(text, file, "kicad_pcb");
    size_t reported = 0;
    while (const SExpr item = reader.NextItem()) {
        ReadItem(board, item);
        if (progress && reader.Position() - reported >= kProgressStep) {
            reported = reader.Position();
            progress(double(reported) / double(text.size()));
        }
    }
    // Only now is all copper known that could meet a ring.
    DropUnusedRings(board);
    return board;
}

} // namespace viewer
