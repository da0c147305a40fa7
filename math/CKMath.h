#pragma once

#include "KolmApi.h"

#include "foundation/KRecords.h"

#include <cmath>

class CKGeomArc;
class CKRectD;
class CKRectF;

/// Computational geometry as static functions; there is no data, and nothing needs an object. Points are coordinate
/// pairs, x before y, in logical millimetres with y upward. A segment is closed, its ends included. Angles are degrees
/// in single precision, polar angles counter-clockwise from +x; degrees become radians as degrees x 3.1415927f / 180.0f
/// in single precision. A positive rotation turns counter-clockwise.
///
/// Direction code: -1 left or counter-clockwise, +1 right or clockwise, 0 neither. Sweep flag: non-zero
/// counter-clockwise from start to end, 0 clockwise. Placement rotates first and mirrors second; a mirror negates x.
///
/// Results are promised to the last bit, because shapes compare exactly: the steps and their precision are part of the
/// interface. Comparisons are exact as well, without tolerance. Nothing fails; a NaN or an overflow comes out as a NaN
/// or an infinity where the result can hold one, and what becomes an int saturates, a NaN giving 0. All functions are
/// re-entrant, except that GenerateArcFromThreePoints() takes an object number.
class KOLM_API CKMath
{
public:
    // ---- Numbers

    /// The value without its sign: also for -0.0, and a NaN stays one.
    static double Abs(double value);
    /// Rounded by adding 0.5 and truncating toward zero: 2.5 gives 3, -2.5 and -2.7 give -2.
    static int GetRoundedOff(double value);
    /// Rounded to decimal digits, halves toward +infinity; negative digits round to tens, hundreds and so on. The
    /// result is a multiple of the negative power of ten: 0.3 to one digit is 0.30000000000000004.
    static double GetRoundedOff(double value, int digits);
    static double GetCrossProduct(double x1, double y1, double x2, double y2); ///< x1 y2 - y1 x2
    /// The sum (not the product) 1 + 2 + ... + n: 0 below 1, the largest int from 65536 on.
    static int GetFactorial(int n);
    /// Widens a range by a point. A range starts with minima above and maxima below every coordinate. A NaN is ignored.
    static void SetMinMax(double x, double y, double& minX, double& minY, double& maxX, double& maxY);

    // ---- Angles and directions

    static float GetDegree(float radians); ///< radians x 180 / pi
    static float GetRadian(float degrees); ///< degrees x pi / 180
    /// The angle as one of [0, 360): below 0, full turns are added one at a time, each sum rounded to float; then the
    /// remainder by 360. A tiny negative angle so becomes 0. Where adding a turn no longer changes the float (from
    /// -2^33 on) the exact remainder is taken. NaN for a NaN and the infinities.
    static float GetPositiveAngle(float angle);
    /// The sweep from start to end in the given sense, made positive as by GetPositiveAngle(): equal angles give 0.
    static float GetSweepAngle(float startAngle, float endAngle, int counterClockwise);
    /// The direction of P1 -> P2, in (-180, 180]; 0 for equal points.
    static float GetLineAngle(double x1, double y1, double x2, double y2);
    /// The unsigned angle at P2 between the arms to P1 and P3, in [0, 180]; NaN when an arm has no length.
    static float GetAngleFrom3Points(float x1, float y1, float x2, float y2, float x3, float y3);
    static int GetReversedDirection(int direction); ///< swaps 1 and -1, keeps every other value
    static int ReverseDirection(int direction);     ///< -1 for 1, and 1 for every other value

    // ---- Distances and sides

