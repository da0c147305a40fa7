#include "entities/CKGeomCircle.h"

CKGeomCircle::CKGeomCircle() = default;

CKGeomCircle::CKGeomCircle(double centerX, double centerY, double radius)
    : m_centerX(centerX), m_centerY(centerY), m_radius(radius)
{}

// The copy carries centre and radius, although comparison and archives leave them out.
CKGeom* CKGeomCircle::clone() const
{
    return new CKGeomCircle(*this);
}
