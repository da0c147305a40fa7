#pragma once

#include "KolmApi.h"

/// A point in double precision, the element of CArrayPointD. A plain value; a new one is (0, 0).
class KOLM_API CPointD
{
public:
    /// @{
    /// The coordinates as they are.
    double GetX() const { return m_x; }
    double GetY() const { return m_y; }
    /// @}
    double& GetX() { return m_x; } ///< the coordinate itself, to be changed in place
    double& GetY() { return m_y; } ///< the coordinate itself, to be changed in place
    /// @{
    /// The arguments may be coordinates of this very point.
    void SetX(const double& x) { m_x = x; }
    void SetY(const double& y) { m_y = y; }
    void SetData(const double& x, const double& y)
    {
        m_x = x;
        m_y = y;
    }
    /// @}

private:
    double m_x = 0;
    double m_y = 0;
};