    static float GetDistance(float x1, float y1, float x2, float y2);      ///< of two points, all in single precision
    static double GetDistance(double x1, double y1, double x2, double y2); ///< the same in double precision
    /// Of the point P from the segment P1-P2, which may be a single point.
    static double GetDistance(double x1, double y1, double x2, double y2, double px, double py);
    /// Of the segments P1-P2 and P3-P4: exactly 0 when they cross. A segment of no length is measured as a point.
    static double GetDistance(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);
    /// A coordinate of the infinite line through P1 and P2: with `wantY` its y at x = value, else its x at y = value.
    /// The largest float when there is no single one (y of a vertical line, x of a horizontal one).
    static float GetLineXOrLineY(float x1, float y1, float x2, float y2, int wantY, float value);
    /// The side of P3 against P1 -> P2: +1 right, -1 left. On the line: -1 behind P1, 0 on the segment, +1 beyond P2.
    /// Always 0 when P1 = P2.
    static int GetRelativeDirection(double x1, double y1, double x2, double y2, double x3, double y3);
    /// 1 when the segments P1-P2 and P3-P4 share a point, touching included, else 0. Two segments of no length always
    /// give 1: callers that can have them test for them first.
    static int IsIntersectLineToLine(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                     double y4);

    // ---- Rotation

    /// @{
    /// The point turned about the origin, or about a centre, which then comes first in the argument list. No angle is a
    /// special case: 0 keeps every bit, 90 carries the error of pi as a float. The int overloads round each coordinate
    /// of the turned difference as GetRoundedOff() does, which takes negative whole numbers up by one: (-5, 0) by 0 is
    /// (-4, 0).
    static KPointD GetRotatedPoint(double x, double y, float angle);
    static KPointF GetRotatedPoint(float x, float y, float angle);
    static KPointD GetRotatedPoint(double cx, double cy, double x, double y, float angle);
    static KPointF GetRotatedPoint(float cx, float cy, float x, float y, float angle);
    static KPoint GetRotatedPoint(int x, int y, float angle);
    static KPoint GetRotatedPoint(int cx, int cy, int x, int y, float angle);
    /// @}
    /// The point at a distance and polar angle from the origin. Exact for the angles 0, 90, 180 and 270, but not for
    /// 360 or -90, which are computed like every other.
    static KPointD GetAngleToPoint(double distance, float angle);

    // ---- Placement

    /// @{
    /// Turns the point about the origin, except by an angle of exactly 0 (360 is turned, with its rounding), then
    /// negates x when `mirror` is non-zero.
    static void TranslatePoint(double& x, double& y, float angle, int mirror);
    static void TranslatePoint(float& x, float& y, float angle, int mirror);
    static void TranslatePoints(double& x1, double& y1, double& x2, double& y2, float angle, int mirror);
    static void TranslatePoints(float& x1, float& y1, float& x2, float& y2, float angle, int mirror);
    /// @}
    /// @{
    /// The same for the centre, start and end of an arc. A mirror inverts the sweep flag, so that the arc still covers
    /// the mirrored points.
    static void TranslateArc(double& cx, double& cy, double& sx, double& sy, double& ex, double& ey,
                             int& counterClockwise, float angle, int mirror);
    static void TranslateArc(float& cx, float& cy, float& sx, float& sy, float& ex, float& ey, int& counterClockwise,
                             float angle, int mirror);
    /// @}
    /// Where the local displacement (dx, dy) of an element placed at (x, y) lies on the board. Unlike TranslatePoint()
    /// no whole multiple of 360 is turned.
    static KPointD GetLibraryLocation(double x, double y, double dx, double dy, int mirror, float angle);
    /// Rounds the point to the nearest grid node, half steps away from zero. A coordinate stays as it is when its grid
    /// is 0 or its node's number does not fit an int.
    static void SnapToGrid(float& x, float& y, float gridX, float gridY);

    // ---- Points made from a line P1P2. A coordinate that is zero comes as +0.0 from the first.

