// Text, in three ways.
//
// DrawWindowFontText draws real glyphs through a world transform of its own, upright or turned, and is meant for
// DrawBody. DrawWindowFontTextNoWorldTransform renders into a one-bit canvas and copies that pixel by pixel, the way
// shapes draw their texts. DrawTextA labels points in a fixed size. None of them draws anything for a text that has no
// pixels.
#include "painter/GdiScope.h"
#include "painter/PainterMapping.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSmallestText = 3;     // pixels; below that nothing can be read
constexpr double kAnchorShift = 0.8; // of the height: from the anchor down to the bottom of the text box
constexpr UINT kAlignment = TA_BOTTOM | TA_CENTER;
constexpr UINT kFormat = DT_SINGLELINE | DT_NOCLIP;

/// Text settings of a device context while one text is drawn; puts them back in the order they were changed.
class TextSettings
{
public:
    TextSettings(CDC* dc, HFONT font) : m_dc(dc), m_font(font)
    {
        if (m_font)
            m_previousFont = ::SelectObject(dc->m_hDC, m_font);
    }
    ~TextSettings()
    {
        if (m_font) {
            ::SelectObject(m_dc->m_hDC, m_previousFont);
            ::DeleteObject(m_font);
        }
        m_dc->SetBkMode(m_previousMode);
        if (m_opaque)
            m_dc->SetBkColor(m_previousBackground);
        m_dc->SetTextColor(m_previousColor);
        m_dc->SetTextAlign(m_previousAlignment);
    }
    TextSettings(const TextSettings&) = delete;
    TextSettings& operator=(const TextSettings&) = delete;

    /// The background colour is only changed, and only put back, for opaque text.
    void Apply(int transparent, COLORREF background, COLORREF color)
    {
        m_opaque = !transparent;
        m_previousMode = m_dc->SetBkMode(transparent ? TRANSPARENT : OPAQUE);
        if (m_opaque)
            m_previousBackground = m_dc->SetBkColor(background);
        m_previousColor = m_dc->SetTextColor(color);
        m_previousAlignment = m_dc->SetTextAlign(kAlignment);
    }

private:
    CDC* m_dc;
    HFONT m_font;
    HGDIOBJ m_previousFont = nullptr;
    bool m_opaque = false;
    int m_previousMode = OPAQUE;
    COLORREF m_previousBackground = 0;
    COLORREF m_previousColor = 0;
    UINT m_previousAlignment = 0;
};

/// A memory device context with a font and then a bitmap of its own, all freed together.
class TextCanvas
{
public:
    explicit TextCanvas(HDC compatible) : m_dc(::CreateCompatibleDC(compatible)) {}
    ~TextCanvas()
    {
        ReplaceBy(m_bitmap, m_previousBitmap);
        ReplaceBy(m_font, m_previousFont);
        if (m_dc)
            ::DeleteDC(m_dc);
    }
    TextCanvas(const TextCanvas&) = delete;
    TextCanvas& operator=(const TextCanvas&) = delete;

    HDC Handle() const { return m_dc; }
    /// The canvas owns the font; without one the default font stays.
    void SelectFont(HFONT font) { m_previousFont = Select(m_font = font); }
    /// The canvas owns the bitmap. False when there is none to draw into.
    bool SelectBitmap(HBITMAP bitmap)
    {
        m_previousBitmap = Select(m_bitmap = bitmap);
        return bitmap != nullptr;
    }

private:
    HGDIOBJ Select(HGDIOBJ object) { return object ? ::SelectObject(m_dc, object) : nullptr; }
    void ReplaceBy(HGDIOBJ object, HGDIOBJ previous)
    {
        if (!object)
            return;
        Select(previous);
        ::DeleteObject(object);
    }

    HDC m_dc;
    HGDIOBJ m_font = nullptr;
    HGDIOBJ m_previousFont = nullptr;
    HGDIOBJ m_bitmap = nullptr;
    HGDIOBJ m_previousBitmap = nullptr;
};

/// A character height in pixels, as the negative number that font records want. `points` are 1/72 inch.
int FontUnits(int points, int pixelsPerInch)
{
    return SaturatedDifference(0, ::MulDiv(points, pixelsPerInch, 72));
}

