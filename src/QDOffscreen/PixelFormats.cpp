// Changing the format of pixels: the bytes of deep ones, the colour table of the others.
#include "PixelFormats_internal.h"

#include "Quickdraw/Quickdraw_internal.h"
#include "Quickdraw/RowBytes_internal.h"

#include <mtbx/MacErrors.h>

#include <cstdlib>
#include <cstring>

namespace {

// The places of red, green, blue and alpha among the four bytes of a colour.
struct BytePlaces {
    explicit BytePlaces(const UInt32 *masks)
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

void permuteColorTable(const PixMap &map, const UInt32 *present, const UInt32 *target)
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

void setMasks(PixMap &map, SInt32 format, const UInt32 *masks)
{
    memmove(map.pmMasks, masks, sizeof map.pmMasks); // they may be its own
    map.pmFormat = format;
}

bool setIndexedFormat(PixMap &map, SInt32 format, const UInt32 *masks)
{
    bool toCustom = map.pmFormat == kPixelFormatIndexed && format == kPixelFormatCustom;
    bool fromCustom = map.pmFormat == kPixelFormatCustom && format == kPixelFormatIndexed;
    if (!toCustom && !fromCustom)
        return true;
    if (!masks)
        return false;
    permuteColorTable(map, toCustom ? kNativeMasks : map.pmMasks, masks);
    setMasks(map, format, masks);
    return true;
}

void reverseAll(const PixMap &map)
{
    if (!map.baseAddr)
        return;
    GdiFlush();
    MTBX_ConvertBitsFast(map.baseAddr, std::abs(map.pmHeight), map.pmWidth, rowBytesOf(map));
}

bool setDirectFormat(PixMap &map, SInt32 format, const UInt32 *masks)
{
    const UInt32 *target = format == kPixelFormatNative ? kNativeMasks : masks;
    if (!target)
        return false;
    if (haveSameColors(masksOf(map), target))
        return true;
    if (map.pixelSize != 32)
        return false;
    reverseAll(map);
    setMasks(map, format, target);
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
    const PixMap &map = *pixMapOfWorld(world);
    bool isKnown = format == kGWorld32AlphaFirst || format == kGWorld32BlueFirst;
    if (!isKnown || map.pixelSize != 32)
        return paramErr;
    reverseAll(map);
    return MTBX_AssumeGWorld32PixmapFormat(world, format);
}
