// CopyBits: from any image to one with a context.
#include "CopyClip_internal.h"
#include "CopyImages_internal.h"
#include "CopyOrder_internal.h"
#include "CopyPaths_internal.h"
#include "CopySettings_internal.h"
#include "PlainBitmaps_internal.h"
#include "WholeBitmaps_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

#include <optional>
#include <utility>

namespace {

// Pixels that have no place are left out, whatever the contexts were set to.
class StretchModes {
public:
    explicit StretchModes(const Copy &copy)
    {
        if (!copy.isStretched())
            return;
        destination_ = copy.destination.pmDC;
        source_ = copy.source.pmDC == destination_ ? nullptr : copy.source.pmDC;
        formerOfDestination_ = SetStretchBltMode(destination_, COLORONCOLOR);
        formerOfSource_ = source_ ? SetStretchBltMode(source_, COLORONCOLOR) : 0;
    }
    ~StretchModes()
    {
        if (source_ && formerOfSource_)
            SetStretchBltMode(source_, formerOfSource_);
        if (destination_ && formerOfDestination_)
            SetStretchBltMode(destination_, formerOfDestination_);
    }
    StretchModes(const StretchModes &) = delete;
    StretchModes &operator=(const StretchModes &) = delete;

private:
    HDC source_ = nullptr, destination_ = nullptr;
    int formerOfSource_ = 0, formerOfDestination_ = 0;
};

// GDI takes care of pixels that are read and written in one bitmap.
bool isWithinOneBitmap(const Copy &copy)
{
    return copy.source.pmBitmap && copy.source.pmDC == copy.destination.pmDC;
}

// Both images whole, without regard to rectangles and clip.
bool combineWhole(const Copy &copy)
{
    bool isAsked = copy.mode == addOver && !copySettings.useStretchBlt && copy.source.pixelSize == 1
                   && copy.destination.pixelSize == 1;
    return isAsked && xorWholeBitmaps(copy.source.pmBitmap, copy.destination.pmBitmap);
}

void perform(const Copy &copy)
{
    CopyOrder order(copy);
    StretchModes modes(copy);
    if (copySettings.useStretchBlt)
        copyBetweenContexts(copy);
    else if (copy.source.pixelSize == 1 || copy.destination.pixelSize == 1)
        copyOneBit(copy);
    else if (copy.hasRows())
        isWithinOneBitmap(copy) ? copyBetweenContexts(copy) : copyFromMemory(copy);
}

Copy describe(const CopySide &source, const CopySide &destination, const Rect &from, const Rect &to, SInt16 mode)
{
    return {*source.map,
            *destination.map,
            contextPosition(source, from.left, from.top),
            contextPosition(destination, to.left, to.top),
            static_cast<SInt16>(from.right - from.left),
            static_cast<SInt16>(from.bottom - from.top),
            static_cast<SInt16>(to.right - to.left),
            static_cast<SInt16>(to.bottom - to.top),
            mode,
            rasterOperationOf(mode)};
}

bool hasContext(const CopySide &side)
{
    return side.map && side.map->pmDC;
}

} // namespace

void CopyBits(const BitMap *source, const BitMap *destination, const Rect *sourceRect, const Rect *destinationRect,
              SInt16 mode, RgnHandle mask)
{
    if (MTBX_BitsHook(source, destination, sourceRect, destinationRect, mode, mask))
        return;
    GdiFlush();
    Rect from = *sourceRect, to = *destinationRect;
    CopySide target = sideOf(*destination), origin = sideOf(*source);
    if (!hasContext(target))
        return;
    std::optional<PlainBitmap> plain;
    if (isPlainBitmap(*source)) {
        HDC context = target.map->pmDC;
        origin = plain.emplace(*source, context).side();
    }
    if (!origin.map)
        return;
    Copy copy = describe(origin, target, from, to, mode);
    if (combineWhole(copy))
        return;
    CopyClip clip(target, mask);
    // The host may have made another port current while it was asked for memory.
    if (clip.isReady() && hasContext(target))
        perform(copy);
}

Boolean MTBX_EnableCopyBitsDirectDraw(Boolean enable)
{
    return std::exchange(copySettings.useDirectDraw, enable);
}
