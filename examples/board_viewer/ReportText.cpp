#include "ReportText.h"

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

std::string ColumnText(const std::string& name)
{
    std::string text = name;
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < ' ')
            c = '?';
    }
    return text;
}

} // namespace viewer
