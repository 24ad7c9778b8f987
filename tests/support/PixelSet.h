// A set of pixels that is slow and obviously right, to hold regions against.
#pragma once

#include <mtbx/Quickdraw.h>

#include <ostream>
#include <vector>

class PixelSet {
public:
    // Sides of the square that tests stay within.
    static constexpr int low = -120, high = 200;

    PixelSet() : pixels_(size * size) {}
    static PixelSet of(RgnHandle rgn)
    {
        PixelSet set;
        DWORD byteCount = GetRegionData((*rgn)->rgnNative, 0, nullptr);
        std::vector<RECT> buffer(byteCount / sizeof(RECT) + 1);
        auto data = reinterpret_cast<RGNDATA *>(buffer.data());
        if (GetRegionData((*rgn)->rgnNative, byteCount, data))
            for (DWORD i = 0; i < data->rdh.nCount; ++i) {
                const RECT &rect = reinterpret_cast<const RECT *>(data->Buffer)[i];
                set.add(rect.left, rect.top, rect.right, rect.bottom);
            }
        return set;
    }
    template <class Predicate> static PixelSet where(Predicate predicate)
    {
        PixelSet set;
        for (int y = low; y < high; ++y)
            for (int x = low; x < high; ++x)
                set.pixels_[index(x, y)] = predicate(x, y);
        return set;
    }

    bool has(int x, int y) const { return x >= low && x < high && y >= low && y < high && pixels_[index(x, y)]; }
    void add(int left, int top, int right, int bottom)
    {
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x)
                pixels_.at(index(x, y)) = true;
    }

    Rect box() const
    {
        int left = high, top = high, right = low, bottom = low;
        for (int y = low; y < high; ++y)
            for (int x = low; x < high; ++x)
                if (pixels_[index(x, y)]) {
                    left = std::min(left, x);
                    right = std::max(right, x + 1);
                    top = std::min(top, y);
                    bottom = y + 1;
                }
        if (left >= right)
            return {};
        return {static_cast<SInt16>(top), static_cast<SInt16>(left), static_cast<SInt16>(bottom),
                static_cast<SInt16>(right)};
    }

    bool operator==(const PixelSet &) const = default;

    // What is within the box, for the message of a failed test.
    friend void PrintTo(const PixelSet &set, std::ostream *out)
    {
        Rect box = set.box();
        *out << "top " << box.top << " left " << box.left << "\n";
        for (int y = box.top; y < box.bottom; ++y, *out << "\n")
            for (int x = box.left; x < box.right; ++x)
                *out << (set.has(x, y) ? '#' : '.');
    }

private:
    static constexpr int size = high - low;
    static size_t index(int x, int y) { return static_cast<size_t>((y - low) * size + x - low); }

    std::vector<bool> pixels_;
};
