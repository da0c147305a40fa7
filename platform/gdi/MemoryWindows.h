/// Making windows; everything else about them is in winuser.h.
#pragma once

#include "gdi/winuser.h"

namespace gdi {

/// A window with black pixels at a place on the screen. Null for negative or absurd sizes or without memory.
HWND CreateMemoryWindow(int x, int y, int width, int height);
/// The window lets go of the clipboard if it holds it open.
void CloseClipboardOf(HWND window);

} // namespace gdi
