// In place of BitmapPictures.cpp where Win32 has no bitmaps yet: no module has one.
#include "BitmapPictures.h"

namespace resources {

HBITMAP loadModuleBitmap(HMODULE, SInt16)
{
    return nullptr;
}

OSErr describeBitmap(HBITMAP, BitmapPicture &)
{
    return noErr;
}

void deleteBitmap(HBITMAP)
{
}

void deleteBitmapOf(Handle)
{
}

} // namespace resources
