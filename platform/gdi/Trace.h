/// Lines for a host that watches the calls on a device context.
#pragma once

#include "gdi/DeviceContext.h"

#include <string>

namespace gdi {

/// Appends one line in the manner of printf. Memory running out ends in a missing line, not in a failed call.
void AppendTrace(DeviceContext& dc, const char* format, ...) __attribute__((format(printf, 2, 3)));
/// The line of a selection that succeeded.
void TraceSelection(DeviceContext& dc, HGDIOBJ object);

/// Called before a call checks its arguments, so that refused calls are seen too: a watcher wants to know what was
/// asked for. Nothing for a null device context, and one test when nobody watches.
inline void Trace(DeviceContext* dc, const char* line)
{
    if (dc != nullptr && __builtin_expect(dc->trace != nullptr, 0)) {
        AppendTrace(*dc, "%s", line);
    }
}
template <class... Values>
inline void Trace(DeviceContext* dc, const char* format, Values... values)
{
    if (dc != nullptr && __builtin_expect(dc->trace != nullptr, 0)) {
        AppendTrace(*dc, format, values...);
    }
}

} // namespace gdi
