/// The rotation that all of CKMath shares. Inside of math/ only.
#pragma once

#include "foundation/KRecords.h"

#include <cmath>

/// Pi in single precision: every conversion of angles uses this value and float arithmetic.
constexpr float kPiF = 3.1415927f;

/// A counter-clockwise turn held by the cosine and sine of the negated angle. The angle becomes radians in single
/// precision, negated there, and is only then widened for the double turn. Equality of shapes is exact, so a turned
/// point has to come out to the last bit: neither a better pi nor a special case for quarter turns may "improve" this.
template <typename Real>
class Turn
{
public:
    explicit Turn(float degrees)
    {
        const Real theta = static_cast<Real>((-degrees * kPiF) / 180.0f);
        m_cos = std::cos(theta);
        m_sin = std::sin(theta);
    }
    /// The turn by the negated angle: cosine is even and sine odd, in every bit.
    Turn Reversed() const
    {
        Turn reversed = *this;
        reversed.m_sin = -m_sin;
        return reversed;
    }
    // The sine is that of the negated angle: hence + in x and - in y.
    Real X(Real x, Real y) const { return m_cos * x + m_sin * y; }
    Real Y(Real x, Real y) const { return m_cos * y - m_sin * x; }
    void Apply(Real& x, Real& y) const
    {
        const Real oldX = x;
        x = X(oldX, y);
        y = Y(oldX, y);
    }

private:
    Real m_cos;
    Real m_sin;
};
