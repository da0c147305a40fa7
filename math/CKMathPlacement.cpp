#include "math/CKMath.h"

#include "math/Turn.h"

namespace {

// The double and the float functions take the same steps; only the arithmetic differs.

// By sign, not by subtraction from 0: an x of +0.0 becomes -0.0.
template <typename Real>
void Mirror(Real& x, int mirror)
{
    if (mirror)
        x = -x;
}

// Exactly 0 only: 360 degrees are turned and leave their rounding in the point.
template <typename Real>
void PlacePoint(Real& x, Real& y, float angle, int mirror)
{
    if (angle != 0.0f)
        Turn<Real>(angle).Apply(x, y);
    Mirror(x, mirror);
}

// One turn for both points: cosine and sine are the costly part.
template <typename Real>
void PlacePoints(Real& x1, Real& y1, Real& x2, Real& y2, float angle, int mirror)
{
    if (angle != 0.0f) {
        const Turn<Real> turn(angle);
        turn.Apply(x1, y1);
        turn.Apply(x2, y2);
    }
    Mirror(x1, mirror);
    Mirror(x2, mirror);
}

/// The node's coordinate; the coordinate itself when the node's number is no int or an infinite grid has no node.
float Snapped(float coordinate, float grid)
{
    // The sign is that of the coordinate as it came; truncation then makes half steps leave zero on both sides.
    const double steps = static_cast<double>(coordinate / grid) + (coordinate < 0.0f ? -0.5 : 0.5);
    if (!(std::fabs(steps) < 2147483648.0))
        return coordinate;
    const float node = static_cast<float>(static_cast<int>(steps)) * grid;
    return std::isnan(node) ? coordinate : node;
}

} // namespace

void CKMath::TranslatePoint(double& x, double& y, float angle, int mirror)
{
    PlacePoint(x, y, angle, mirror);
}

void CKMath::TranslatePoint(float& x, float& y, float angle, int mirror)
{
    PlacePoint(x, y, angle, mirror);
}

void CKMath::TranslatePoints(double& x1, double& y1, double& x2, double& y2, float angle, int mirror)
{
    PlacePoints(x1, y1, x2, y2, angle, mirror);
}

void CKMath::TranslatePoints(float& x1, float& y1, float& x2, float& y2, float angle, int mirror)
{
    PlacePoints(x1, y1, x2, y2, angle, mirror);
}

// A mirror image runs the other way round; with the sweep flag inverted the arc covers the images of its points.
void CKMath::TranslateArc(double& cx, double& cy, double& sx, double& sy, double& ex, double& ey, int& counterClockwise,
                          float angle, int mirror)
{
    PlacePoints(sx, sy, ex, ey, angle, mirror);
    PlacePoint(cx, cy, angle, mirror);
    if (mirror)
        counterClockwise = counterClockwise ? 0 : 1;
}

void CKMath::TranslateArc(float& cx, float& cy, float& sx, float& sy, float& ex, float& ey, int& counterClockwise,
                          float angle, int mirror)
{
    PlacePoints(sx, sy, ex, ey, angle, mirror);
    PlacePoint(cx, cy, angle, mirror);
    if (mirror)
        counterClockwise = counterClockwise ? 0 : 1;
}

// The element's own origin is never turned, so no angle, not even a NaN, can move it.
KPointD CKMath::GetLibraryLocation(double x, double y, double dx, double dy, int mirror, float angle)
{
    if (dx == 0.0 && dy == 0.0)
        return {x + dx, y + dy};
    // Whole turns are skipped here, so that a part turned by 360 lies exactly where it would lie unturned.
    if (std::fmod(angle, 360.0f) != 0.0f)
        Turn<double>(angle).Apply(dx, dy);
    Mirror(dx, mirror);
    return {x + dx, y + dy};
}

void CKMath::SnapToGrid(float& x, float& y, float gridX, float gridY)
{
    x = Snapped(x, gridX);
    y = Snapped(y, gridY);
}
