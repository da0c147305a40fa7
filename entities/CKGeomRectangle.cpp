#include "entities/CKGeomRectangle.h"

#include <cmath>

CKGeomRectangle::CKGeomRectangle() = default;

CKGeom* CKGeomRectangle::clone() const
{
    return new CKGeomRectangle(*this);
}

// Sizes are formed in double and narrowed once. The centre keeps its precision: boards lie far from the origin, where
// floats are too coarse for a place but not for a size.
void CKGeomRectangle::SetData(double x1, double x2, double y1, double y2, float rotation)
{
    m_centerX = (x1 + x2) * 0.5;
    m_centerY = (y1 + y2) * 0.5;
    m_width = static_cast<float>(std::fabs(x2 - x1));
    m_height = static_cast<float>(std::fabs(y2 - y1));
    m_rotation = rotation;
}

// The edges widen the float size before it is halved, so left and right are a float's width apart.
double CKGeomRectangle::getLeft()
{
    return m_centerX - static_cast<double>(m_width) * 0.5;
}

double CKGeomRectangle::getRight()
{
    return m_centerX + static_cast<double>(m_width) * 0.5;
}

double CKGeomRectangle::getBottom()
{
    return m_centerY - static_cast<double>(m_height) * 0.5;
}

double CKGeomRectangle::getTop()
{
    return m_centerY + static_cast<double>(m_height) * 0.5;
}
