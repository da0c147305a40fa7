/// The platform's functions and records: basic types, the kernel, drawing, windows.
#pragma once

#include "base/winkernel.h"
#include "base/wintypes.h"

#include "gdi/wingdi.h"
#include "gdi/winuser.h"
