#include "ReportText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace viewer {

std::string FixedText(double value)
{
    constexpr double kHalfOfLastDigit = 0.00005;
    char digits[64]; // a board's numbers have at most seven digits before the point
    std::snprintf(digits, sizeof digits, "%.4f", std::fabs(value) < kHalfOfLastDigit ? 0.0 : value);
    return digits;
}

std::string PlainText(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
    return text;
}

} // namespace viewer
