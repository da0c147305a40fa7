#include "foundation/CKTwoPointD.h"

#include "KolmVersion.h"

int CKTwoPointD::operator==(const CKTwoPointD& other) const
{
    // Shapes compare their corners through this, and a shape is equal to itself even with a NaN in them.
    if (this == &other)
        return 1;
    return m_x1 == other.m_x1 && m_y1 == other.m_y1 && m_x2 == other.m_x2 && m_y2 == other.m_y2;
}

int CKTwoPointD::operator!=(const CKTwoPointD& other) const
{
    return !(*this == other);
}

// Values go straight into the members as they are read, so that a record that ends early leaves what it had brought.
void CKTwoPointD::Serialize(CArchive& ar)
{
    int version = kKolmArchiveVersion;
    if (ar.IsStoring()) {
        ar << version << m_x1 << m_y1 << m_x2 << m_y2;
        return;
    }
    ar >> version;
    // Signed: a version of -1 is below 1. Versions above 1 begin like version 1.
    if (version < 1)
        return;
    ar >> m_x1 >> m_y1 >> m_x2 >> m_y2;
}
