// Pictures of surfaces as PNG files.
#pragma once

#include "gdi/surface.h"

#include <string>

namespace win32::screen {

// Writes a part of a surface under a Unix path. False with the last error set when it cannot be written;
// then no file is left.
bool writePng(const std::string &path, const gdi::Surface &surface, const gdi::Box &part);

} // namespace win32::screen
