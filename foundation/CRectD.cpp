#include "foundation/CRectD.h"

CRectD::CRectD(double left, double top, double width, double height)
    : m_left(left), m_top(top), m_width(width), m_height(height)
{}

CRectD::~CRectD() = default;

CRectD* CRectD::clone() const
{
    return new CRectD(*this);
}

// Exact; only identity makes a NaN equal.
int CRectD::operator==(const CRectD& other) const
{
    if (this == &other)
        return 1;
    return m_left == other.m_left && m_top == other.m_top && m_width == other.m_width && m_height == other.m_height;
}

int CRectD::operator!=(const CRectD& other) const
{
    return !(*this == other);
}

void CRectD::Init()
{
    m_left = 0;
    m_top = 0;
    m_width = 0;
    m_height = 0;
}

// Signed on purpose, as the sizes are kept as given.
double CRectD::GetArea() const
{
    return m_width * m_height;
}