    /// The foot of the perpendicular from P on the infinite line. A line that rises by at most a ten-thousandth of its
    /// run counts as horizontal at the height of P1, and so does one of no length.
    static KPointD GetDistanceInfiniteLinePoint(double x1, double y1, double x2, double y2, double px, double py);
    /// The point of the segment nearest to P: P itself, P1, P2 or the foot, in this order when the distances tie.
    static KPointD GetDistanceLinePoint(double x1, double y1, double x2, double y2, double px, double py);
    /// P2 moved by the distance along P1 -> P2, backward when it is negative, within the rounding of the angle as a
    /// float. A line of no length points along +x.
    static KPointD GetDistancedLinePoint(double x1, double y1, double x2, double y2, double distance);
    /// P1 or else P2 when it lies at exactly the distance from P, else the foot of P on the infinite line.
    static KPointD GetDistancedLinePoint(double x1, double y1, double x2, double y2, double px, double py,
                                         double distance);
    /// The mirror image of P across the infinite line, made by half a turn about the foot.
    static KPointD GetSymmetricPoint(double x1, double y1, double x2, double y2, double px, double py);
    /// The point at the distance from P2 that lies square to P1 -> P2, on its left side when `left` is non-zero.
    static KPointD GetRightAngleDistancedPoint(int left, double x1, double y1, double x2, double y2, double distance);
    /// The same at the distance that P has from the segment: on the left side when `followPoint` is non-zero and P lies
    /// there, else on the right.
    static KPointD GetRightAngleDistancedPointToPoint(int followPoint, double x1, double y1, double x2, double y2,
                                                      double px, double py);
    /// A new arc from P1 to P3 of thickness 0 that the caller deletes. Its centre is the image of P2 through the point
    /// of the chord P1-P3 nearest to it, its direction what GetRelativeDirection() says of P3 against P1 -> P2.
    static CKGeomArc* GenerateArcFromThreePoints(double x1, double y1, double x2, double y2, double x3, double y3);

    // ---- Points against arcs and circles: 1 when it holds, else 0. An arc runs about O from S to E; its radius is
    // |S - O| where none is passed. Polar angles are compared as float degrees, and a point in the centre has angle 0.

    /// The angle lies on the way from start to end, both ends included. Angles are made positive first; equal ones are
    /// a full circle, and everything lies on it.
    static int IsAngleInArc(float startAngle, float endAngle, float angle, int counterClockwise);
    /// The same for the polar angles of S, E and P about O.
    static int IsPointInArcAngle(double px, double py, double cx, double cy, double sx, double sy, double ex, double ey,
                                 int counterClockwise);
    /// The same by angles in (-180, 180] as they are, and without a full circle: at equal angles nothing lies between.
    static int IsPointInteriorAngleOfArc(double cx, double cy, double sx, double sy, double ex, double ey,
                                         int counterClockwise, double px, double py);
    /// P lies in the circular sector: between the radii in the sense of IsPointInteriorAngleOfArc(), not beyond the
    /// arc.
    static int IsPointInIcecreamHeadOfArc(double cx, double cy, double sx, double sy, double ex, double ey,
                                          int counterClockwise, double px, double py);
    static int IsInCircle(double px, double py, double cx, double cy, double radius); ///< P lies in the closed disc
    /// P lies on the outline drawn with that width: at most half of it inside or outside the radius.
    static int IsOnCircle(double px, double py, double cx, double cy, double radius, double width);
    /// P lies on the arc drawn with that width and flat ends. S = E exactly is a full circle.
    static int IsOnArc(double px, double py, double sx, double sy, double ex, double ey, double cx, double cy,
                       double width, int counterClockwise);
    /// The same after TranslateArc() has placed the arc; P is not moved.
    static int IsOnArc(double px, double py, double sx, double sy, double ex, double ey, double cx, double cy,
                       double width, int counterClockwise, float angle, int mirror);
    /// P lies in the circular segment between the arc and its chord, both included. `direction` is a direction code.
    static int IsInArc(double px, double py, int direction, double radius, double cx, double cy, double sx, double sy,
                       double ex, double ey);

    // ---- Points and crossings of lines. "No point" has the largest double in both coordinates; compare exactly.

