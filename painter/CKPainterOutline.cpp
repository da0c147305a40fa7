// Builders of outlines: tracks, thick arcs, pads and rings as closed paths in T() pixels.
//
// Arcs go to the device as true arcs only where that pays. Small ones become chords on the pixel circle, computed from
// the rounded radius and centre, so that a chord's points agree with those of every other arc of the circle.
//
// Round ends are half circles of the same builder. Their direction on the board, clockwise from the left to the right
// side seen along the way out, makes the outline one closed turn that fills without holes.
#include "math/CKMath.h"
#include "painter/PainterMapping.h"

#include <cmath>

namespace {

// A quarter turn as a single-precision value, widened.
constexpr double kQuarter = 1.5707963705062866;

constexpr float kHalfTurn = 180.0f;
constexpr double kSamePoint = 1e-07;     // mm, in x and in y: ends this close make a full circle
constexpr float kSmallestTrueArc = 2.0f; // degrees; flatter arcs are too close to a line to be worth an ellipse
constexpr int kSmallestTrueRadius = 40;  // pixels; below that chords can't be told from the arc
constexpr float kSingleChord = 30.0f;    // degrees
constexpr float kChordStep = 15.0f;      // degrees

/// The vector turned clockwise by `angle` radians, on the board.
KPointD Turned(double angle, double x, double y)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {c * x + s * y, c * y - s * x};
}

/// `base` plus the vector from `from` to `to`, turned by a quarter to the left or (kQuarter) to the right.
KPointD Beside(KPointD base, double quarter, KPointD from, KPointD to)
{
    const KPointD turned = Turned(quarter, to.x - from.x, to.y - from.y);
    return {base.x + turned.x, base.y + turned.y};
}

/// A new sub-path at the point, or a line to it that continues the current one.
void StartOrContinue(CDC* dc, int first, int x, int y)
{
    if (first)
        dc->MoveTo(x, y);
    else
        dc->LineTo(x, y);
}

/// A placed arc in pixels: what remains to be decided is how to draw it.
struct PixelArc
{
    KPoint start;
    KPoint end;
    KPoint center;
    int radius;
    float startAngle; // degrees
    float sweep;      // degrees in the arc's direction, [0, 360)
    int sweepCcw;
};

/// One arc of the device. It first draws a line to where the ray through the start meets the circle, which rounding can
/// put a pixel beside the start.
void AddTrueArc(CDC* dc, const PixelArc& arc)
{
    // Device directions are seen with y down, hence the opposite of the board's.
    dc->SetArcDirection(arc.sweepCcw ? AD_CLOCKWISE : AD_COUNTERCLOCKWISE);
    dc->ArcTo(SaturatedDifference(arc.center.x, arc.radius), SaturatedDifference(arc.center.y, arc.radius),
              SaturatedSum(arc.center.x, arc.radius), SaturatedSum(arc.center.y, arc.radius), arc.start.x, arc.start.y,
              arc.end.x, arc.end.y);
}

void AddChords(CDC* dc, const PixelArc& arc)
{
    const int count = SaturatedToInt(static_cast<double>(arc.sweep / kChordStep));
    KPoint previous = arc.start;
    for (int k = 1; k <= count; ++k) {
        const float turn = kChordStep * static_cast<float>(k);
        const float angle = arc.sweepCcw ? arc.startAngle + turn : arc.startAngle - turn;
        const KPoint offset = CKMath::GetRotatedPoint(arc.radius, 0, angle);
        const KPoint point = {SaturatedSum(offset.x, arc.center.x), SaturatedSum(offset.y, arc.center.y)};
        // Tiny arcs come back to the same pixel again and again, and must not run on once the end is reached.
        const bool repeated = point.x == previous.x && point.y == previous.y;
        const bool arrived = previous.x == arc.end.x && previous.y == arc.end.y;
        if (!repeated && !arrived)
            dc->LineTo(point.x, point.y);
        previous = point;
    }
    // The exact end, which whatever continues the figure starts from.
    dc->LineTo(arc.end.x, arc.end.y);
}

} // namespace

void CKPainter::AddLinePath(CDC* dc, double x1, double y1, double x2, double y2, int first)
{
    StartOrContinue(dc, first, T(x1), T(y1));
    dc->LineTo(T(x2), T(y2));
}

