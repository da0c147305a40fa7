/// Distances and crossings of random points and segments: CKMath, Boost.Geometry where it is installed, and `limit`,
/// the least arithmetic that gives the same answers, written into the loop by hand. Every row's sum is checked against
/// the limit's, so a row that leaves work out shows an error instead of a time.
#include "math/CKMath.h"

#include <benchmark/benchmark.h>

#ifdef KOLM_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#endif

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace {

struct Segment
{
    double x1, y1, x2, y2;
};

/// Segments of up to 14 mm in a square of 40 mm: of two in a row about every thirteenth pair crosses.
const std::vector<Segment>& Segments()
{
    static const std::vector<Segment> segments = [] {
        std::mt19937 random(20240229);
        const auto between = [&random](double low, double high) {
            return low + (high - low) * (double(random()) / 4294967296.0);
        };
        std::vector<Segment> made((1 << 16) + 1);
        for (Segment& s : made) {
            s.x1 = between(0, 40);
            s.y1 = between(0, 40);
            s.x2 = s.x1 + between(-10, 10);
            s.y2 = s.y1 + between(-10, 10);
        }
        return made;
    }();
    return segments;
}

/// The sum of what `measure` says of each segment and the next one.
template <typename Measure>
double SumOf(Measure measure)
{
    const std::vector<Segment>& segments = Segments();
    double sum = 0;
    for (size_t i = 0; i + 1 < segments.size(); ++i)
        sum += measure(segments[i], segments[i + 1]);
    return sum;
}

template <typename Measure, typename Limit>
void Run(benchmark::State& state, Measure measure, Limit limit)
{
    const double expected = SumOf(limit);
    for (auto _ : state) {
        const double sum = SumOf(measure);
        benchmark::DoNotOptimize(sum);
        // 65536 values whose last bits may differ.
        if (std::fabs(sum - expected) > 1e-11 * expected) {
            state.SkipWithError("another sum than the limit's");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * int64_t(Segments().size() - 1));
}

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

// Random segments never touch in an end or overlap, so the limit leaves these cases out.
const auto kLimitPoint = [](const Segment& a, const Segment& b) { return std::sqrt(Squared(a, b.x1, b.y1)); };
const auto kLimitCross = [](const Segment& a, const Segment& b) {
    return Side(a, b.x1, b.y1) * Side(a, b.x2, b.y2) < 0 && Side(b, a.x1, a.y1) * Side(b, a.x2, a.y2) < 0 ? 1.0 : 0.0;
};
const auto kLimitSegment = [](const Segment& a, const Segment& b) {
    if (kLimitCross(a, b) != 0)
        return 0.0;
    const double onA = std::min(Squared(a, b.x1, b.y1), Squared(a, b.x2, b.y2));
    return std::sqrt(std::min(onA, std::min(Squared(b, a.x1, a.y1), Squared(b, a.x2, a.y2))));
};

const auto kKolmPoint = [](const Segment& a, const Segment& b) {
    return CKMath::GetDistance(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1);
};
const auto kKolmSegment = [](const Segment& a, const Segment& b) {
    return CKMath::GetDistance(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2);
};
const auto kKolmCross = [](const Segment& a, const Segment& b) {
    return double(CKMath::IsIntersectLineToLine(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2));
};

BENCHMARK_CAPTURE(Run, point_segment_limit, kLimitPoint, kLimitPoint)->Name("math/point_segment/limit");
BENCHMARK_CAPTURE(Run, point_segment_kolm, kKolmPoint, kLimitPoint)->Name("math/point_segment/kolm");
BENCHMARK_CAPTURE(Run, segment_segment_limit, kLimitSegment, kLimitSegment)->Name("math/segment_segment/limit");
BENCHMARK_CAPTURE(Run, segment_segment_kolm, kKolmSegment, kLimitSegment)->Name("math/segment_segment/kolm");
BENCHMARK_CAPTURE(Run, crossing_limit, kLimitCross, kLimitCross)->Name("math/crossing/limit");
BENCHMARK_CAPTURE(Run, crossing_kolm, kKolmCross, kLimitCross)->Name("math/crossing/kolm");

#ifdef KOLM_BENCH_BOOST
using BoostPoint = boost::geometry::model::d2::point_xy<double>;
using BoostSegment = boost::geometry::model::segment<BoostPoint>;

BoostSegment ToBoost(const Segment& s)
{
    return {{s.x1, s.y1}, {s.x2, s.y2}};
}

const auto kBoostPoint = [](const Segment& a, const Segment& b) {
    return boost::geometry::distance(BoostPoint(b.x1, b.y1), ToBoost(a));
};
const auto kBoostSegment = [](const Segment& a, const Segment& b) {
    return boost::geometry::distance(ToBoost(a), ToBoost(b));
};
const auto kBoostCross = [](const Segment& a, const Segment& b) {
    return boost::geometry::intersects(ToBoost(a), ToBoost(b)) ? 1.0 : 0.0;
};

BENCHMARK_CAPTURE(Run, point_segment_boost, kBoostPoint, kLimitPoint)->Name("math/point_segment/boost");
BENCHMARK_CAPTURE(Run, segment_segment_boost, kBoostSegment, kLimitSegment)->Name("math/segment_segment/boost");
BENCHMARK_CAPTURE(Run, crossing_boost, kBoostCross, kLimitCross)->Name("math/crossing/boost");
#endif

} // namespace

BENCHMARK_MAIN();
