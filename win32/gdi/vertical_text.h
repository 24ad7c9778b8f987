// Vertical faces, whose names begin with "@": their full-width characters lie on their backs, so that they stand
// upright where the text runs down.
#pragma once

#include <windows.h>

namespace win32::gdi {

bool isVerticalFace(const LOGFONTA &description);

// Whether a character takes a full cell, as those of two bytes do.
bool isFullWidth(char32_t character);

// Full-width signs that belong to the direction of the line, as brackets and dashes do.
bool followsItsLine(char32_t character);

} // namespace win32::gdi
