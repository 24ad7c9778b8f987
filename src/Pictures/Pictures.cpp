// Drawing of pictures: packed bitmaps, and records that name a Win32 bitmap.
#include "Quickdraw/Quickdraw_internal.h"
#include "Quickdraw/GdiGuard_internal.h"
#include "Resources/BitmapPictures.h"

#include <mtbx/MTBXGdi.h>
#include <mtbx/MacMemory.h>
#include <mtbx/Pictures.h>
#include <mtbx/Resources.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The header and colour table of a packed bitmap, copied to where they are aligned, and its bits.
struct PackedBitmap {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
    const char *bits;
    Size bitsSize;
};

constexpr Size headerPlace = sizeof(Picture);

SInt32 fieldBehindFrame(PicHandle picture)
{
    SInt32 field = 0;
    if (GetHandleSize(reinterpret_cast<Handle>(picture)) >= headerPlace + Size{sizeof field})
        memcpy(&field, reinterpret_cast<const char *>(*picture) + headerPlace, sizeof field);
    return field;
}

bool isDepth(WORD bits)
{
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

// The bytes that the bits take at least; 0 for a header that is none.
SInt64 neededBytes(const BITMAPINFOHEADER &header)
{
    constexpr LONG largest = 32767;
    SInt64 height = std::abs(SInt64{header.biHeight});
    if (header.biWidth <= 0 || header.biWidth > largest || height == 0 || height > largest || !isDepth(header.biBitCount))
        return 0;
    bool isRunLength = header.biCompression == BI_RLE4 || header.biCompression == BI_RLE8;
    if (isRunLength)
        return header.biSizeImage;
    if (header.biCompression != BI_RGB && header.biCompression != BI_BITFIELDS)
        return 0;
    return (SInt64{header.biWidth} * header.biBitCount + 31) / 32 * 4 * height;
}

UInt32 colorCount(const BITMAPINFOHEADER &header)
{
    return header.biBitCount < 9 ? UInt32{1} << header.biBitCount : 0;
}

// False when the picture is none, or is cut short.
bool unpack(PicHandle picture, PackedBitmap &bitmap)
{
    Size size = GetHandleSize(reinterpret_cast<Handle>(picture)) - headerPlace;
    const char *data = reinterpret_cast<const char *>(*picture) + headerPlace;
    if (size < static_cast<Size>(sizeof bitmap.header))
        return false;
    memcpy(&bitmap.header, data, sizeof bitmap.header);
    if (bitmap.header.biSize != sizeof bitmap.header)
        return false;
    SInt64 needed = neededBytes(bitmap.header);
    UInt32 count = colorCount(bitmap.header);
    auto bitsPlace = static_cast<Size>(sizeof bitmap.header + count * sizeof(RGBQUAD));
    if (needed == 0 || size - bitsPlace < needed || (count && bitmap.header.biClrUsed > count))
        return false;
    // The masks of a bitmap with fields lie where the bits begin.
    memcpy(bitmap.colors, data + sizeof bitmap.header,
           std::min<size_t>(count ? count * sizeof(RGBQUAD) : 3 * sizeof(RGBQUAD), static_cast<size_t>(size) - sizeof bitmap.header));
    bitmap.bits = data + bitsPlace;
    bitmap.bitsSize = size - bitsPlace;
    return true;
}

// Colours of a one-bit bitmap are the port's; the resource keeps them.
void colorByPort(PicHandle picture, PackedBitmap &bitmap, HDC context)
{
    COLORREF back = GetBkColor(context);
    bitmap.colors[0] = {GetBValue(back), GetGValue(back), GetRValue(back), 0};
    bitmap.colors[1] = {0, 0, 0, 0};
    bitmap.header.biClrUsed = bitmap.header.biClrImportant = 2;
    char *data = reinterpret_cast<char *>(*picture) + headerPlace;
    memcpy(data, &bitmap.header, sizeof bitmap.header);
    memcpy(data + sizeof bitmap.header, bitmap.colors, 2 * sizeof(RGBQUAD));
}

void drawPacked(PicHandle picture, const Rect &rect, HDC context)
{
    PackedBitmap bitmap = {};
    if (!unpack(picture, bitmap))
        return;
    if (bitmap.header.biBitCount == 1)
        colorByPort(picture, bitmap, context);
    auto width = static_cast<DWORD>(bitmap.header.biWidth);
    auto height = static_cast<DWORD>(std::abs(SInt64{bitmap.header.biHeight}));
    SetDIBitsToDevice(context, rect.left, rect.top, width, height, 0, 0, 0, height, bitmap.bits,
                      reinterpret_cast<const BITMAPINFO *>(&bitmap.header), DIB_RGB_COLORS);
}

void drawBitmap(PicHandle picture, const Rect &rect, HDC context)
{
    auto bitmap = reinterpret_cast<HBITMAP>(static_cast<intptr_t>(fieldBehindFrame(picture)));
    HDC memory = MTBX_CreateCompatibleDC(context);
    if (!memory)
        return;
    if (HGDIOBJ former = SelectObject(memory, bitmap)) {
        BitBlt(context, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, memory, 0, 0, SRCCOPY);
        SelectObject(memory, former);
    }
    DeleteDC(memory);
}

bool namesBitmap(PicHandle picture)
{
    Str255 name = {};
    GetResInfo(reinterpret_cast<Handle>(picture), nullptr, nullptr, name);
    constexpr size_t length = sizeof resources::bitmapPictureName - 1;
    return name[0] == length && memcmp(name + 1, resources::bitmapPictureName, length) == 0;
}

} // namespace

PicHandle GetPicture(SInt16 pictureID)
{
    constexpr ResType pictures = 0x50494354; // 'PICT'
    return reinterpret_cast<PicHandle>(GetResource(pictures, pictureID));
}

void DrawPicture(PicHandle myPicture, const Rect *dstRect)
{
    HDC context = currentContext();
    if (!myPicture || !*myPicture || !context)
        return;
    if (namesBitmap(myPicture))
        drawBitmap(myPicture, *dstRect, context);
    else
        drawPacked(myPicture, *dstRect, context);
}

PicHandle OpenPicture(const Rect *)
{
    return nullptr;
}

void ClosePicture()
{
}

void KillPicture(PicHandle myPicture)
{
    SInt32 field = myPicture && *myPicture ? fieldBehindFrame(myPicture) : 0;
    if (field == 0)
        return;
    // In a packed bitmap the field is the size of the header.
    if (field != sizeof(BITMAPINFOHEADER))
        DeleteObject(reinterpret_cast<HGDIOBJ>(static_cast<intptr_t>(field)));
    memset(reinterpret_cast<char *>(*myPicture) + headerPlace, 0, sizeof field);
    ReleaseResource(reinterpret_cast<Handle>(myPicture));
}

Rect *QDGetPictureBounds(PicHandle picture, Rect *outRect)
{
    *outRect = (*picture)->picFrame;
    return outRect;
}

OSErr GetPictInfo(PicHandle thePictHandle, PictInfo *thePictInfo, SInt16, SInt16, SInt16, SInt16)
{
    *thePictInfo = {};
    thePictInfo->sourceRect = (*thePictHandle)->picFrame;
    return noErr;
}