/// Width and height in pixels of the text in the selected font; (0, 0) when it can't be measured.
SIZE GetExtent(HDC dc, const CString& text)
{
    SIZE extent = {};
    ::GetTextExtentPointA(dc, text, text.GetLength(), &extent);
    return extent;
}

/// How far the anchor moves: the vector (0, shift) turned by the angle, rounded half up toward zero.
KPoint GetTurnedShift(float angle, int shift)
{
    const double radians = angle * kPiF / 180.0f;
    return {SaturatedToInt(std::sin(radians) * shift + 0.5), SaturatedToInt(std::cos(radians) * shift + 0.5)};
}

/// The part of a text box of the given extent at (left, top) that has to be drawn, relative to the box. Texts of any
/// ordinary size are copied whole. Of larger ones only what the target can show is made, so that neither time nor
/// memory follow the height asked for.
CRect GetPartToDraw(HDC target, SIZE extent, KPoint corner)
{
    constexpr long long kCopiedWhole = 1LL << 20; // pixels
    const CRect whole(0, 0, extent.cx, extent.cy);
    CRect visible;
    if (static_cast<long long>(extent.cx) * extent.cy <= kCopiedWhole || !::GetClipBox(target, &visible))
        return whole;
    CRect part;
    part.left = std::max(0, SaturatedDifference(visible.left, corner.x));
    part.top = std::max(0, SaturatedDifference(visible.top, corner.y));
    part.right = std::min<int>(extent.cx, SaturatedDifference(visible.right, corner.x));
    part.bottom = std::min<int>(extent.cy, SaturatedDifference(visible.bottom, corner.y));
    return part;
}

/// Copies the canvas, which holds a part of the text box, pixel by pixel; the box has its corner at `corner`. A pixel
/// that has the background colour of the start is where the text is: in a one-bit canvas the text comes out in that
/// colour exactly when the background set for it is another.
void CopyText(HDC canvas, HDC target, const CRect& part, KPoint corner, COLORREF background, COLORREF textColor)
{
    for (int row = part.top; row < part.bottom; ++row) {
        for (int column = part.left; column < part.right; ++column) {
            const COLORREF pixel = ::GetPixel(canvas, column - part.left, row - part.top);
            ::SetPixel(target, SaturatedSum(column, corner.x), SaturatedSum(row, corner.y),
                       pixel == background ? textColor : pixel);
        }
    }
}

} // namespace

// The width is set like the height, which stretches the characters. The record keeps the last size; the font is the
// caller's.
HFONT CKPainter::CreateInformationFont(int pointSize)
{
    m_informationFont.lfHeight = FontUnits(pointSize, GetScreenCaps(LOGPIXELSY));
    m_informationFont.lfWidth = m_informationFont.lfHeight;
    return ::CreateFontIndirectA(&m_informationFont);
}

void CKPainter::DrawWindowFontText(CDC* dc, int transparent, COLORREF color, CString text, double height, double x,
                                   double y, float angle)
{
    const int pixelHeight = T(height);
    if (pixelHeight < kSmallestText)
        return;

    TextSettings settings(dc, CreateInformationFont(pixelHeight));
    settings.Apply(transparent, m_backgroundReplacement, color);

    // The text box hangs from its bottom centre, so the anchor moves down by most of a line: the anchor comes to lie at
    // the text's middle. A turned text takes the shift along.
    KPoint anchor = D(x, y);
    const int shift = SaturatedToInt(pixelHeight * kAnchorShift);
    // Whole turns count as none, so that upright text keeps its exact pixels.
    const bool rotated = std::fmod(angle, 360.0f) != 0.0f;
    const KPoint move = rotated ? GetTurnedShift(angle, shift) : KPoint{0, shift};
    anchor = {SaturatedSum(anchor.x, move.x), SaturatedSum(anchor.y, move.y)};

    // Only the glyphs turn here, the anchor has moved by the angle asked for.
    // On a mirrored board upright text would stand on its head; text along the x axis reads the same both ways.
    float turn = angle;
    if (m_boardMirror && std::fmod(angle, 180.0f) != 0.0f)
        turn = static_cast<float>(angle + 180.0);

    // From here on the context is in advanced mode. It stays so, under the board's transform: the text may be one of
    // many in a body that is drawn under it.
    const float dx = static_cast<float>(anchor.x);
    const float dy = static_cast<float>(anchor.y);
    const XFORM placed = rotated ? GenerateXFormRotated(turn, dx, dy) : GenerateXFormTranslated(dx, dy);
    ::SetGraphicsMode(dc->m_hDC, GM_ADVANCED);
    ::SetWorldTransform(dc->m_hDC, &placed);
    CRect box(0, 0, 0, 0);
    dc->DrawText(text, &box, kFormat);
    const XFORM board = GenerateXFormMirrorY(m_boardMirror);
    ::SetWorldTransform(dc->m_hDC, &board);
}

