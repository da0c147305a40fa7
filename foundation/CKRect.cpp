#include "foundation/CKRect.h"

#include "foundation/Saturate.h"

void CKRect::Set(int left, int right, int bottom, int top)
{
    m_left = left;
    m_right = right;
    m_bottom = bottom;
    m_top = top;
}

// The difference of two ints can need 33 bits; it saturates rather than change its sign.
int CKRect::GetWidth()
{
    return SaturatedDifference(m_right, m_left);
}

int CKRect::GetHeight()
{
    return SaturatedDifference(m_bottom, m_top);
}

// Signed sizes: of two negative ones the one nearer to zero is the larger.
int CKRect::GetMaxSize()
{
    const int width = GetWidth();
    const int height = GetHeight();
    return width > height ? width : height;
}

KPoint CKRect::GetCenter()
{
    // The sums need 33 bits, their halves fit again.
    return {SaturatedToInt((int64_t(m_left) + m_right) / 2), SaturatedToInt((int64_t(m_bottom) + m_top) / 2)};
}
