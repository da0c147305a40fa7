#include "foundation/CRectF.h"

CRectF::~CRectF() = default;

// Conversions round to nearest; the infinities of IEEE arithmetic stand for what float cannot hold.
CRectF& CRectF::operator=(const CRectD& other)
{
    m_left = static_cast<float>(other.GetLeft());
    m_top = static_cast<float>(other.GetTop());
    m_width = static_cast<float>(other.GetWidth());
    m_height = static_cast<float>(other.GetHeight());
    return *this;
}

int CRectF::operator==(const CRectF& other) const
{
    if (this == &other)
        return 1;
    return m_left == other.m_left && m_top == other.m_top && m_width == other.m_width && m_height == other.m_height;
}

int CRectF::operator!=(const CRectF& other) const
{
    return !(*this == other);
}

// Without a version, unlike the records of shapes: the four floats are the whole format.
void CRectF::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        ar << m_left << m_top << m_width << m_height;
    else
        ar >> m_left >> m_top >> m_width >> m_height;
}
