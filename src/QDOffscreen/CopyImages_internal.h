// The kinds of image that the arguments of CopyBits can name.
#pragma once

#include <mtbx/QDOffscreen.h>

// An image with a context. All is null for a plain bitmap, for a port that is closed, and for the PixMap of a
// window, which has the mark of a port.
struct CopySide {
    PixMapPtr map;
    GrafPtr port; // null for a PixMap by itself
    Point origin; // of its coordinates, in those of the context
};

bool isPlainBitmap(const BitMap &image);
CopySide sideOf(const BitMap &image);
// A position of the image in the coordinates of its context.
POINT contextPosition(const CopySide &side, SInt16 h, SInt16 v);
// What the context's coordinates begin with at the top left of its bitmap.
POINT contextOrigin(HDC context);
