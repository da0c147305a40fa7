#include "BoardView.h"

#include "ReportText.h"
#include "StatusTexts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unordered_set>

// What is picked, measured and found in a view, and the texts about it.

namespace viewer {

namespace {

/// Exclusive-or with this changes each channel by at least 64 whatever was there; white would leave a middle grey as it
/// is.
constexpr Colour kPickColour = 0xC0C0C0;
constexpr Colour kMeasureColour = 0xC0C0C0;

constexpr double kMatchShare = 0.4; ///< of the window, which a match fills that has to be brought nearer
constexpr double kWholeShare = 0.9; ///< and one that is larger than the window, so that it is shown as large as can be
constexpr int kSmallestMatch = 24;  ///< pixels; smaller ones are brought nearer

std::vector<const Figure*> InkOf(const std::vector<BoardElement*>& elements)
{
    std::vector<const Figure*> ink;
    for (const BoardElement* element : elements) {
        for (const Figure& figure : element->ink)
            ink.push_back(&figure);
    }
    return ink;
}

/// The array owns the shape from then on, unless it has no memory for it and raises.
void AddShape(CKGeomArray& shapes, std::unique_ptr<OverlayShape> shape)
{
    shapes.Add(shape.get());
    (void)shape.release();
}

} // namespace

void BoardView::Pick(CPoint pixel)
{
    if (!EnsureView())
        return;
    second.Unpicking();
    first.Click(pixel.x, pixel.y);
    SelectionChanged();
}

void BoardView::PickSecond(CPoint pixel)
{
    if (!first.Current()) {
        Pick(pixel);
        return;
    }
    second.Click(pixel.x, pixel.y, first.Current());
    SelectionChanged();
}

void BoardView::ClearPick()
{
    if (!first.IsPick() && !second.IsPick())
        return;
    ForgetSelection();
    SelectionChanged();
}

void BoardView::ForgetSelection()
{
    first.Unpicking();
    second.Unpicking();
    gap.reset();
    pickShapes.DeleteElements();
    measureShapes.DeleteElements();
}

/// Makes the overlays of what is picked now. The frame stays as it is.
void BoardView::SelectionChanged()
{
    pickShapes.DeleteElements();
    measureShapes.DeleteElements();
    gap.reset();
    // One shape for both picks: where they overlap, exclusive-or would show neither.
    std::vector<BoardElement*> picked = first.Picked();
    if (BoardElement* const other = second.Current()) {
        picked.push_back(other);
        gap = MeasureElements(*first.Current(), *other);
    }
    if (!picked.empty())
        AddShape(pickShapes, std::make_unique<OverlayShape>(InkOf(picked), kPickColour));
    if (gap) {
        Figure line;
        line.start = gap->first;
        line.end = gap->second;
        AddShape(measureShapes, std::make_unique<OverlayShape>(std::vector<const Figure*>{&line}, kMeasureColour));
    }
    overlayDue = true;
    if (repaint)
        repaint();
}

/// What can no longer be seen is no longer picked.
void BoardView::LayersChanged()
{
    UpdateLayers();
    const auto isHidden = [this](BoardElement* element) { return element && !IsVisible(*element); };
    if (isHidden(first.Current()) || isHidden(second.Current()))
        ClearPick();
}

bool BoardView::IsVisible(const BoardElement& element) const
{
    for (size_t bit = 0; bit < scene.layerNames.size(); ++bit) {
        if ((element.layers >> bit & 1) != 0 && layers.IsVisible(scene.layerNames[bit]))
            return true;
    }
    return false;
}

// ---- Searching

const std::vector<FoundItem>& BoardView::Find(const std::string& pattern)
{
    if (!first.Current())
        ClearPick(); // a former match
    const bool blank = pattern.find_first_not_of(' ') == std::string::npos;
    matches = blank || !file->board ? std::vector<FoundItem>() : FindItems(*file->board, pattern);
    if (othersDimmed)
        UpdateLayers();
    return matches;
}

std::vector<BoardElement*> BoardView::ElementsOf(const std::vector<FoundItem>& found) const
{
    std::unordered_set<int> nets, footprints;
    for (const FoundItem& each : found) {
        if (each.item.kind == NamedItem::Kind::Net)
            nets.insert(each.item.net);
        else
            footprints.insert(each.number);
    }
    std::vector<BoardElement*> elements;
    for (const auto& element : scene.board.elements) {
        const bool isOfFootprint = element->owner && footprints.count(element->owner->number) != 0;
        if (isOfFootprint || nets.count(element->net) != 0)
            elements.push_back(element.get());
    }
    return elements;
}

bool BoardView::ShowMatch(int match)
{
    if (match < 0 || size_t(match) >= matches.size())
        return false;
    const FoundItem& found = matches[size_t(match)];
    const std::vector<BoardElement*> elements = ElementsOf({found});
    if (!found.position || !EnsureView())
        return false;
    BringIntoView(elements, *found.position);
    second.Unpicking();
    first.PickAll(elements);
    shownMatch = found.item;
    SelectionChanged();
    return true;
}

/// Moves the view only when the box is not to be seen whole, or too small to be found.
void BoardView::BringIntoView(const std::vector<BoardElement*>& elements, KPointD position)
{
    CKRectD box;
    box.MergePoint(position.x, position.y);
    for (BoardElement* element : elements)
        box.Merge(element->GetRectangleArea());
    const double pixelsPerMM = painter->GetScale() * painter->GetPixcelPerMM();
    const bool large = std::max(box.GetWidth(), box.GetHeight()) * pixelsPerMM >= kSmallestMatch;
    const bool inside =
        box.GetLeft() >= painter->GetLogicalScreenLeft() && box.GetRight() <= painter->GetLogicalScreenRight() &&
        box.GetBottom() >= painter->GetLogicalScreenBottom() && box.GetTop() <= painter->GetLogicalScreenTop();
    if (large && inside)
        return;
    constexpr double kSmallestSide = 2; // millimetres, of what is shown around a single point
    const bool fits = box.GetWidth() * pixelsPerMM <= width && box.GetHeight() * pixelsPerMM <= height;
    const KPointD middle = box.GetCenter();
    const double x = IsFromBack() ? -middle.x : middle.x;
    if (large && fits)
        painter->SetLogicalCenter(x, middle.y);
    else
        painter->ZoomArea(width, height, x, middle.y, std::max(box.GetWidth(), kSmallestSide),
                          std::max(box.GetHeight(), kSmallestSide), large ? kWholeShare : kMatchShare);
    EnsureView();
    Invalidate();
}

void BoardView::DimOthers(bool dim)
{
    othersDimmed = dim;
    layers.SetAllDimmed(dim);
    UpdateLayers();
}

/// The shapes of the matches' elements, one layer of them for each visible layer of the board.
void BoardView::MakeHighlights()
{
    const std::vector<BoardElement*> bright = ElementsOf(matches);
    for (const ShownLayer& shown : layers.Shown(IsFromBack())) {
        const int bit = file->board ? file->board->layers.Find(shown.layer->name) : -1;
        auto highlight = std::make_unique<PictureLayer>();
        highlight->name = shown.layer->name;
        highlight->colour = shown.layer->colour;
        for (const BoardElement* element : bright) {
            if (bit < 0 || (element->layers >> bit & 1) == 0)
                continue;
            for (const Figure& figure : element->ink)
                AppendShapes(figure, *highlight);
        }
        SetAreas(*highlight);
        if (highlight->shapes.GetCount() > 0)
            highlights.push_back(std::move(highlight));
    }
}

// ---- Texts

void BoardView::SetCursor(CPoint pixel)
{
    cursor = pixel;
}

void BoardView::ClearCursor()
{
    cursor.reset();
}

std::string BoardView::CursorText()
{
    const std::optional<KPointD> point = cursor ? BoardPoint(*cursor) : std::nullopt;
    return point ? PlaceText(*point) + " mm" : std::string();
}

std::string BoardView::ScaleText()
{
    if (!EnsureView())
        return {};
    const double percent = painter->GetScale() * 100;
    char text[64];
    std::snprintf(text, sizeof text, percent < 1000 ? "scale %.4g %%" : "scale %.0f %%", percent);
    return text;
}

std::string BoardView::PickText()
{
    if (gap)
        return MeasureText();
    if (const BoardElement* const element = first.Current())
        return ElementText(*file->board, *element);
    const size_t count = first.Picked().size();
    return count > 0 ? MatchText(shownMatch, count) : std::string();
}

std::string BoardView::StatusText()
{
    std::string status;
    for (const std::string& text : {CursorText(), ScaleText(), PickText()}) {
        if (!text.empty())
            status += (status.empty() ? "" : "   ") + text;
    }
    return status;
}

std::string BoardView::MeasureText()
{
    if (!gap)
        return {};
    const bool meet = (first.Current()->layers & second.Current()->layers & file->board->layers.Copper()) != 0;
    return GapText(*gap) + (meet ? "" : ", no copper layer in common");
}

} // namespace viewer
