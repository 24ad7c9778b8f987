// Telling images apart by the two marks in the word of their row bytes.
#include "CopyImages_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

#include <cstddef>

namespace {

enum : UInt16 { kindBits = 0xC000, pixMapKind = 0x8000, portKind = 0xC000 };

UInt16 kindOf(const BitMap &image)
{
    return static_cast<UInt16>(image.rowBytes) & kindBits;
}

// The image is the part of a port that begins with its PixMap.
GrafPtr portOf(const BitMap &image)
{
    auto place = reinterpret_cast<uintptr_t>(&image) - offsetof(GrafPort, portPixMap);
    return reinterpret_cast<GrafPtr>(place);
}

} // namespace

bool isPlainBitmap(const BitMap &image)
{
    return kindOf(image) != pixMapKind && kindOf(image) != portKind;
}

CopySide sideOf(const BitMap &image)
{
    if (kindOf(image) == portKind) {
        GrafPtr port = portOf(image);
        PixMapPtr map = pixMapOf(*port);
        return map ? CopySide{map, port, {0, 0}} : CopySide{};
    }
    if (kindOf(image) != pixMapKind)
        return {};
    auto map = reinterpret_cast<PixMapPtr>(const_cast<BitMap *>(&image));
    return {map, nullptr, {map->bounds.top, map->bounds.left}};
}

POINT contextPosition(const CopySide &side, SInt16 h, SInt16 v)
{
    return {h - side.origin.h, v - side.origin.v};
}

POINT contextOrigin(HDC context)
{
    POINT origin = {};
    GetWindowOrgEx(context, &origin);
    return origin;
}
