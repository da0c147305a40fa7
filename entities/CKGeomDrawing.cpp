// How the shapes hand themselves to the painter: the one place where entities know it. Shapes pass logical millimetres
// with their offset added; the painter converts.
#include "entities/CKGeomArc.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomRectangle.h"
#include "entities/CKGeomText.h"
#include "painter/CKPainter.h"

void CKGeomLine::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color)
{
    const double dx = GetOffsetX();
    const double dy = GetOffsetY();
    painter->DrawLineNoWorldTransform(dc, static_cast<COLORREF>(color), m_startX + dx, m_startY + dy, m_endX + dx,
                                      m_endY + dy, m_thickness);
}

void CKGeomArc::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color)
{
    const double dx = GetOffsetX();
    const double dy = GetOffsetY();
    painter->DrawArcNoWorldTransform(dc, static_cast<COLORREF>(color), m_startX + dx, m_startY + dy, m_endX + dx,
                                     m_endY + dy, m_centerX + dx, m_centerY + dy, m_direction, m_thickness, 0);
}

void CKGeomCircle::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long /*color*/)
{
    // Always a white outline at the stored centre; neither colour nor offset takes part.
    constexpr COLORREF kWhite = 0x00FFFFFF;
    painter->DrawCircleNoWorldTransform(dc, kWhite, m_radius, m_centerX, m_centerY, 0);
}

void CKGeomRectangle::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color)
{
    painter->DrawRectangleNoWorldTransform(dc, static_cast<COLORREF>(color), m_centerX + GetOffsetX(),
                                           m_centerY + GetOffsetY(), m_width, m_height, 0);
}

void CKGeomText::DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color)
{
    // The painter multiplies logical lengths by pixels per millimetre and scale, so this height is the font size in
    // pixels at every zoom.
    const double height = m_fontSize / (painter->GetPixcelPerMM() * painter->GetScale());
    painter->DrawTextNoWorldTransform(dc, static_cast<COLORREF>(color), 0, m_text, m_x + GetOffsetX(),
                                      m_y + GetOffsetY(), height);
}
