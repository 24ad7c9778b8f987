// The frame of calls that draw lines and shapes: they draw, or add to the context's path while one is open.
#pragma once

#include "path.h"
#include "stroke.h"

#include "kernel/kernel_internal.h"

namespace win32::gdi {

// Calls record(PathRecorder &) or draw(Drawing &). When memory is short, the path is as it was.
template <class Record, class Draw> BOOL recordOrDraw(HDC context, Record record, Draw draw)
{
    Drawing drawing(context);
    if (!drawing)
        return FALSE;
    DeviceContext &dc = drawing.dc();
    if (!dc.path.isOpen) {
        return guarded(BOOL{FALSE}, [&]() -> BOOL {
            draw(drawing);
            return TRUE;
        });
    }
    size_t before = dc.path.points.size();
    bool wasFigureOpen = dc.path.isFigureOpen;
    BOOL isDone = guarded(BOOL{FALSE}, [&]() -> BOOL {
        PathRecorder recorder(dc);
        record(recorder);
        return TRUE;
    });
    if (!isDone) {
        dc.path.points.resize(before);
        dc.path.isFigureOpen = wasFigureOpen;
    }
    return isDone;
}

// Scratch that is kept from call to call.
inline std::span<const POINT> surfacePoints(const DeviceContext &dc, std::span<const POINT> points)
{
    thread_local std::vector<POINT> result;
    result.clear();
    for (POINT point : points)
        result.push_back(dc.toSurface(point));
    return result;
}

} // namespace win32::gdi
