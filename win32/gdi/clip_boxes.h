// A clip as a list of boxes: disjoint, in bands from top to bottom, each band from left to right.
#pragma once

#include "box.h"

namespace win32::gdi {

struct ClipBoxes {
    const Box *boxes = nullptr;
    int count = 0;
    Box extents{}; // empty when there are none
};

// The boxes of a region, valid until it changes.
inline ClipBoxes clipBoxesOf(const pixman_region32_t &region)
{
    int count = 0;
    // pixman only reads through this pointer.
    const Box *boxes = pixman_region32_rectangles(const_cast<pixman_region32_t *>(&region), &count);
    return {boxes, count, count ? region.extents : Box{}};
}

// The first box whose bottom is below y.
inline const Box *firstBoxBelow(const ClipBoxes &clip, int y)
{
    return std::partition_point(clip.boxes, clip.boxes + clip.count, [y](const Box &box) { return box.y2 <= y; });
}

// Calls visit(Box) for each piece of the box that the clip lets through, from top to bottom.
template <class Visit> void eachVisible(const ClipBoxes &clip, const Box &box, Visit visit)
{
    Box bounded = intersected(box, clip.extents);
    if (isEmpty(bounded))
        return;
    if (clip.count == 1) {
        visit(bounded);
        return;
    }
    const Box *end = clip.boxes + clip.count;
    for (const Box *piece = firstBoxBelow(clip, bounded.y1); piece != end && piece->y1 < bounded.y2; ++piece) {
        Box visible = intersected(*piece, bounded);
        if (visible.x1 < visible.x2)
            visit(visible);
    }
}

} // namespace win32::gdi