    /// 1 when P lies between the ends of the segment, in x (in y on a vertical one), and the triangle P1 P2 P has at
    /// most 0.25 square millimetres: up to 0.5 / length beside the line.
    static int IsPointOnLine(double x1, double y1, double x2, double y2, double px, double py);
    /// Where the segments P1-P2 and P3-P4 meet; no point when they do not, or when they lie on parallel lines, even if
    /// they overlap.
    static KPointD GetLinesIntersectedPoint(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                            double y4);
    /// The same for the infinite lines. Parallel means exactly equal slopes; a line of no length counts as vertical.
    static KPointD GetInfiniteLinesIntersectedPoint(double x1, double y1, double x2, double y2, double x3, double y3,
                                                    double x4, double y4);

    // ---- Rectangles, closed and in the order left, right, bottom, top. One whose edges are the wrong way round holds
    // no point. The initialized flag of a rectangle object is not looked at.

    /// P lies in the rectangle or on its border.
    static int IsInRectangle(double px, double py, double left, double right, double bottom, double top);
    /// The same for P turned by the negated angle and then mirrored.
    static int IsInRectangle(double px, double py, double left, double right, double bottom, double top, float angle,
                             int mirror);
    /// The same for the rectangle grown by the margin on every side; 0 for null.
    static int IsInRectangle(double px, double py, CKRectD* rect, double margin);
    static int IsInRectangle(double px, double py, CKRectF* rect, double margin); ///< the margin is added in double
    /// @{
    /// 1 when the rectangles share a point, touching corners included.
    static int IsIntersectRectangle(double left1, double right1, double bottom1, double top1, double left2,
                                    double right2, double bottom2, double top2);
    static int IsIntersectRectangle(float left1, float right1, float bottom1, float top1, float left2, float right2,
                                    float bottom2, float top2);
    /// @}
    /// @{
    /// 1 when `a` meets `b` grown by the margin: whether a finer test of what they bound is worth its time.
    static int IsToCheck(CKRectF& a, CKRectF& b, double margin);
    static int IsToCheck(CKRectD& a, CKRectD& b, double margin);
    /// @}
    /// 1 when the segment comes as near to the rectangle as the tolerance, or has an end in it.
    static int IsIntersectLineToRectangle(double x1, double y1, double x2, double y2, double tolerance, double left,
                                          double right, double bottom, double top);
    /// 1 when the disc and the rectangle share a point.
    static int IsIntersectCircleToRectangle(double cx, double cy, double radius, double left, double right,
                                            double bottom, double top);

    // ---- Contact of outlines: 1 when they meet, else 0. Circles and arcs are curves of the radius that is passed; it
    // is not compared with the ends of the arc. A record may be null when only the answer is wanted, and is not
    // written without contact, except as IsContactLineToArc() says.

    /// The points where the segment meets the circle: first the one on P1's side, and one of them twice when the other
    /// end lies inside. A segment wholly inside meets nothing, but with `insideCounts` it does, in its own ends.
    static int IsContactLineToCircle(KTwoPointD* points, int insideCounts, double x1, double y1, double x2, double y2,
                                     double cx, double cy, double radius);
    /// The same with the arc: both crossings, or the one that lies on it twice. When the segment meets the circle but
    /// not the arc, the result is 0 and `points` holds the circle's crossings.
    static int IsContactLineToArc(KTwoPointD* points, double x1, double y1, double x2, double y2, int counterClockwise,
                                  double cx, double cy, double sx, double sy, double ex, double ey, double radius);
    /// The two crossings, equal where the circles touch: seen from centre 1 toward centre 2 the right one, then the
    /// left one. A circle meets itself in the reference point.
    static int IsContactCircleOutlineToCircleOutline(KTwoPointD* points, double c1x, double c1y, double r1, double c2x,
                                                     double c2y, double r2, double refX, double refY);
    /// The first of the circles' crossings that lies on both arcs. Two arcs of one circle meet only when the start of
    /// arc 1 lies on arc 2.
    static int IsContactArcToArc(KPointD* point, double c1x, double c1y, double s1x, double s1y, double e1x, double e1y,
                                 double r1, int counterClockwise1, double c2x, double c2y, double s2x, double s2y,
                                 double e2x, double e2y, double r2, int counterClockwise2);
    /// Where the infinite lines through P1, P2 and through P3, P4 cross; 0 for parallel ones and for one of no length.
    static int IsContactInfiniteLineToInfiniteLine(KPointD* point, double x1, double y1, double x2, double y2,
                                                   double x3, double y3, double x4, double y4);
    /// The arc crosses a side, has an end in the rectangle, or its chord crosses it while its circle's disc meets it.
    static int IsIntersectArcToRectangle(int counterClockwise, double cx, double cy, double sx, double sy, double ex,
                                         double ey, double radius, double left, double right, double bottom,
                                         double top);
    /// The rectangle and the closed disc share a point; unlike its name says, the disc need not lie inside.
    static int IsRectangleIncludeCircle(double left, double right, double bottom, double top, double cx, double cy,
                                        double radius);

