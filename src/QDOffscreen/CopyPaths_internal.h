// One copy, and the ways of doing it.
#pragma once

#include <mtbx/QDOffscreen.h>

struct Copy {
    PixMap &source;
    PixMap &destination;
    // The top left corners, in the coordinates of the two contexts.
    POINT from;
    POINT to;
    SInt16 sourceWidth;
    SInt16 sourceHeight;
    SInt16 width;
    SInt16 height;
    SInt16 mode;
    DWORD rasterOperation;

    bool hasRows() const { return sourceHeight > 0 && height > 0; }
    bool isStretched() const { return sourceWidth != width || sourceHeight != height; }
};

DWORD rasterOperationOf(SInt16 transferMode);

// From the memory of the source, which has rows to copy. Nothing comes of a source that has none of its own, as a
// window.
void copyFromMemory(const Copy &copy);
void copyBetweenContexts(const Copy &copy);
// Where a side has one bit a pixel.
void copyOneBit(const Copy &copy);
