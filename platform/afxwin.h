/// Drawing, window and application classes over the handles of windows.h.
#pragma once

#include <afx.h>
#include <windows.h>

#include "gdi/mfc/devicecontexts.h"
#include "gdi/mfc/gdiobjects.h"
#include "gdi/mfc/geometry.h"
#include "gdi/mfc/windowclasses.h"
