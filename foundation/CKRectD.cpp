#include "foundation/CKRectD.h"

#include <cmath>
#include <utility>

CKRectD::CKRectD(double left, double right, double bottom, double top)
    : m_left(left), m_right(right), m_bottom(bottom), m_top(top), m_initialized(1)
{}

// Set() marks the edges as known, also those of a rectangle that holds nothing; a box that was assigned is a box.
CKRectD& CKRectD::operator=(const CKRectD& other)
{
    if (this != &other)
        Set(other.m_left, other.m_right, other.m_bottom, other.m_top);
    return *this;
}

int CKRectD::operator==(const CKRectD& other) const
{
    // The same object is equal to itself even when an edge is a NaN.
    if (this == &other)
        return 1;
    return m_left == other.m_left && m_right == other.m_right && m_bottom == other.m_bottom && m_top == other.m_top;
}

void CKRectD::Set(double left, double right, double bottom, double top)
{
    m_left = left;
    m_right = right;
    m_bottom = bottom;
    m_top = top;
    m_initialized = 1;
}

// The sizes of a rectangle that is not arranged are those it would have arranged. Each has a plain form beside the
// const one, since hosts link to either.
double CKRectD::GetWidth() const
{
    return std::fabs(m_right - m_left);
}

double CKRectD::GetWidth()
{
    return std::as_const(*this).GetWidth();
}

double CKRectD::GetHeight() const
{
    return std::fabs(m_top - m_bottom);
}

double CKRectD::GetHeight()
{
    return std::as_const(*this).GetHeight();
}

double CKRectD::GetMaxSize()
{
    const double width = GetWidth();
    const double height = GetHeight();
    return width > height ? width : height;
}

// Written as the mirror image of GetMaxSize(): with a NaN both fall through to the second size.
double CKRectD::GetMinSize()
{
    const double width = GetWidth();
    const double height = GetHeight();
    return height > width ? width : height;
}

double CKRectD::GetMaxSizeWidthHeight(double& width, double& height)
{
    width = GetWidth();
    height = GetHeight();
    return width > height ? width : height;
}

KPointD CKRectD::GetCenter()
{
    // Summed before halving: two edges beyond half the largest double have an infinite centre.
    return {(m_left + m_right) * 0.5, (m_bottom + m_top) * 0.5};
}

int CKRectD::IsIntersect(CKRectD other)
{
    // Asked for the gaps and not for the overlap, so that a NaN edge separates nothing.
    if (m_left > other.m_right || other.m_left > m_right || other.m_bottom > m_top || m_bottom > other.m_top)
        return 0;
    return 1;
}

// A point is a rectangle without extent, as the first one and in the comparisons.
void CKRectD::MergePoint(double x, double y)
{
    Merge(x, x, y, y);
}

// Strict comparisons: an equal edge keeps its bits, and a NaN, which is neither smaller nor larger, moves nothing.
void CKRectD::Merge(double left, double right, double bottom, double top)
{
    if (!m_initialized) {
        Set(left, right, bottom, top);
        return;
    }
    if (m_left > left)
        m_left = left;
    if (right > m_right)
        m_right = right;
    if (m_bottom > bottom)
        m_bottom = bottom;
    if (top > m_top)
        m_top = top;
}

// The flag of the other one is not asked: whoever gathers boxes that may hold nothing has to look at it first.
void CKRectD::Merge(CKRectD other)
{
    Merge(other.m_left, other.m_right, other.m_bottom, other.m_top);
}

// An edge pair with a NaN is never the wrong way round.
void CKRectD::Arrange()
{
    if (m_left > m_right)
        std::swap(m_left, m_right);
    if (m_bottom > m_top)
        std::swap(m_bottom, m_top);
}

// y points upward here, so the top-left corner has the larger y.
CRectD CKRectD::GetDrawRectD() const
{
    return CRectD(m_left, m_top, GetWidth(), GetHeight());
}

CRectD CKRectD::GetDrawRectD()
{
    return std::as_const(*this).GetDrawRectD();
}

CString CKRectD::ToString()
{
    CString text;
    text.Format("CKRectD left:%f right:%f bottom:%f top:%f", m_left, m_right, m_bottom, m_top);
    return text;
}
