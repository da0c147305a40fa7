#include "foundation/CKPoint.h"

CKPoint* CKPoint::clone() const
{
    return new CKPoint(m_x, m_y);
}

// Virtual, and so written out: classes of hosts that add fields override it.
CKPoint& CKPoint::operator=(const CKPoint& other)
{
    m_x = other.m_x;
    m_y = other.m_y;
    return *this;
}

// Whole numbers are equal to themselves, so identity needs no test of its own.
int CKPoint::operator==(CKPoint& other)
{
    return m_x == other.m_x && m_y == other.m_y ? 1 : 0;
}

CKPoint* CKPoint::GetClone()
{
    return clone();
}

// Null is no point, so it is equal to none.
int CKPoint::IsEqual(CKPoint* other)
{
    return other && m_x == other->m_x && m_y == other->m_y ? 1 : 0;
}
