// Regions from boxes, without the pass over all of them in which pixman puts them in order.
#pragma once

#include "box.h"

#include <span>

namespace win32::gdi {

// A list of boxes with room for a fixed number, in the memory that becomes a region's.
class RegionBoxes {
public:
    // Throws bad_alloc when memory is short.
    explicit RegionBoxes(size_t capacity);
    ~RegionBoxes();
    RegionBoxes(const RegionBoxes &) = delete;
    RegionBoxes &operator=(const RegionBoxes &) = delete;

    size_t size() const { return count_; }
    Box &operator[](size_t index) { return boxes_[index]; }
    const Box &operator[](size_t index) const { return boxes_[index]; }
    Box &back() { return boxes_[count_ - 1]; }
    void push_back(const Box &box) { boxes_[count_++] = box; }
    void resize(size_t count) { count_ = count; }

    // The boxes are in the form of bands.h. They become the region's; what it had before is freed.
    void giveTo(pixman_region32_t &region);

private:
    pixman_region32_data_t *data_;
    Box *boxes_;
    size_t capacity_;
    size_t count_ = 0;
};

// Boxes in the form of bands.h become a region. Throws bad_alloc.
void assignBands(pixman_region32_t &region, std::span<const Box> boxes);

// Any boxes, empty and overlapping ones among them, become the region that they cover together. Takes time in
// proportion to the boxes when they come in bands, and to what a sort needs, with the boxes of the result,
// otherwise. Throws bad_alloc.
void assignUnion(pixman_region32_t &region, std::span<const Box> boxes);

} // namespace win32::gdi
