/// What the digest tests share: a hash of results by their bits, seeded numbers that are the same with every compiler
/// and standard library, and the file of recorded digests.
#pragma once

#include "foundation/KRecords.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>

namespace digests {

/// A hash that every bit of every value enters, in order. Only the bits of a NaN do not count: the processor takes sign
/// and payload from either operand, and which one comes first is the compiler's choice.
class Digest
{
public:
    void Add(uint64_t value)
    {
        m_state = (m_state ^ value) * 0x9E3779B97F4A7C15u;
        m_state ^= m_state >> 29;
    }
    void Add(int value) { Add(uint64_t(uint32_t(value))); }
    void Add(double value)
    {
        uint64_t bits = 0x7FF8000000000000u;
        if (!std::isnan(value))
            std::memcpy(&bits, &value, sizeof bits);
        Add(bits);
    }
    void Add(float value) { Add(double(value)); } // exact, so float results keep their bits
    void Add(const KPoint& p) { Add(p.x), Add(p.y); }
    void Add(const KPointD& p) { Add(p.x), Add(p.y); }
    void Add(const KPointF& p) { Add(p.x), Add(p.y); }
    void Add(const KTwoPointD& p) { Add(p.x1), Add(p.y1), Add(p.x2), Add(p.y2); }

    uint64_t Value() const { return m_state; }

private:
    uint64_t m_state = 0x243F6A8885A308D3u;
};

/// Seeded numbers made by whole-number steps and exact scaling only. (The distributions of the standard library give
/// different numbers in each of its versions.)
class Numbers
{
public:
    explicit Numbers(uint64_t seed) : m_state(seed * 0xD1342543DE82EF95u + 1) {}

    uint64_t Bits()
    {
        uint64_t z = m_state += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    int Whole(int low, int high) { return low + int(Bits() % uint64_t(high - low + 1)); }
    bool OneIn(int count) { return Whole(1, count) == 1; }
    /// In [-size, size), with 53 bits.
    double Real(double size) { return size * (double(int64_t(Bits()) >> 11) * 0x1p-52); }
    /// Of either sign, its magnitude spread evenly over the powers of two from 2^low to 2^high.
    double Magnitude(int low, int high)
    {
        const int power = Whole(low, high); // first, as arguments of one call come in any order
        return std::ldexp(Real(1.0), power);
    }
    template <class T, int n>
    T OneOf(const T (&values)[n])
    {
        return values[Whole(0, n - 1)];
    }

private:
    uint64_t m_state;
};

/// Digests by name.
using Record = std::map<std::string, uint64_t>;

/// Compares with the recorded digests of the same group and fails with the name of each that differs, is missing or
/// left over. When the environment variable KOLM_DIGESTS_OUT names a file, the lines are also appended to it.
///
/// Sine, arc tangent and their like come from the C library, whose last bit differs between its versions and, within
/// one, between processors with and without fused multiply-add. Where it rounds otherwise than on the machine that
/// recorded the digests there is nothing to compare with, and the test is skipped.
void ExpectRecorded(const std::string& group, const Record& actual);

} // namespace digests
