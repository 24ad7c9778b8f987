// Changing the format of pixels: the bytes of deep ones, the colour table of the others.
#include "PixelFormats_internal.h"

#include "PixelRows_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/MacErrors.h>

#include <cstring>

namespace {

// The places of red, green, blue and alpha among the four bytes of a colour.
struct BytePlaces {
    explicit BytePlaces(const ChannelMasks &masks)
    {
        for (int channel = 0; channel < 4; ++channel)
            of[channel] = placeOf(masks[channel]);
    }
    int of[4];

private:
    static int placeOf(UInt32 mask)
    {
        int place = 0;
        while (place < 3 && (mask >> 8 * place & 0xFF) == 0)
            ++place;
        return place;
    }
};

RGBQUAD permuted(const RGBQUAD &entry, const BytePlaces &present, const BytePlaces &target)
{
    UInt8 from[4], to[4] = {};
    memcpy(from, &entry, sizeof from);
    for (int channel = 0; channel < 4; ++channel)
        to[target.of[channel]] = from[present.of[channel]];
    RGBQUAD result;
    memcpy(&result, to, sizeof result);
    return result;
}

void permuteColorTable(const PixMap &map, const ChannelMasks &present, const ChannelMasks &target)
{
    if (!map.pmDC || map.pixelSize < 1)
        return;
    HGDIOBJ former = SelectObject(map.pmDC, map.pmBitmap);
    RGBQUAD table[256];
    UINT count = GetDIBColorTable(map.pmDC, 0, 1U << map.pixelSize, table);
    BytePlaces from(present), to(target);
    for (UINT i = 0; i < count; ++i)
        table[i] = permuted(table[i], from, to);
    SetDIBColorTable(map.pmDC, 0, count, table);
    if (former)
        SelectObject(map.pmDC, former);
}

bool setIndexedFormat(PixMap &map, SInt32 format, const UInt32 *masks)
{
    bool toCustom = map.pmFormat == kPixelFormatIndexed && format == kPixelFormatCustom;
    bool fromCustom = map.pmFormat == kPixelFormatCustom && format == kPixelFormatIndexed;
    if (!toCustom && !fromCustom)
        return true;
    if (!masks)
        return false;
    ChannelMasks target = readMasks(masks);
    permuteColorTable(map, toCustom ? kNativeMasks : readMasks(map.pmMasks), target);
    setFormat(map, format, target);
    return true;
}

// False for pixels that are not 32 bits.
bool reverseAll(const PixMap &map)
{
    PixelRows rows;
    if (map.pixelSize != 32)
        return false;
    if (!readPixelRows(map, rows))
        return true;
    if (rows.depth != 32)
        return false;
    GdiFlush();
    MTBX_ConvertBitsFast(rows.base, rows.height, rows.width, rows.rowBytes);
    return true;
}

bool setDirectFormat(PixMap &map, SInt32 format, const UInt32 *masks)
{
    if (format != kPixelFormatNative && !masks)
        return false;
    ChannelMasks target = format == kPixelFormatNative ? kNativeMasks : readMasks(masks);
    if (haveSameColors(masksOf(map), target))
        return true;
    if (!reverseAll(map))
        return false;
    setFormat(map, format, target);
    return true;
}

PixMapPtr pixMapOfWorld(GWorldPtr world)
{
    return world ? pixMapOf(*world) : nullptr;
}

} // namespace

Boolean MTBX_SetDirectPixmapFormat(SInt32 format, PixMap *pixMap, const UInt32 *masks)
{
    return pixMap->pixelSize <= 8 ? setIndexedFormat(*pixMap, format, masks) : setDirectFormat(*pixMap, format, masks);
}

OSErr MTBX_GetGWorld32PixmapFormat(GWorldPtr world, SInt32 *format)
{
    *format = -1;
    PixMapPtr map = pixMapOfWorld(world);
    if (!map)
        return paramErr;
    if (map->pmFormat == kPixelFormatNative)
        *format = kGWorld32BlueFirst;
    else if (map->pmFormat == kPixelFormatMasks)
        *format = kGWorld32AlphaFirst;
    return noErr;
}

OSErr MTBX_AssumeGWorld32PixmapFormat(GWorldPtr world, SInt32 format)
{
    PixMapPtr map = pixMapOfWorld(world);
    if (!map)
        return paramErr;
    if (format == kGWorld32AlphaFirst)
        map->pmFormat = kPixelFormatMasks;
    else if (format == kGWorld32BlueFirst)
        map->pmFormat = kPixelFormatNative;
    return noErr;
}

OSErr MTBX_SetGWorld32PixmapFormat(GWorldPtr world, SInt32 format)
{
    SInt32 present;
    OSErr error = MTBX_GetGWorld32PixmapFormat(world, &present);
    if (error != noErr || present == format)
        return error;
    bool isKnown = format == kGWorld32AlphaFirst || format == kGWorld32BlueFirst;
    if (!isKnown || !reverseAll(*pixMapOfWorld(world)))
        return paramErr;
    return MTBX_AssumeGWorld32PixmapFormat(world, format);
}
