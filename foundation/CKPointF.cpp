#include "foundation/CKPointF.h"

#include <cmath>

float CKPointF::GetDistance(float x, float y)
{
    // Squares of millimetres leave the range of float from about 1.8e19 on; the distance is infinite then.
    const float dx = x - m_x;
    const float dy = y - m_y;
    return std::sqrt(dy * dy + dx * dx);
}

int CKPointF::IsSame(float x, float y, float tolerance)
{
    // The differences are rounded to float before they are compared in double.
    const double dx = std::fabs(static_cast<double>(x - m_x));
    const double dy = std::fabs(static_cast<double>(y - m_y));
    const double limit = tolerance;
    return limit > dx && limit > dy ? 1 : 0;
}
