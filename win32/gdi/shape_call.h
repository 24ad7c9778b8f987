// What the calls for rectangles, ellipses and arcs share.
#pragma once

#include "line_call.h"

namespace win32::gdi {

// Boxes of logical coordinates in device coordinates and on the surface, their sides in order. Cut where no
// surface reaches, so that sums with what is drawn around them hold.
inline Box cutToReach(const Box &box)
{
    constexpr int reach = 1 << 28;
    return {std::clamp(box.x1, -reach, reach), std::clamp(box.y1, -reach, reach), std::clamp(box.x2, -reach, reach),
            std::clamp(box.y2, -reach, reach)};
}

inline Box deviceBox(const DeviceContext &dc, int left, int top, int right, int bottom)
{
    POINT first = dc.toDevice({left, top});
    POINT second = dc.toDevice({right, bottom});
    return cutToReach(ordered({static_cast<int>(first.x), static_cast<int>(first.y), static_cast<int>(second.x),
                               static_cast<int>(second.y)}));
}

inline Box surfaceBox(const DeviceContext &dc, int left, int top, int right, int bottom)
{
    return cutToReach(dc.toSurface(left, top, right, bottom));
}

// The box, which may be empty, lies on the surface for drawing and in device coordinates for a path.
void drawRectangle(Drawing &drawing, const Box &box);
void recordRectangle(PathRecorder &path, const Box &box);

} // namespace win32::gdi
