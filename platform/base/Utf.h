/// Wide text to narrow: the stand-in's code page is UTF-8.
#pragma once

#include "base/wintypes.h"

#include <string>

namespace afx {

/// Joins UTF-16 units, fed one at a time, to UTF-8. A surrogate without its partner becomes U+FFFD.
class Utf16Decoder
{
public:
    void Put(uint32_t unit, std::string& out);
    void Finish(std::string& out); ///< after the last unit: a surrogate still waiting is without its partner

private:
    uint32_t m_high = 0; ///< a high surrogate that waits for its partner, or 0
};

/// UTF-8 for wide text of the system: UTF-16 where wchar_t has 16 bits, code points where it has 32. Values that are no
/// code points become U+FFFD.
std::string Utf8FromWide(const wchar_t* units, size_t count);

} // namespace afx
