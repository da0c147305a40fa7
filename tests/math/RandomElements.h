/// Seeded segments and arcs for the tests of contact and clearance, walked by angle in double precision: a second
/// method beside the library's float degrees.
#pragma once

#include "foundation/KRecords.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

inline void ExpectPoints(const KTwoPointD& p, const KTwoPointD& q, const char* why)
{
    // Moved points take their direction from degrees as floats: some 1.5e-7 of lengths of a few millimetres.
    const double values[] = {p.x1 - q.x1, p.y1 - q.y1, p.x2 - q.x2, p.y2 - q.y2};
    for (double difference : values)
        EXPECT_NEAR(difference, 0, 1e-6) << why;
}

inline KPointD Mapped(KPointD p, double factor, double shift)
{
    return {p.x * factor + shift, p.y * factor + shift};
}

struct TestSegment
{
    KPointD a, b;

    /// Scaled about the origin, then shifted along both axes.
    TestSegment Mapped(double factor, double shift) const
    {
        return {::Mapped(a, factor, shift), ::Mapped(b, factor, shift)};
    }
    KPointD At(double t) const { return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; }
    double Length() const { return std::hypot(b.x - a.x, b.y - a.y); }
};

struct TestArc
{
    KPointD o, s, e;
    double r;
    int sweep; ///< the sweep flag

    TestArc Mapped(double factor, double shift) const
    {
        return {::Mapped(o, factor, shift), ::Mapped(s, factor, shift), ::Mapped(e, factor, shift), r * factor, sweep};
    }
    double StartAngle() const { return std::atan2(s.y - o.y, s.x - o.x); }
    /// The signed angle from start to end in radians: a full turn when they are the same point.
    double Swept() const
    {
        const double turn = 2 * std::acos(-1.0);
        double swept = std::fmod(std::atan2(e.y - o.y, e.x - o.x) - StartAngle() + 2 * turn, turn);
        if (s.x == e.x && s.y == e.y)
            swept = 0;
        if (sweep)
            return swept == 0 ? turn : swept;
        return swept - turn;
    }
    KPointD At(double t) const
    {
        const double angle = StartAngle() + t * Swept();
        return {o.x + r * std::cos(angle), o.y + r * std::sin(angle)};
    }
    double Length() const { return r * std::fabs(Swept()); }
    /// How far P's polar angle lies inside the arc (negative: outside), in radians from the nearer end.
    double AngularDepth(KPointD p) const
    {
        const double turn = 2 * std::acos(-1.0), swept = Swept();
        const double angle = std::atan2(p.y - o.y, p.x - o.x) - StartAngle();
        const double way = std::fmod((swept < 0 ? -angle : angle) + 2 * turn, turn), length = std::fabs(swept);
        if (length == turn)
            return turn;
        return way <= length ? std::fmin(way, length - way) : -std::fmin(way - length, turn - way);
    }
};

/// Every second element has whole coordinates and radius 5, so that touching, shared ends, one circle for two arcs,
/// full circles and segments through centres are common; the others are anything.
class RandomElements
{
public:
    explicit RandomElements(unsigned seed) : m_random(seed) {}

    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    TestSegment Segment(bool whole)
    {
        const auto coordinate = [&] { return whole ? Whole(-8, 8) : Real(-10, 10); };
        TestSegment segment;
        segment.a = {coordinate(), coordinate()};
        segment.b = {coordinate(), coordinate()};
        return segment;
    }

    TestArc Arc(bool whole)
    {
        TestArc arc;
        arc.sweep = Whole(0, 1);
        arc.r = whole ? 5 : Real(0.1, 8);
        arc.o = whole ? KPointD{double(Whole(-2, 2)), double(Whole(-2, 2))} : KPointD{Real(-10, 10), Real(-10, 10)};
        arc.s = OnCircle(arc, whole);
        arc.e = OnCircle(arc, whole);
        return arc;
    }

private:
    KPointD OnCircle(const TestArc& arc, bool whole)
    {
        // The twelve whole points at distance 5.
        const int xs[] = {5, 4, 3, 0, -3, -4, -5, -4, -3, 0, 3, 4}, ys[] = {0, 3, 4, 5, 4, 3, 0, -3, -4, -5, -4, -3};
        const int number = Whole(0, 11);
        if (whole)
            return {arc.o.x + xs[number], arc.o.y + ys[number]};
        const double angle = Real(-4, 4);
        return {arc.o.x + arc.r * std::cos(angle), arc.o.y + arc.r * std::sin(angle)};
    }

    std::mt19937 m_random;
};
