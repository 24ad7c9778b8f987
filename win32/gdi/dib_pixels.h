// The pixels that belong to a caller's DIB, ready to be moved.
#pragma once

#include "bitmap.h"
#include "clip_boxes.h"
#include "dib.h"
#include "region.h"

#include <memory>

namespace win32::gdi {

// Some scan lines of a DIB: counted from its bottom, in both directions of rows, as calls have them.
class DibPixels {
public:
    DibPixels() { pixman_region32_init(&covered_); }
    ~DibPixels() { pixman_region32_fini(&covered_); }
    DibPixels(const DibPixels &) = delete;
    DibPixels &operator=(const DibPixels &) = delete;

    // The DIB and the bits outlive the object. A compressed DIB has all its lines always, whatever is asked
    // for. False, with the last error, when memory is short.
    bool open(const Dib &dib, const void *bits, UINT start, UINT lines);

    // Without rows when there are no such lines.
    const Surface &surface() const { return surface_; }
    // Where the top row of the surface stands in the picture, counted from the picture's top.
    int64_t top() const { return top_; }
    // The lines asked for, those beyond the picture's top left away where rows go upwards.
    UINT lines() const { return lines_; }

    // Copies the pixels, converted, to where the surface's top left pixel would come to lie on another one,
    // the pixels of a part of the surface only. False, with the last error, when memory is short.
    bool copyTo(const Surface &destination, const ClipBoxes &clip, int64_t x, int64_t y, const Box &part) const;

    // The clip within what a compressed picture sets when its top left pixel lies at a position. The region
    // keeps the boxes. Throws bad_alloc.
    ClipBoxes clipTo(const ClipBoxes &clip, int x, int y, pixman_region32_t &storage) const;

private:
    bool decode(const Dib &dib, const void *bits);

    Surface surface_;
    int64_t top_ = 0;
    UINT lines_ = 0;
    PixelMemory decoded_;
    bool isPartial_ = false;
    pixman_region32_t covered_;
};

// Copies all of one surface onto another from its top left corner on, converted.
bool copyPixels(const Surface &destination, int x, int y, const Surface &source);

// Copies all lines of a DIB into a bitmap, top left on top left.
bool putPicture(const Bitmap &bitmap, const Dib &dib, const void *bits);

} // namespace win32::gdi
