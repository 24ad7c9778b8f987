#include "clip_boxes.h"

namespace win32::gdi {

void joinBoxes(const ClipBoxes &clip, std::vector<Box> &tallBoxes)
{
    tallBoxes.clear();
    // Those that the next band may continue, from left to right.
    std::vector<size_t> open, next;
    eachBand(clip, clip.extents, [&](const Box *first, const Box *end) {
        next.clear();
        auto above = open.begin();
        for (; first != end; ++first) {
            while (above != open.end() && tallBoxes[*above].x1 < first->x1)
                ++above;
            Box *candidate = above != open.end() ? &tallBoxes[*above] : nullptr;
            if (candidate && candidate->x1 == first->x1 && candidate->x2 == first->x2 && candidate->y2 == first->y1) {
                candidate->y2 = first->y2;
                next.push_back(*above);
            } else {
                next.push_back(tallBoxes.size());
                tallBoxes.push_back(*first);
            }
        }
        open.swap(next);
    });
}

} // namespace win32::gdi
