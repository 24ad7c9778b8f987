// The memory of a PixMap's pixels.
#pragma once

#include <mtbx/QDOffscreen.h>

struct PixelRows {
    Ptr base;
    SInt32 width;
    SInt32 height;
    SInt32 rowBytes;
    SInt32 depth;
};

// As they really are, whatever the host has written into the record; false when there are none. Only a
// PixMap without a bitmap of its own is believed.
bool readPixelRows(const PixMap &map, PixelRows &rows);
