// A port's clip is computed anew with the mask and without it; a PixMap's is replaced for the time.
#include "CopyClip_internal.h"

#include "Quickdraw/GdiGuard_internal.h"
#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/MacErrors.h>

#include <utility>

namespace {

// The mask is in the coordinates of the PixMap, the clip in those of its pixels.
bool selectMask(const CopySide &side, RgnHandle mask)
{
    HDC context = side.map->pmDC;
    POINT origin = contextOrigin(context);
    return SelectClipRgn(context, nativeRegion(mask)) != ERROR
           && OffsetClipRgn(context, -side.origin.h - origin.x, -side.origin.v - origin.y) != ERROR;
}

} // namespace

bool computeClip(GrafPort &port, RgnHandle mask)
{
    SInt16 pendingError = std::exchange(qdErrorValue, noErr);
    MTBX_ComputePortClip(port, mask);
    bool isComputed = qdErrorValue == noErr;
    if (pendingError != noErr)
        qdErrorValue = pendingError;
    return isComputed;
}

CopyClip::CopyClip(const CopySide &destination, RgnHandle mask)
    : destination_(destination), mask_(mask), former_(mask ? MTBX_CreateRectRgn(0, 0, 0, 0) : nullptr),
      isKept_(mask && keepFormerClip()), isReady_(!mask || (isKept_ && apply()))
{
}

CopyClip::~CopyClip()
{
    if (!isKept_ || (destination_.port && computeClip(*destination_.port, nullptr)))
        return;
    SelectClipRgn(destination_.map->pmDC, hadClip_ ? static_cast<HRGN>(former_) : nullptr);
}

bool CopyClip::keepFormerClip()
{
    int kept = former_ ? GetClipRgn(destination_.map->pmDC, former_) : -1;
    hadClip_ = kept == 1;
    return kept >= 0;
}

bool CopyClip::apply()
{
    if (!nativeRegion(mask_))
        return false;
    return destination_.port ? computeClip(*destination_.port, mask_) : selectMask(destination_, mask_);
}
