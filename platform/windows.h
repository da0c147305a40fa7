/// The platform's functions and records: basic types, the kernel, drawing, windows.
#pragma once

#include "base/winkernel.h"
#include "base/wintypes.h"

// clang-format off: records before the functions that take them
#if __has_include("gdi/wingdi.h")
#include "gdi/wingdi.h"
#include "gdi/winuser.h"
#endif
// clang-format on
