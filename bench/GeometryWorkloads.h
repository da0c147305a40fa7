/// Seeded segments, circles, arcs and rectangles for the rows of CKMath, and the loop that all of these rows run in.
#pragma once

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace bench {

struct Point
{
    double x, y;
};

struct Segment
{
    double x1, y1, x2, y2;
};

struct Circle
{
    double x, y, radius;
};

/// An arc with its ends on its circle, drawn with a width.
struct Arc
{
    Point centre, start, end;
    double radius, width;
    int counterClockwise;
};

/// A rectangle about the origin, turned by an angle in degrees, and a point that may lie in it.
struct TurnedRectangle
{
    double left, right, bottom, top;
    float angle;
    Point p;
};

/// One element more than there are pairs for each of the places by which partners lie apart.
constexpr size_t kPairs = 1 << 16;
/// How far apart the elements of a pair lie: far enough that no row can take numbers over from one pair to the next.
constexpr size_t kApart = 17;

/// `count` elements that `make` draws one after the other from one random sequence.
template <typename Element, typename Make>
std::vector<Element> RandomElements(size_t count, Make make)
{
    std::mt19937 random(20240229);
    const auto between = [&random](double low, double high) {
        return low + (high - low) * (double(random()) / 4294967296.0);
    };
    std::vector<Element> made(count);
    for (Element& element : made)
        element = make(between);
    return made;
}

/// Segments of up to 14 mm in a square of 40 mm: of two about every thirteenth pair crosses.
inline const std::vector<Segment>& Segments()
{
    static const std::vector<Segment> segments = RandomElements<Segment>(kPairs + kApart, [](auto& between) {
        const double x = between(0, 40), y = between(0, 40);
        const double dx = between(-10, 10), dy = between(-10, 10);
        return Segment{x, y, x + dx, y + dy};
    });
    return segments;
}

/// Circles of up to 6 mm in a square of 20 mm: about every third pair meets.
inline const std::vector<Circle>& Circles()
{
    static const std::vector<Circle> circles = RandomElements<Circle>(kPairs + kApart, [](auto& between) {
        const double x = between(0, 20), y = between(0, 20);
        return Circle{x, y, between(0.5, 6)};
    });
    return circles;
}

/// Arcs of 1 to 6 mm radius and any length in a square of 40 mm, as wide as tracks are.
inline const std::vector<Arc>& Arcs()
{
    static const std::vector<Arc> arcs = RandomElements<Arc>(kPairs + kApart, [](auto& between) {
        const double x = between(0, 40), y = between(0, 40), radius = between(1, 6);
        const double from = between(0, 6.28), to = between(0, 6.28);
        const double width = between(0.1, 0.5);
        const Point start = {x + radius * std::cos(from), y + radius * std::sin(from)};
        const Point end = {x + radius * std::cos(to), y + radius * std::sin(to)};
        return Arc{{x, y}, start, end, radius, width, between(0, 2) < 1 ? 1 : 0};
    });
    return arcs;
}

/// Pads of up to 4 mm half size with points around them, of which about a third hit.
inline const std::vector<TurnedRectangle>& TurnedRectangles()
{
    static const std::vector<TurnedRectangle> all = RandomElements<TurnedRectangle>(kPairs, [](auto& between) {
        const double width = between(1, 4), height = between(1, 4);
        const float angle = float(between(0, 360));
        const double x = between(-4, 4), y = between(-4, 4);
        return TurnedRectangle{-width, width, -height, height, angle, {x, y}};
    });
    return all;
}

/// The sum of what `measure(i)` says for every pair. A row takes its own view of the elements by the index, so that
/// peers can have theirs converted beforehand.
template <typename Measure>
double SumOf(const Measure& measure)
{
    double sum = 0;
    for (size_t i = 0; i < kPairs; ++i)
        sum += measure(i);
    return sum;
}

/// Runs a row and compares its sum with the limit's. `tolerance` is what one pair may be off on average.
template <typename Measure, typename Limit>
void Compare(benchmark::State& state, const Measure& measure, const Limit& limit, double tolerance)
{
    const double expected = SumOf(limit);
    for (auto _ : state) {
        const double sum = SumOf(measure);
        benchmark::DoNotOptimize(sum);
        if (!(std::fabs(sum - expected) <= tolerance * double(kPairs))) {
            state.SkipWithError("another sum than the limit's");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * int64_t(kPairs));
}

/// Rounding of distances of some ten millimetres.
constexpr double kExact = 1e-12;

template <typename Measure, typename Limit>
void Register(const std::string& row, const Measure& measure, const Limit& limit, double tolerance = kExact)
{
    benchmark::RegisterBenchmark(row.c_str(), [measure, limit, tolerance](benchmark::State& state) {
        Compare(state, measure, limit, tolerance);
    });
}

} // namespace bench
