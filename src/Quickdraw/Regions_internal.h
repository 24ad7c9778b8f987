// What ports, drawing and windows need of regions.
#pragma once

#include <mtbx/Quickdraw.h>

#include <utility>

// The native region of a record; null for a null region, which GDI refuses.
inline HRGN nativeRegion(RgnHandle rgn)
{
    return rgn && *rgn ? (*rgn)->rgnNative : nullptr;
}

// A region for the time of a call, null when memory is short.
class ScratchRegion {
public:
    ScratchRegion() : region_(NewRgn()) {}
    ~ScratchRegion()
    {
        if (region_)
            DisposeRgn(region_);
    }
    ScratchRegion(const ScratchRegion &) = delete;
    ScratchRegion &operator=(const ScratchRegion &) = delete;

    operator RgnHandle() const { return region_; }

private:
    RgnHandle region_;
};

// A native region for the time of a call.
class ScratchNativeRegion {
public:
    explicit ScratchNativeRegion(HRGN region) : region_(region) {}
    ~ScratchNativeRegion()
    {
        if (region_)
            DeleteObject(region_);
    }
    ScratchNativeRegion(const ScratchNativeRegion &) = delete;
    ScratchNativeRegion &operator=(const ScratchNativeRegion &) = delete;

    operator HRGN() const { return region_; }
    // Hands the region over.
    HRGN release() { return std::exchange(region_, nullptr); }

private:
    HRGN region_;
};

// Puts a new native region in the place of the old one.
void replaceNativeRegion(RgnHandle rgn, HRGN region);

// Moves a native region; false, with the region where it was, when a side of its box would pass
// +/-32760, the range in which GDI draws.
bool offsetNativeRegion(HRGN region, SInt32 dh, SInt32 dv);

// The recording between OpenRgn and CloseRgn.
extern bool regionRecordingOpen;
void addRegionRecordingPoint(SInt16 h, SInt16 v);

// For MoveTo and MacLineTo: true when a recording took the point, so that they are to do nothing else.
inline bool recordRegionPoint(SInt16 h, SInt16 v)
{
    if (!regionRecordingOpen) [[likely]]
        return false;
    addRegionRecordingPoint(h, v);
    return true;
}
