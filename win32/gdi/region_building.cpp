#include "region_building.h"

#include "bands.h"
#include "region_sweep.h"

#include <climits>
#include <cstdlib>

namespace win32::gdi {

RegionBoxes::RegionBoxes(size_t capacity) : capacity_(capacity)
{
    if (capacity > LONG_MAX / sizeof(Box) / 2)
        throw std::bad_alloc();
    // pixman frees what it holds with free().
    data_ = static_cast<pixman_region32_data_t *>(malloc(sizeof *data_ + capacity * sizeof(Box)));
    if (!data_)
        throw std::bad_alloc();
    boxes_ = reinterpret_cast<Box *>(data_ + 1);
}

RegionBoxes::~RegionBoxes()
{
    free(data_);
}

void RegionBoxes::giveTo(pixman_region32_t &region)
{
    if (count_ == 0) {
        pixman_region32_clear(&region);
        return;
    }
    if (count_ == 1) {
        pixman_region32_reset(&region, &boxes_[0]);
        return;
    }
    Box extents = {boxes_[0].x1, boxes_[0].y1, boxes_[0].x2, boxes_[count_ - 1].y2};
    for (size_t i = 1; i < count_; ++i) {
        extents.x1 = std::min(extents.x1, boxes_[i].x1);
        extents.x2 = std::max(extents.x2, boxes_[i].x2);
    }
    if (count_ < capacity_ / 2) {
        if (void *smaller = realloc(data_, sizeof *data_ + count_ * sizeof(Box))) {
            data_ = static_cast<pixman_region32_data_t *>(smaller);
            capacity_ = count_;
        }
    }
    data_->size = static_cast<long>(capacity_);
    data_->numRects = static_cast<long>(count_);
    pixman_region32_fini(&region);
    region.extents = extents;
    region.data = data_;
    data_ = nullptr;
}

void assignBands(pixman_region32_t &region, std::span<const Box> boxes)
{
    RegionBoxes list(boxes.size());
    for (const Box &box : boxes)
        list.push_back(box);
    list.giveTo(region);
}

namespace {

// False when the boxes do not come in bands.
bool writeBands(std::span<const Box> boxes, RegionBoxes &list)
{
    BandWriter writer(list);
    const Box *previous = nullptr;
    for (const Box &box : boxes) {
        if (isEmpty(box))
            continue;
        bool isInBand = previous && box.y1 == previous->y1 && box.y2 == previous->y2 && box.x1 >= previous->x2;
        if (!isInBand) {
            if (previous && box.y1 < previous->y2)
                return false;
            writer.begin(box.y1, box.y2);
        }
        writer.add(box.x1, box.x2);
        previous = &box;
    }
    writer.finish();
    return true;
}

bool assignInBands(pixman_region32_t &region, std::span<const Box> boxes)
{
    RegionBoxes list(boxes.size());
    if (!writeBands(boxes, list))
        return false;
    list.giveTo(region);
    return true;
}

} // namespace

void assignUnion(pixman_region32_t &region, std::span<const Box> boxes)
{
    if (assignInBands(region, boxes))
        return;
    std::vector<Box> sorted;
    sorted.reserve(boxes.size());
    std::copy_if(boxes.begin(), boxes.end(), std::back_inserter(sorted), [](const Box &box) { return !isEmpty(box); });
    std::sort(sorted.begin(), sorted.end(),
              [](const Box &a, const Box &b) { return a.y1 != b.y1 ? a.y1 < b.y1 : a.x1 < b.x1; });
    if (assignInBands(region, sorted))
        return;
    assignBands(region, sweep(sorted));
}

} // namespace win32::gdi
