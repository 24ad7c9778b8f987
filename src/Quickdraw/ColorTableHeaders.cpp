// Headers of colour tables: a BITMAPINFO whose slots have the table's colours, or on a screen with a
// palette their 16-bit indices in it.
#include "ColorTableHeaders.h"
#include "ColorTableRules.h"
#include "Palettes_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>

#include <algorithm>

namespace {

constexpr bool wantsHeader(UInt16 usage)
{
    return usage >= 1 && usage <= 3;
}

struct Channels {
    UInt8 red, green, blue;
};

Channels highBytes(const RGBColor &color)
{
    return {static_cast<UInt8>(color.red >> 8), static_cast<UInt8>(color.green >> 8),
            static_cast<UInt8>(color.blue >> 8)};
}

SInt32 luminance(Channels color)
{
    return ((color.red + 2 * color.green) * 38 + color.blue * 14 + 64) >> 7;
}

UInt16 paletteSlot(Channels color)
{
    if (paletteIsGray == 2)
        return static_cast<UInt16>(luminance(color));
    return static_cast<UInt16>(GetNearestPaletteIndex(gcurrent_palette, RGB(color.red, color.green, color.blue)));
}

Handle newHeader(SInt32 entryCount)
{
    return NewHandleClear(Size{44} + 4 * std::max<Size>(entryCount - 1, 3));
}

void writeHeader(BITMAPINFOHEADER &header, SInt32 entryCount)
{
    header.biSize = sizeof header;
    header.biPlanes = 1;
    header.biCompression = BI_RGB;
    header.biXPelsPerMeter = header.biYPelsPerMeter = 0;
    header.biClrUsed = header.biClrImportant = static_cast<DWORD>(entryCount);
}

void writeSlots(void *slots, CTabHandle table)
{
    SInt32 entryCount = entryCountOf(table);
    for (const ColorSpec *entry = entriesOf(table), *end = entry + entryCount; entry != end; ++entry) {
        if (entry->value >= entryCount)
            continue;
        Channels color = highBytes(entry->rgb);
        if (gbits_per_pixel > 8)
            static_cast<RGBQUAD *>(slots)[entry->value] = {color.blue, color.green, color.red, 0};
        else
            static_cast<UInt16 *>(slots)[entry->value] = paletteSlot(color);
    }
}

} // namespace

void setColorTableUsage(CTabHandle table, UInt16 usage)
{
    if (!table)
        return;
    (*table)->ctUsage = usage;
    if (!wantsHeader(usage)) {
        DisposeHandle((*table)->ctHeader);
        (*table)->ctHeader = nullptr;
        return;
    }
    if (!(*table)->ctHeader)
        (*table)->ctHeader = newHeader(entryCountOf(table));
    Handle header = (*table)->ctHeader;
    if (!header)
        return;
    writeHeader(*reinterpret_cast<BITMAPINFOHEADER *>(*header), entryCountOf(table));
    writeSlots(*header + sizeof(BITMAPINFOHEADER), table);
    (*table)->ctSeed = 0;
}
