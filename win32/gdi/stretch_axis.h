// One direction of a move of pixels: which source positions make a destination position.
#pragma once

#include <cstdint>

namespace win32::gdi {

// Pixels are counted from both starting positions in the directions of the sizes; a negative size counts
// back from its position. When the destination is the larger one, each of its pixels takes the source pixel
// at its centre; otherwise each source pixel belongs to the destination pixel at its own centre. A centre
// between two pixels belongs to the earlier one.
class StretchAxis {
public:
    // No size is 0.
    StretchAxis(int position, int size, int sourcePosition, int sourceSize)
        : position_(position), sourcePosition_(sourcePosition), size_(size < 0 ? -int64_t{size} : size),
          sourceSize_(sourceSize < 0 ? -int64_t{sourceSize} : sourceSize), direction_(size < 0 ? -1 : 1),
          sourceDirection_(sourceSize < 0 ? -1 : 1)
    {
    }

    // Whether each pixel goes to the position at a fixed distance.
    bool isPlain() const { return size_ == sourceSize_ && direction_ == sourceDirection_; }
    int64_t distance() const { return position_ - sourcePosition_; }

    bool isShrunk() const { return sourceSize_ > size_; }
    bool isDoubled() const { return size_ == 2 * sourceSize_ && direction_ == sourceDirection_; }
    bool isHalved() const { return sourceSize_ == 2 * size_ && direction_ == sourceDirection_; }

    // The positions that are covered, from begin to before end.
    int64_t begin() const { return direction_ > 0 ? position_ : position_ - size_ + 1; }
    int64_t end() const { return begin() + size_; }
    int64_t sourceBegin() const { return sourceDirection_ > 0 ? sourcePosition_ : sourcePosition_ - sourceSize_ + 1; }
    int64_t sourceEnd() const { return sourceBegin() + sourceSize_; }

    void moveSource(int64_t distance) { sourcePosition_ += distance; }

    // What a destination position stands for: the first and the last source position, as they are counted.
    struct Sources {
        int64_t first;
        int64_t last;
    };
    Sources sourcesOf(int64_t destination) const
    {
        auto i = static_cast<uint64_t>(direction_ > 0 ? destination - position_ : position_ - destination);
        if (isShrunk())
            return {source(groupStart(i)), source(groupStart(i + 1) - 1)};
        uint64_t centre = ((2 * i + 1) * static_cast<uint64_t>(sourceSize_) - 1) / (2 * static_cast<uint64_t>(size_));
        return {source(centre), source(centre)};
    }

private:
    uint64_t groupStart(uint64_t i) const
    {
        auto size = static_cast<uint64_t>(size_);
        return (2 * i * static_cast<uint64_t>(sourceSize_) + size) / (2 * size);
    }
    int64_t source(uint64_t count) const { return sourcePosition_ + sourceDirection_ * static_cast<int64_t>(count); }

    int64_t position_;
    int64_t sourcePosition_;
    int64_t size_;
    int64_t sourceSize_;
    int direction_;
    int sourceDirection_;
};

} // namespace win32::gdi
