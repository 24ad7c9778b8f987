// One drawing call on a context: its surface, clip and paints at hand, and the note of what it touched.
//
//     Drawing drawing(context);
//     if (!drawing)
//         return FALSE;                        // no such context; the last error is set
//     drawing.fill(drawing.dc().toSurface(...), drawing.dc().brushPaint(), rop2);
//     return TRUE;
#pragma once

#include "device_context.h"
#include "fill.h"

#include <span>

namespace win32::gdi {

class Drawing {
public:
    explicit Drawing(HDC context) : dc_(findContext(context)) {}
    ~Drawing()
    {
        if (dc_ && dc_->surface.listener && !isEmpty(touched_))
            dc_->surface.listener->damaged(touched_);
    }
    Drawing(const Drawing &) = delete;
    Drawing &operator=(const Drawing &) = delete;

    explicit operator bool() const { return dc_ != nullptr; }
    DeviceContext &dc() const { return *dc_; }
    const Surface &surface() const { return dc_->surface; }
    const ClipBoxes &clip() const { return dc_->clipBoxes(); }

    // Notes an area that is about to be drawn on, cut to the clip. False when nothing of it can be seen.
    bool touch(const Box &box)
    {
        Box seen = intersected(box, clip().extents);
        if (isEmpty(seen))
            return false;
        if (surface().listener)
            touched_ = isEmpty(touched_) ? seen : united(touched_, seen);
        return true;
    }

    void fill(const Box &box, const Paint &paint, int rop2)
    {
        if (touch(box))
            fillClipped(surface(), clip(), box, paint, rop2);
    }

    // Boxes as scan.h makes them, cut to the clip here.
    void fill(std::span<const Box> boxes, const Paint &paint, int rop2)
    {
        if (boxes.empty())
            return;
        Box bounds = boundsOf(boxes);
        if (!touch(bounds))
            return;
        if (clip().count == 1 && contains(clip().extents, bounds))
            fillBoxes(surface(), boxes.data(), boxes.size(), paint, rop2);
        else
            fillManyClipped(surface(), clip(), boxes, paint, rop2);
    }

private:
    static Box boundsOf(std::span<const Box> boxes)
    {
        Box bounds = boxes.front();
        for (const Box &box : boxes)
            bounds = united(bounds, box);
        return bounds;
    }

    DeviceContext *dc_;
    Box touched_{};
};

} // namespace win32::gdi
