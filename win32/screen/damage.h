// What of the screen was drawn and is not shown yet: a few boxes that cover it.
#pragma once

#include "gdi/surface.h"

#include <mutex>

namespace win32::screen {

// Boxes grow together where that wastes little, and where there would be too many. Needs no memory of its own: it is
// told of drawing where nothing may fail.
class DamagedBoxes {
public:
    void add(const gdi::Box &added);
    bool isEmpty() const { return count_ == 0; }
    const gdi::Box *begin() const { return boxes_; }
    const gdi::Box *end() const { return boxes_ + count_; }

private:
    gdi::Box boxes_[8];
    int count_ = 0;
};

// Told by those who draw, from any thread; the display is woken by the first box.
class Damage final : public gdi::DamageListener {
public:
    void damaged(const gdi::Box &box) override;
    DamagedBoxes take();

private:
    std::mutex mutex_;
    DamagedBoxes boxes_;
};

} // namespace win32::screen
