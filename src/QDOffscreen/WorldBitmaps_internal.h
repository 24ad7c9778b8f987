// The native bitmaps behind offscreen worlds, and behind one-bit images while they are copied.
#pragma once

#include <mtbx/QDOffscreen.h>

// Whether there are pixels of the depth.
bool isWorldDepth(SInt16 depth);

// A bitmap of rows from the top down, for the context or for none. Its address, format and masks go to
// the PixMap. Null when the memory budget or GDI refuses it after purging. The host's grow-zone function
// may run.
HBITMAP createWorldBitmap(HDC context, SInt16 width, SInt16 height, SInt16 depth, PixMap &map);
// Takes it off the memory budget too.
void deleteWorldBitmap(HBITMAP bitmap);
