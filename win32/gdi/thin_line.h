// Lines of one pixel: which pixels a segment covers, and laying paint on them.
//
// A segment covers one pixel in each column, or in each row when it is steeper than that: the one whose
// centre is nearest to it, of two equally near ones the upper or left. The pixel at its end belongs to
// what follows. So a segment covers the same pixels whichever way it is drawn, but for the two at its ends.
#pragma once

#include "clip_boxes.h"
#include "fixed_point.h"
#include "paint.h"

namespace win32::gdi {

class ThinLine {
public:
    // Between the centres of two pixels: exact over the whole range.
    ThinLine(POINT from, POINT to);
    // Between any points. A pixel counts when the segment leaves the diamond around its centre, so that
    // consecutive segments neither skip nor repeat a pixel where they meet.
    ThinLine(FixedPoint from, FixedPoint to);

    int64_t pixels() const { return count_; }
    POINT pixel(int64_t index) const;
    Box bounds() const;

    // Calls visit(first, last) for each range of pixels that the clip shows, the last one excluded.
    template <class Visit> void eachVisible(const ClipBoxes &clip, Visit visit) const
    {
        Box whole = bounds();
        gdi::eachVisible(clip, whole, [&](const Box &visible) {
            int64_t first = 0;
            int64_t last = count_;
            if (!contains(visible, whole))
                narrow(first, last, visible);
            if (first < last)
                visit(first, last);
        });
    }

    // Draws a range of pixels, all of which lie on the surface.
    void draw(const Surface &surface, int64_t first, int64_t last, const Paint &paint, int rop2) const;

private:
    // Along the major axis pixel i lies at majorStart_ + i * majorStep_, along the minor one at
    // minorStart_ + minorStep_ * floor((error_ + i * slope_) / length_).
    using Wide = __int128;

    Wide minorSteps(int64_t index) const { return index ? (error_ + Wide{slope_} * index) / length_ : 0; }
    int64_t errorAt(int64_t index) const
    {
        return index ? static_cast<int64_t>((error_ + Wide{slope_} * index) % length_) : error_;
    }
    int64_t bounded(Wide index) const;
    void narrow(int64_t &first, int64_t &last, const Box &box) const;
    template <class Pixel, class Mix> void plot(const Surface &surface, int64_t first, int64_t last, Mix mix) const;
    template <class Pixel>
    void plotSolid(const Surface &surface, int64_t first, int64_t last, uint32_t value, int rop2) const;
    void fillRuns(const Surface &surface, int64_t first, int64_t last, const Paint &paint, int rop2) const;

    bool isSteep_;
    int majorStep_;
    int minorStep_;
    int64_t majorStart_;
    int64_t minorStart_;
    int64_t count_;
    int64_t error_;
    int64_t slope_;
    int64_t length_;
};

} // namespace win32::gdi
