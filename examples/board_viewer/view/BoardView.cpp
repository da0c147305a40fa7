#include "BoardView.h"

#include "PictureFile.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

// The view of the board and its window. What is picked, measured and found is in BoardViewSelection.cpp.
//
// Two things can be due at the next paint: a new frame, which the painter's redraw flag tells, and new overlays over
// the frame that there is. Overlays never change the saved frame, so taking them away costs one copy of it.

namespace viewer {

namespace {

constexpr double kZoomStep = 1.3;        ///< the library's own, of one notch of the wheel
constexpr double kFitShare = 0.9;        ///< of the window, as the painter fits a frame
constexpr double kMostPixelsPerMM = 1e4; ///< so that boards of a metre fit into the world transform's single precision

/// A number of pixels that a window can have.
int AsSize(int size)
{
    return std::max(size, 0);
}

} // namespace

BoardView::BoardView() : file(std::make_unique<BoardFile>()), layers(file->picture)
{
    window.CreateEx(0, "BoardView", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
    Show({});
}

BoardView::~BoardView() = default;

// ---- The window

void BoardView::Resize(int newWidth, int newHeight)
{
    newWidth = AsSize(newWidth);
    newHeight = AsSize(newHeight);
    if (newWidth == width && newHeight == height)
        return;
    const bool fitted = IsFitted();
    window.MoveWindow(0, 0, newWidth, newHeight, 0);
    CRect rect;
    window.GetClientRect(&rect);
    width = rect.Width();
    height = rect.Height();
    if (fitted)
        painter->FitToWindow();
    EnsureView();
    Invalidate();
}

void BoardView::SetScreenResolution(double pixelsPerMM)
{
    if (!(pixelsPerMM > 0) || !std::isfinite(pixelsPerMM))
        return;
    const double factor = painter->GetPixcelPerMM() / pixelsPerMM;
    screenResolution = pixelsPerMM;
    painter->SetPixcelPerMM(pixelsPerMM);
    painter->SetScale(painter->GetScale() * factor);
    fittedScale *= factor;
    Invalidate();
}

BITMAP BoardView::Pixels()
{
    CClientDC dc(&window);
    Draw(&dc);
    BITMAP pixels = {};
    if (!GdiGetWindowPixels(window, &pixels))
        pixels.bmBits = nullptr;
    return pixels;
}

void BoardView::Draw(CDC* dc)
{
    const bool visible = EnsureView();
    if (visible && dc && painter->IsRedraw()) {
        painter->ReleaseRedraw();
        painter->DrawView(&window, dc);
        overlayDue = !pickShapes.IsEmpty() || !measureShapes.IsEmpty();
    }
    if (!visible || !dc || !overlayDue)
        return;
    overlayDue = false;
    // Also without shapes: then this is the saved frame itself, which takes away what was shown over it.
    painter->DrawGeomsAndDrawSavedDC(&window, &pickShapes, &measureShapes);
}

void BoardView::Redraw()
{
    Invalidate();
}

void BoardView::Invalidate()
{
    painter->SetRedraw();
    if (repaint)
        repaint();
}

// ---- The board

void BoardView::Show(BoardFile newFile)
{
    const bool fromBack = painter && IsFromBack();
    const Scheme scheme = layers.GetScheme();
    auto shown = std::make_unique<BoardFile>(std::move(newFile));
    auto newPainter = std::make_unique<BoardPainter>(shown->picture);
    PickScene newScene = shown->board ? PickScene(*shown->board) : PickScene();

    // From here on nothing fails: a board that cannot be shown leaves the former one as it was.
    ForgetSelection();
    matches.clear();
    othersDimmed = false;
    highlights.clear();
    layers = LayerStates(shown->picture);
    layers.SetScheme(scheme);
    painter = std::move(newPainter);
    file = std::move(shown);
    scene = std::move(newScene);
    first.Attach(painter.get(), &scene, &layers);
    second.Attach(painter.get(), &scene, &layers);
    painter->SetBoardMirrorX(fromBack);
    if (screenResolution > 0)
        painter->SetPixcelPerMM(screenResolution);
    UpdateLayers();
    Fit();
}

// ---- Navigation

void BoardView::Fit()
{
    painter->FitToWindow();
    EnsureView();
    Invalidate();
}

/// A window without pixels has no view; the board is fitted when it gets some. The same frame as the painter's own
/// fit, but now and not when the next frame is composed: clicks and texts ask for it before.
bool BoardView::EnsureView()
{
    if (width <= 0 || height <= 0)
        return false;
    painter->SetPhysicalCenter(width / 2, height / 2);
    if (painter->IsLogicalCenterEmpty()) {
        const KRectangleD target = painter->GetTargetSize();
        painter->ZoomArea(width, height, IsFromBack() ? -target.centerX : target.centerX, target.centerY, target.width,
                          target.height, kFitShare);
        fittedScale = painter->GetScale();
        fittedCentre = painter->GetLogicalCenterCoord();
    } else {
        painter->UpdateLogicalScreenSide(width, height);
    }
    return true;
}

bool BoardView::IsFitted()
{
    const KPointD centre = painter->GetLogicalCenterCoord();
    return painter->IsLogicalCenterEmpty() ||
           (painter->GetScale() == fittedScale && centre.x == fittedCentre.x && centre.y == fittedCentre.y);
}

bool BoardView::IsFromBack() const
{
    return painter->IsBoardMirrorX() != 0;
}

std::optional<KPointD> BoardView::BoardPoint(CPoint pixel)
{
    if (!EnsureView())
        return std::nullopt;
    const KPointD point = painter->GetLogicalCoordFromPhysicalCoord(pixel);
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return std::nullopt;
    return point;
}

/// Moves the view so that a board point is shown at a pixel, exactly and not to whole pixels: steps there and back end
/// where they began.
void BoardView::SetCentreUnder(KPointD board, CPoint pixel)
{
    const KPointD now = painter->GetLogicalCoordFromPhysicalCoord(pixel);
    const KPointD centre = painter->GetLogicalCenterCoord();
    const double side = IsFromBack() ? -1 : 1; // the centre's x is in mirrored form
    painter->SetLogicalCenter(centre.x + side * (board.x - now.x), centre.y + board.y - now.y);
    EnsureView();
}

void BoardView::FlipAbout(CPoint pixel)
{
    const std::optional<KPointD> point = BoardPoint(pixel);
    painter->SetBoardMirrorX(!IsFromBack());
    UpdateLayers();
    if (point)
        SetCentreUnder(*point, pixel);
}

void BoardView::ZoomIn(CPoint about)
{
    const std::optional<KPointD> point = BoardPoint(about);
    if (!point || painter->GetScale() * kZoomStep * painter->GetPixcelPerMM() > kMostPixelsPerMM)
        return;
    painter->ZoomInScale(kZoomStep);
    SetCentreUnder(*point, about);
    Invalidate();
}

void BoardView::ZoomOut(CPoint about)
{
    const std::optional<KPointD> point = BoardPoint(about);
    if (!point)
        return;
    painter->ZoomOutScale(kZoomStep, 0);
    SetCentreUnder(*point, about);
    Invalidate();
}

void BoardView::PanBy(int dx, int dy)
{
    if (!EnsureView())
        return;
    painter->MovedOriginByPhysicalDistance(dx, dy);
    EnsureView();
    Invalidate();
}

// ---- Layers

/// Has the painter draw what layers, scheme, side and matches ask for now.
void BoardView::UpdateLayers()
{
    painter->ShowLayers(std::vector<ShownLayer>()); // no layer is drawn after it went
    highlights.clear();
    if (othersDimmed)
        MakeHighlights();
    painter->ShowLayers(LayersToDraw());
    painter->SetBackgroundColorForTransparent(layers.Background());
    Invalidate();
}

/// Matches lie above all layers but the holes, which go through them too.
std::vector<ShownLayer> BoardView::LayersToDraw() const
{
    std::vector<ShownLayer> shown = layers.Shown(IsFromBack());
    const auto holes = std::find_if(shown.begin(), shown.end(), [](const ShownLayer& s) {
        return s.layer->name == kHolesName || s.layer->name == kBareHolesName;
    });
    std::vector<ShownLayer> bright;
    for (const auto& layer : highlights)
        bright.push_back({layer.get(), SchemeColour(*layer, layers.GetScheme())});
    shown.insert(holes, bright.begin(), bright.end());
    return shown;
}

void BoardView::ToggleLayer(int number)
{
    if (number >= 1)
        SetLayerVisible(number - 1, !layers.At(number - 1).visible);
}

void BoardView::SetLayerVisible(int row, bool visible)
{
    layers.SetVisible(row, visible);
    LayersChanged();
}

void BoardView::SetWorkLayer(int row)
{
    layers.SetWork(row);
    LayersChanged();
}

void BoardView::SetScheme(Scheme scheme)
{
    layers.SetScheme(scheme);
    UpdateLayers();
}

// ---- Copies

/// A copy of the window's size, which the clipboard and files can take: the bitmaps of the window and the saved frame
/// stay selected where they are. False when there are no pixels or no memory.
bool BoardView::CopyPixels(CDC* source, CBitmap& bitmap)
{
    CClientDC dc(&window);
    CDC copy;
    if (!source || !copy.CreateCompatibleDC(&dc) || !bitmap.CreateCompatibleBitmap(&dc, width, height))
        return false;
    CBitmap* const former = copy.SelectObject(&bitmap);
    copy.BitBlt(0, 0, width, height, source, 0, 0, SRCCOPY);
    copy.SelectObject(former);
    return true;
}

bool BoardView::CopyPicture()
{
    CBitmap bitmap;
    CClientDC dc(&window);
    if (!Pixels().bmBits || !CopyPixels(&dc, bitmap))
        return false;
    painter->CopyToClipboardBitmap(bitmap.GetSafeHandle(), &window);
    // The painter does not say how it went: the clipboard has the bitmap, or it is still ours to delete.
    if (!OpenClipboard(window))
        return false;
    const bool taken = GetClipboardData(CF_BITMAP) == bitmap.GetSafeHandle();
    CloseClipboard();
    if (taken)
        bitmap.Detach();
    return taken;
}

void BoardView::Export(const std::string& path)
{
    PictureFile target(path);
    CBitmap bitmap;
    // Overlays are never in the saved frame.
    if (!Pixels().bmBits || !CopyPixels(painter->GetSavedDC(), bitmap))
        throw std::runtime_error(path + ": the window has no pixels to write");
    target.Write(static_cast<HBITMAP>(bitmap.GetSafeHandle()), painter->GetScale() * painter->GetPixcelPerMM());
}

} // namespace viewer
