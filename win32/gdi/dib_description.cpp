#include "dib_description.h"

#include "kernel/kernel_internal.h"

#include <cstring>

namespace win32::gdi {
namespace {

DWORD sizeOf(const BITMAPINFO *info)
{
    DWORD size;
    memcpy(&size, info, sizeof size);
    return size;
}

bool isCore(const BITMAPINFO *info)
{
    return sizeOf(info) == sizeof(BITMAPCOREHEADER);
}

// Writes a header in the caller's form and size.
void writeHeader(const BITMAPINFOHEADER &header, BITMAPINFO *info)
{
    DWORD size = sizeOf(info);
    if (isCore(info)) {
        BITMAPCOREHEADER core{size, static_cast<WORD>(header.biWidth), static_cast<WORD>(header.biHeight),
                              header.biPlanes, header.biBitCount};
        memcpy(info, &core, sizeof core);
        return;
    }
    BITMAPINFOHEADER written = header;
    written.biSize = size;
    memcpy(info, &written, sizeof written);
}

void writeColors(const ColorTable &colors, UINT usage, BITMAPINFO *info)
{
    uint8_t *next = reinterpret_cast<uint8_t *>(info) + sizeOf(info);
    size_t entrySize = usage == DIB_PAL_COLORS ? sizeof(WORD) : isCore(info) ? sizeof(RGBTRIPLE) : sizeof(RGBQUAD);
    for (int index = 0; index < colors.count; ++index, next += entrySize) {
        auto number = static_cast<WORD>(index);
        RGBQUAD color = colors.colors[index];
        color.rgbReserved = 0;
        memcpy(next, usage == DIB_PAL_COLORS ? static_cast<const void *>(&number) : &color, entrySize);
    }
}

// The old header has its masks behind it, the newer ones at the same place inside.
void writeMasks(const PixelFormat &format, BITMAPINFO *info)
{
    DWORD masks[] = {format.redMask, format.greenMask, format.blueMask};
    memcpy(reinterpret_cast<uint8_t *>(info) + sizeof(BITMAPINFOHEADER), masks, sizeof masks);
}

} // namespace

bool asksForDescription(const BITMAPINFO *info)
{
    WORD bitCount;
    size_t offset = isCore(info) ? offsetof(BITMAPCOREHEADER, bcBitCount) : offsetof(BITMAPINFOHEADER, biBitCount);
    memcpy(&bitCount, reinterpret_cast<const uint8_t *>(info) + offset, sizeof bitCount);
    return bitCount == 0;
}

bool describeBitmap(const Bitmap &bitmap, BITMAPINFO *info)
{
    if (!isCore(info) && !isInfoHeaderSize(sizeOf(info)))
        return fail(ERROR_INVALID_PARAMETER, false);
    const Surface &surface = bitmap.surface;
    int depth = surface.format.bitsPerPixel;
    bool hasMasks = surface.format.layout == PixelLayout::Direct16 || surface.format.layout == PixelLayout::Direct32;
    BITMAPINFOHEADER header{};
    header.biWidth = surface.width;
    header.biHeight = surface.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(depth);
    header.biCompression = hasMasks ? BI_BITFIELDS : BI_RGB;
    header.biSizeImage = static_cast<DWORD>(dibStride(surface.width, depth) * surface.height);
    writeHeader(header, info);
    return true;
}

void describeDib(const Dib &dib, UINT usage, BITMAPINFO *info)
{
    if (!isCore(info))
        writeHeader(dib.header, info);
    if (dib.format.isIndexed())
        writeColors(dib.colors, usage, info);
    else if (dib.header.biCompression == BI_BITFIELDS)
        writeMasks(dib.format, info);
}

} // namespace win32::gdi
