/// What the viewer's lines of text have in common, reports and messages alike.
#pragma once

#include <string>

namespace viewer {

/// With four decimals, a tenth of a micrometre; never a negative zero.
std::string FixedText(double millimetres);

/// Names and texts of files can hold tabs, line breaks and codes that a terminal obeys; each becomes a question mark.
std::string PlainText(std::string text);

} // namespace viewer
