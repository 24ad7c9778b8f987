// The small signs on buttons, as boxes: arrows, marks and those of captions.
#pragma once

#include "gdi/box.h"

#include <vector>

namespace win32::user {

using Glyph = std::vector<gdi::Box>; // disjoint

enum class Direction { Up, Down, Left, Right };

// The largest square in the middle of a box.
gdi::Box middleSquare(const gdi::Box &box);

Glyph arrowGlyph(const gdi::Box &box, Direction direction);
Glyph checkGlyph(const gdi::Box &box);
// A disc of a diameter in the middle of a box.
Glyph discGlyph(const gdi::Box &box, int diameter);
Glyph closeGlyph(const gdi::Box &box);
Glyph minimizeGlyph(const gdi::Box &box);
Glyph maximizeGlyph(const gdi::Box &box);
Glyph restoreGlyph(const gdi::Box &box);
Glyph helpGlyph(const gdi::Box &box);

} // namespace win32::user
