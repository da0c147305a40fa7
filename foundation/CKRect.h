#pragma once

#include "KolmApi.h"

#include "foundation/KRecords.h"

/// Axis-parallel rectangle of whole numbers, held by its edges. Unlike the double and float rectangles it has signed
/// sizes and does not know whether anything was put in: a default rectangle has all edges 0. Plain value.
class KOLM_API CKRect
{
public:
    /// All four edges, in this order.
    void Set(int left, int right, int bottom, int top);

    /// @{
    /// The edges as they were set.
    int GetLeft() const { return m_left; }
    int GetRight() const { return m_right; }
    int GetBottom() const { return m_bottom; }
    int GetTop() const { return m_top; }
    /// @}

    /// right - left, negative when they are the other way round. A difference that an int cannot hold gives the nearer
    /// end of its range, here and below.
    int GetWidth();
    /// bottom - top: negative for a rectangle whose top is the larger number.
    int GetHeight();
    /// The larger of the two signed sizes.
    int GetMaxSize();
    /// The centre; a half is dropped toward zero, so the centre of -3 and 0 is -1.
    KPoint GetCenter();

private:
    int m_left = 0;
    int m_right = 0;
    int m_bottom = 0;
    int m_top = 0;
};