// Placing always turns and mirrors about the origin of the element; only then does it move to its place on the board.
void CKPainter::AddLinePath(CDC* dc, double x1, double y1, double x2, double y2, double offsetX, double offsetY,
                            float angle, int mirror, int first)
{
    CKMath::TranslatePoints(x1, y1, x2, y2, angle, mirror);
    AddLinePath(dc, x1 + offsetX, y1 + offsetY, x2 + offsetX, y2 + offsetY, first);
}

// One arc from the leftmost point around to itself: equal radials give the whole ellipse.
void CKPainter::AddCirclePath(CDC* dc, int centerX, int centerY, int radius, int first)
{
    const int left = SaturatedDifference(centerX, radius);
    StartOrContinue(dc, first, left, centerY);
    dc->ArcTo(left, SaturatedDifference(centerY, radius), SaturatedSum(centerX, radius), SaturatedSum(centerY, radius),
              left, centerY, left, centerY);
}

void CKPainter::AddCirclePath(CDC* dc, double centerX, double centerY, double radius, int first)
{
    AddCirclePath(dc, T(centerX), T(centerY), T(radius), first);
}

void CKPainter::AddRectanglePath(CDC* dc, double centerX, double centerY, double width, double height, float angle,
                                 int mirror, int first)
{
    // Two pixels at least, so that pads stay visible when the whole board is shown.
    if (T(width) < 2)
        width = 2.0 / PixelsPerUnit();
    if (T(height) < 2)
        height = 2.0 / PixelsPerUnit();

    const double halfWidth = width * 0.5;
    const double halfHeight = height * 0.5;
    KPointD corners[] = {
        {-halfWidth, halfHeight}, {halfWidth, halfHeight}, {halfWidth, -halfHeight}, {-halfWidth, -halfHeight}};
    for (KPointD& corner : corners)
        CKMath::TranslatePoint(corner.x, corner.y, angle, mirror);

    // Corners are placed relative to the centre and only then moved, so a pad turns about itself and not about the
    // origin.
    const auto pixel = [&](const KPointD& corner) { return KPoint{T(corner.x + centerX), T(corner.y + centerY)}; };
    const KPoint start = pixel(corners[0]);
    StartOrContinue(dc, first, start.x, start.y);
    for (int i = 1; i < 4; ++i) {
        const KPoint next = pixel(corners[i]);
        dc->LineTo(next.x, next.y);
    }
    dc->LineTo(start.x, start.y);
}

void CKPainter::AddArcPath(CDC* dc, double startX, double startY, double endX, double endY, double centerX,
                           double centerY, int sweepCcw, double offsetX, double offsetY, float angle, float, int mirror,
                           int first)
{
    // The mirror inverts the sweep flag too; from here on everything is as placed.
    CKMath::TranslateArc(centerX, centerY, startX, startY, endX, endY, sweepCcw, angle, mirror);

    PixelArc arc;
    arc.start = {T(startX + offsetX), T(startY + offsetY)};
    arc.end = {T(endX + offsetX), T(endY + offsetY)};
    arc.center = {T(centerX + offsetX), T(centerY + offsetY)};
    arc.radius = T(CKMath::GetDistance(startX, startY, centerX, centerY));
    arc.startAngle = CKMath::GetLineAngle(centerX, centerY, startX, startY);
    arc.sweep = CKMath::GetSweepAngle(arc.startAngle, CKMath::GetLineAngle(centerX, centerY, endX, endY), sweepCcw);
    arc.sweepCcw = sweepCcw;

    // Compared before the offset and in millimetres: ends that share a pixel are not yet a whole circle. Without a
    // radius there is nothing to turn around, circle or not.
    if (arc.radius > 0 && std::fabs(startX - endX) < kSamePoint && std::fabs(startY - endY) < kSamePoint) {
        AddCirclePath(dc, arc.center.x, arc.center.y, arc.radius, first);
        return;
    }

    // Flat or small: a chord or two look the same and are drawn faster than an ellipse.
    StartOrContinue(dc, first, arc.start.x, arc.start.y);
    if (arc.sweep >= kSmallestTrueArc && arc.radius >= kSmallestTrueRadius)
        AddTrueArc(dc, arc);
    else if (arc.sweep >= kSingleChord && arc.radius > 0)
        AddChords(dc, arc);
    else
        dc->LineTo(arc.end.x, arc.end.y);
}

