// The set bits of a bitmap as a region: each run of bits in a row is one rectangle, a pixel high.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"
#include "ScanBuffer.h"

#include <mtbx/MacErrors.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

struct BitRows {
    const UInt8 *base;
    SInt32 rowBytes;
    SInt32 visitedBytes; // of each row; the last one counts whole
    SInt32 height;
};

SInt16 widthOf(const BitMap &bitmap)
{
    return static_cast<SInt16>(bitmap.bounds.right - bitmap.bounds.left);
}

SInt16 heightOf(const BitMap &bitmap)
{
    return static_cast<SInt16>(bitmap.bounds.bottom - bitmap.bounds.top);
}

SInt32 rowBytesOf(const BitMap &bitmap)
{
    return bitmap.rowBytes & 0x3FFF;
}

// The depth shows in the bytes that a row takes for its pixels: a field for it is in PixMaps only.
bool isDeep(const BitMap &bitmap)
{
    SInt32 rowBytes = rowBytesOf(bitmap), width = widthOf(bitmap);
    if (rowBytes == 4 && width <= 16)
        return false;
    return rowBytes == (width + 3) / 4 || rowBytes == (width + 1) / 2 || rowBytes == width;
}

// Of a PixMap the native bitmap tells where its memory ends, whatever the host has written into the record.
SInt64 countRowsThere(const BitMap &bitmap)
{
    constexpr UInt16 kindBits = 0xC000, pixMapKind = 0x8000;
    constexpr SInt64 unknown = 32767;
    BITMAP native;
    bool isPixMap = (static_cast<UInt16>(bitmap.rowBytes) & kindBits) == pixMapKind && rowBytesOf(bitmap) != 0;
    HBITMAP pixels = isPixMap ? reinterpret_cast<const PixMap &>(bitmap).pmBitmap : nullptr;
    if (!pixels || !GetObjectA(pixels, sizeof native, &native))
        return unknown;
    return SInt64{native.bmWidthBytes} * native.bmHeight / rowBytesOf(bitmap);
}

BitRows rowsOf(const BitMap &bitmap)
{
    SInt32 rowBytes = rowBytesOf(bitmap), width = std::max<SInt32>(widthOf(bitmap), 0);
    SInt64 height = std::clamp<SInt64>(heightOf(bitmap), 0, countRowsThere(bitmap));
    return {reinterpret_cast<const UInt8 *>(bitmap.baseAddr), rowBytes, std::min(rowBytes, (width + 7) / 8),
            static_cast<SInt32>(height)};
}

// Up to 64 pixels, the first in the highest bit; what the row does not have is clear.
UInt64 pixelsAt(const UInt8 *place, SInt32 byteCount)
{
    static_assert(std::endian::native == std::endian::little);
    UInt64 pixels = 0;
    if (byteCount >= 8)
        memcpy(&pixels, place, 8);
    else
        memcpy(&pixels, place, static_cast<size_t>(byteCount));
    return __builtin_bswap64(pixels);
}

// Gives visit(x, starts, ends) for each 64 pixels of a row: the pixels from x on where a run begins,
// and those just behind a run. A run that reaches the end of the row has no end.
template <class Visit> inline void visitRuns(const UInt8 *row, SInt32 byteCount, Visit visit)
{
    UInt64 lastPixel = 0; // of the 64 before, in the highest bit
    for (SInt32 i = 0; i < byteCount; i += 8) {
        UInt64 pixels = pixelsAt(row + i, byteCount - i);
        UInt64 previous = pixels >> 1 | lastPixel;
        visit(i * 8, pixels & ~previous, previous & ~pixels);
        lastPixel = pixels << 63;
    }
}

// The place of the first pixel in the set, which is taken out of it.
SInt32 takeFirst(UInt64 &pixels)
{
    int place = std::countl_zero(pixels);
    pixels &= ~(UInt64{1} << 63 >> place);
    return place;
}

SInt64 countRuns(const BitRows &rows)
{
    SInt64 count = 0;
    if (!rows.base)
        return count;
    const UInt8 *row = rows.base;
    for (SInt32 y = 0; y < rows.height; ++y, row += rows.rowBytes)
        visitRuns(row, rows.visitedBytes, [&](SInt32, UInt64 starts, UInt64) { count += std::popcount(starts); });
    return count;
}

// Writes the rectangles of a row and gives the place behind them.
RECT *scanRow(const UInt8 *row, SInt32 byteCount, SInt32 y, RECT *next)
{
    RECT *unfinished = next;
    visitRuns(row, byteCount, [&](SInt32 x, UInt64 starts, UInt64 ends) {
        while (starts)
            *next++ = {x + takeFirst(starts), y, 0, y + 1};
        while (ends)
            unfinished++->right = x + takeFirst(ends);
    });
    if (unfinished != next)
        unfinished->right = byteCount * 8;
    return next;
}

// In the coordinates of the bitmap's top left. The buffer receives what ExtCreateRegion wants.
HRGN scan(const BitRows &rows, const Rect &bounds, Handle buffer)
{
    auto data = reinterpret_cast<RGNDATA *>(*buffer);
    auto first = reinterpret_cast<RECT *>(data->Buffer), next = first;
    const UInt8 *row = rows.base;
    for (SInt32 y = 0; y < rows.height; ++y, row += rows.rowBytes)
        next = scanRow(row, rows.visitedBytes, y, next);
    auto count = static_cast<DWORD>(next - first);
    DWORD byteCount = count * static_cast<DWORD>(sizeof(RECT));
    data->rdh = {sizeof(RGNDATAHEADER),
                 RDH_RECTANGLES,
                 count,
                 byteCount,
                 {bounds.left, bounds.top, bounds.right, bounds.bottom}};
    return MTBX_ExtCreateRegion(nullptr, static_cast<DWORD>(sizeof(RGNDATAHEADER)) + byteCount, data);
}

// Room for all runs. The host may draw when it is asked for memory, so the runs are counted again then.
bool reserve(ScanBuffer &buffer, const BitRows &rows)
{
    SInt64 runCount = countRuns(rows);
    while (buffer.isTooSmallFor(runCount)) {
        if (!buffer.growFor(runCount))
            return false;
        runCount = countRuns(rows);
    }
    return true;
}

} // namespace

OSErr BitMapToRegion(RgnHandle rgn, const BitMap *bitmap)
{
    if (!rgn) {
        MTBX_ReleaseScanBuffer();
        return noErr;
    }
    if (isDeep(*bitmap))
        return pixmapTooDeepErr;
    BitRows rows = rowsOf(*bitmap);
    GdiFlush(); // drawing into the bitmap may be pending
    ScanBuffer buffer;
    if (!reserve(buffer, rows))
        return memFullErr;
    if (!rows.base)
        return noErr;
    HRGN region = scan(rows, bitmap->bounds, buffer.handle());
    if (!region)
        return rgnTooBigErr;
    replaceNativeRegion(rgn, region);
    MacOffsetRgn(rgn, bitmap->bounds.left, bitmap->bounds.top);
    return noErr;
}
