// The dashes and gaps of a broken line.
#pragma once

#include "pen.h"

#include <cstdint>

namespace win32::gdi {

// Lengths of dashes and gaps in turn, an even number of them; none for a line that is not broken. The unit
// is a pixel for lines of one pixel, and a pixel of length for wider ones.
class DashPattern {
public:
    DashPattern() = default;
    // Of a pen whose lines are so many pixels wide: 1 for thin ones.
    DashPattern(const Pen &pen, double width);

    bool isSolid() const { return count_ == 0; }
    double total() const { return total_; }

    // A place in the pattern.
    struct Place {
        int index;   // even within a dash
        double left; // until the next one
        bool isDash() const { return index % 2 == 0; }
    };
    Place at(double distance) const;
    void advance(Place &place) const
    {
        place.index = place.index + 1 == count_ ? 0 : place.index + 1;
        place.left = lengths_[place.index];
    }

private:
    void set(const DWORD *lengths, int count, double unit);
    void makeRoomForCaps(double width);

    static constexpr int mostLengths = 32; // an odd number of lengths counts twice
    double lengths_[mostLengths];
    int count_ = 0;
    double total_ = 0;
};

} // namespace win32::gdi
