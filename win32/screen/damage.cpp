#include "damage.h"

#include "display.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace win32::screen {
namespace {

int64_t areaOf(const gdi::Box &box)
{
    return int64_t{box.x2 - box.x1} * (box.y2 - box.y1);
}

// How many pixels a box around both has that neither has.
int64_t wasteOf(const gdi::Box &one, const gdi::Box &other)
{
    return areaOf(gdi::united(one, other)) - areaOf(one) - areaOf(other);
}

} // namespace

void DamagedBoxes::add(const gdi::Box &added)
{
    if (gdi::isEmpty(added))
        return;
    auto best = std::min_element(boxes_, boxes_ + count_, [&](const gdi::Box &one, const gdi::Box &other) {
        return wasteOf(one, added) < wasteOf(other, added);
    });
    constexpr int64_t freeWaste = 1024;
    bool isFull = count_ == static_cast<int>(std::size(boxes_));
    bool joins = count_ > 0 && (isFull || wasteOf(*best, added) <= areaOf(added) / 4 + freeWaste);
    if (joins)
        *best = gdi::united(*best, added);
    else
        boxes_[count_++] = added;
}

void Damage::damaged(const gdi::Box &box)
{
    bool isFirst;
    {
        std::lock_guard lock(mutex_);
        isFirst = boxes_.isEmpty();
        boxes_.add(box);
    }
    if (isFirst)
        wakeDisplay();
}

DamagedBoxes Damage::take()
{
    std::lock_guard lock(mutex_);
    return std::exchange(boxes_, DamagedBoxes{});
}

} // namespace win32::screen
