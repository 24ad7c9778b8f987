// Grey ramps and colour cubes.
#include "ColorTableRules.h"

#include "Palettes_internal.h"

#include <mtbx/MacMemory.h>

#include <cstddef>
#include <cstring>
#include <iterator>

namespace {

constexpr SInt32 seedOfRamps = 500, seedOfCubes = 800;
constexpr UInt16 wide(SInt32 level)
{
    return static_cast<UInt16>(level * 257);
}

constexpr UInt8 grayLevels[] = {6, 19, 31, 44, 57, 70, 83, 95, 108, 121, 137, 153, 169, 185, 205, 221, 237, 253};

SInt32 cubeSize(SInt32 levels)
{
    SInt32 greys = levels == 6 ? static_cast<SInt32>(std::size(grayLevels)) : 0;
    return levels * levels * levels + greys;
}

void writeCube(ColorSpec *entries, SInt32 levels)
{
    auto level = [=](SInt32 step) { return static_cast<UInt16>(step * 65535 / (levels - 1)); };
    ColorSpec *next = entries;
    for (SInt32 red = levels - 1; red >= 0; --red)
        for (SInt32 green = levels - 1; green >= 0; --green)
            for (SInt32 blue = levels - 1; blue >= 0; --blue)
                next++->rgb = {level(red), level(green), level(blue)};
    if (levels == 6)
        for (UInt8 gray : grayLevels)
            next++->rgb = {wide(gray), wide(gray), wide(gray)};
}

RGBColor colorOf(const PALETTEENTRY &entry)
{
    return {wide(entry.peRed), wide(entry.peGreen), wide(entry.peBlue)};
}

} // namespace

CTabHandle newColorTable(SInt32 entryCount, SInt32 seed)
{
    Size byteCount = static_cast<Size>(offsetof(ColorTable, ctTable)) + entryCount * Size{sizeof(ColorSpec)};
    auto table = reinterpret_cast<CTabHandle>(NewHandleClear(byteCount));
    if (!table)
        return nullptr;
    (*table)->ctSeed = seed;
    (*table)->ctSize = static_cast<SInt16>(entryCount - 1);
    for (SInt32 i = 0; i < entryCount; ++i)
        entriesOf(table)[i].value = static_cast<UInt16>(i);
    return table;
}

CTabHandle newGrayRamp(SInt32 entryCount, Ramp ramp)
{
    CTabHandle table = newColorTable(entryCount, seedOfRamps + entryCount);
    if (!table)
        return nullptr;
    for (SInt32 i = 0; i < entryCount; ++i) {
        SInt32 level = i * 255 / (entryCount - 1);
        UInt16 channel = wide(ramp == Ramp::WhiteFirst ? 255 - level : level);
        entriesOf(table)[i].rgb = {channel, channel, channel};
    }
    return table;
}

CTabHandle newColorCube(SInt32 levels)
{
    CTabHandle table = newColorTable(cubeSize(levels), seedOfCubes + levels);
    if (table)
        writeCube(entriesOf(table), levels);
    return table;
}

CTabHandle newRedFirstCube(SInt32 levels)
{
    CTabHandle table = newColorTable(levels * levels * levels, seedOfCubes + levels);
    if (!table)
        return nullptr;
    auto level = [=](SInt32 step) { return wide(step * 255 / (levels - 1)); };
    ColorSpec *next = entriesOf(table);
    for (SInt32 blue = 0; blue < levels; ++blue)
        for (SInt32 green = 0; green < levels; ++green)
            for (SInt32 red = 0; red < levels; ++red)
                next++->rgb = {level(red), level(green), level(blue)};
    return table;
}

CTabHandle newSystemColorCube()
{
    constexpr SInt32 levels = 6;
    CTabHandle table = newColorTable(256, seedOfCubes + levels);
    if (!table)
        return nullptr;
    ColorSpec *entries = entriesOf(table);
    writeCube(entries + systemEntryCount, levels);
    for (SInt32 i = 0; i < systemEntryCount; ++i) {
        entries[i].rgb = colorOf(firstSystemEntries[i]);
        entries[255 - i].rgb = colorOf(lastSystemEntries[i]);
    }
    return table;
}
