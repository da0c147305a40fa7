#include "entities/CKGeomLine.h"

#include "KolmVersion.h"

#include "math/CKMath.h"

CKGeomLine::CKGeomLine(double startX, double startY, double endX, double endY, double thickness)
    : m_startX(startX), m_startY(startY), m_endX(endX), m_endY(endY), m_thickness(thickness)
{}

// Directed: a line and its reverse are not equal.
int CKGeomLine::operator==(const CKGeomLine& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && m_startX == other.m_startX && m_startY == other.m_startY &&
           m_endX == other.m_endX && m_endY == other.m_endY && m_thickness == other.m_thickness;
}

int CKGeomLine::operator!=(const CKGeomLine& other) const
{
    return !(*this == other);
}

void CKGeomLine::Serialize(CArchive& ar)
{
    CKGeom::Serialize(ar);
    int version = kKolmArchiveVersion; // of this section; the header before it has its own
    if (ar.IsStoring()) {
        ar << version << m_startX << m_startY << m_endX << m_endY << m_thickness;
        return;
    }
    ar >> version;
    if (version >= 1)
        ar >> m_startX >> m_startY >> m_endX >> m_endY >> m_thickness;
}

CKGeom* CKGeomLine::clone() const
{
    return new CKGeomLine(*this);
}

void CKGeomLine::Draw(CKPainter* /*painter*/, CDC* /*dc*/, unsigned long /*color*/) {}

int CKGeomLine::GetType()
{
    return 2;
}

// Offsets are a matter of drawing, measuring works on the stored coordinates.
double CKGeomLine::GetDistance()
{
    return CKMath::GetDistance(m_startX, m_startY, m_endX, m_endY);
}

double CKGeomLine::GetDistance(double x, double y)
{
    return CKMath::GetDistance(m_startX, m_startY, m_endX, m_endY, x, y);
}

// A float that is widened, so that it compares equal to what CKMath says.
double CKGeomLine::GetLineAngle()
{
    return CKMath::GetLineAngle(m_startX, m_startY, m_endX, m_endY);
}
