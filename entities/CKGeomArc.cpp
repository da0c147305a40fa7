#include "entities/CKGeomArc.h"

#include "KolmVersion.h"

CKGeomArc::CKGeomArc(double startX, double startY, double endX, double endY, double centerX, double centerY,
                     double thickness)
    : m_startX(startX), m_startY(startY), m_endX(endX), m_endY(endY), m_centerX(centerX), m_centerY(centerY),
      m_thickness(thickness)
{}

// Also by direction: the same three points describe two arcs.
int CKGeomArc::operator==(const CKGeomArc& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && m_startX == other.m_startX && m_startY == other.m_startY &&
           m_endX == other.m_endX && m_endY == other.m_endY && m_centerX == other.m_centerX &&
           m_centerY == other.m_centerY && m_thickness == other.m_thickness && m_direction == other.m_direction;
}

int CKGeomArc::operator!=(const CKGeomArc& other) const
{
    return !(*this == other);
}

void CKGeomArc::Serialize(CArchive& ar)
{
    CKGeom::Serialize(ar);
    int version = kKolmArchiveVersion; // of this section; the header before it has its own
    if (ar.IsStoring()) {
        // The thickness stands between the end and the centre.
        ar << version << m_startX << m_startY << m_endX << m_endY << m_thickness;
        ar << m_centerX << m_centerY << m_direction;
        return;
    }
    ar >> version;
    if (version < 1)
        return;
    ar >> m_startX >> m_startY >> m_endX >> m_endY >> m_thickness;
    ar >> m_centerX >> m_centerY >> m_direction;
}

CKGeom* CKGeomArc::clone() const
{
    return new CKGeomArc(*this);
}

void CKGeomArc::Draw(CKPainter* /*painter*/, CDC* /*dc*/, unsigned long /*color*/) {}

int CKGeomArc::GetType()
{
    return 3;
}
