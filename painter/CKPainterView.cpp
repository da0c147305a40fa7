// Mapping between the board and the device, and the operations that move the view.
//
// k, the pixels of one millimetre on the device, is pixels per mm x scale. The view is: the logical centre (mm, in
// mirrored form while the board is mirrored) is shown at the physical centre (pixels). Fitting and zooming only ever
// change the logical centre and the scale; frames set the physical centre.
#include "painter/PainterMapping.h"

#include <cmath>
#include <utility>

namespace {

// The x of an empty logical centre, which asks the next frame to fit the target area: the largest finite double,
// compared exactly. Only x tells, y may hold anything.
constexpr double kEmptyCenter = 0x1.fffffffffffffp+1023;

// Far below these a whole board is less than a pixel, and a wheel turned on would lose it for good. The finer limit is
// for areas of many boards.
constexpr double kSmallestScale = 0.001;
constexpr double kSmallestFineScale = 1e-06;

/// The difference of two pixel positions; it can need one bit more than they have.
double PixelDifference(int a, int b)
{
    return static_cast<double>(int64_t(a) - int64_t(b));
}

} // namespace

// ---- Mapping

// X, Y and lengths convert alike: the flip of y, the mirror and the shift belong to the world transform.
int CKPainter::TranslateCoordX(double x)
{
    return T(x);
}

int CKPainter::TranslateCoordX(float x)
{
    return T(x);
}

int CKPainter::TranslateCoordY(double y)
{
    return T(y);
}

int CKPainter::TranslateCoordY(float y)
{
    return T(y);
}

int CKPainter::TranslateRate(double length)
{
    return T(length);
}

KPoint CKPainter::TranslateCoord(double x, double y)
{
    return {T(x), T(y)};
}

KPoint CKPainter::GetTranslatedPhysicalCoord(double x, double y)
{
    return D(x, y);
}

KPointD CKPainter::GetLogicalCoordFromPhysicalCoord(int px, int py)
{
    return {GetLogicalCoordFromPhysicalCoordX(px), GetLogicalCoordFromPhysicalCoordY(py)};
}

KPointD CKPainter::GetLogicalCoordFromPhysicalCoord(CPoint& pixel)
{
    return GetLogicalCoordFromPhysicalCoord(pixel.x, pixel.y);
}

// The exact inverse of D up to the rounding of pixels: the mirror is taken out of the whole sum, since the centre in it
// is in mirrored form as well.
double CKPainter::GetLogicalCoordFromPhysicalCoordX(int px)
{
    const double x = PixelDifference(px, m_physicalCenterX) / PixelsPerUnit() + m_logicalCenterX;
    return m_boardMirror ? -x : x;
}

double CKPainter::GetLogicalCoordFromPhysicalCoordY(int py)
{
    return PixelDifference(m_physicalCenterY, py) / PixelsPerUnit() + m_logicalCenterY;
}

double CKPainter::GetLogicalRateFromPhysicalRate(int pixels)
{
    return pixels / PixelsPerUnit();
}

int CKPainter::IsScreenOverlapped(double xmin, double xmax, double ymin, double ymax)
{
    // The last comparison stands the other way round on purpose: a ymax that is no number then counts as outside.
    if (m_screenLeft > xmax || xmin > m_screenRight || ymin > m_screenTop)
        return 0;
    return m_screenBottom <= ymax ? 1 : 0;
}

// ---- World transforms

XFORM CKPainter::GenerateXFormOriginal()
{
    return GenerateXFormTranslated(0.0f, 0.0f);
}

XFORM CKPainter::GenerateXFormTranslated(float dx, float dy)
{
    return {1.0f, 0.0f, 0.0f, 1.0f, dx, dy};
}

XFORM CKPainter::GenerateXFormMirrorY()
{
    return GenerateXFormMirrorY(0);
}

XFORM CKPainter::GenerateXFormMirrorY(int mirror)
{
    // The shift is summed up in double and narrowed once; far from the origin single precision would lose pixels.
    const double dx = m_physicalCenterX - m_pixelsPerMM * m_logicalCenterX * m_scale;
    const double dy = m_pixelsPerMM * m_logicalCenterY * m_scale + m_physicalCenterY;
    return {mirror ? -1.0f : 1.0f, 0.0f, 0.0f, -1.0f, static_cast<float>(dx), static_cast<float>(dy)};
}

// Radians, cosine and sine in single precision: a right angle keeps a residue of 4e-8 and is never exactly
// axis-parallel.
XFORM CKPainter::GenerateXFormRotated(float angle, float dx, float dy)
{
    const float radians = angle * kPiF / 180.0f;
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    return {c, -s, s, c, dx, dy};
}

// ---- Viewport and zoom

