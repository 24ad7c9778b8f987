// The area that overlapping boxes cover together.
#pragma once

#include "box.h"

#include <span>
#include <vector>

namespace win32::gdi {

// The boxes come by their upper sides, those with the same one from left to right, and none is empty; the result is in
// the form of bands.h. Throws bad_alloc.
std::vector<Box> sweep(std::span<const Box> boxes);

} // namespace win32::gdi
