// The two run-length encodings of DIBs.
#pragma once

#include "dib.h"

#include <vector>

namespace win32::gdi {

// Decodes into rows of one byte a pixel, which begin as 0: the surface has the DIB's size. Pixels that the
// code skips stay 0; the boxes tell, in no order, which were set. Damaged code is decoded as far as it
// makes sense. Throws bad_alloc.
void decodeRle(const Dib &dib, const void *code, const Surface &surface, std::vector<Box> &covered);

} // namespace win32::gdi
