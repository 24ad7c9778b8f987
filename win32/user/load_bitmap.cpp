// Bitmap resources: packed DIBs.
#include "gdi/bitmap.h"

HBITMAP LoadBitmapA(HINSTANCE module, LPCSTR name)
{
    HRSRC resource = FindResourceA(module, name, RT_BITMAP);
    if (!resource)
        return nullptr;
    return win32::gdi::createFromPackedDib(LockResource(LoadResource(module, resource)),
                                           SizeofResource(module, resource));
}