void CKPainter::DrawWindowFontTextNoWorldTransform(CDC* dc, int transparent, COLORREF color, CString text, double x,
                                                   double y, double height)
{
    HDC target = dc->m_hDC;
    TextCanvas canvas(target);
    HDC memory = canvas.Handle();
    if (!memory)
        return;

    // Negative: the height of the characters without the leading above them.
    canvas.SelectFont(::CreateFontA(SaturatedDifference(0, T(height)), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0,
                                    0, 0, 0, "Tahoma"));
    const SIZE extent = GetExtent(memory, text);
    const KPoint center = D(x, y);
    const KPoint corner = {SaturatedDifference(center.x, extent.cx / 2), SaturatedDifference(center.y, extent.cy / 2)};
    // An empty text can still be very high.
    const CRect part = GetPartToDraw(target, extent, corner);
    if (part.left >= part.right || part.top >= part.bottom ||
        !canvas.SelectBitmap(::CreateBitmap(part.right - part.left, part.bottom - part.top, 1, 1, nullptr)))
        return;

    // The colours meet in one bit. What the canvas had as background before is what CopyText recognises the text by.
    ::SetTextColor(memory, color);
    const int previousMode = ::SetBkMode(memory, transparent ? TRANSPARENT : OPAQUE);
    const COLORREF background = ::SetBkColor(memory, transparent ? m_backgroundTransparent : m_backgroundReplacement);
    ::ExtTextOutA(memory, -part.left, -part.top, 0, nullptr, text, static_cast<UINT>(text.GetLength()), nullptr);
    CopyText(memory, target, part, corner, background, color);
    ::SetBkMode(memory, previousMode);
    ::SetBkColor(memory, background);
}

// The form that shapes call: colour first, then transparency.
void CKPainter::DrawTextNoWorldTransform(CDC* dc, COLORREF color, int transparent, CString text, double x, double y,
                                         double height)
{
    DrawWindowFontTextNoWorldTransform(dc, transparent, color, text, x, y, height);
}

void CKPainter::DrawTextA(CDC* dc, COLORREF color, CString text, double x, double y, double, unsigned int)
{
    constexpr int kPoints = 10;
    constexpr int kDrop = 10; // pixels

    // The caller may be in the middle of a body: the identity is set first, and the board's transform again at the end.
    const XFORM identity = GenerateXFormOriginal();
    ::SetGraphicsMode(dc->m_hDC, GM_ADVANCED);
    ::SetWorldTransform(dc->m_hDC, &identity);

    // The font stays selected and lives until the next one takes its place, so nobody has to remember it.
    LOGFONTA record = {};
    record.lfHeight = record.lfWidth = FontUnits(kPoints, ::GetDeviceCaps(dc->m_hDC, LOGPIXELSY));
    HFONT font = ::CreateFontIndirectA(&record);
    if (font) {
        ::SelectObject(dc->m_hDC, font);
        ::DeleteObject(font);
    }

    dc->SetBkMode(OPAQUE);
    dc->SetTextColor(color);
    dc->SetTextAlign(kAlignment);
    // Callers pass the negated point. On a mirrored board D negates x once more, so there x keeps its sign.
    const KPoint point = D(-x, -y);
    const int below = SaturatedSum(point.y, kDrop);
    CRect box(point.x, below, point.x, below);
    dc->DrawText(text, &box, kFormat);

    const XFORM board = GenerateXFormMirrorY(m_boardMirror);
    ::SetWorldTransform(dc->m_hDC, &board);
}

KPointD CKPainter::GetTextSize(CDC* dc, CString text)
{
    // A fresh context has the default font whatever `dc` has selected.
    const TextCanvas canvas(dc ? dc->m_hDC : nullptr);
    if (!canvas.Handle())
        return {0.0, 0.0};
    const SIZE extent = GetExtent(canvas.Handle(), text);
    return {static_cast<double>(extent.cx), static_cast<double>(extent.cy)};
}
