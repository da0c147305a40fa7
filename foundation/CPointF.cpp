#include "foundation/CPointF.h"

CPointF::~CPointF() = default;

// Exact; only identity makes a NaN equal.
int CPointF::operator==(const CPointF& other) const
{
    return this == &other || (m_x == other.m_x && m_y == other.m_y);
}

int CPointF::operator!=(const CPointF& other) const
{
    return !(*this == other);
}

// Without a version, unlike the records of shapes: the two floats are the whole format.
void CPointF::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        ar << m_x << m_y;
    else
        ar >> m_x >> m_y;
}
