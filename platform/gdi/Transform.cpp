/// Setting, reading and inverting the world transform.
#include "gdi/Transform.h"

namespace gdi {

bool Transform::Set(const XFORM& matrix)
{
    const double values[] = {matrix.eM11, matrix.eM12, matrix.eM21, matrix.eM22, matrix.eDx, matrix.eDy};
    for (double value : values) {
        if (!std::isfinite(value)) {
            return false;
        }
    }
    // Products of two floats are exact in double, but their difference may round: only a true zero is refused.
    const double determinant = values[0] * values[3] - values[1] * values[2];
    if (determinant == 0) {
        return false;
    }
    m11 = values[0], m12 = values[1], m21 = values[2], m22 = values[3], dx = values[4], dy = values[5];
    straight = m12 == 0 && m21 == 0;
    identity = straight && m11 == 1 && m22 == 1 && dx == 0 && dy == 0;
    widthScale = std::sqrt(std::fabs(determinant));
    mirrored = determinant < 0;
    return true;
}

XFORM Transform::Get() const
{
    return {float(m11), float(m12), float(m21), float(m22), float(dx), float(dy)};
}

RealPoint Transform::Inverse(RealPoint device) const
{
    const double determinant = m11 * m22 - m12 * m21;
    return {((device.x - dx) * m22 - (device.y - dy) * m21) / determinant,
            ((device.y - dy) * m11 - (device.x - dx) * m12) / determinant};
}

POINT Transform::ToLogical(RealPoint device) const
{
    const auto [x, y] = Inverse(device);
    const POINT nearest = {RoundToPixel(x), RoundToPixel(y)};
    const POINT lower = {RoundToPixel(std::ceil(x - 0.5)), RoundToPixel(std::ceil(y - 0.5))};

    // A tie between two logical values is broken by what maps forward to the device point.
    const auto mapsBack = [&](POINT p) {
        const DevicePoint there = ToDevice(p.x, p.y);
        return there.x == RoundToPixel(device.x) && there.y == RoundToPixel(device.y);
    };
    const POINT candidates[] = {nearest, {lower.x, nearest.y}, {nearest.x, lower.y}, lower};
    for (const POINT& candidate : candidates) {
        if (mapsBack(candidate)) {
            return candidate;
        }
    }
    return nearest;
}

} // namespace gdi
