#pragma once

#include <cstdint>

/// Conversions to 32-bit integers that are defined for every input: what lies beyond the range becomes the nearest
/// bound. A plain cast of such a double, or an overflowing sum, would be undefined.

/// The value truncated toward zero; NaN gives 0.
inline int SaturatedToInt(double value)
{
    // Both bounds are exact doubles, and whatever lies between them truncates into the range.
    if (value >= 2147483647.0)
        return INT32_MAX;
    if (value <= -2147483648.0)
        return INT32_MIN;
    return value == value ? static_cast<int>(value) : 0;
}

/// The largest integer that is not above the value; NaN gives 0. Every coordinate that is drawn passes here. So it is
/// written without std::floor, which is a call on processors of the basic instruction set, and without a jump that
/// depends on the sign, which can't be predicted.
inline int SaturatedFloor(double value)
{
    if (value > -2147483648.0 && value < 2147483647.0) {
        const int truncated = static_cast<int>(value);
        return truncated - static_cast<int>(truncated > value);
    }
    return SaturatedToInt(value);
}

/// The nearest 32-bit value of a sum or product that was formed in 64 bits.
inline int SaturatedToInt(int64_t value)
{
    if (value > INT32_MAX)
        return INT32_MAX;
    if (value < INT32_MIN)
        return INT32_MIN;
    return static_cast<int>(value);
}

inline int SaturatedSum(int a, int b)
{
    return SaturatedToInt(int64_t(a) + int64_t(b));
}

inline int SaturatedDifference(int a, int b)
{
    return SaturatedToInt(int64_t(a) - int64_t(b));
}
