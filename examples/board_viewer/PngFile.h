/// Writing bitmaps as PNG files.
#pragma once

#include <afxwin.h>

#include <string>

namespace viewer {

/// Overwrites the file. A picture of up to 256 colours gets a palette and one to eight bits a pixel, any other one
/// three bytes a pixel; nothing is lost. The resolution is recorded unless it is 0. The same pixels and resolution give
/// the same bytes with one version of the compression library. Throws std::runtime_error when anything fails.
void WritePng(const std::string& path, HBITMAP bitmap, double pixelsPerMm);

} // namespace viewer
