#pragma once

#include "KolmApi.h"

/// A point in logical millimetres in double precision. A plain value without comparison.
class KOLM_API CKPointD
{
public:
    CKPointD(double x = 0, double y = 0) : m_x(x), m_y(y) {} ///< in millimetres

    /// @{
    /// The coordinates in millimetres.
    double GetX() { return m_x; }
    double GetY() { return m_y; }
    void SetX(double x) { m_x = x; }
    void SetY(double y) { m_y = y; }
    void SetXY(double x, double y)
    {
        m_x = x;
        m_y = y;
    }
    /// @}

private:
    double m_x;
    double m_y;
};
