// Making the bitmaps of worlds within the memory budget, and the formats that they get.
#include "WorldBitmaps_internal.h"

#include "CopySettings_internal.h"
#include "Memory/Memory_internal.h"
#include "Quickdraw/GdiGuard_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

// Above 0, deep bitmaps are for hosts that put alpha first.
SInt16 forcedBitfields;

struct Description {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256]; // or three masks
};

constexpr UInt32 masksOf32Bits[4] = {0x0000FF00, 0x00FF0000, 0xFF000000, 0x000000FF};
constexpr UInt32 masksOf16Bits[4] = {0x000000F0, 0x00000F00, 0x0000F000, 0x0000000F};

const UInt32 *masksOfDepth(SInt16 depth)
{
    return depth == 32 ? masksOf32Bits : depth == 16 ? masksOf16Bits : nullptr;
}

RGBQUAD entryOf(COLORREF color)
{
    return {GetBValue(color), GetGValue(color), GetRValue(color), 0};
}

constexpr int systemColorCount = 20;

// As they were when the first world with a colour table was made.
const RGBQUAD *systemColors()
{
    static const struct Table {
        Table()
        {
            for (int i = 0; i < systemColorCount; ++i)
                entries[i] = entryOf(GetSysColor(i));
        }
        RGBQUAD entries[systemColorCount];
    } table;
    return table.entries;
}

void describeColors(HDC context, SInt16 depth, Description &description)
{
    if (depth == 1)
        description.colors[1] = entryOf(GetBkColor(context));
    else
        std::copy_n(systemColors(), std::min(1 << depth, systemColorCount), description.colors);
}

// In the plain order of GDI unless the display takes masks; the PixMap may say otherwise of it.
void describeMasks(SInt16 depth, Description &description, PixMap &map)
{
    map.pmFormat = kPixelFormatNative;
    const UInt32 *masks = masksOfDepth(depth);
    if (!masks)
        return;
    memcpy(map.pmMasks, masks, sizeof map.pmMasks);
    if (copySettings.useBitfieldsIfPossible || forcedBitfields > 0)
        map.pmFormat = kPixelFormatMasks;
    if (!copySettings.useBitfieldsIfPossible)
        return;
    description.header.biCompression = BI_BITFIELDS;
    memcpy(description.colors, masks, 3 * sizeof *masks);
}

Description describe(HDC context, SInt16 width, SInt16 height, SInt16 depth, PixMap &map)
{
    Description description = {};
    description.header.biSize = sizeof description.header;
    description.header.biWidth = width;
    description.header.biHeight = -std::abs(height);
    description.header.biPlanes = 1;
    description.header.biBitCount = static_cast<WORD>(depth);
    if (depth > 8) {
        describeMasks(depth, description, map);
    } else {
        map.pmFormat = kPixelFormatIndexed;
        describeColors(context, depth, description);
    }
    return description;
}

SInt64 estimatedSize(const Description &description)
{
    constexpr SInt64 headerSize = 52;
    SInt64 bits = SInt64{description.header.biBitCount} * description.header.biWidth;
    return ((bits / 8 + 4) & ~SInt64{3}) * std::abs(description.header.biHeight) + headerSize;
}

HBITMAP tryToCreate(HDC context, const Description &description, PixMap &map)
{
    const BITMAPINFOHEADER &header = description.header;
    if (header.biBitCount == 1 && !gCreate_DIB_B) {
        map.baseAddr = nullptr;
        return MTBX_CreateBitmap(header.biWidth, std::abs(header.biHeight), 1, 1, nullptr);
    }
    void *pixels = nullptr;
    HBITMAP bitmap = MTBX_CreateDIBSection(context, reinterpret_cast<const BITMAPINFO *>(&description), DIB_RGB_COLORS,
                                           &pixels, nullptr, 0);
    map.baseAddr = bitmap ? static_cast<Ptr>(pixels) : nullptr;
    return bitmap;
}

HBITMAP createWithinBudget(HDC context, const Description &description, PixMap &map)
{
    SInt64 size = estimatedSize(description);
    constexpr SInt64 spare = 8192;
    if (size > std::numeric_limits<SInt32>::max() - spare || !MTBX_PrePurgeForAllocation(static_cast<SInt32>(size)))
        return nullptr;
    if (HBITMAP bitmap = tryToCreate(context, description, map))
        return bitmap;
    MTBX_PurgeForOSBlock(static_cast<UInt64>(size + spare));
    return tryToCreate(context, description, map);
}

SInt32 accountedSize(HBITMAP bitmap)
{
    BITMAP description = {};
    if (!GetObjectA(bitmap, sizeof description, &description))
        return 0;
    LONG tail = description.bmBitsPixel > 8 ? 12 : 4 << description.bmBitsPixel;
    return description.bmWidthBytes * description.bmHeight + 40 + tail;
}

} // namespace

void MTBX_ForceBitmapCreationBitfields(Boolean force)
{
    forcedBitfields = static_cast<SInt16>(forcedBitfields + (force ? 1 : -1));
}

bool isWorldDepth(SInt16 depth)
{
    return depth > 0 && depth <= 32 && (depth % 8 == 0 || depth == 1 || depth == 4);
}

HBITMAP createWorldBitmap(HDC context, SInt16 width, SInt16 height, SInt16 depth, PixMap &map)
{
    map.baseAddr = nullptr;
    // No purging would help these.
    if (width <= 0 || height <= 0 || !isWorldDepth(depth))
        return nullptr;
    Description description = describe(context, width, height, depth, map);
    HBITMAP bitmap = createWithinBudget(context, description, map);
    if (bitmap)
        MTBX_AccountGlobalMemoryAllocation(accountedSize(bitmap));
    return bitmap;
}

void deleteWorldBitmap(HBITMAP bitmap)
{
    MTBX_AccountGlobalMemoryAllocation(-accountedSize(bitmap));
    DeleteObject(bitmap);
}