    // ---- Clearance. The points come on the first and on the second element, and the distance is that between them,
    // within the rounding of moved points. Of equally near points the first found is kept. A record may be null when
    // only the distance is wanted. Widths are full drawn widths, of which half is taken off; 0 is a bare centre line.
    // Pass none below 0: between segments it counts as 0, but with an arc it adds to the distance and moves no point.

    /// Of P from a segment that a turn (not one by whole multiples of 360) and then a mirror place.
    static double GetDistancePointToLine(double px, double py, int mirror, float angle, double x1, double y1, double x2,
                                         double y2);
    /// Of P from the arc of radius |S - O|. Where the ends have one polar angle only they count: there is no full
    /// circle here.
    static double GetDistancePointToArc(double px, double py, int counterClockwise, double cx, double cy, double sx,
                                        double sy, double ex, double ey);
    /// Of P from the arc, and its point nearest to P: the start where both ends are equally near. Ends at one polar
    /// angle are a full circle. A P in the centre faces the point at -x from it.
    static double GetDistancePointToArc(KPointD* nearest, double px, double py, int counterClockwise, double cx,
                                        double cy, double sx, double sy, double ex, double ey, double radius);
    /// The side of P against an arc with that direction code: `direction` itself inside or on the circle; outside
    /// that of the tangent at the point nearest to P, +1 right and -1 left of the way the arc runs. On the tangent's
    /// own line as for a segment of length 1 that starts in the nearest point. Every code but -1 runs clockwise.
    static int GetRelativeDirection(double sx, double sy, double ex, double ey, double cx, double cy, double radius,
                                    int direction, double px, double py);
    /// Of two segments; 0 and twice the crossing point when they cross.
    static double GetDistancePointsOfLineToLine(KTwoPointD* points, double x1, double y1, double x2, double y2,
                                                double x3, double y3, double x4, double y4);
    /// Of two drawn segments, between their edges. Where these touch or overlap: 0, and both points are the one on the
    /// first centre line, or its crossing with the second.
    static double GetDistancePointsOfLineToLine(KTwoPointD* points, double x1, double y1, double x2, double y2,
                                                double width1, double x3, double y3, double x4, double y4,
                                                double width2);
    /// Of a drawn segment and a drawn arc, between their edges. Where the centre lines meet: 0 and the points of
    /// IsContactLineToArc(); where only the edges do: 0 and twice the point of the segment.
    static double GetDistancePointsOfLineToArc(KTwoPointD* points, double x1, double y1, double x2, double y2,
                                               double lineWidth, double cx, double cy, double sx, double sy, double ex,
                                               double ey, double radius, double arcWidth, int counterClockwise);
    /// The same for two drawn arcs: where the centre lines meet twice that point, where only the edges do twice the
    /// point of the second arc.
    static double GetDistancePointsOfArcToArc(KTwoPointD* points, double c1x, double c1y, double s1x, double s1y,
                                              double e1x, double e1y, double r1, double width1, int counterClockwise1,
                                              double c2x, double c2y, double s2x, double s2y, double e2x, double e2y,
                                              double r2, double width2, int counterClockwise2);
};
