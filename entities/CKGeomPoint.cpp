#include "entities/CKGeomPoint.h"

#include "KolmVersion.h"

CKGeomPoint::CKGeomPoint(double x, double y) : m_x(x), m_y(y) {}

int CKGeomPoint::operator==(const CKGeomPoint& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && m_x == other.m_x && m_y == other.m_y;
}

int CKGeomPoint::operator!=(const CKGeomPoint& other) const
{
    return !(*this == other);
}

void CKGeomPoint::Serialize(CArchive& ar)
{
    CKGeom::Serialize(ar);
    int version = kKolmArchiveVersion;
    if (ar.IsStoring()) {
        ar << version << m_x << m_y;
        return;
    }
    // Below 1 the section ends here and the point stays where it is.
    ar >> version;
    if (version >= 1)
        ar >> m_x >> m_y;
}

CKGeom* CKGeomPoint::clone() const
{
    return new CKGeomPoint(*this);
}

int CKGeomPoint::GetType()
{
    return 4;
}

// Unlike clone() a fresh shape with a number of its own; only the place comes along.
CKGeom* CKGeomPoint::GenerateClone()
{
    return new CKGeomPoint(m_x, m_y);
}
