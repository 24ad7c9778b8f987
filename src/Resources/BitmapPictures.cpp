#include "BitmapPictures.h"

#include <mtbx/MacErrors.h>
#include <mtbx/MacMemory.h>

#include <cstring>

namespace resources {

HBITMAP loadModuleBitmap(HMODULE module, SInt16 id)
{
    return LoadBitmapA(module, MAKEINTRESOURCEA(static_cast<UInt16>(id)));
}

OSErr describeBitmap(HBITMAP bitmap, BitmapPicture &picture)
{
    picture = {sizeof picture, {}, static_cast<SInt32>(reinterpret_cast<INT_PTR>(bitmap))};
    BITMAP description;
    if (!GetObjectA(bitmap, sizeof description, &description))
        return static_cast<OSErr>(MTBX_GetLastError());
    picture.frame.bottom = static_cast<SInt16>(description.bmHeight);
    picture.frame.right = static_cast<SInt16>(description.bmWidth);
    return noErr;
}

void deleteBitmap(HBITMAP bitmap)
{
    DeleteObject(bitmap);
}

void deleteBitmapOf(Handle h)
{
    BitmapPicture picture;
    if (GetHandleSize(h) < static_cast<Size>(sizeof picture))
        return;
    memcpy(&picture, *h, sizeof picture);
    if (picture.bitmap != 0)
        deleteBitmap(reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(picture.bitmap)));
}

} // namespace resources
