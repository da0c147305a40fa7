#include "foundation/CKTwoPointD.h"

int CKTwoPointD::operator==(const CKTwoPointD& other) const
{
    if (this == &other)
        return 1;
    return m_x1 == other.m_x1 && m_y1 == other.m_y1 && m_x2 == other.m_x2 && m_y2 == other.m_y2;
}

int CKTwoPointD::operator!=(const CKTwoPointD& other) const
{
    return !(*this == other);
}

void CKTwoPointD::Serialize(CArchive& ar)
{
    int version = 1;
    if (ar.IsStoring()) {
        ar << version << m_x1 << m_y1 << m_x2 << m_y2;
        return;
    }
    ar >> version;
    if (version < 1)
        return;
    ar >> m_x1 >> m_y1 >> m_x2 >> m_y2;
}
