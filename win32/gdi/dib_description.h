// Descriptions of DIBs written for callers: what GetDIBits fills in.
#pragma once

#include "bitmap.h"
#include "dib.h"

namespace win32::gdi {

// Whether a caller asks for the description of a bitmap, by a bit count of 0.
bool asksForDescription(const BITMAPINFO *info);

// Fills in the header alone, in the format that is nearest to the bitmap's own. False, with
// ERROR_INVALID_PARAMETER, for a header of unknown size.
bool describeBitmap(const Bitmap &bitmap, BITMAPINFO *info);

// Completes a header that readWantedDib took, and adds its masks or colours; DIB_PAL_COLORS become indices
// from 0 on.
void describeDib(const Dib &dib, UINT usage, BITMAPINFO *info);

} // namespace win32::gdi
