// Regions moved, inset and scaled.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"

#include <mtbx/MacMemory.h>

#include <cstdlib>
#include <memory>

namespace {

bool isOutOfRange(SInt64 side)
{
    constexpr SInt64 farthest = 32760;
    return side > farthest || side < -farthest;
}

// A copy of the region, moved if it may be.
bool copyMoved(HRGN copy, HRGN source, SInt32 dh, SInt32 dv)
{
    if (CombineRgn(copy, source, nullptr, RGN_COPY) == ERROR)
        return false;
    offsetNativeRegion(copy, dh, dv);
    return true;
}

// The region moved to each side, and all four combined by the mode.
void combineAroundRegion(RgnHandle rgn, SInt16 dh, SInt16 dv, int mode)
{
    HRGN native = nativeRegion(rgn);
    ScratchNativeRegion result(MTBX_CreateRectRgn(0, 0, 0, 0));
    ScratchNativeRegion moved(MTBX_CreateRectRgn(0, 0, 0, 0));
    if (!result || !moved || !copyMoved(result, native, dh, dv))
        return;
    const SInt32 directions[][2] = {{-dh, dv}, {dh, -dv}, {-dh, -dv}};
    for (auto &[h, v] : directions)
        if (!copyMoved(moved, native, h, v) || CombineRgn(result, result, moved, mode) == ERROR)
            return;
    CombineRgn(native, result, nullptr, RGN_COPY);
    CalcRgnBox(rgn);
}

struct PtrDeleter {
    void operator()(RGNDATA *data) const { DisposePtr(reinterpret_cast<Ptr>(data)); }
};
using RegionData = std::unique_ptr<RGNDATA, PtrDeleter>;

// Null when there is no memory for it.
RegionData dataOf(HRGN region, DWORD &byteCount)
{
    byteCount = GetRegionData(region, 0, nullptr);
    if (byteCount == 0 || byteCount > INT32_MAX - sizeof(RGNDATAHEADER))
        return nullptr;
    byteCount += sizeof(RGNDATAHEADER);
    RegionData data(reinterpret_cast<RGNDATA *>(NewPtr(static_cast<Size>(byteCount))));
    return data && GetRegionData(region, byteCount, data.get()) != 0 ? std::move(data) : nullptr;
}

struct Extent {
    SInt16 width, height;
};

Extent extentOf(const Rect &rect)
{
    return {static_cast<SInt16>(rect.right - rect.left), static_cast<SInt16>(rect.bottom - rect.top)};
}

} // namespace

bool offsetNativeRegion(HRGN region, SInt32 dh, SInt32 dv)
{
    RECT box{};
    GetRgnBox(region, &box);
    if (isOutOfRange(SInt64{box.left} + dh) || isOutOfRange(SInt64{box.right} + dh)
        || isOutOfRange(SInt64{box.top} + dv) || isOutOfRange(SInt64{box.bottom} + dv))
        return false;
    OffsetRgn(region, dh, dv);
    return true;
}

void MacOffsetRgn(RgnHandle rgn, SInt16 dh, SInt16 dv)
{
    offsetNativeRegion(nativeRegion(rgn), dh, dv);
    CalcRgnBox(rgn);
}

void InsetRgn(RgnHandle rgn, SInt16 dh, SInt16 dv)
{
    if (dh < 0 && dv < 0)
        combineAroundRegion(rgn, dh, dv, RGN_OR);
    else if (dh > 0 && dv > 0)
        combineAroundRegion(rgn, dh, dv, RGN_AND);
    else
        MacOffsetRgn(rgn, dh, dv);
}

void MapRgn(RgnHandle rgn, const Rect *source, const Rect *destination)
{
    if (EmptyRect(source) || !rgn || !*rgn || (*rgn)->rgnTag != kRegionTag)
        return;
    Extent from = extentOf(*source), to = extentOf(*destination);
    if (to.width == 0 || to.height == 0) {
        // GDI may refuse a transform that leaves nothing, as if it were short of objects.
        SetEmptyRgn(rgn);
        return;
    }
    DWORD byteCount;
    RegionData data = dataOf((*rgn)->rgnNative, byteCount);
    if (!data)
        return;
    XFORM scale{};
    scale.eM11 = static_cast<FLOAT>(to.width) / static_cast<FLOAT>(from.width);
    scale.eM22 = static_cast<FLOAT>(to.height) / static_cast<FLOAT>(from.height);
    (*rgn)->rgnTag = 0;
    HRGN mapped = MTBX_ExtCreateRegion(&scale, byteCount, data.get());
    if (mapped)
        replaceNativeRegion(rgn, mapped);
    (*rgn)->rgnTag = kRegionTag;
}
