#include "foundation/CKRectF.h"

#include <cmath>
#include <utility>

CKRectF::CKRectF(float left, float right, float bottom, float top)
    : m_left(left), m_right(right), m_bottom(bottom), m_top(top), m_initialized(1)
{}

// Set() marks the edges as known, also those of a rectangle that holds nothing; a box that was assigned is a box.
CKRectF& CKRectF::operator=(const CKRectF& other)
{
    if (this != &other)
        Set(other.m_left, other.m_right, other.m_bottom, other.m_top);
    return *this;
}

int CKRectF::operator==(const CKRectF& other) const
{
    // The same object is equal to itself even when an edge is a NaN.
    if (this == &other)
        return 1;
    return m_left == other.m_left && m_right == other.m_right && m_bottom == other.m_bottom && m_top == other.m_top;
}

void CKRectF::Set(float left, float right, float bottom, float top)
{
    m_left = left;
    m_right = right;
    m_bottom = bottom;
    m_top = top;
    m_initialized = 1;
}

// The sizes of a rectangle that is not arranged are those it would have arranged. Each has a plain form beside the
// const one, since hosts link to either.
float CKRectF::GetWidth() const
{
    return std::fabs(m_right - m_left);
}

float CKRectF::GetWidth()
{
    return std::as_const(*this).GetWidth();
}

float CKRectF::GetHeight() const
{
    return std::fabs(m_top - m_bottom);
}

float CKRectF::GetHeight()
{
    return std::as_const(*this).GetHeight();
}

float CKRectF::GetMaxSize()
{
    const float width = GetWidth();
    const float height = GetHeight();
    return width > height ? width : height;
}

// Written as the mirror image of GetMaxSize(): with a NaN both fall through to the second size.
float CKRectF::GetMinSize()
{
    const float width = GetWidth();
    const float height = GetHeight();
    return height > width ? width : height;
}

KPointD CKRectF::GetCenter()
{
    // Each sum is rounded to float before it is widened.
    return {static_cast<double>(m_left + m_right) * 0.5, static_cast<double>(m_bottom + m_top) * 0.5};
}

float CKRectF::GetCenterX()
{
    return (m_left + m_right) * 0.5f;
}

float CKRectF::GetCenterY()
{
    return (m_bottom + m_top) * 0.5f;
}

int CKRectF::IsIntersect(CKRectF other)
{
    // Asked for the gaps and not for the overlap, so that a NaN edge separates nothing.
    if (m_left > other.m_right || other.m_left > m_right || other.m_bottom > m_top || m_bottom > other.m_top)
        return 0;
    return 1;
}

// A point is a rectangle without extent, as the first one and in the comparisons.
void CKRectF::MergePoint(float x, float y)
{
    Merge(x, x, y, y);
}

// Strict comparisons: an equal edge keeps its bits, and a NaN, which is neither smaller nor larger, moves nothing.
void CKRectF::Merge(float left, float right, float bottom, float top)
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

void CKRectF::Merge(CKRectF* other)
{
    if (other)
        Merge(other->m_left, other->m_right, other->m_bottom, other->m_top);
}

// An edge pair with a NaN is never the wrong way round.
void CKRectF::Arrange()
{
    if (m_left > m_right)
        std::swap(m_left, m_right);
    if (m_bottom > m_top)
        std::swap(m_bottom, m_top);
}

// Edges move one by one in float; nothing checks whether a shrunken rectangle still has its edges in order.
void CKRectF::Expand(float distance)
{
    m_left -= distance;
    m_right += distance;
    m_bottom -= distance;
    m_top += distance;
}

// Goes through the edges, not through the copy constructor: a clone counts as set.
CKRectF* CKRectF::GetClone()
{
    return new CKRectF(m_left, m_right, m_bottom, m_top);
}

CString CKRectF::ToString()
{
    CString text;
    text.Format("CKRectF left:%f right:%f bottom:%f top:%f", static_cast<double>(m_left), static_cast<double>(m_right),
                static_cast<double>(m_bottom), static_cast<double>(m_top));
    return text;
}