void CKPainter::UpdateLogicalScreenSide(int width, int height)
{
    // Symmetric about the logical centre wherever that is shown. With the mirror the rectangle is in board coordinates
    // again, so that hosts can compare it with their shapes.
    const double k = PixelsPerUnit();
    const KPointD center = GetLogicalCoordFromPhysicalCoord(m_physicalCenterX, m_physicalCenterY);
    const double halfWidth = width / k * 0.5;
    const double halfHeight = height / k * 0.5;
    m_screenLeft = center.x - halfWidth;
    m_screenRight = center.x + halfWidth;
    m_screenBottom = center.y - halfHeight;
    m_screenTop = center.y + halfHeight;
}

void CKPainter::MovedOriginByPhysicalDistance(int dx, int dy)
{
    if (IsLogicalCenterEmpty())
        return;
    // The centre is in mirrored form, so a drag to the right moves the picture to the right in both orientations.
    m_logicalCenterX = m_logicalCenterX - dx / m_pixelsPerMM / m_scale;
    m_logicalCenterY = m_logicalCenterY + dy / m_pixelsPerMM / m_scale;
}

double CKPainter::ZoomInScale(double factor)
{
    // No upper limit: coordinates saturate long before the scale does.
    const double previous = m_scale;
    m_scale = m_scale * factor;
    return previous;
}

double CKPainter::ZoomOutScale(double factor, int fine)
{
    const double previous = m_scale;
    const double reduced = m_scale / factor;
    // Strictly below the limit is refused, and the scale is kept rather than clamped: repeated steps in and out then
    // meet the same scales again.
    if (!(reduced < (fine ? kSmallestFineScale : kSmallestScale)))
        m_scale = reduced;
    return previous;
}

void CKPainter::ZoomArea(int width, int height, double centerX, double centerY, double areaWidth, double areaHeight,
                         double ratio)
{
    FitArea(width, height, centerX, centerY, areaWidth, areaHeight, ratio);
}

// Hosts hold such boxes in single precision. Their centre and extent stay in it, so that a box that is empty in single
// precision is empty here.
void CKPainter::ZoomAreaByMinMax(int width, int height, float x1, float y1, float x2, float y2, double ratio)
{
    if (x2 < x1)
        std::swap(x1, x2);
    if (y2 < y1)
        std::swap(y1, y2);
    FitArea(width, height, (x1 + x2) * 0.5f, (y1 + y2) * 0.5f, x2 - x1, y2 - y1, ratio);
}

void CKPainter::ZoomAreaByPhysicalSize(int width, int height, int px, int py, int pw, int ph, double ratio)
{
    // Not GetLogicalCoordFromPhysicalCoordX: the new centre stays in mirrored form like the old one.
    const double k = PixelsPerUnit();
    const double centerX = PixelDifference(px, m_physicalCenterX) / k + m_logicalCenterX;
    FitArea(width, height, centerX, GetLogicalCoordFromPhysicalCoordY(py), pw / k, ph / k, ratio);
}

/// The rule that all framing goes through: exact comparisons, since a zero extent means "not given".
void CKPainter::FitArea(int width, int height, double centerX, double centerY, double areaWidth, double areaHeight,
                        double ratio)
{
    if (areaHeight == 0.0) {
        if (areaWidth == 0.0)
            return;
        areaHeight = areaWidth;
    } else if (areaWidth == 0.0) {
        areaWidth = areaHeight;
    }

    // The tighter direction decides; in the other one the area is centred.
    SetLogicalCenter(centerX, centerY);
    const double scaleX = width / (m_pixelsPerMM * areaWidth) * ratio;
    const double scaleY = height / (m_pixelsPerMM * areaHeight) * ratio;
    m_scale = scaleY < scaleX ? scaleY : scaleX;
    UpdateLogicalScreenSide(width, height);
}

// The scale stays: with an empty centre the next frame finds its own.
void CKPainter::Init(CView*)
{
    SetLogicalCenterToEmpty();
    SetPhysicalCenter(0, 0);
    m_simpleDraw = 0;
}

void CKPainter::Init()
{
    // Not through the virtual one, which a host may have extended.
    CKPainter::Init(nullptr);
}

// Nothing is computed here: the size of the client area is known only when the next frame is set up.
void CKPainter::FitToWindow()
{
    SetLogicalCenterToEmpty();
}

void CKPainter::SetLogicalCenterToEmpty()
{
    m_logicalCenterX = kEmptyCenter;
}

int CKPainter::IsLogicalCenterEmpty()
{
    return m_logicalCenterX == kEmptyCenter ? 1 : 0;
}

void CKPainter::SetLogicalCenter(double x, double y)
{
    m_logicalCenterX = x;
    m_logicalCenterY = y;
}

void CKPainter::SetPhysicalCenter(int x, int y)
{
    m_physicalCenterX = x;
    m_physicalCenterY = y;
}

// An area once set stays in force for all captures that follow; there is no way to unset it.
void CKPainter::SetCaptureZoomArea(double centerX, double centerY, double areaWidth, double areaHeight)
{
    m_captureCenterX = centerX;
    m_captureCenterY = centerY;
    m_captureWidth = areaWidth;
    m_captureHeight = areaHeight;
    m_captureAreaSet = 1;
}
