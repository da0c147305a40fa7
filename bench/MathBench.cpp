/// Distances and crossings of random points and segments: CKMath, the geometry libraries that are installed, and
/// `limit`, the least arithmetic that gives the same answers, written into the loop by hand. Every row's sum is checked
/// against the limit's, so a row that leaves work out shows an error instead of a time.
#include "GeometryWorkloads.h"

#include "math/CKMath.h"

#ifdef KOLM_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#endif
#ifdef KOLM_BENCH_CGAL
#include <CGAL/Simple_cartesian.h>
#include <CGAL/squared_distance_2.h>
#endif
#ifdef KOLM_BENCH_GEOS
#include "Geos.h"
#endif

#include <algorithm>

namespace {

using bench::kApart;
using bench::Segment;

/// The squared distance of a point from a segment.
inline double Squared(const Segment& s, double px, double py)
{
    const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, ex = px - s.x1, ey = py - s.y1;
    const double along = ex * dx + ey * dy, length = dx * dx + dy * dy;
    double t = along / length;
    t = (std::fabs(t) - std::fabs(t - 1) + 1) * 0.5; // cut to [0, 1] without a branch
    const double fx = ex - t * dx, fy = ey - t * dy;
    return fx * fx + fy * fy;
}

inline double Side(const Segment& s, double px, double py)
{
    return (s.x2 - s.x1) * (py - s.y1) - (s.y2 - s.y1) * (px - s.x1);
}

// Random segments never touch in an end or overlap, so the limit leaves these cases out. One test of both products:
// which of them is negative cannot be predicted.
inline bool Cross(const Segment& a, const Segment& b)
{
    const double onA = Side(a, b.x1, b.y1) * Side(a, b.x2, b.y2);
    const double onB = Side(b, a.x1, a.y1) * Side(b, a.x2, a.y2);
    return std::max(onA, onB) < 0;
}

/// A measure of the pair number i in a list of elements.
template <typename Element, typename Of>
auto OfPair(const std::vector<Element>& elements, Of of)
{
    return [&elements, of](size_t i) { return double(of(elements[i], elements[i + kApart])); };
}

const auto kLimitPoint =
    OfPair(bench::Segments(), [](const Segment& a, const Segment& b) { return std::sqrt(Squared(a, b.x1, b.y1)); });
const auto kLimitCross = OfPair(bench::Segments(), [](const Segment& a, const Segment& b) { return Cross(a, b); });
const auto kLimitSegment = OfPair(bench::Segments(), [](const Segment& a, const Segment& b) {
    if (Cross(a, b))
        return 0.0;
    const double onA = std::min(Squared(a, b.x1, b.y1), Squared(a, b.x2, b.y2));
    return std::sqrt(std::min(onA, std::min(Squared(b, a.x1, a.y1), Squared(b, a.x2, a.y2))));
});

/// The three rows of one library over its own kind of segments.
template <typename Element, typename Point, typename Distance, typename Crossing>
void RegisterRows(const char* way, const std::vector<Element>& elements, Point point, Distance distance, Crossing cross)
{
    bench::Register(std::string("math/point_segment/") + way, OfPair(elements, point), kLimitPoint);
    bench::Register(std::string("math/segment_segment/") + way, OfPair(elements, distance), kLimitSegment);
    bench::Register(std::string("math/crossing/") + way, OfPair(elements, cross), kLimitCross);
}

void RegisterKolm()
{
    RegisterRows(
        "kolm", bench::Segments(),
        [](const Segment& a, const Segment& b) { return CKMath::GetDistance(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1); },
        [](const Segment& a, const Segment& b) {
            return CKMath::GetDistance(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2);
        },
        [](const Segment& a, const Segment& b) {
            return CKMath::IsIntersectLineToLine(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2);
        });
}

/// The segments as another library has them, made before any timing.
template <typename Element, typename Convert>
const std::vector<Element>& Converted(Convert convert)
{
    static std::vector<Element> converted;
    for (const Segment& s : bench::Segments())
        converted.push_back(convert(s));
    return converted;
}

#ifdef KOLM_BENCH_BOOST
void RegisterBoost()
{
    using Point = boost::geometry::model::d2::point_xy<double>;
    using Line = boost::geometry::model::segment<Point>;
    RegisterRows(
        "boost", Converted<Line>([](const Segment& s) {
            return Line({s.x1, s.y1}, {s.x2, s.y2});
        }),
        [](const Line& a, const Line& b) { return boost::geometry::distance(b.first, a); },
        [](const Line& a, const Line& b) { return boost::geometry::distance(a, b); },
        [](const Line& a, const Line& b) { return boost::geometry::intersects(a, b); });
}
#endif

#ifdef KOLM_BENCH_CGAL
void RegisterCgal()
{
    using Kernel = CGAL::Simple_cartesian<double>; // the fastest one: no filters, no exact numbers
    using Line = Kernel::Segment_2;
    RegisterRows(
        "cgal", Converted<Line>([](const Segment& s) {
            return Line({s.x1, s.y1}, {s.x2, s.y2});
        }),
        [](const Line& a, const Line& b) { return std::sqrt(CGAL::squared_distance(b.source(), a)); },
        [](const Line& a, const Line& b) { return std::sqrt(CGAL::squared_distance(a, b)); },
        [](const Line& a, const Line& b) { return CGAL::do_intersect(a, b); });
}
#endif

#ifdef KOLM_BENCH_GEOS
void RegisterGeos()
{
    using bench::Geos;
    static const Geos geos;
    struct Line
    {
        Geos::Geometry segment, start;
    };
    RegisterRows(
        "geos", Converted<Line>([](const Segment& s) {
            return Line{geos.LineString({{s.x1, s.y1}, {s.x2, s.y2}}), geos.Point({s.x1, s.y1})};
        }),
        [](const Line& a, const Line& b) { return geos.Distance(b.start, a.segment); },
        [](const Line& a, const Line& b) { return geos.Distance(a.segment, b.segment); },
        [](const Line& a, const Line& b) { return geos.Intersects(a.segment, b.segment); });
}
#endif

} // namespace

int main(int argc, char** argv)
{
    bench::Register("math/point_segment/limit", kLimitPoint, kLimitPoint);
    bench::Register("math/segment_segment/limit", kLimitSegment, kLimitSegment);
    bench::Register("math/crossing/limit", kLimitCross, kLimitCross);
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
