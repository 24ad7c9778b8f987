// Win32 bitmaps of a module that stand in for pictures. The resource is a record that names the bitmap.
#pragma once

#include <mtbx/MacTypes.h>

namespace resources {

#pragma pack(push, 2)
// Win32 keeps handles of bitmaps within 32 bits on every platform, so the record has one size.
struct BitmapPicture {
    SInt16 size;
    Rect frame;
    SInt32 bitmap;
};
#pragma pack(pop)
static_assert(sizeof(BitmapPicture) == 14);

// The name of such a resource, by which it is recognised.
constexpr char bitmapPictureName[] = "_BTMP_";

// The bitmap of a module, the caller's from then on; null when there is none.
HBITMAP loadModuleBitmap(HMODULE module, SInt16 id);

// Fills in the record. When the bitmap's size cannot be told the frame is empty, and the result is the error.
OSErr describeBitmap(HBITMAP bitmap, BitmapPicture &picture);

void deleteBitmap(HBITMAP bitmap);
// Deletes the bitmap that a record names, if any.
void deleteBitmapOf(Handle h);

} // namespace resources
