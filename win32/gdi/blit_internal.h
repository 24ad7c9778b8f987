// What the ways of moving pixels share.
#pragma once

#include "convert.h"
#include "raster_operation.h"
#include "stretch_axis.h"

namespace win32::gdi {

// One move of pixels. Memory that source and destination share is looked after by the caller, unless it is
// the same rows and the move is plain.
struct BlitJob {
    const Surface &destination;
    const ClipBoxes &clip;
    const Surface &source;
    const BlitColors &colors;
    RasterOperation &operation;
    StretchAxis x;
    StretchAxis y;
};

// The part of an area that lies within a box.
inline Box cutTo(const Box &box, int64_t x1, int64_t y1, int64_t x2, int64_t y2)
{
    auto cut = [](int64_t value, int low, int high) { return static_cast<int>(std::clamp<int64_t>(value, low, high)); };
    return {cut(x1, box.x1, box.x2), cut(y1, box.y1, box.y2), cut(x2, box.x1, box.x2), cut(y2, box.y1, box.y2)};
}

// Both throw bad_alloc before anything is drawn.
void blitPlain(const BlitJob &job, bool isSameSurface);
void blitStretched(const BlitJob &job, int stretchMode);

} // namespace win32::gdi
