// The colours that indexed pixels have when nobody gives others.
#pragma once

#include "surface.h"

namespace win32::gdi {

// Of depth 1 (black and white), 4 (the sixteen colours of old displays) and 8 (the twenty static colours
// around a cube of eight reds, eight greens and four blues). Null for other depths.
const ColorTable *defaultColors(int bitsPerPixel);

// A surface whose pixels mean colours: a monochrome one becomes one of black and white.
Surface coloredSurface(const Surface &surface);

} // namespace win32::gdi
