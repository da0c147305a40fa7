#include "entities/CKGeomCircle.h"

CKGeomCircle::CKGeomCircle() = default;

CKGeomCircle::CKGeomCircle(double centerX, double centerY, double radius)
    : m_centerX(centerX), m_centerY(centerY), m_radius(radius)
{}

CKGeom* CKGeomCircle::clone() const
{
    return new CKGeomCircle(*this);
}
