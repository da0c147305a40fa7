/// Pads, circles and arcs: points in turned rectangles, contact of circles, clearance of drawn segments and arcs.
/// CKMath beside the geometry libraries that are installed, which see arcs as polylines, and beside `limit`, the least
/// arithmetic that gives the same answers. Every row's sum is checked against the limit's.
#include "GeometryWorkloads.h"

#include "math/CKMath.h"

#ifdef KOLM_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/strategies/transform.hpp>
#endif
#ifdef KOLM_BENCH_CGAL
#include <CGAL/Algebraic_kernel_for_circles_2_2.h>
#include <CGAL/Circular_kernel_2.h>
#include <CGAL/Circular_kernel_intersections.h>
#include <CGAL/Simple_cartesian.h>
#endif
#ifdef KOLM_BENCH_GEOS
#include "Geos.h"
#endif

#include <algorithm>
#include <limits>

namespace {

using bench::Arc;
using bench::Circle;
using bench::kApart;
using bench::kPairs;
using bench::Point;
using bench::Segment;
using bench::TurnedRectangle;

constexpr double kPi = 3.14159265358979323846;
/// The width of every segment that is measured against an arc.
constexpr double kTrackWidth = 0.2;

// ---- The limit

/// The turn is the inverse one: a rectangle turned by an angle holds what the rectangle holds after turning back.
bool Holds(const TurnedRectangle& r)
{
    const double angle = double(r.angle) * (kPi / 180), c = std::cos(angle), s = std::sin(angle);
    const double x = c * r.p.x + s * r.p.y, y = c * r.p.y - s * r.p.x;
    return (r.left <= x) & (x <= r.right) & (r.bottom <= y) & (y <= r.top);
}

/// The sum of the coordinates of both crossings; 0 when the circles do not meet.
double Crossings(const Circle& a, const Circle& b)
{
    const double dx = b.x - a.x, dy = b.y - a.y, squared = dx * dx + dy * dy;
    const double sum = a.radius + b.radius, difference = a.radius - b.radius;
    if (squared > sum * sum || squared < difference * difference)
        return 0;
    const double part = 0.5 * ((sum * difference) / squared + 1); // of the way to the other centre
    const double half = std::sqrt(std::max(a.radius * a.radius / squared - part * part, 0.0));
    const double mx = a.x + dx * part, my = a.y + dy * part;
    return (mx + dy * half) + (my - dx * half) + (mx - dy * half) + (my + dx * half);
}

double Squared(Point a, Point b)
{
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

double Cross(Point o, Point a, Point b)
{
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

/// Whether the arc runs through the direction of P, by the sides of its ends.
bool Faces(const Arc& arc, Point p)
{
    const Point from = arc.counterClockwise ? arc.start : arc.end, to = arc.counterClockwise ? arc.end : arc.start;
    const bool behindStart = Cross(arc.centre, from, p) >= 0, beforeEnd = Cross(arc.centre, p, to) >= 0;
    return Cross(arc.centre, from, to) >= 0 ? behindStart & beforeEnd : behindStart | beforeEnd;
}

double PointToArc(Point p, const Arc& arc)
{
    if (Faces(arc, p))
        return std::fabs(std::sqrt(Squared(p, arc.centre)) - arc.radius);
    return std::sqrt(std::min(Squared(p, arc.start), Squared(p, arc.end)));
}

Point NearestOnSegment(const Segment& s, Point p)
{
    const double dx = s.x2 - s.x1, dy = s.y2 - s.y1;
    const double t = ((p.x - s.x1) * dx + (p.y - s.y1) * dy) / (dx * dx + dy * dy);
    const double cut = std::min(std::max(t, 0.0), 1.0);
    return {s.x1 + cut * dx, s.y1 + cut * dy};
}

/// 0 where the centre lines meet.
double SegmentToArc(const Segment& s, const Arc& arc)
{
    const Point start = {s.x1, s.y1}, end = {s.x2, s.y2}, nearest = NearestOnSegment(s, arc.centre);
    const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, length = dx * dx + dy * dy;
    const double ex = s.x1 - arc.centre.x, ey = s.y1 - arc.centre.y;
    const double b = ex * dx + ey * dy, c = ex * ex + ey * ey - arc.radius * arc.radius;
    const double root = b * b - length * c;
    if (root >= 0) {
        for (const double t : {(-b - std::sqrt(root)) / length, (-b + std::sqrt(root)) / length})
            if (t >= 0 && t <= 1 && Faces(arc, {s.x1 + t * dx, s.y1 + t * dy}))
                return 0;
    }
    const double ofArc =
        std::min(Squared(NearestOnSegment(s, arc.start), arc.start), Squared(NearestOnSegment(s, arc.end), arc.end));
    double least = std::min(std::sqrt(ofArc), std::min(PointToArc(start, arc), PointToArc(end, arc)));
    if (root < 0) // only a line past the circle has its nearest point between its ends
        least = std::min(least, PointToArc(nearest, arc));
    return least;
}

double ArcToArc(const Arc& a, const Arc& b)
{
    const double dx = b.centre.x - a.centre.x, dy = b.centre.y - a.centre.y, squared = dx * dx + dy * dy;
    const double sum = a.radius + b.radius, difference = a.radius - b.radius;
    if (squared <= sum * sum && squared >= difference * difference) {
        const double part = 0.5 * ((sum * difference) / squared + 1);
        const double half = std::sqrt(std::max(a.radius * a.radius / squared - part * part, 0.0));
        const double mx = a.centre.x + dx * part, my = a.centre.y + dy * part;
        for (const Point p : {Point{mx + dy * half, my - dx * half}, Point{mx - dy * half, my + dx * half}})
            if (Faces(a, p) && Faces(b, p))
                return 0;
    }
    double least = std::min(std::min(PointToArc(a.start, b), PointToArc(a.end, b)),
                            std::min(PointToArc(b.start, a), PointToArc(b.end, a)));
    const double distance = std::sqrt(squared), ux = dx / distance, uy = dy / distance;
    for (const double sideA : {1.0, -1.0})
        for (const double sideB : {-1.0, 1.0}) {
            const Point onA = {a.centre.x + sideA * a.radius * ux, a.centre.y + sideA * a.radius * uy};
            const Point onB = {b.centre.x + sideB * b.radius * ux, b.centre.y + sideB * b.radius * uy};
            const double apart = std::sqrt(Squared(onA, onB));
            if (apart < least && Faces(a, onA) && Faces(b, onB))
                least = apart;
        }
    return least;
}

double Clearance(double distance, double widths)
{
    return std::max(distance - 0.5 * widths, 0.0);
}

const auto kLimitHolds = [](size_t i) { return double(Holds(bench::TurnedRectangles()[i])); };
const auto kLimitContact = [](size_t i) { return Crossings(bench::Circles()[i], bench::Circles()[i + kApart]); };
const auto kLimitSegmentArc = [](size_t i) {
    const Arc& arc = bench::Arcs()[i + kApart];
    return Clearance(SegmentToArc(bench::Segments()[i], arc), kTrackWidth + arc.width);
};
const auto kLimitArcArc = [](size_t i) {
    const Arc &a = bench::Arcs()[i], &b = bench::Arcs()[i + kApart];
    return Clearance(ArcToArc(a, b), a.width + b.width);
};

/// Angles are floats in CKMath and circles are polygons in other libraries: what a distance may be off on average.
constexpr double kFloatAngle = 1e-5;
constexpr double kFlattening = 0.005;

template <typename Measure>
void RegisterHolds(const char* way, const Measure& measure)
{
    bench::Register(std::string("math/point_rotated_rectangle/") + way, measure, kLimitHolds, 0);
}

template <typename Measure>
void RegisterContact(const char* way, const Measure& measure)
{
    bench::Register(std::string("math/circle_contact/") + way, measure, kLimitContact, 1e-11);
}

template <typename SegmentArc, typename ArcArc>
void RegisterClearance(const char* way, const SegmentArc& segmentArc, const ArcArc& arcArc, double tolerance)
{
    bench::Register(std::string("math/segment_arc/") + way, segmentArc, kLimitSegmentArc, tolerance);
    bench::Register(std::string("math/arc_arc/") + way, arcArc, kLimitArcArc, tolerance);
}

void RegisterKolm()
{
    RegisterHolds("kolm", [](size_t i) {
        const TurnedRectangle& r = bench::TurnedRectangles()[i];
        return double(CKMath::IsInRectangle(r.p.x, r.p.y, r.left, r.right, r.bottom, r.top, r.angle, 0));
    });
    RegisterContact("kolm", [](size_t i) {
        const Circle &a = bench::Circles()[i], &b = bench::Circles()[i + kApart];
        KTwoPointD p = {};
        CKMath::IsContactCircleOutlineToCircleOutline(&p, a.x, a.y, a.radius, b.x, b.y, b.radius, 0, 0);
        return p.x1 + p.y1 + p.x2 + p.y2;
    });
    RegisterClearance(
        "kolm",
        [](size_t i) {
            const Segment& s = bench::Segments()[i];
            const Arc& a = bench::Arcs()[i + kApart];
            return CKMath::GetDistancePointsOfLineToArc(nullptr, s.x1, s.y1, s.x2, s.y2, kTrackWidth, a.centre.x,
                                                        a.centre.y, a.start.x, a.start.y, a.end.x, a.end.y, a.radius,
                                                        a.width, a.counterClockwise);
        },
        [](size_t i) {
            const Arc &a = bench::Arcs()[i], &b = bench::Arcs()[i + kApart];
            return CKMath::GetDistancePointsOfArcToArc(nullptr, a.centre.x, a.centre.y, a.start.x, a.start.y, a.end.x,
                                                       a.end.y, a.radius, a.width, a.counterClockwise, b.centre.x,
                                                       b.centre.y, b.start.x, b.start.y, b.end.x, b.end.y, b.radius,
                                                       b.width, b.counterClockwise);
        },
        kFloatAngle);
}

/// The arc's points, near enough that no chord leaves it by more than the flattening.
[[maybe_unused]] std::vector<Point> Flattened(const Arc& arc)
{
    const double from = std::atan2(arc.start.y - arc.centre.y, arc.start.x - arc.centre.x);
    const double to = std::atan2(arc.end.y - arc.centre.y, arc.end.x - arc.centre.x);
    double sweep = std::fmod((arc.counterClockwise ? to - from : from - to) + 2 * kPi, 2 * kPi);
    const double step = 2 * std::acos(1 - kFlattening / arc.radius);
    const int steps = std::max(1, int(std::ceil(sweep / step)));
    sweep = arc.counterClockwise ? sweep : -sweep;
    std::vector<Point> points = {arc.start};
    for (int i = 1; i < steps; ++i) {
        const double angle = from + sweep * i / steps;
        points.push_back({arc.centre.x + arc.radius * std::cos(angle), arc.centre.y + arc.radius * std::sin(angle)});
    }
    points.push_back(arc.end);
    return points;
}

/// Clearance rows of a library that has a distance of polylines, which `convert` makes before any timing.
template <typename Convert, typename Distance>
void RegisterPolylines(const char* way, const Convert& convert, const Distance& distance)
{
    using Polyline = decltype(convert({}));
    static std::vector<Polyline> segments, arcs;
    for (const Segment& s : bench::Segments())
        segments.push_back(convert({{s.x1, s.y1}, {s.x2, s.y2}}));
    for (const Arc& arc : bench::Arcs())
        arcs.push_back(convert(Flattened(arc)));
    RegisterClearance(
        way,
        [distance](size_t i) {
            return Clearance(distance(segments[i], arcs[i + kApart]), kTrackWidth + bench::Arcs()[i + kApart].width);
        },
        [distance](size_t i) {
            return Clearance(distance(arcs[i], arcs[i + kApart]),
                             bench::Arcs()[i].width + bench::Arcs()[i + kApart].width);
        },
        2 * kFlattening);
}

#ifdef KOLM_BENCH_BOOST
void RegisterBoost()
{
    namespace geometry = boost::geometry;
    using P = geometry::model::d2::point_xy<double>;
    RegisterHolds("boost", [](size_t i) {
        const TurnedRectangle& r = bench::TurnedRectangles()[i];
        // Turns clockwise, which is back.
        const geometry::strategy::transform::rotate_transformer<geometry::degree, double, 2, 2> turn(r.angle);
        P p;
        geometry::transform(P(r.p.x, r.p.y), p, turn);
        return double(geometry::covered_by(p, geometry::model::box<P>({r.left, r.bottom}, {r.right, r.top})));
    });
    using Line = geometry::model::linestring<P>;
    RegisterPolylines(
        "boost",
        [](const std::vector<Point>& points) {
            Line line;
            for (const Point p : points)
                line.emplace_back(p.x, p.y);
            return line;
        },
        [](const Line& a, const Line& b) { return geometry::distance(a, b); });
}
#endif

#ifdef KOLM_BENCH_CGAL
void RegisterCgal()
{
    using Linear = CGAL::Simple_cartesian<double>;
    using Kernel = CGAL::Circular_kernel_2<Linear, CGAL::Algebraic_kernel_for_circles_2_2<double>>;
    static std::vector<Kernel::Circle_2> circles;
    for (const Circle& c : bench::Circles())
        circles.emplace_back(Kernel::Point_2(c.x, c.y), c.radius * c.radius);
    RegisterContact("cgal", [](size_t i) {
        using Found = CGAL::CK2_Intersection_traits<Kernel, Kernel::Circle_2, Kernel::Circle_2>::type;
        std::vector<Found> found;
        CGAL::intersection(circles[i], circles[i + kApart], std::back_inserter(found));
        double sum = 0;
        for (const Found& each : found) {
            using OnArcs = std::pair<Kernel::Circular_arc_point_2, unsigned>;
            if (const OnArcs* p = boost::get<OnArcs>(&each))
                sum += p->second * (CGAL::to_double(p->first.x()) + CGAL::to_double(p->first.y()));
        }
        return sum;
    });
}
#endif

#ifdef KOLM_BENCH_GEOS
void RegisterGeos()
{
    using bench::Geos;
    static const Geos& geos = *new Geos; // outlives the geometries, which live as long as the program
    RegisterPolylines(
        "geos", [](const std::vector<Point>& points) { return geos.LineString(points); },
        [](const Geos::Geometry& a, const Geos::Geometry& b) { return geos.Distance(a, b); });
}
#endif

} // namespace

int main(int argc, char** argv)
{
    RegisterHolds("limit", kLimitHolds);
    RegisterContact("limit", kLimitContact);
    RegisterClearance("limit", kLimitSegmentArc, kLimitArcArc, bench::kExact);
    RegisterKolm();
#ifdef KOLM_BENCH_BOOST
    RegisterBoost();
#endif
#ifdef KOLM_BENCH_CGAL
    RegisterCgal();
#endif
#ifdef KOLM_BENCH_GEOS
    RegisterGeos();
#endif
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
