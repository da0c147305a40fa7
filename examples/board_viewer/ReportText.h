/// What the viewer's reports in lines have in common: columns of texts and numbers.
#pragma once

#include <string>

namespace viewer {

/// With four decimals, a tenth of a micrometre; never a negative zero.
std::string FixedText(double millimetres);

/// A name as one column of a line: control characters, which would end the column or the line, become question marks.
std::string ColumnText(const std::string& name);

} // namespace viewer
