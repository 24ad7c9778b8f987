// Boxes in the one form that pixman has for a region: bands from top to bottom, in each the boxes from left
// to right with gaps between them, and no two neighbouring bands that could be one.
#pragma once

#include "box.h"

#include <cstddef>
#include <new>

namespace win32::gdi {

// What passes this many boxes is refused as memory that is not there: a shape from outside may be two
// thousand million rows high.
constexpr size_t mostBoxes = size_t{1} << 24;

// Boxes is a vector of boxes, or what can be used like one.
template <class Boxes> class BandWriter {
public:
    explicit BandWriter(Boxes &boxes) : boxes_(boxes), previous_(boxes.size()), current_(boxes.size()) {}

    // Bands come from top to bottom and do not overlap.
    void begin(int top, int bottom)
    {
        finish();
        top_ = top;
        bottom_ = bottom;
        if (boxes_.size() > mostBoxes)
            throw std::bad_alloc();
    }

    // Within a band from left to right; what touches or overlaps becomes one box.
    void add(int left, int right)
    {
        if (boxes_.size() > current_ && left <= boxes_.back().x2)
            boxes_.back().x2 = std::max(boxes_.back().x2, right);
        else
            boxes_.push_back({left, top_, right, bottom_});
    }

    // A band of one box.
    void addBand(int top, int bottom, int left, int right)
    {
        finish();
        bool isSame = current_ - previous_ == 1 && boxes_.back().y2 == top && boxes_.back().x1 == left
                      && boxes_.back().x2 == right;
        if (isSame) {
            boxes_.back().y2 = bottom;
            return;
        }
        if (boxes_.size() > mostBoxes)
            throw std::bad_alloc();
        boxes_.push_back({left, top, right, bottom});
        previous_ = current_;
        ++current_;
    }

    // To be called behind the last band.
    void finish()
    {
        size_t count = boxes_.size() - current_;
        if (count == 0)
            return;
        if (count == current_ - previous_ && equalsPrevious(count)) {
            for (size_t i = previous_; i < current_; ++i)
                boxes_[i].y2 = bottom_;
            boxes_.resize(current_);
            return;
        }
        previous_ = current_;
        current_ = boxes_.size();
    }

private:
    bool equalsPrevious(size_t count) const
    {
        if (boxes_[previous_].y2 != top_)
            return false;
        for (size_t i = 0; i < count; ++i) {
            const Box &above = boxes_[previous_ + i], &below = boxes_[current_ + i];
            if (above.x1 != below.x1 || above.x2 != below.x2)
                return false;
        }
        return true;
    }

    Boxes &boxes_;
    size_t previous_;
    size_t current_;
    int top_ = 0;
    int bottom_ = 0;
};

} // namespace win32::gdi
