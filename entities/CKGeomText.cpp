#include "entities/CKGeomText.h"

#include "KolmVersion.h"

#include <utility>

CKGeomText::CKGeomText(CString text, double x, double y, float angle, int fontSize)
    : m_text(std::move(text)), m_x(x), m_y(y), m_angle(angle), m_fontSize(fontSize)
{}

// The font size counts although archives drop it: two texts that look different are not equal.
int CKGeomText::operator==(const CKGeomText& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && m_text == other.m_text && m_x == other.m_x && m_y == other.m_y &&
           m_angle == other.m_angle && m_fontSize == other.m_fontSize;
}

int CKGeomText::operator!=(const CKGeomText& other) const
{
    return !(*this == other);
}

void CKGeomText::Serialize(CArchive& ar)
{
    CKGeom::Serialize(ar);
    int version = kKolmArchiveVersion; // of this section; the header before it has its own
    if (ar.IsStoring()) {
        ar << version << m_text << m_x << m_y << m_angle;
        return;
    }
    ar >> version;
    if (version < 1)
        return;
    // A string that ends early leaves the old text, so it is not read in place.
    CString text;
    ar >> text;
    m_text = text;
    ar >> m_x >> m_y >> m_angle;
}

CKGeom* CKGeomText::clone() const
{
    return new CKGeomText(*this);
}

int CKGeomText::GetType()
{
    return 1;
}

// A place for hosts beside the painter's way in, which is DrawNoWorldTransform.
void CKGeomText::Draw(CKPainter* /*painter*/, CDC* /*dc*/) {}
