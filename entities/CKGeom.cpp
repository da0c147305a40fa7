#include "entities/CKGeom.h"

#include "KolmVersion.h"

CKGeom& CKGeom::operator=(const CKGeom& other)
{
    // The entity part stays: an assigned shape keeps its number, colours, picked state and area.
    m_offsetX = other.m_offsetX;
    m_offsetY = other.m_offsetY;
    m_minMax = other.m_minMax;
    return *this;
}

int CKGeom::operator==(const CKGeom& other) const
{
    // First by identity, here and in every shape: a NaN must not make a shape differ from itself.
    if (this == &other)
        return 1;
    return m_offsetX == other.m_offsetX && m_offsetY == other.m_offsetY && m_minMax == other.m_minMax;
}

int CKGeom::operator!=(const CKGeom& other) const
{
    return !(*this == other);
}

// The header has two versions: its own, which guards the offset and the corners, and the one inside the record of the
// corners.
void CKGeom::Serialize(CArchive& ar)
{
    int version = kKolmArchiveVersion;
    if (ar.IsStoring()) {
        ar << version << m_offsetX << m_offsetY;
    } else {
        ar >> version;
        if (version < 1)
            return; // the corners belong to the header and go unread with it
        ar >> m_offsetX >> m_offsetY;
    }
    m_minMax.Serialize(ar);
}

// Every shape has its own: copies of lists keep the kinds of their elements only through it.
CKGeom* CKGeom::clone() const
{
    return new CKGeom(*this);
}

void CKGeom::Draw(CKPainter* /*painter*/, CDC* /*dc*/, unsigned long /*color*/) {}

void CKGeom::DrawNoWorldTransform(CKPainter* /*painter*/, CDC* /*dc*/, unsigned long /*color*/) {}

void CKGeom::SetMinMax() {}

int CKGeom::GetType()
{
    return 0;
}

CKGeom* CKGeom::GenerateClone()
{
    return nullptr;
}

// A temporary pair is no shape and takes no object number.
int CKGeom::HasDefaultGeometry() const
{
    return m_offsetX == 0 && m_offsetY == 0 && m_minMax == CKTwoPointD();
}
