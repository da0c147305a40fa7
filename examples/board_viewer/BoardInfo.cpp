#include "BoardInfo.h"

#include "JsonWriter.h"

#include <cstdio>
#include <map>
#include <string_view>

namespace viewer {

namespace {

using Counts = std::map<std::string, size_t>;

/// What lies on one layer.
struct LayerCounts
{
    size_t segments = 0;
    size_t arcs = 0;
    size_t vias = 0;
    size_t texts = 0;
    Counts padsByShape;
    Counts graphicsByKind;
    std::vector<size_t> filledPolygonPoints;
};

/// One pass over each list of the board. A pad whose hole leaves no copper is on no layer.
std::vector<LayerCounts> CountLayers(const Board& board)
{
    std::vector<LayerCounts> counts(size_t(board.layers.Count()));
    const auto onEach = [&](LayerSet layers, auto count) {
        for (size_t i = 0; i < counts.size(); ++i) {
            if ((layers >> i & 1) != 0)
                count(counts[i]);
        }
    };
    for (const Track& track : board.tracks) {
        LayerCounts& layer = counts[size_t(track.layer)];
        ++(track.isArc ? layer.arcs : layer.segments);
    }
    for (const Via& via : board.vias)
        onEach(via.layers, [](LayerCounts& layer) { ++layer.vias; });
    for (const Pad& pad : board.pads)
        onEach(pad.copper.empty() ? 0 : pad.layers, [&](LayerCounts& layer) { ++layer.padsByShape[pad.shape]; });
    for (const Graphic& graphic : board.graphics)
        ++counts[size_t(graphic.layer)].graphicsByKind[graphic.kind];
    for (const Text& text : board.texts)
        ++counts[size_t(text.layer)].texts;
    for (const FilledPolygon& area : board.filledPolygons)
        counts[size_t(area.layer)].filledPolygonPoints.push_back(area.figure.points.size());
    return counts;
}

/// "#RRGGBB": red, which lies in the low byte, comes first.
std::string HexColour(Colour colour)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", unsigned(colour & 0xFF), unsigned(colour >> 8 & 0xFF),
                  unsigned(colour >> 16 & 0xFF));
    return text;
}

/// An object with one member per name, in alphabetical order.
void WriteCounts(JsonWriter& json, std::string_view key, const Counts& counts)
{
    json.Open(key, '{');
    for (const auto& [name, count] : counts)
        json.Member(name, count);
    json.Close('}');
}

void WriteLayer(JsonWriter& json, const std::string& name, const LayerCounts& layer)
{
    json.Open('{');
    json.Member("name", name);
    json.Member("colour", HexColour(LayerColour(name)));
    json.Member("segments", layer.segments);
    json.Member("arcs", layer.arcs);
    json.Member("vias", layer.vias);
    WriteCounts(json, "pads", layer.padsByShape);
    WriteCounts(json, "graphics", layer.graphicsByKind);
    json.Member("texts", layer.texts);
    json.Open("filledPolygons", '[');
    for (size_t points : layer.filledPolygonPoints)
        json.Value(points);
    json.Close(']');
    json.Close('}');
}

/// The area that the picture fits, in the file's frame: top is the smaller y. Empty for an empty board.
void WriteOutline(JsonWriter& json, const BoardPicture& picture)
{
    CKRectD box = BoundsOf(picture, false);
    json.Open("outline", '{');
    if (box.IsInitialized()) {
        json.Member("left", box.GetLeft());
        json.Member("top", -box.GetTop());
        json.Member("right", box.GetRight());
        json.Member("bottom", -box.GetBottom());
    }
    json.Close('}');
}

/// By the type codes of the library; what the viewer never stores counts as "others".
void CountShape(CKGeom* shape, Counts& counts)
{
    constexpr const char* kNames[] = {"others", "texts", "lines", "arcs", "others", "others", "polygons"};
    const int type = shape ? shape->GetType() : 0;
    ++counts[kNames[type >= 0 && type <= 6 ? type : 0]];
}

} // namespace

std::string BoardInfoJson(const Board& board, const BoardPicture& picture)
{
    JsonWriter json;
    json.Open('{');

    json.Open("layers", '[');
    const std::vector<LayerCounts> counts = CountLayers(board);
    for (int i = 0; i < board.layers.Count(); ++i)
        WriteLayer(json, board.layers.Name(i), counts[size_t(i)]);
    json.Close(']');

    json.Open("totals", '{');
    json.Member("tracks", board.tracks.size());
    json.Member("vias", board.vias.size());
    json.Member("pads", board.pads.size());
    json.Member("graphics", board.graphics.size());
    json.Member("texts", board.texts.size());
    json.Member("filledPolygons", board.filledPolygons.size());
    json.Close('}');

    json.Open("references", '[');
    for (const std::string& reference : References(board))
        json.Value(reference);
    json.Close(']');

    json.Open("nets", '[');
    for (const auto& [number, name] : board.nets)
        json.Value(name);
    json.Close(']');

    WriteOutline(json, picture);
    json.Close('}');
    return json.Finish();
}

std::string PictureInfoJson(const BoardPicture& picture)
{
    JsonWriter json;
    json.Open('{');
    json.Open("layers", '[');
    for (const auto& layer : picture.layers) {
        Counts counts;
        for (int i = 0; i < layer->shapes.GetCount(); ++i)
            CountShape(layer->shapes.GetAt(i), counts);
        json.Open('{');
        json.Member("name", layer->name);
        json.Member("colour", HexColour(layer->colour));
        WriteCounts(json, "shapes", counts);
        json.Close('}');
    }
    json.Close(']');
    WriteOutline(json, picture);
    json.Close('}');
    return json.Finish();
}

} // namespace viewer
