// Region records, their algebra, and questions on them: each a native call or two, and the box.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"

#include <mtbx/MacMemory.h>

#include <algorithm>

namespace {

void combine(RgnHandle a, RgnHandle b, RgnHandle result, int mode)
{
    CombineRgn(nativeRegion(result), nativeRegion(a), nativeRegion(b), mode);
    CalcRgnBox(result);
}

} // namespace

RgnHandle NewRgn()
{
    auto rgn = reinterpret_cast<RgnHandle>(NewHandle(sizeof(MacRegion)));
    if (!rgn)
        return nullptr;
    HRGN native = MTBX_CreateRectRgn(0, 0, 0, 0);
    if (!native) {
        DisposeHandle(reinterpret_cast<Handle>(rgn));
        return nullptr;
    }
    (*rgn)->rgnNative = native;
    (*rgn)->rgnTag = kRegionTag;
    CalcRgnBox(rgn);
    return rgn;
}

void DisposeRgn(RgnHandle rgn)
{
    // A foreign handle may be too short to have a tag at all.
    auto handle = reinterpret_cast<Handle>(rgn);
    if (GetHandleSize(handle) >= Size{sizeof(MacRegion)} && (*rgn)->rgnTag == kRegionTag) {
        (*rgn)->rgnTag = 0;
        if ((*rgn)->rgnNative)
            DeleteObject((*rgn)->rgnNative);
    }
    DisposeHandle(handle);
}

void CalcRgnBox(RgnHandle rgn)
{
    if (!rgn || !*rgn)
        return;
    RECT box{};
    GetRgnBox((*rgn)->rgnNative, &box);
    (*rgn)->rgnBBox = {static_cast<SInt16>(box.top), static_cast<SInt16>(box.left), static_cast<SInt16>(box.bottom),
                       static_cast<SInt16>(box.right)};
    (*rgn)->rgnSize = 10;
}

void replaceNativeRegion(RgnHandle rgn, HRGN region)
{
    HRGN old = region;
    if (*rgn) {
        old = (*rgn)->rgnNative;
        (*rgn)->rgnNative = region;
    }
    if (old)
        DeleteObject(old);
    CalcRgnBox(rgn);
}

void GetRegionBounds(RgnHandle rgn, Rect *bounds)
{
    *bounds = rgn && *rgn ? (*rgn)->rgnBBox : Rect{};
}

void MacCopyRgn(RgnHandle source, RgnHandle destination)
{
    if (source == destination)
        return;
    if (CombineRgn(nativeRegion(destination), nativeRegion(source), nullptr, RGN_COPY) == ERROR)
        SetRectRgn(nativeRegion(destination), 0, 0, 0, 0);
    CalcRgnBox(destination);
}

void RectRgn(RgnHandle rgn, const Rect *rect)
{
    SetRectRgn(nativeRegion(rgn), rect->left, rect->top, rect->right, rect->bottom);
    CalcRgnBox(rgn);
}

void MacSetRectRgn(RgnHandle rgn, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom)
{
    Rect rect = {top, left, bottom, right};
    RectRgn(rgn, &rect);
}

void SetEmptyRgn(RgnHandle rgn)
{
    Rect nothing{};
    RectRgn(rgn, &nothing);
}

void SectRgn(RgnHandle a, RgnHandle b, RgnHandle result)
{
    combine(a, b, result, RGN_AND);
}

void MacUnionRgn(RgnHandle a, RgnHandle b, RgnHandle result)
{
    combine(a, b, result, RGN_OR);
}

void DiffRgn(RgnHandle a, RgnHandle b, RgnHandle result)
{
    combine(a, b, result, RGN_DIFF);
}

void MacXorRgn(RgnHandle a, RgnHandle b, RgnHandle result)
{
    ScratchNativeRegion either(MTBX_CreateRectRgn(0, 0, 0, 0));
    ScratchNativeRegion both(MTBX_CreateRectRgn(0, 0, 0, 0));
    if (!either || !both)
        return;
    CombineRgn(either, nativeRegion(a), nativeRegion(b), RGN_OR);
    CombineRgn(both, nativeRegion(a), nativeRegion(b), RGN_AND);
    CombineRgn(nativeRegion(result), either, both, RGN_DIFF);
    CalcRgnBox(result);
}

Boolean PtInRgn(Point point, RgnHandle rgn)
{
    return PtInRegion(nativeRegion(rgn), point.h, point.v) != FALSE;
}

Boolean RectInRgn(const Rect *rect, RgnHandle rgn)
{
    // A region made of a rectangle takes its sides in either order.
    auto [left, right] = std::minmax(rect->left, rect->right);
    auto [top, bottom] = std::minmax(rect->top, rect->bottom);
    RECT area = {left, top, right, bottom};
    return left < right && top < bottom && RectInRegion(nativeRegion(rgn), &area);
}

Boolean MacEqualRgn(RgnHandle a, RgnHandle b)
{
    return EqualRgn(nativeRegion(a), nativeRegion(b)) != FALSE;
}

Boolean EmptyRgn(RgnHandle rgn)
{
    if (!rgn || !*rgn || (*rgn)->rgnSize == 0)
        return true;
    const Rect &box = (*rgn)->rgnBBox;
    return box.left == box.right && box.top == box.bottom;
}
