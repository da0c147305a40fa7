// Arrows: a shaft and two wings at each head, every line a stroke of its own.
//
// The variants without a pen width are for dimension lines, whose heads keep a fixed size on the board; the others let
// the caller say from which shaft length on the heads stop growing. The world-transform variants draw through the
// virtual DrawLine, so that a host that replaces it gets the arrows' lines as well.
#include "math/CKMath.h"
#include "painter/PainterMapping.h"

#include <cmath>

namespace {

constexpr double kWingAngle = 0.3490658700466156; // 20 degrees as a single-precision value, widened

constexpr double kLongShaft = 4.0; // mm; from here on heads no longer grow
constexpr double kLongHead = 1.0;  // mm
constexpr double kHeadShare = 0.25;

double GetDefaultHead(double length)
{
    return length > kLongShaft ? kLongHead : length * kHeadShare;
}

// The limited head is computed in single precision, the share of a short shaft in double.
double GetLimitedHead(double length, float limit)
{
    return length > limit ? limit * 0.25f : length * kHeadShare;
}

/// Two wings: the point `head` before the tip on the shaft, turned about the tip to either side. That point is found
/// from the foot, length - head along the shaft.
template <typename Line>
void DrawHead(double footX, double footY, double tipX, double tipY, double length, double head, const Line& line)
{
    // Turned by the positive angle a wing lies to the right of the way back from the tip, so the left one comes first.
    const KPointD base = CKMath::GetDistancedLinePoint(tipX, tipY, footX, footY, -(length - head));
    const double dx = base.x - tipX;
    const double dy = base.y - tipY;
    for (const double angle : {-kWingAngle, kWingAngle}) {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        line(tipX, tipY, tipX + c * dx + s * dy, tipY + c * dy - s * dx);
    }
}

/// Shaft, head at the end, head at the start. `line` draws each of them as a stroke of its own.
template <typename Line>
void DrawArrowLines(double x1, double y1, double x2, double y2, double length, double head, int headAtStart,
                    int headAtEnd, const Line& line)
{
    line(x1, y1, x2, y2);
    if (headAtEnd)
        DrawHead(x1, y1, x2, y2, length, head, line);
    if (headAtStart)
        DrawHead(x2, y2, x1, y1, length, head, line);
}

} // namespace

// In all four an arrow without length, or with an end that is no number, has no direction and draws nothing at all.
void CKPainter::DrawArrow(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, int bothEnds)
{
    const double length = CKMath::GetDistance(x1, y1, x2, y2);
    if (!(length > 0.0))
        return;
    const auto line = [&](double fromX, double fromY, double toX, double toY) {
        DrawLine(dc, color, fromX, fromY, toX, toY, 0.0, 0);
    };
    DrawArrowLines(x1, y1, x2, y2, length, GetDefaultHead(length), bothEnds, 1, line);
}

void CKPainter::DrawArrowNoWorldTransform(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2,
                                          int bothEnds)
{
    const double length = CKMath::GetDistance(x1, y1, x2, y2);
    if (!(length > 0.0))
        return;
    const auto line = [&](double fromX, double fromY, double toX, double toY) {
        DrawLineNoWorldTransform(dc, color, fromX, fromY, toX, toY, 0.0);
    };
    DrawArrowLines(x1, y1, x2, y2, length, GetDefaultHead(length), bothEnds, 1, line);
}

void CKPainter::DrawArrowWithPenWidth(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, double width,
                                      int headAtStart, int headAtEnd, float headLimit)
{
    const double length = CKMath::GetDistance(x1, y1, x2, y2);
    if (!(length > 0.0))
        return;
    const auto line = [&](double fromX, double fromY, double toX, double toY) {
        DrawLine(dc, color, fromX, fromY, toX, toY, width, 1);
    };
    DrawArrowLines(x1, y1, x2, y2, length, GetLimitedHead(length, headLimit), headAtStart, headAtEnd, line);
}

void CKPainter::DrawArrowNoWorldTransformWithPenWidth(CDC* dc, COLORREF color, double x1, double y1, double x2,
                                                      double y2, double width, int headAtStart, int headAtEnd,
                                                      float headLimit)
{
    const double length = CKMath::GetDistance(x1, y1, x2, y2);
    if (!(length > 0.0))
        return;
    const auto line = [&](double fromX, double fromY, double toX, double toY) {
        DrawLineNoWorldTransform(dc, color, fromX, fromY, toX, toY, width);
    };
    DrawArrowLines(x1, y1, x2, y2, length, GetLimitedHead(length, headLimit), headAtStart, headAtEnd, line);
}
