#pragma once

#include "KolmApi.h"

/// A point in logical millimetres in single precision. A plain value without virtual operations.
class KOLM_API CKPointF
{
public:
    CKPointF(float x = 0, float y = 0) : m_x(x), m_y(y) {} ///< in millimetres

    /// @{
    /// The coordinates in millimetres.
    float GetX() { return m_x; }
    float GetY() { return m_y; }
    void SetX(float x) { m_x = x; }
    void SetY(float y) { m_y = y; }
    void SetXY(float x, float y)
    {
        m_x = x;
        m_y = y;
    }
    /// @}

    /// Euclidean distance to (x, y), every step in single precision.
    float GetDistance(float x, float y);
    /// 1 when both coordinates lie closer than the tolerance, else 0. The comparison is strict: with tolerance 0 a
    /// point is not even the same as itself.
    int IsSame(float x, float y, float tolerance);

private:
    float m_x;
    float m_y;
};
