// Icons.
#include "Resources/Resources_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>
#include <mtbx/Pictures.h>

#include <cstring>

namespace {

constexpr ResType icons = 0x49434F4E; // 'ICON'

#pragma pack(push, 2)
// Behind the bits.
struct IconTrailer {
    SInt16 id;
    ResType type;
    SInt32 dataSize;
};
#pragma pack(pop)
static_assert(sizeof(IconTrailer) == 10);

// Null when memory is short or the bitmap is none.
Handle iconOf(HBITMAP bitmap, SInt16 id)
{
    BITMAP description = {};
    if (!GetObjectA(bitmap, sizeof description, &description))
        return nullptr;
    Size dataSize = (description.bmWidth + 15) / 16 * description.bmHeight * 2;
    Handle icon = NewHandleClear(dataSize + Size{sizeof(IconTrailer)});
    if (!icon)
        return nullptr;
    GetBitmapBits(bitmap, dataSize, *icon);
    IconTrailer trailer = {id, icons, dataSize};
    memcpy(*icon + dataSize, &trailer, sizeof trailer);
    return icon;
}

} // namespace

Handle GetIcon(SInt16 iconID)
{
    if (Handle icon = GetResource(icons, iconID))
        return icon;
    HBITMAP bitmap = LoadBitmapA(hResInst, MAKEINTRESOURCEA(static_cast<WORD>(iconID)));
    if (!bitmap)
        return nullptr;
    Handle icon = iconOf(bitmap, iconID);
    DeleteObject(bitmap);
    // What the chain does not take would be nobody's.
    if (icon && MTBX_AddAppResourceEntry(icons, iconID, icon) != noErr) {
        DisposeHandle(icon);
        return nullptr;
    }
    return icon;
}

CIconHandle GetCIcon(SInt16)
{
    return nullptr;
}

void PlotCIcon(const Rect *, CIconHandle)
{
}

void DisposeCIcon(CIconHandle)
{
}
