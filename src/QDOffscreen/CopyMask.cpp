// CopyMask: a copy whose mask is a bitmap.
#include "CopyClip_internal.h"

#include "Quickdraw/Quickdraw_internal.h"
#include "Quickdraw/Regions_internal.h"

#include <mtbx/MacErrors.h>

#include <utility>

namespace {

// A port that is current while the object lives. A hook that makes another one current may have closed it.
class CurrentPort {
public:
    explicit CurrentPort(GrafPtr port) : port_(port), former_(qd.thePort) { MacSetPort(port); }
    ~CurrentPort()
    {
        if (isCurrent())
            MacSetPort(former_);
    }
    CurrentPort(const CurrentPort &) = delete;
    CurrentPort &operator=(const CurrentPort &) = delete;

    bool isCurrent() const { return qd.thePort == port_; }

private:
    GrafPtr port_, former_;
};

// The region is the clip of the current port while the object lives: it changes places with what the clip's record
// holds, so that nothing can go wrong on the way back.
class ClipExchange {
public:
    ClipExchange(GrafPort &port, RgnHandle clip) : port_(port), clip_(clip)
    {
        std::swap(**port.clipRgn, **clip);
        isDone_ = computeClip(port, nullptr);
    }
    ~ClipExchange()
    {
        if (qd.thePort != &port_ || !port_.clipRgn)
            return;
        std::swap(**port_.clipRgn, **clip_);
        computeClip(port_, nullptr);
    }
    ClipExchange(const ClipExchange &) = delete;
    ClipExchange &operator=(const ClipExchange &) = delete;

    // False when the context has its clip as before.
    bool isDone() const { return isDone_; }

private:
    GrafPort &port_;
    RgnHandle clip_;
    bool isDone_;
};

bool hasHook(const BitMap *destination)
{
    GrafPtr port = qd.thePort;
    return port && port->grafProcs && port->grafProcs->bitsProc && destination == GetPortBitMapForCopyBits(port);
}

// The hook gets the mask where it lies in the source.
void callHook(const BitMap *source, const BitMap *mask, const BitMap *destination, const Rect *sourceRect,
              const Rect *destinationRect)
{
    ScratchRegion region;
    if (region && BitMapToRegion(region, mask) == noErr && !EmptyRgn(region))
        MTBX_BitsHook(source, destination, sourceRect, destinationRect, srcCopy, region);
}

// The set bits within the source rectangle, moved to the destination.
bool placeMask(RgnHandle region, const BitMap *mask, const Rect &source, const Rect &destination)
{
    ScratchRegion limit;
    if (!limit || BitMapToRegion(region, mask) != noErr)
        return false;
    RectRgn(limit, &source);
    SectRgn(region, limit, region);
    MacOffsetRgn(region, static_cast<SInt16>(destination.left - source.left),
                 static_cast<SInt16>(destination.top - source.top));
    return true;
}

} // namespace

void CopyMask(const BitMap *source, const BitMap *mask, const BitMap *destination, const Rect *sourceRect, const Rect *,
              const Rect *destinationRect)
{
    if (hasHook(destination)) {
        callHook(source, mask, destination, sourceRect, destinationRect);
        return;
    }
    GrafPtr port = sideOf(*destination).port;
    ScratchRegion region;
    if (!port || !port->clipRgn || !region || !placeMask(region, mask, *sourceRect, *destinationRect))
        return;
    CurrentPort scope(port);
    SectRgn(region, port->clipRgn, region);
    if (EmptyRgn(region))
        return;
    ScratchRegion clip;
    if (!clip)
        return;
    MacCopyRgn(region, clip);
    ClipExchange exchange(*port, clip);
    if (EmptyRgn(port->clipRgn) || !exchange.isDone())
        return;
    EraseRgn(region);
    if (scope.isCurrent())
        CopyBits(source, destination, sourceRect, destinationRect, srcCopy, nullptr);
}
