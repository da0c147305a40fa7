#include "base/winkernel.h"

#include <chrono>
#include <climits>
#include <time.h>

namespace {

thread_local DWORD t_lastError = NO_ERROR;

using SteadyClock = std::chrono::steady_clock;

// When the library was loaded, which for a host that links it is when the process began.
const SteadyClock::time_point g_processStart = SteadyClock::now();

} // namespace

DWORD GetLastError()
{
    return t_lastError;
}

void SetLastError(DWORD code)
{
    t_lastError = code;
}

HANDLE GetCurrentProcess()
{
    return reinterpret_cast<HANDLE>(INT_PTR(-1));
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    // The product of two 32-bit numbers and the half of a third fit into 64 bits.
    const LONGLONG product = LONGLONG(number) * numerator;
    const ULONGLONG magnitude = product < 0 ? ULONGLONG(-product) : ULONGLONG(product);
    const ULONGLONG divisor = ULONGLONG(denominator < 0 ? -LONGLONG(denominator) : denominator);
    // Rounding works on magnitudes, which takes halves away from zero on both sides.
    const ULONGLONG quotient = (magnitude + divisor / 2) / divisor;
    const bool negative = (product < 0) != (denominator < 0);
    if (quotient > ULONGLONG(INT_MAX))
        return -1;
    return negative ? -int(quotient) : int(quotient);
}

LONGLONG GetProcessMilliseconds()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - g_processStart).count();
}

/// The runtime's clock as the platform has it. Hidden from the dynamic linker, so that it binds the calls within the
/// library and leaves those of the host with the system's clock.
extern "C" __attribute__((visibility("hidden"))) clock_t clock() noexcept
{
    return clock_t(GetProcessMilliseconds());
}
