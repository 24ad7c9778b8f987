// A clip as a list of boxes: disjoint, in bands from top to bottom, each band from left to right.
#pragma once

#include "box.h"

#include <vector>

namespace win32::gdi {

struct ClipBoxes {
    const Box *boxes = nullptr;
    int count = 0;
    Box extents{}; // empty when there are none
    // The same area in fewer boxes, for drawing that does not care for their order; null when there are none.
    const Box *tallBoxes = nullptr;
    int tallCount = 0;
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

// The same in any order, which is faster for many boxes.
template <class Visit> void eachVisibleInAnyOrder(const ClipBoxes &clip, const Box &box, Visit visit)
{
    Box bounded = intersected(box, clip.extents);
    // Tall boxes cannot be searched for the few that matter to a low box.
    if (!clip.tallBoxes || (bounded.y2 - bounded.y1) * int64_t{2} < clip.extents.y2 - clip.extents.y1)
        return eachVisible(clip, box, visit);
    for (int i = 0; i < clip.tallCount; ++i) {
        Box visible = intersected(clip.tallBoxes[i], bounded);
        if (!isEmpty(visible))
            visit(visible);
    }
}

// Calls visit(first, end) for each band of boxes that crosses the rows of a box, from top to bottom.
template <class Visit> void eachBand(const ClipBoxes &clip, const Box &box, Visit visit)
{
    const Box *end = clip.boxes + clip.count;
    const Box *next;
    for (const Box *first = firstBoxBelow(clip, box.y1); first != end && first->y1 < box.y2; first = next) {
        for (next = first; next != end && next->y1 == first->y1;)
            ++next;
        visit(first, next);
    }
}

// The same from bottom to top.
template <class Visit> void eachBandUpwards(const ClipBoxes &clip, const Box &box, Visit visit)
{
    const Box *begin = firstBoxBelow(clip, box.y1);
    const Box *end = clip.boxes + clip.count;
    const Box *first;
    for (const Box *last = end; last != begin; last = first) {
        for (first = last - 1; first != begin && first[-1].y1 == first->y1;)
            --first;
        if (first->y1 < box.y2)
            visit(first, last);
    }
}

// Joins boxes of a clip that stand on each other and have the same sides. May throw bad_alloc.
void joinBoxes(const ClipBoxes &clip, std::vector<Box> &tallBoxes);

} // namespace win32::gdi
