// Pictures of the screen as a person sees it.
#pragma once

#include "gdi/surface.h"
#include "replayed_program.h"

#include <string>

namespace win32::screen {

// A part of the screen, with the cursor when it shows, under a Unix path. False with the last error set when it cannot
// be written.
bool savePicture(const std::string &path, const gdi::Box &part, WithCursor withCursor);

} // namespace win32::screen
