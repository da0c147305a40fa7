#include "FootprintReader.h"

#include "PadReader.h"

namespace viewer {

namespace {

/// Texts that stand for others: what a user writes as ${REFERENCE} or, in older files, as %R.
struct Variables
{
    std::string reference;
    std::string value;
};

/// Replaces without looking again at what was put in: a value that reads like a variable cannot loop.
void ReplaceAll(std::string& text, std::string_view name, const std::string& value)
{
    for (size_t at = text.find(name); at != text.npos; at = text.find(name, at + value.size()))
        text.replace(at, name.size(), value);
}

/// (fp_text kind "text" ...); empty without one of this kind.
std::string TextOfKind(const SExpr& footprint, std::string_view kind)
{
    for (SExpr item = footprint.First(); item; item = item.Next()) {
        if (item.Is("fp_text") && item.At(0).Raw() == kind)
            return item.At(1).Text();
    }
    return {};
}

/// Footprint texts are turned by half a turn where they would be read upside down.
double KeptUpright(double angle)
{
    while (angle > 90)
        angle -= 180;
    while (angle <= -90)
        angle += 180;
    return angle;
}

/// A visible text of a footprint. Its position turns with the footprint, its angle is absolute already.
void ReadFootprintTextInto(Board& board, const SExpr& item, const Placement& placement, const Variables& variables)
{
    if (IsHidden(item))
        return;
    Text text = ReadText(item, 1, placement, board.layers);
    if (!item.Has("unlocked") && !item.Find("at").Has("unlocked"))
        text.angle = KeptUpright(text.angle);
    ReplaceAll(text.text, "${REFERENCE}", variables.reference);
    ReplaceAll(text.text, "${VALUE}", variables.value);
    ReplaceAll(text.text, "%R", variables.reference);
    ReplaceAll(text.text, "%V", variables.value);
    board.texts.push_back(std::move(text));
}

} // namespace

void ReadFootprintInto(Board& board, const SExpr& footprint)
{
    const KPointD position = Placement().Place(footprint, "at");
    const Placement placement(position, footprint.Find("at").Number(2));
    // Both are needed before the first text is read: a text can come before the reference that it names.
    const Variables variables = {TextOfKind(footprint, "reference"), TextOfKind(footprint, "value")};
    const int number = int(board.names.size());
    board.names.push_back({NamedItem::Kind::Footprint, variables.reference, position, 0});

    for (SExpr item = footprint.First(); item; item = item.Next()) {
        if (item.Is("pad")) {
            board.pads.push_back(ReadPad(item, placement, board.layers));
            board.pads.back().footprint = number;
        } else if (item.Is("fp_text")) {
            ReadFootprintTextInto(board, item, placement, variables);
        } else if (item.Is("zone")) {
            ReadZoneInto(board, item);
        } else if (item.IsList()) {
            ReadGraphicInto(board, item, placement);
        }
    }
}

} // namespace viewer