void CKPainter::AddLineOutlinePath(CDC* dc, double x1, double y1, double x2, double y2, float width, int roundEnds)
{
    if (width <= 0.0f) {
        AddLinePath(dc, x1, y1, x2, y2, 1);
        return;
    }

    // Every corner is a quarter turn of the way from an end to the point half a width beyond it, or back. A track
    // without length points along +x, so that its round outline is a disc and its square one a square.
    const double halfWidth = width * 0.5;
    const KPointD start = {x1, y1};
    const KPointD end = {x2, y2};
    const KPointD before = CKMath::GetDistancedLinePoint(x2, y2, x1, y1, halfWidth); // on the line, past the start
    const KPointD behind = CKMath::GetDistancedLinePoint(x1, y1, x2, y2, halfWidth); // past the end

    // Left and right are those of someone who leaves the track at that end.
    if (roundEnds) {
        const KPointD startLeft = Beside(start, -kQuarter, start, before);
        const KPointD startRight = Beside(start, kQuarter, start, before);
        const KPointD endLeft = Beside(end, -kQuarter, end, behind);
        const KPointD endRight = Beside(end, kQuarter, end, behind);
        AddArcPath(dc, startLeft.x, startLeft.y, startRight.x, startRight.y, x1, y1, 0, 0.0, 0.0, 0.0f, kHalfTurn, 0,
                   1);
        AddArcPath(dc, endLeft.x, endLeft.y, endRight.x, endRight.y, x2, y2, 0, 0.0, 0.0, 0.0f, kHalfTurn, 0, 0);
        dc->LineTo(T(startLeft.x), T(startLeft.y));
        return;
    }

    const KPointD corners[] = {Beside(before, -kQuarter, before, start), Beside(before, kQuarter, before, start),
                               Beside(behind, -kQuarter, behind, end), Beside(behind, kQuarter, behind, end)};
    dc->MoveTo(T(corners[0].x), T(corners[0].y));
    for (int i = 1; i <= 4; ++i)
        dc->LineTo(T(corners[i % 4].x), T(corners[i % 4].y));
}

void CKPainter::AddArcOutlinePath(CDC* dc, double startX, double startY, double endX, double endY, double centerX,
                                  double centerY, double width, int sweepCcw, double offsetX, double offsetY,
                                  float angle, float unused, int mirror)
{
    // The bare arc continues the current figure: the caller has begun it with a point of its own.
    if (width <= 0.0) {
        AddArcPath(dc, startX, startY, endX, endY, centerX, centerY, sweepCcw, offsetX, offsetY, angle, unused, mirror,
                   0);
        return;
    }

    const double halfWidth = width * 0.5;
    if (startX == endX && startY == endY) {
        // A ring stays where it is for every angle: views rely on that. Mirrored it is the mirror image of that ring,
        // as every outline is.
        const double radius = CKMath::GetDistance(startX, startY, centerX, centerY);
        if (mirror)
            centerX = -centerX;
        AddCirclePath(dc, centerX + offsetX, centerY + offsetY, radius - halfWidth, 1);
        AddCirclePath(dc, centerX + offsetX, centerY + offsetY, radius + halfWidth, 1);
        return;
    }

    // Corners are taken before placing, and every arc is placed alike, so a mirrored outline is the mirror image of the
    // unmirrored one. An arc wider than its diameter has inner corners beyond the centre and still closes.
    const KPointD startInner = CKMath::GetDistancedLinePoint(centerX, centerY, startX, startY, -halfWidth);
    const KPointD startOuter = CKMath::GetDistancedLinePoint(centerX, centerY, startX, startY, halfWidth);
    const KPointD endOuter = CKMath::GetDistancedLinePoint(centerX, centerY, endX, endY, halfWidth);
    const KPointD endInner = CKMath::GetDistancedLinePoint(centerX, centerY, endX, endY, -halfWidth);
    const auto edge = [&](KPointD from, KPointD to, double aroundX, double aroundY, int ccw, int first) {
        AddArcPath(dc, from.x, from.y, to.x, to.y, aroundX, aroundY, ccw, offsetX, offsetY, angle, kHalfTurn, mirror,
                   first);
    };
    edge(startInner, startOuter, startX, startY, sweepCcw, 1); // round end at the start
    edge(startOuter, endOuter, centerX, centerY, sweepCcw, 0);
    edge(endOuter, endInner, endX, endY, sweepCcw, 0); // round end at the end
    edge(endInner, startInner, centerX, centerY, sweepCcw ? 0 : 1, 0);
}
