// Plain bitmaps of one bit a pixel as the source of a copy.
#pragma once

#include "CopyImages_internal.h"

// A native bitmap and a context of the image's for the time of a copy. The host's grow-zone function may
// run while it is made.
class PlainBitmap {
public:
    PlainBitmap(const BitMap &image, HDC compatibleContext);
    ~PlainBitmap();
    PlainBitmap(const PlainBitmap &) = delete;
    PlainBitmap &operator=(const PlainBitmap &) = delete;

    // Without a PixMap when it could not be made.
    CopySide side();

private:
    bool open(const BitMap &image, HDC compatibleContext);

    PixMap map_{};
    Point origin_;
    bool isOpen_;
};
