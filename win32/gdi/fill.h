// Fills boxes of a surface with a paint: the bottom of all drawing that has no source.
#pragma once

#include "clip_boxes.h"
#include "paint.h"

#include <span>

namespace win32::gdi {

// Each pixel of the boxes becomes rop2(paint, pixel), with R2_ codes. The boxes lie within the surface and
// do not overlap.
void fillBoxes(const Surface &surface, const Box *boxes, size_t count, const Paint &paint, int rop2);

// The same for one box, which the clip bounds.
void fillClipped(const Surface &surface, const ClipBoxes &clip, const Box &box, const Paint &paint, int rop2);

// The same for many boxes, from top to bottom.
void fillManyClipped(const Surface &surface, const ClipBoxes &clip, std::span<const Box> boxes, const Paint &paint,
                     int rop2);

// The R2_ code of a ternary code that has no source; 0 when the code needs one.
int rop2Of(DWORD ternaryCode);

} // namespace win32::gdi
